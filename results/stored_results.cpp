#include "results/stored_results.h"

#include <cctype>

#include "core/line_writer.h"
#include "core/text_cuts.h"
#include "core/text_file.h"
#include "projectfile/project_file.h"

namespace fs = std::filesystem;

namespace solvane {

namespace {

std::string Lower(std::string s) {
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

// Copies a file through the atomic write; false when it cannot be read or
// written.
bool CopyFile(const fs::path& from, const fs::path& to) {
    const auto text = ReadTextFile(from);
    return text && WriteFileAtomic(to, *text);
}

bool IsProjectUnderWay(const ProjectModel& m) {
    return m.session.CodeNum != 0 || m.flags.ProjectFromFile == 1 || m.flags.TaskDone[2] == 1;
}

}  // namespace

bool ValidOutputName(const std::string& name, bool fl) {
    if (name.size() < 5) return false;
    const std::string ext = name.substr(name.size() - 4, 3);
    const char digit = name.back();
    const bool ot = ext == ".OT" || ext == ".ot";
    const bool isFl = ext == ".FL" || ext == ".fl";
    return (ot || (fl && isFl)) && digit >= '0' && digit <= '9';
}

StoredFileSet StoredFiles(const std::string& fullName) {
    const std::string stem = fullName.substr(0, fullName.size() - 4);
    const std::string tail = Lower(fullName.substr(fullName.size() - 3));  // "ot1"
    StoredFileSet s;
    s.results = stem + ".ot" + fullName.back();
    s.comfort = stem + "-" + tail + ".flt";
    s.energy = stem + "-" + tail + "-Energy.hry";
    s.temperature = stem + "-" + tail + "-Temp.hry";
    s.weather = stem + "-" + tail + "-Weth.hry";
    return s;
}

std::optional<ReportIdentity> ReadReportIdentity(const std::string& report) {
    const auto lines = SplitLines(report);
    std::size_t code = 0;
    while (code < lines.size() && cuts::Left(lines[code], 12) != " ENERGY CODE") ++code;
    if (code == lines.size()) return std::nullopt;
    ReportIdentity id;
    id.CodeTitle = cuts::TrimRight(cuts::Mid(lines[code], 16));
    if (id.CodeTitle.rfind("90.1-2010", 0) == 0) id.CodeNum = 1;
    if (id.CodeTitle.rfind("90.1-2019", 0) == 0) id.CodeNum = 2;
    if (id.CodeTitle.rfind("189.1", 0) == 0) id.CodeNum = 3;
    // The page head that carries the type stands before the code line on the
    // first page and on every later one.
    auto type = lines.end();
    for (auto it = lines.begin() + static_cast<long>(code);
         it != lines.end() && type == lines.end(); ++it)
        if (cuts::Left(*it, 9) == "    TYPE:") type = it;
    for (auto it = lines.begin(); it != lines.end() && type == lines.end(); ++it)
        if (cuts::Left(*it, 9) == "    TYPE:") type = it;
    for (const std::string& line : lines)
        if (cuts::Left(line, 12) == "*** PROJECT:") {
            id.ProjectName = cuts::TrimLeft(cuts::TrimRight(cuts::Mid(line, 13, 61)));
            break;
        }
    if (type != lines.end()) {
        id.TypeText = cuts::Mid(*type, 18, 28);
        std::string digits;
        for (char c : id.TypeText)
            if (c >= '0' && c <= '9') digits += c;
        if (!digits.empty() && digits.size() < 6) id.BuildingType = std::stoi(digits);
    }
    return id;
}

// ---- saveoutform ---------------------------------------------------------------------

SaveOutFormController::SaveOutFormController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

void SaveOutFormController::Show(const std::string& folder,
                                 const std::optional<ResultsName>& suggestion) {
    const ProjectModel& m = session_.model;
    // A comfort run keeps its results under ".fl" names.
    browser = FileBrowser(m.flags.RunResultCode == 4 ? "*.fl*" : "*.ot*");
    browser.ChangeFolder(suggestion ? suggestion->folder : folder);
    const std::string saved = m.session.OutputFileName;
    if (suggestion) {
        outputname = suggestion->outputName;
    } else if (m.flags.OutputFileSaved == 1 && ValidOutputName(saved)) {
        outputname = fs::path(saved).filename().string();
    } else if (!m.session.PreviousInputFileName.empty()) {
        const std::string name = fs::path(m.session.PreviousInputFileName).filename().string();
        outputname = (name.size() > 3 ? name.substr(0, name.size() - 3) : name + ".") + "ot1";
    } else {
        outputname = "New_Project.ot1";
    }
    fields = ScreenFields{};
    fields.caption = "Save Simulation Results";
    fields["Text1"].text =
        "Results are stored under a name ending .ot0 to .ot9: the report, its comfort file "
        "and, when the run made them, the hourly files, side by side in the chosen folder.";
    // "No Save" lets a waiting run go on, or the program end, without storing.
    fields["nosave"].visible = m.flags.PendingAfterSave != 0 || m.flags.ExitAfterSave == 1;
}

void SaveOutFormController::ChooseFile(int index) {
    if (index >= 0 && index < static_cast<int>(browser.File1.size()))
        outputname = browser.File1[static_cast<std::size_t>(index)];
}

Navigation SaveOutFormController::Ok() {
    ProjectModel& m = session_.model;
    if (!ValidOutputName(outputname)) {
        prompt_.Ask(kOutputNameError, "Error", Buttons::Ok, Icon::Exclamation);
        return {};
    }
    const std::string full = BuildDialogPath(browser.Dir1Path, outputname);
    const StoredFileSet set = StoredFiles(full);
    if (FileExists(set.results) &&
        prompt_.Ask(std::string(CrLf) + "This file already exits." + std::string(CrLf) +
                        "Do you want to replace it?",
                    "File exists!", Buttons::YesNo, Icon::Question) != Answer::Yes) {
        prompt_.Ask("Please enter a new file name to save.", "Give file new name.", Buttons::Ok,
                    Icon::Information);
        return {};
    }
    const auto temp = [&](const char* name) { return session_.paths.Resolve(name); };
    if (!CopyFile(temp("\\temp\\ecalc$.out"), set.results)) {
        prompt_.Ask("The results could not be stored as " + set.results.string() +
                        ": the folder cannot be written, or the run left no results.",
                    "Error", Buttons::Ok, Icon::Exclamation);
        return {};
    }
    if (FileExists(temp("\\temp\\ecalc$.flt"))) CopyFile(temp("\\temp\\ecalc$.flt"), set.comfort);
    if (m.flags.HourlyOutputFlag == 1) {
        const fs::path* kept[3] = {&set.energy, &set.temperature, &set.weather};
        for (int i = 0; i < 3; ++i)
            if (FileExists(temp(kHourlyTempFiles[i])))
                CopyFile(temp(kHourlyTempFiles[i]), *kept[i]);
    }
    m.flags.OutputFileSaved = 1;
    m.session.OutputFileName = set.results.string();
    browser.Refresh();
    return Continue();
}

Navigation SaveOutFormController::Continue() {
    ProjectModel& m = session_.model;
    if (m.flags.ExitAfterSave == 1) {
        ClearStagedZones(session_, prompt_);
        return {Screen::None, true, true};
    }
    if (m.flags.PendingAfterSave != 0) {
        m.flags.RunDone = 0;
        ReadHeadLine(m);
        return {Screen::RunSim, true, false};
    }
    m.flags.RunDone = 0;
    return {Screen::MainMenu, true, false};
}

Navigation SaveOutFormController::NoSave() {
    ProjectModel& m = session_.model;
    if (m.flags.ExitAfterSave == 1) {
        ClearStagedZones(session_, prompt_);
        return {Screen::None, true, true};
    }
    if (m.flags.PendingAfterSave != 0) {
        ReadHeadLine(m);
        return {Screen::RunSim, true, false};
    }
    return {Screen::MainMenu, true, false};
}

Navigation SaveOutFormController::Cancel() {
    session_.model.flags.ExitAfterSave = 0;
    return {Screen::MainMenu, true, false};
}

// ---- selectview ------------------------------------------------------------------------

bool OpenStoredResults(Session& session, Prompt& prompt, const std::string& fullName) {
    ProjectModel& m = session.model;
    if (!ValidOutputName(fullName, false)) {
        prompt.Ask(kOutputNameError, "Error", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    const StoredFileSet set = StoredFiles(fullName);
    const auto report = ReadTextFile(fullName);
    const auto identity = report ? ReadReportIdentity(*report) : std::nullopt;
    if (!identity) {
        prompt.Ask("Output file does not exist", "Error", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    // The stored report names its code and building type; they become the
    // session's when no project is under way. A project being worked on
    // keeps its own: the benchmark reads the type from the report itself.
    if (!IsProjectUnderWay(m)) {
        m.session.CodeNum = static_cast<std::int16_t>(identity->CodeNum);
        m.session.CodeName = session.labels.CodeTitle[m.session.CodeNum];
        m.ProjectData[0] = identity->TypeText;
        if (!identity->ProjectName.empty()) m.ProjectData[kProjName] = identity->ProjectName;
        if (identity->BuildingType >= 1 && identity->BuildingType <= kBuildingTypes)
            m.session.BuildingType = static_cast<std::int16_t>(identity->BuildingType);
    }
    const auto temp = [&](const char* name) { return session.paths.Resolve(name); };
    if (!WriteFileAtomic(temp("\\temp\\ecalc$.out"), *report)) {
        prompt.Ask(temp("\\temp\\ecalc$.out").string() + " could not be written.", "Error",
                   Buttons::Ok, Icon::Exclamation);
        return false;
    }
    m.session.OutputFileName = fullName;

    // The hourly files, when the set has them; their absence is no failure.
    const fs::path* kept[3] = {&set.energy, &set.temperature, &set.weather};
    bool hourly = true;
    for (int i = 0; i < 3; ++i) hourly = CopyFile(*kept[i], temp(kHourlyTempFiles[i])) && hourly;
    if (!hourly)
        for (const char* name : kHourlyTempFiles) {
            std::error_code ec;
            fs::remove(temp(name), ec);  // no hourly files of another run stay behind
        }
    m.flags.HourlyOutputFlag = hourly ? 1 : 0;

    m.session.InputFileShortName =
        fullName.size() > 20 ? fs::path(fullName).filename().string() : fullName;
    if (m.flags.ViewRequest == 12) m.flags.TableRequest = m.flags.GraphRequest = 0;

    // The comfort file from the report itself: the stored one is a convenience.
    std::string comfort;
    bool in = false;
    for (const std::string& line : SplitLines(*report)) {
        in = in || line.rfind("IX.", 0) == 0;
        if (in) comfort.append(line).append("\r\n");
    }
    WriteFileAtomic(temp("\\temp\\ecalc$.flt"), comfort);

    m.flags.OutputAvailable = 1;
    m.flags.ViewedStoredOutput = 1;
    // What \temp holds now is stored: nothing is lost by leaving it.
    m.flags.RunDone = 0;
    m.flags.OutputFileSaved = 1;
    session.mainmenu["viewmenu"].enabled = true;
    return true;
}

SelectViewController::SelectViewController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

void SelectViewController::Show(const std::string& folder) {
    browser = FileBrowser("*.ot*");
    browser.ChangeFolder(folder);
    Text1.clear();
}

void SelectViewController::ChooseFile(int index) {
    if (index >= 0 && index < static_cast<int>(browser.File1.size()))
        Text1 = browser.File1[static_cast<std::size_t>(index)];
}

Navigation SelectViewController::Ok() {
    if (!ValidOutputName(Text1, false)) {
        prompt_.Ask(kOutputNameError, "Error", Buttons::Ok, Icon::Exclamation);
        return {};
    }
    if (!OpenStoredResults(session_, prompt_, BuildDialogPath(browser.Dir1Path, Text1))) return {};
    const ProjectModel& m = session_.model;
    if (m.flags.TableRequest >= 1 && m.flags.TableRequest <= 8)
        return {Screen::Tabular, true, false};
    return {Screen::ResultCharts, true, false};
}

Navigation SelectViewController::Cancel() {
    return {Screen::MainMenu, true, false};
}

// ---- the hub's View Output menu ---------------------------------------------------------

Navigation TableEntry(Session& session, int entry) {
    ProjectModel& m = session.model;
    m.flags.ViewRequest = 6;
    m.flags.TableRequest = static_cast<std::int16_t>(entry);
    m.flags.GraphRequest = 0;
    if (m.flags.OutputAvailable == 1) return {Screen::Tabular, false, false};
    return {Screen::SelectView, false, false};
}

Navigation GraphEntry(Session& session, int entry) {
    ProjectModel& m = session.model;
    m.flags.ViewRequest = 10;
    m.flags.GraphRequest = static_cast<std::int16_t>(entry);
    m.flags.TableRequest = 0;
    if (m.flags.OutputAvailable == 1) return {Screen::ResultCharts, false, false};
    return {Screen::SelectView, false, false};
}

Navigation RetrieveEntry(Session& session, Prompt& prompt) {
    ProjectModel& m = session.model;
    m.flags.ViewRequest = 12;
    m.flags.TableRequest = m.flags.GraphRequest = 0;
    if (m.flags.RunDone == 1 && m.flags.OutputFileSaved == 0 &&
        prompt.Ask("The last run has not been saved.  Do you wish to save it?", "Save output",
                   Buttons::YesNo, Icon::Question) == Answer::Yes)
        return {Screen::SaveOutForm, false, false};
    return {Screen::SelectView, false, false};
}

}  // namespace solvane
