// A complete test project and a throw-away program folder for the project
// file tests.
#pragma once

#include <filesystem>
#include <string>

#include "core/session.h"
#include "projectfile/project_file.h"

namespace solvane::test {

// A program folder with temp/, sketch/ and sample/ under the system's
// temporary folder, removed again at the end.
class ProgramFolder {
  public:
    explicit ProgramFolder(const std::string& name);
    ~ProgramFolder();
    const std::filesystem::path& Root() const { return root_; }
    std::filesystem::path operator/(const std::string& rel) const { return root_ / rel; }

  private:
    std::filesystem::path root_;
};

// The profile type titles and group names, standing in for the schedule
// library, which supplies them in the program.
void FillLibraryTitles(ProjectModel& model);
// Hooks for the reader with that stand-in library only.
ProjectFileHooks TitleHooks();

// A two-level office in Leadville, Colorado, in I-P: every block of the file
// is used, with zones, surfaces, both catalogs, profiles of all seven types,
// demand rates and a building matrix (written to sketch/bld_mtx.all).
void BuildOfficeProject(Session& session);
// The building matrix of that project.
std::string OfficeMatrix();

// The whole file: head line and body, in the project's units.
std::string WholeFile(Session& session);
// Reads `text` into `session` with TitleHooks; fails the test on an error.
void ReadInto(Session& session, const std::string& text);

// A project written back after reading `read` is the same text line for line,
// but for the climate zone, of which the reader keeps the number alone
// ("5 A" comes back as "5").
void ExpectWrittenAsRead(const std::string& written, const std::string& read);

// The lines of a file text.
std::string LineAt(const std::string& text, int index);  // 0-based
int FindLine(const std::string& text, const std::string& line, int from = 0);

}  // namespace solvane::test
