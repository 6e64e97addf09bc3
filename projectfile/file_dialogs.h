// The dialogs that move projects between disk and the model: `oldfileform`
// opens a project file, `SampleFileForm` one of the samples, `saveinputform`
// writes one, in the project's units or in the other system. Each is a
// controller over its named fields; the screens bind to the members below
// and call the actions. The user is spoken to only through the Prompt.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include "core/session.h"
#include "projectfile/project_file.h"
#include "ui/prompt.h"

namespace solvane {

// ---- naming rules ---------------------------------------------------------------

// A typed name is a full path when it begins with "/" or has ":" as its
// second character; otherwise it is taken from the folder.
std::string BuildDialogPath(const std::string& folder, const std::string& typed);
// The open dialog's extension rule: a name with a "." that does not end in
// ".inp" or ".INP" has what follows its first "." replaced by "inp"; a name
// with none gets ".inp". Only the file name part of a path is looked at.
std::string OpenExtension(const std::string& path);
// The save dialog's rule: no "." adds ".inp"; a name whose last three
// characters aren't "INP" or "inp" has all from its first "." replaced by ".inp".
std::string SaveExtension(const std::string& path);
// A sample's name as the list shows it: the text between "[" and "]" dropped.
std::string SampleDisplayName(const std::string& fileName);
// The project description of a project file (its "Proj.Desc " line), empty
// when the file cannot be read or has none.
std::string ProjectDescriptionOf(const std::filesystem::path& file);
// The hourly result files kept beside a project and their working copies.
struct HourlyCopy {
    std::filesystem::path kept, working;
};
std::vector<HourlyCopy> HourlyFiles(const ProgramPaths& paths, const std::string& projectFile);

// ---- the lists of a file dialog ------------------------------------------------

// The places offered by the drive list: the home folder, the root and the
// mounted volumes.
std::vector<std::string> ListPlaces();

// `Drive1`, `Dir1` and `File1` of a file dialog.
class FileBrowser {
  public:
    explicit FileBrowser(std::string pattern = "*.inp") : pattern_(std::move(pattern)) {}

    std::vector<std::string> Drive1;  // places
    std::string Dir1Path;             // the folder shown
    std::vector<std::string> Dir1;    // its sub-folders, ".." first below the root
    std::vector<std::string> File1;   // its files that match the pattern, sorted

    void ChangeFolder(const std::string& folder);
    void ChooseDrive(int index);
    void OpenFolder(int index);  // an entry of Dir1
    void Refresh();

  private:
    std::string pattern_;
};

// ---- errors and clean-up -------------------------------------------------------

// The number of the general error table for a file system error.
int RunTimeErrorNumber(const std::error_code& ec);
// The general error report's text for an error number; empty when unknown.
std::string GeneralErrorText(int number);
// Shows the report. Error 482 (no printer) lets the caller resume.
enum class ErrorReportEnd { Stopped, Resumed };
ErrorReportEnd GeneralErrorReport(Prompt& prompt, int number);

// Deletes \temp\*.zon when the project has anything that the staging files
// stand for; runs when the program ends. A failure is reported and ignored.
void ClearStagedZones(Session& session, Prompt& prompt);
// Deletes \temp\*.zon; the error of a failed deletion, or none.
std::error_code DeleteStagedZones(const ProgramPaths& paths);

// ---- results name ----------------------------------------------------------------

struct ResultsName {
    std::string folder;      // the results dialog's Dir1
    std::string outputName;  // its outputname
    std::string pattern = "*.ot*";
    bool nosaveVisible = true;
};
// The suggestion for the results dialog; `dialogName` is the save dialog's
// name while a save is in progress.
ResultsName NameForResults(const Session& session, const std::string& dialogName,
                           const std::string& folder);

// ---- opening ------------------------------------------------------------------------

// Opens the project at `path`, as the open and sample dialogs do on OK.
// Returns the main screen, nothing when the file could not be read (the user
// has been told), or the end of the program when the file was damaged.
Navigation OpenProjectFromPath(Session& session, Prompt& prompt, const ProjectFileHooks& hooks,
                               const std::string& path, const std::string& retrievedTitle);

class OldFileFormController {
  public:
    OldFileFormController(Session& session, Prompt& prompt, ProjectFileHooks hooks = {});

    FileBrowser browser;
    std::string retrievefile;  // the name field

    void Show(const std::string& folder);
    void ChooseFile(int index);  // an entry of File1 goes to the name field
    Navigation Ok();
    Navigation Cancel();

  private:
    Session& session_;
    Prompt& prompt_;
    ProjectFileHooks hooks_;
};

class SampleFileFormController {
  public:
    SampleFileFormController(Session& session, Prompt& prompt, ProjectFileHooks hooks = {});

    std::vector<std::string> File1;         // names as shown
    std::vector<std::string> Files;         // the files behind them
    std::vector<std::string> Descriptions;  // each file's project description
    int selected = -1;

    void Show();  // lists \sample\*.inp
    Navigation Ok();
    Navigation Cancel();

  private:
    Session& session_;
    Prompt& prompt_;
    ProjectFileHooks hooks_;
};

// ---- saving ---------------------------------------------------------------------------

// The text of a random number from 0 up to but not including 1, as a weather
// seed; empty when its text would not fit the seed's ten characters.
std::string WeatherSeedText(double random);

// Writes the project to `path` with its head line, in the project's units or
// in the other system; the old file stays whole when writing fails. The
// user is told of a failure.
bool WriteProjectFileTo(Session& session, Prompt& prompt, const std::filesystem::path& path,
                        bool otherUnits);

class SaveInputFormController {
  public:
    // `random` gives numbers from 0 up to but not including 1 for the weather
    // seed; by default a generator of the controller's own.
    SaveInputFormController(Session& session, Prompt& prompt, std::function<double()> random = {});

    FileBrowser browser;
    std::string inputname;  // the name field
    int unitChoice = 1;     // 1: the project's units, 2: the other system
    // Set by Ok when the results dialog is to open with this suggestion.
    std::optional<ResultsName> results;

    void Show(const std::string& folder);
    void ChooseFile(int index);
    Navigation Ok();
    Navigation Cancel();

    // The text of a new weather seed.
    std::string NewSeed();

  private:
    Session& session_;
    Prompt& prompt_;
    std::function<double()> random_;
    std::mt19937 engine_;
};

}  // namespace solvane
