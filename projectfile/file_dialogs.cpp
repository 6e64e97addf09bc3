#include "projectfile/file_dialogs.h"

#include <fnmatch.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <fstream>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "core/text_file.h"

namespace fs = std::filesystem;

namespace solvane {

namespace {

// Position of the file name part of a path.
std::size_t NameStart(const std::string& path) {
    const auto slash = path.find_last_of('/');
    return slash == std::string::npos ? 0 : slash + 1;
}

bool Matches(const std::string& pattern, const std::string& name) {
    return fnmatch(pattern.c_str(), name.c_str(), FNM_CASEFOLD) == 0;
}

const char* const kTaskFields[][2] = {
    {"CodeStatus", "Image8"},    {"weatherdata", "Image3"},    {"projectinformation", "Image1"},
    {"economicsdata", "Image5"}, {"buildingsketch", "Image4"}, {"zonedescription", "Image12"},
    {"executerun", "Image6"},
};

void TellWriteFailure(Prompt& prompt, const std::string& path, const std::string& why) {
    prompt.Ask("The project file " + path + " could not be written" +
                   (why.empty() ? std::string(".") : ": " + why) + std::string(CrLf) +
                   "The file on disk has not been changed.",
               "Save Project", Buttons::Ok, Icon::Exclamation);
}

}  // namespace

// ---- naming rules -----------------------------------------------------------------

std::string BuildDialogPath(const std::string& folder, const std::string& typed) {
    if (!typed.empty() && typed[0] == '/') return typed;
    if (typed.size() >= 2 && typed[1] == ':') return typed;
    if (!folder.empty() && folder.back() == '/') return folder + typed;
    return folder + "/" + typed;
}

std::string OpenExtension(const std::string& path) {
    const std::size_t start = NameStart(path);
    const std::size_t dot = path.find('.', start);
    if (dot == std::string::npos) return path + ".inp";
    const std::string tail = cuts::Right(path, 4);
    if (tail == ".inp" || tail == ".INP") return path;
    return path.substr(0, dot + 1) + "inp";
}

std::string SaveExtension(const std::string& path) {
    const std::size_t start = NameStart(path);
    const std::size_t dot = path.find('.', start);
    if (dot == std::string::npos) return path + ".inp";
    const std::string tail = cuts::Right(path, 3);
    if (tail == "INP" || tail == "inp") return path;
    return path.substr(0, dot) + ".inp";
}

std::string SampleDisplayName(const std::string& fileName) {
    const auto open = fileName.find('[');
    if (open == std::string::npos) return fileName;
    const auto close = fileName.find(']', open);
    if (close == std::string::npos) return fileName;
    return fileName.substr(0, open) + fileName.substr(close + 1);
}

// For a file name.inp the kept files begin with name-inp.
std::vector<HourlyCopy> HourlyFiles(const ProgramPaths& paths, const std::string& projectFile) {
    std::string base = projectFile;
    const std::size_t dot = base.find_last_of('.');
    if (dot != std::string::npos && dot >= NameStart(base)) base[dot] = '-';
    return {{base + "-Energy.hry", paths.Resolve("\\temp\\ecalc$.hry")},
            {base + "-Temp.hry", paths.Resolve("\\temp\\etemp$.hry")},
            {base + "-Weth.hry", paths.Resolve("\\temp\\eweth$.hry")}};
}

// ---- lists -------------------------------------------------------------------------

std::vector<std::string> ListPlaces() {
    std::vector<std::string> places;
    if (const char* home = std::getenv("HOME"); home && *home) places.emplace_back(home);
    places.emplace_back("/");
    // Mounted volumes: what is mounted under the usual removable-media folders.
    std::ifstream mounts("/proc/self/mounts");
    std::string device, point, rest;
    while (mounts >> device >> point && std::getline(mounts, rest)) {
        if (point.rfind("/media/", 0) == 0 || point.rfind("/mnt/", 0) == 0 ||
            point.rfind("/run/media/", 0) == 0)
            places.push_back(point);
    }
    return places;
}

void FileBrowser::ChangeFolder(const std::string& folder) {
    Dir1Path = folder.empty() ? std::string("/") : folder;
    Refresh();
}

void FileBrowser::ChooseDrive(int index) {
    if (index < 0 || index >= static_cast<int>(Drive1.size())) return;
    ChangeFolder(Drive1[static_cast<std::size_t>(index)]);
}

void FileBrowser::OpenFolder(int index) {
    if (index < 0 || index >= static_cast<int>(Dir1.size())) return;
    const std::string& entry = Dir1[static_cast<std::size_t>(index)];
    fs::path next = fs::path(Dir1Path) / entry;
    ChangeFolder(entry == ".." ? fs::path(Dir1Path).parent_path().string()
                               : next.lexically_normal().string());
}

void FileBrowser::Refresh() {
    if (Drive1.empty()) Drive1 = ListPlaces();
    Dir1.clear();
    File1.clear();
    if (fs::path(Dir1Path) != fs::path(Dir1Path).root_path()) Dir1.emplace_back("..");
    std::error_code ec;
    std::vector<std::string> folders;
    for (fs::directory_iterator it(Dir1Path, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        std::error_code typeError;
        if (it->is_directory(typeError))
            folders.push_back(name);
        else if (Matches(pattern_, name))
            File1.push_back(name);
    }
    std::sort(folders.begin(), folders.end());
    std::sort(File1.begin(), File1.end());
    Dir1.insert(Dir1.end(), folders.begin(), folders.end());
}

// ---- errors and clean-up ---------------------------------------------------------------

int RunTimeErrorNumber(const std::error_code& ec) {
    switch (ec.value()) {
        case ENOENT:
            return 53;
        case ENOTDIR:
            return 76;
        case EACCES:
        case EPERM:
        case EROFS:
            return 70;
        case ENOSPC:
        case EDQUOT:
            return 61;
        case EFBIG:
            return 7;
        case EBUSY:
            return 55;
        case ENAMETOOLONG:
            return 52;
        default:
            return 57;
    }
}

std::string GeneralErrorText(int number) {
    switch (number) {
        case 7:
            return "File is too big to open.";
        case 52:
            return "Bad file name or number.";
        case 53:
            return "Bad file name, or some files are missing, or your input is not complete. "
                   "Re-check your program input data.";
        case 55:
            return "Error. File already open.";
        case 57:
        case 68:
        case 71:
        case 72:
            return "Disk error. Please check the disk and try again.";
        case 61:
            return "Disk is full.  Save to another disk.";
        case 62:
            return "SOLVANE is unable to open one of the results files because it had a wrong "
                   "format. Suggestion: Restart this project, and reload the state and city "
                   "weather data.";
        case 70:
            return "Permission denied.  Check the disk.";
        case 75:
        case 76:
            return "Path not found or path/file access error.";
        default:
            return {};
    }
}

ErrorReportEnd GeneralErrorReport(Prompt& prompt, int number) {
    const std::string title = "Solvane Error # " + std::to_string(number);
    if (number == 482) {
        prompt.Ask(
            "No printers were found -- printing will not be available until printer is "
            "installed. You can Save the drawing as a JPEG file and print it later, or "
            "exit project now and install a printer.",
            title, Buttons::Ok, Icon::Exclamation);
        return ErrorReportEnd::Resumed;
    }
    prompt.Ask(GeneralErrorText(number), title, Buttons::Ok, Icon::Exclamation);
    return ErrorReportEnd::Stopped;
}

std::error_code DeleteStagedZones(const ProgramPaths& paths) {
    std::error_code ec;
    const fs::path temp = paths.Resolve("\\temp");
    std::vector<fs::path> staged;
    for (fs::directory_iterator it(temp, ec), end; !ec && it != end; it.increment(ec))
        if (Matches("*.zon", it->path().filename().string())) staged.push_back(it->path());
    if (ec) return ec;
    for (const fs::path& p : staged) {
        fs::remove(p, ec);
        if (ec) return ec;
    }
    return {};
}

void ClearStagedZones(Session& session, Prompt& prompt) {
    const ProjectModel& m = session.model;
    bool clear = m.flags.SketchVisits > 0;
    for (int type = 1; type <= kProfileTypes && !clear; ++type) {
        const bool untouched = m.profiles.ProfileTypeEdited[type] != 1 &&
                               m.flags.ProjectFromFile != 1 && m.flags.InputFileSaved != 1 &&
                               m.flags.CatalogEdited[type] != 1;
        if (!untouched) clear = true;
    }
    if (!clear) return;
    if (const std::error_code ec = DeleteStagedZones(session.paths))
        GeneralErrorReport(prompt, RunTimeErrorNumber(ec));
}

// ---- results name -------------------------------------------------------------------------

ResultsName NameForResults(const Session& session, const std::string& dialogName,
                           const std::string& folder) {
    const ProjectModel& m = session.model;
    std::string name =
        m.flags.ProjectFromFile == 1 ? m.session.InputFileName : std::string("New_Project.inp");
    if (!dialogName.empty()) name = dialogName;
    name = name.substr(NameStart(name));
    // The results dialog wants ".ot" and a digit where the project has "inp".
    const std::string stem = name.size() > 3 ? name.substr(0, name.size() - 3) : name;
    ResultsName r;
    r.folder = folder;
    r.outputName = "ot_" + stem + "ot1";
    r.nosaveVisible = m.flags.OutputAvailable == 1;
    return r;
}

// ---- opening ------------------------------------------------------------------------------

namespace {

// The files a read rewrites beside the model: the zone staging files and the
// building matrix. Kept before a read so that a damaged file leaves them as
// the open project had them.
class StagedFiles {
  public:
    explicit StagedFiles(const ProgramPaths& paths) : paths_(paths) {
        std::error_code ec;
        for (fs::directory_iterator it(paths.Resolve("\\temp"), ec), end; !ec && it != end;
             it.increment(ec))
            if (Matches("*.zon", it->path().filename().string())) Keep(it->path());
        Keep(paths.Resolve("\\sketch\\bld_mtx.all"));
    }
    void Restore() const {
        DeleteStagedZones(paths_);
        for (const auto& [path, content] : kept_) {
            std::error_code ec;
            if (content)
                WriteFileAtomic(path, *content);
            else
                fs::remove(path, ec);
        }
    }

  private:
    void Keep(const fs::path& path) { kept_.emplace_back(path, ReadTextFile(path)); }

    const ProgramPaths& paths_;
    std::vector<std::pair<fs::path, std::optional<std::string>>> kept_;
};

}  // namespace

Navigation OpenProjectFromPath(Session& session, Prompt& prompt, const ProjectFileHooks& hooks,
                               const std::string& path, const std::string& retrievedTitle) {
    // The file is read whole before anything of the open project is let go,
    // so that a mistyped name leaves everything as it was.
    const auto content = ReadTextFile(path);
    std::error_code folder;
    if (!content && fs::is_directory(path, folder)) {
        prompt.Ask(path + " is a folder, not a project file." + std::string(CrLf) +
                       "Please choose a project file (.inp) in it.",
                   "Open Project", Buttons::Ok, Icon::Exclamation);
        return {};
    }
    if (!content) {
        prompt.Ask("The project file " + path + " could not be opened." + std::string(CrLf) +
                       "Please check the name and the folder.",
                   "Open Project", Buttons::Ok, Icon::Exclamation);
        return {};
    }
    // A file that is not a project (or a damaged one) must not cost the user
    // the project in memory: the read goes into a scratch session, which takes
    // the place of the open one only when the whole file was read. After the
    // "Surprise" prompt the program goes on with the project it had.
    const StagedFiles staged(session.paths);
    Session scratch = session;
    ProjectModel& sm = scratch.model;
    if (sm.flags.ProjectFromFile == 1) {
        DeleteStagedZones(scratch.paths);
        for (int i = 0; i <= 3; ++i) {
            sm.economics.DemandRateLimit[i].clear();
            sm.economics.DemandRateCost[i].clear();
        }
        sm.economics.NumDemandRates = 0;
    }
    for (const auto& task : kTaskFields) {
        scratch.mainmenu[task[0]].enabled = scratch.mainmenu[task[0]].visible = true;
        scratch.mainmenu[task[1]].enabled = scratch.mainmenu[task[1]].visible = true;
    }

    sm.session.InputFileName = path;
    if (hooks.loadScheduleLibrary) hooks.loadScheduleLibrary(scratch, prompt);
    if (ReadProjectFile(scratch, prompt, *content, path, hooks) == ReadStatus::Damaged) {
        staged.Restore();
        return {};
    }
    session = std::move(scratch);
    ProjectModel& m = session.model;
    m.session.InputFileShortName = m.session.InputFileName;

    WriteFileAtomic(session.paths.Resolve("/temp/wthChange.txt"), "1\r\n");
    for (const HourlyCopy& copy : HourlyFiles(session.paths, path)) {
        std::error_code ec;
        if (fs::exists(copy.kept, ec))
            fs::copy_file(copy.kept, copy.working, fs::copy_options::overwrite_existing, ec);
    }
    m.flags.ProjectTouched = 1;
    m.session.PreviousInputFileName = m.session.RunInputFileName = m.session.InputFileName;

    session.mainmenu.caption =
        "SOLVANE 2020 Project:... Energy Code = " + session.labels.CodeTitle[m.session.CodeNum];
    // A file saved before its location was chosen has no climate zone: it
    // opens, and the weather task is to be done again before anything that
    // depends on the climate.
    if (!NamesClimateZone(m.session.ClimateZone)) {
        m.flags.TaskDone[2] = 0;
        m.flags.LocationKnown = 0;
        prompt.Ask(
            "This project names no climate zone, so its location and its envelope "
            "defaults are not known." +
                std::string(CrLf) + "Please select its weather data again (task 2).",
            "No climate zone", Buttons::Ok, Icon::Exclamation);
    }
    prompt.Ask("Your Project is ready for review and/or Execution", retrievedTitle, Buttons::Ok,
               Icon::Information);
    return {Screen::MainMenu, true, false};
}

OldFileFormController::OldFileFormController(Session& session, Prompt& prompt,
                                             ProjectFileHooks hooks)
    : session_(session), prompt_(prompt), hooks_(std::move(hooks)) {}

void OldFileFormController::Show(const std::string& folder) {
    browser.Drive1 = ListPlaces();
    browser.ChangeFolder(folder);
}

void OldFileFormController::ChooseFile(int index) {
    if (index >= 0 && index < static_cast<int>(browser.File1.size()))
        retrievefile = browser.File1[static_cast<std::size_t>(index)];
}

Navigation OldFileFormController::Ok() {
    const std::string path = OpenExtension(BuildDialogPath(browser.Dir1Path, retrievefile));
    return OpenProjectFromPath(session_, prompt_, hooks_, path, "Project Retrieved");
}

Navigation OldFileFormController::Cancel() {
    return {Screen::MainMenu, true, false};
}

SampleFileFormController::SampleFileFormController(Session& session, Prompt& prompt,
                                                   ProjectFileHooks hooks)
    : session_(session), prompt_(prompt), hooks_(std::move(hooks)) {}

void SampleFileFormController::Show() {
    FileBrowser samples;
    samples.Drive1 = {"/"};
    samples.ChangeFolder(session_.paths.Resolve("\\sample").string());
    Files = samples.File1;
    File1.clear();
    Descriptions.clear();
    const fs::path folder = session_.paths.Resolve("\\sample");
    for (const std::string& f : Files) {
        File1.push_back(SampleDisplayName(f));
        Descriptions.push_back(ProjectDescriptionOf(folder / f));
    }
    selected = Files.empty() ? -1 : 0;
}

// The description is the fourth line of the file; only the head is read.
std::string ProjectDescriptionOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string line;
    for (int n = 1; n <= 4 && std::getline(in, line); ++n) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (n == 4 && line.rfind("Proj.Desc ", 0) == 0) return line.substr(10);
    }
    return {};
}

Navigation SampleFileFormController::Ok() {
    if (selected < 0 || selected >= static_cast<int>(Files.size())) return {};
    const std::string path =
        (session_.paths.Resolve("\\sample") / Files[static_cast<std::size_t>(selected)]).string();
    return OpenProjectFromPath(session_, prompt_, hooks_, path, "Sample Project Retrieved");
}

Navigation SampleFileFormController::Cancel() {
    return {Screen::MainMenu, true, false};
}

// ---- saving -------------------------------------------------------------------------------

bool WriteProjectFileTo(Session& session, Prompt& prompt, const fs::path& path, bool otherUnits) {
    ProjectModel& m = session.model;
    const int units = m.session.Units;
    LineWriter out;
    try {
        if (!otherUnits) {
            out.Line(HeadLine(m, session.labels.UnitsLabel[units == 2 ? 2 : 1]));
            WriteProjectFile(session, out);
        } else if (units == 2) {
            out.Line(HeadLine(m, "IP"));
            WriteProjectFileToIP(session, out);
        } else {
            out.Line(HeadLine(m, "SI"));
            WriteProjectFileToSI(session, out);
        }
    } catch (const WriteError& e) {
        TellWriteFailure(prompt, path.string(), e.what());
        return false;
    }
    if (!WriteFileAtomic(path, out.Str())) {
        TellWriteFailure(prompt, path.string(), {});
        return false;
    }
    return true;
}

SaveInputFormController::SaveInputFormController(Session& session, Prompt& prompt,
                                                 std::function<double()> random)
    : session_(session),
      prompt_(prompt),
      random_(std::move(random)),
      engine_(std::random_device{}()) {}

void SaveInputFormController::Show(const std::string& folder) {
    browser.Drive1 = ListPlaces();
    browser.ChangeFolder(folder);
    results.reset();
    // The dialog offers the project's own file, or nothing for a project that
    // has none yet, always in the project's own units: nothing of an earlier
    // save carries over to a new project.
    const ProjectModel& m = session_.model;
    inputname = m.flags.ProjectFromFile == 1 ? fs::path(m.session.InputFileName).filename().string()
                                             : std::string();
    unitChoice = 1;
}

void SaveInputFormController::ChooseFile(int index) {
    if (index >= 0 && index < static_cast<int>(browser.File1.size()))
        inputname = browser.File1[static_cast<std::size_t>(index)];
}

// The seed is the text of a random number below 1; it must fit the ten
// columns the head line keeps for it, so a draw that prints longer (an
// exponent form) is drawn again.
std::string WeatherSeedText(double random) {
    float f = static_cast<float>(random);
    if (f >= 1.0f) f = std::nextafter(1.0f, 0.0f);
    if (f < 0.0f) f = 0.0f;
    std::string text = NumText(f);
    return text.size() <= 10 ? text : std::string();
}

std::string SaveInputFormController::NewSeed() {
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    for (;;) {
        std::string text = WeatherSeedText(random_ ? random_() : uniform(engine_));
        if (!text.empty()) return text;
    }
}

Navigation SaveInputFormController::Ok() {
    ProjectModel& m = session_.model;
    results.reset();
    const std::string path = SaveExtension(BuildDialogPath(browser.Dir1Path, inputname));
    if (FileExists(fs::path(path))) {
        if (prompt_.Ask(
                "This file already exits." + std::string(CrLf) + "Do you want to replace it?",
                "File exists!", Buttons::YesNo, Icon::Question) != Answer::Yes) {
            prompt_.Ask("Please enter a new file name to save.", "Give file new name.", Buttons::Ok,
                        Icon::Information);
            return {};
        }
    }
    if (m.flags.ProjectFromFile == 0 && m.flags.RunDone == 0) m.session.WeatherSeed = NewSeed();

    const bool otherUnits = unitChoice == 2;
    if (otherUnits) {
        // The notice offers Cancel, but the save goes on whatever the answer.
        prompt_.Ask(
            "If you save your project with new units, be sure to close Solvane before you "
            "open this project and do further work with it.",
            "Unit save notice!", Buttons::OkCancel, Icon::Exclamation);
    }
    if (!WriteProjectFileTo(session_, prompt_, path, otherUnits)) return {};

    browser.Refresh();
    m.flags.ProjectFromFile = 1;
    m.flags.InputSavedFlag = 1;
    m.flags.InputFileSaved = m.flags.InputFileSavedOnce = 1;
    m.session.InputFileName = m.session.PreviousInputFileName = inputname = path;

    if (m.flags.ExitAfterSave == 1) {
        ClearStagedZones(session_, prompt_);
        return {Screen::None, true, true};
    }
    if (m.flags.PendingAfterSave != 0) {
        if (m.flags.RunDone != 1) {
            ReadHeadLine(m);
            return {Screen::RunSim, true, false};
        }
        results = NameForResults(session_, inputname, browser.Dir1Path);
        return {Screen::SaveOutForm, true, false};
    }
    if (m.flags.RunDone == 1 &&
        prompt_.Ask("The last simulation results has not been saved.  Do you want to save them?",
                    "Save output", Buttons::YesNo, Icon::Question) == Answer::Yes) {
        results = NameForResults(session_, inputname, browser.Dir1Path);
        m.flags.RunDone = 0;
        return {Screen::SaveOutForm, true, false};
    }
    return {Screen::MainMenu, true, false};
}

Navigation SaveInputFormController::Cancel() {
    return {Screen::MainMenu, true, false};
}

}  // namespace solvane
