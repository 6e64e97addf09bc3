// The program's own folder and the data paths under it.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace solvane {

class ProgramPaths {
  public:
    ProgramPaths() = default;
    explicit ProgramPaths(std::filesystem::path programDir);

    const std::filesystem::path& ProgramDir() const { return programDir_; }

    // Resolves a program path such as "\codes\HTfuel.txt" or "/temp/wthChange.txt"
    // under the program folder: either slash, letters matched without regard to
    // case against what exists. Parts that do not exist keep their spelling.
    std::filesystem::path Resolve(std::string_view relative) const;

  private:
    std::filesystem::path programDir_;
};

// Every folder a program folder holds.
inline constexpr std::string_view kProgramFolders[] = {
    "temp", "sketch", "weather", "Codes", "profiles", "Bldg-Prop", "Helpinfo", "sample", "images"};

// Whether the program can write in a program folder (itself and its temp).
bool ProgramDirWritable(const std::filesystem::path& dir);

// Finds the program folder: `homeOption` (--home) first, then SOLVANE_HOME,
// then the folder beside the executable or its installed share folder. When
// that folder cannot be written, a per-user copy under the XDG data home is
// made on first start and used instead. Throws std::runtime_error when no
// program folder is found.
ProgramPaths LocateProgramDir(
    std::string_view homeOption, const std::filesystem::path& executable,
    const std::function<bool(const std::filesystem::path&)>& writable = ProgramDirWritable);

// A glob match on one path; wild cards "*" and "?" in the last part count.
bool FileExists(const ProgramPaths& paths, std::string_view relative);
bool FileExists(const std::filesystem::path& path);

}  // namespace solvane
