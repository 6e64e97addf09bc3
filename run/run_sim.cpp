#include "run/run_sim.h"

#include <algorithm>
#include <ctime>

#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "projectfile/design_temps.h"
#include "run/input_report.h"

namespace solvane {

namespace {

constexpr const char* kMonthCaptions[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

void AskDates(Prompt& prompt) {
    prompt.Ask(
        "Please check the dates of the simulation period and enter the dates in: dd-mmm "
        "format.  Example: 15-Oct",
        "Error", Buttons::Ok, Icon::None);
}

std::string WithHyphen(std::string date) {
    if (date.empty() || date.back() != '-') date += '-';
    return date;
}

// The date part of a date text with the year behind it ("15-Oct-2021").
std::string PlainDate(const std::string& text) {
    std::string d = text;
    while (!d.empty() && d.back() == '-') d.pop_back();
    return d;
}

std::string TodayText() {
    const std::time_t now = std::time(nullptr);
    char buf[16];
    std::strftime(buf, sizeof buf, "%m-%d-%Y", std::localtime(&now));
    return buf;
}

}  // namespace

RunSimController::RunSimController(Session& session, Prompt& prompt, RunSimServices services)
    : session_(session), prompt_(prompt), services_(std::move(services)) {}

void RunSimController::OpenRun() {
    ProjectModel& m = session_.model;
    if (DesignTempsNeeded(m)) {
        m.climate.DesTemps = ComputeDesignTemps(m.climate, m.session.Units);
        m.climate.DesTempsPresent = 1;
    }
    const bool si = m.session.Units == 2;
    fields_ = ScreenFields{};
    fields_.caption =
        "Run Energy Simulation:... " + m.session.ProjectTitle + "  " + m.session.CodeName;
    const auto& dates = run_.RunDates;
    fields_.At("Text1", 0).text = dates[0].empty() ? "1-Jan" : dates[0];
    fields_.At("Text1", 1).text = dates[1].empty() ? "31-Dec" : dates[1];
    fields_.At("Text1", 2).text = m.ProjectData[kConYear];
    for (int i = 1; i <= 3; ++i)
        fields_.At("destemp", i).text = NumText(NumVal(m.climate.DesTemps[i]));
    fields_.At("weather", 0).value = m.climate.RecordedWeatherSelected == 1 ? 0 : 1;
    fields_.At("weather", 1).value = m.climate.RecordedWeatherSelected == 1 ? 1 : 0;
    fields_["weatherseq"].value = 0;
    fields_["hourlyoutput"].value = 0;
    for (int i = 0; i < 12; ++i) {
        FieldState& mon = fields_.At("mon", i);
        mon.text = kMonthCaptions[i];
        mon.color = 0xFFFFFF;
        mon.value = 0;
    }
    const bool ran = run_.ComfortUpper != 0 || run_.ComfortLower != 0;
    fields_["Tlower"].text = ran ? NumText(run_.ComfortLower) : (si ? "20" : "68");
    fields_["Tupper"].text = ran ? NumText(run_.ComfortUpper) : (si ? "27" : "79");
    fields_["ProgressBar1"].visible = false;
    fields_["ProgressBar1"].value = 0;
    fields_["runstatus"].text.clear();
    fields_["Command1"].text = "Execute Run";
    fields_["Command2"].text = "Cancel";
    fields_["Command3"].text = "Review Results";
    fields_["Command3"].visible = false;
    run_.WeatherYear = fields_.At("Text1", 2).text;
}

void RunSimController::ToggleMonth(int index) {
    if (index < 0 || index > 11 || Running()) return;
    FieldState& mon = fields_.At("mon", index);
    mon.value = mon.value ? 0 : 1;
    mon.color = mon.value ? kMarked : 0xFFFFFF;
}

bool RunSimController::ExecuteRun() {
    ProjectModel& m = session_.model;
    m.flags.TaskDone[5] = 1;
    m.flags.DefaultsApplied = 1;
    fields_["runstatus"].text = "Simulation Started at " + services_.clock() + "   Please Stand By";
    before_.emplace(m);
    runBefore_ = run_;
    previousResults_ = ReadTextFile(session_.paths.Resolve(kResultsFile));
    if (!PrepareRun()) {
        before_.reset();
        previousResults_.reset();
        return false;
    }
    fields_["Command1"].enabled = false;
    fields_["Command3"].enabled = false;
    // What an earlier run left must not pass for this one's.
    DeleteComfortFiles(session_.paths);
    DeleteEngineOutputs(session_.paths);

    std::string error;
    started_ = std::chrono::steady_clock::now();
    engine_ = StartEngine(session_.paths, error, services_.engineThreads);
    if (engine_.pid < 0) {
        Restore();
        prompt_.Ask("The simulation engine could not be started: " + error, "Error", Buttons::Ok,
                    Icon::Exclamation);
        return false;
    }
    fields_["ProgressBar1"].visible = true;
    fields_["ProgressBar1"].value = 0;
    return true;
}

bool RunSimController::PrepareRun() {
    ProjectModel& m = session_.model;
    RunSettings run;
    const bool recorded = fields_.At("weather", 1).value == 1;
    if (recorded) {
        if (fields_.At("Text1", 0).text.empty() || fields_.At("Text1", 1).text.empty()) {
            prompt_.Beep();
            prompt_.Ask("Please enter the simulation period in: dd-mmm format.  Example: 15-Oct",
                        "Simulation period", Buttons::Ok, Icon::None);
            return false;
        }
        if (m.climate.RecordedWeatherSelected == 0) {
            prompt_.Beep();
            prompt_.Ask(
                "You will use recorded weather data but you have not picked the weather "
                "data file. Please click the Recorded Weather button and enter the "
                "correct weather data file. ",
                "Weather data file", Buttons::Ok, Icon::None);
            return false;
        }
        // The form the recorded weather screen took the file in.
        if (m.climate.WeatherFileFormat > 0) run_.RecordedWeatherType = m.climate.WeatherFileFormat;
        run.WeatherType = std::max(1, static_cast<int>(run_.RecordedWeatherType));
    }
    run.RunType = m.flags.PendingAfterSave;
    m.flags.RunResultCode = static_cast<std::int16_t>(run.RunType);
    run.HourlyOutput = fields_["hourlyoutput"].value != 0;
    run_.HourlyOutputFlag = run.HourlyOutput ? 1 : 0;
    m.flags.HourlyOutputFlag = static_cast<Flag>(run_.HourlyOutputFlag);
    for (int i = 1; i <= 3; ++i) m.climate.DesTemps[i] = fields_.At("destemp", i).text;

    const std::string begin = WithHyphen(fields_.At("Text1", 0).text);
    const std::string end = WithHyphen(fields_.At("Text1", 1).text);
    const int year = RunYear(fields_.At("Text1", 2).text);
    const std::string yearText = std::to_string(year);
    fields_.At("Text1", 2).text =
        yearText.size() > 4 ? yearText.substr(yearText.size() - 4) : yearText;
    run_.WeatherYear = fields_.At("Text1", 2).text;
    m.ProjectData[kConYear] = run_.WeatherYear;
    run.WeatherYear = run_.WeatherYear;
    run.BeginDate = PlainDate(begin);
    run.EndDate = PlainDate(end);
    if (!ParseRunDate(run.BeginDate, year) || !ParseRunDate(run.EndDate, year)) {
        AskDates(prompt_);
        Restore();
        return false;
    }

    run.RepeatWeatherSequence = fields_["weatherseq"].value != 0;
    if (!WriteEngineInput(session_, prompt_, run.RepeatWeatherSequence, services_.random)) {
        Restore();
        return false;
    }
    run_.SkippedMonthCount = 0;
    for (int i = 0; i < 12; ++i) {
        if (fields_.At("mon", i).value == 0) continue;
        run.SkipMonth[i + 1] = true;
        run_.SkippedMonthName[++run_.SkippedMonthCount] = kMonthCaptions[i];
    }
    run.ComfortLower = fields_["Tlower"].text;
    run.ComfortUpper = fields_["Tupper"].text;
    run_.ComfortLower = static_cast<float>(NumVal(run.ComfortLower));
    run_.ComfortUpper = static_cast<float>(NumVal(run.ComfortUpper));
    run_.FirstDayOfYear = static_cast<std::int16_t>(FirstDayOfYear(year));
    const auto control = ControlFileText(run, m.session.CodeNum);
    const auto controlPath = session_.paths.Resolve("\\temp\\ecalc$.tmp");
    if (!control || !WriteFileAtomic(controlPath, *control)) {
        if (control)
            prompt_.Ask("The run control file " + controlPath.string() + " could not be written.",
                        "Error", Buttons::Ok, Icon::Exclamation);
        else
            AskDates(prompt_);
        Restore();
        return false;
    }

    m.climate.DesTempsPresent = 1;
    const auto reportPath = session_.paths.Resolve(kResultsFile);
    const InputReport report = WriteInputReport(m, run, {TodayText(), services_.clock()},
                                                ReadReportFiles(m, session_.paths));
    if (!report.warnings.empty()) {
        std::string text;
        for (const auto& w : report.warnings) text += w + std::string(CrLf);
        prompt_.Ask(text, "Profiles", Buttons::Ok, Icon::Exclamation);
    }
    if (!WriteFileAtomic(reportPath, report.text)) {
        prompt_.Ask("The results file " + reportPath.string() + " could not be written.", "Error",
                    Buttons::Ok, Icon::Exclamation);
        Restore();
        return false;
    }
    run_.RunDates[0] = PlainDate(fields_.At("Text1", 0).text);
    run_.RunDates[1] = PlainDate(fields_.At("Text1", 1).text);
    m.flags.RunDone = 1;
    m.flags.ViewedStoredOutput = 0;
    return true;
}

bool RunSimController::Wait(int milliseconds) {
    if (!Running()) return false;
    // The bar follows the days the engine has simulated; the last steps
    // (the plant and the reports) are the end of the run.
    if (const auto progress = EngineProgress(session_.paths))
        fields_["ProgressBar1"].value =
            std::max(fields_["ProgressBar1"].value, *progress * 95 / 100);
    fields_["runstatus"].text = "Run Status Indicator...  Time=" + services_.clock();
    const bool running = IsEngineRunning(engine_, milliseconds);
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - started_).count();
    if (running && services_.timeLimitSeconds > 0 && seconds > services_.timeLimitSeconds) {
        StopEngine(engine_);
        Restore();
        prompt_.Ask("The simulation engine did not finish within " +
                        NumText(services_.timeLimitSeconds) +
                        " seconds and was stopped.  Your project is as it was before the run.",
                    "Simulation stopped", Buttons::Ok, Icon::Exclamation);
        return false;
    }
    if (!running) Finish();
    return running;
}

void RunSimController::Finish() {
    prompt_.Beep();
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - started_).count();
    if (!EngineCompleted()) {
        // The engine refused the project or could not write its reports: its
        // record says why, and the project and results stay as before the run.
        const std::string record =
            ReadTextFile(session_.paths.Resolve("\\temp\\Monitor.txt")).value_or("");
        Restore();
        fields_["runstatus"].text = "Simulation not completed at " + services_.clock();
        prompt_.Ask("The simulation did not complete." + std::string(CrLf) + record,
                    "Simulation not completed", Buttons::Ok, Icon::Exclamation);
        return;
    }
    fields_["ProgressBar1"].value = 100;
    fields_["ProgressBar1"].visible = false;
    fields_["runstatus"].text = "Simulation Completed at " + services_.clock() +
                                "\nTotal time = " + FormatField(NumText(seconds), "####.##") +
                                " Sec.";
    fields_["Command3"].visible = true;
    fields_["Command3"].enabled = true;
    fields_["Command2"].visible = false;
    before_.reset();
    previousResults_.reset();
}

void RunSimController::Cancel() {
    if (!Running()) return;
    StopEngine(engine_);
    Restore();
    fields_["runstatus"].text = "Simulation cancelled at " + services_.clock();
}

void RunSimController::Restore() {
    ClearUnfinishedRun(session_.paths);
    if (before_) session_.model = *before_;
    if (runBefore_) run_ = *runBefore_;
    runBefore_.reset();
    const auto path = session_.paths.Resolve(kResultsFile);
    if (previousResults_) {
        WriteFileAtomic(path, *previousResults_);
    } else {
        std::error_code ec;
        std::filesystem::remove(path, ec);
    }
    before_.reset();
    previousResults_.reset();
    fields_["ProgressBar1"].visible = false;
    fields_["Command1"].enabled = true;
    fields_["Command2"].visible = true;
}

bool RunSimController::ReviewResults() {
    ProjectModel& m = session_.model;
    const int pending = m.flags.PendingAfterSave;
    m.flags.OutputFileSaved = 0;
    m.flags.OutputAvailable = 1;
    m.flags.InputFileSaved = 0;
    m.flags.PendingAfterSave = 0;
    m.session.PreviousInputFileName = m.session.InputFileName;
    session_.mainmenu["viewmenu"].enabled = true;

    if (const auto monitor = ReadTextFile(session_.paths.Resolve("\\temp\\Monitor.txt"))) {
        const auto lines = SplitLines(*monitor);
        if (lines.size() >= 5 && lines[4].size() > 1)
            m.ProjectData[kLocation] = lines[4].substr(1, 36);
    }
    std::string results = ReadTextFile(session_.paths.Resolve(kResultsFile)).value_or("");
    for (const char* name : {"\\temp\\sim$.out", "\\temp\\ecalc$.wth", "\\temp\\ecalc$.flt"}) {
        if (const auto text = ReadTextFile(session_.paths.Resolve(name))) {
            for (const auto& line : SplitLines(*text)) results.append(line).append("\r\n");
        }
    }
    const auto path = session_.paths.Resolve(kResultsFile);
    if (!WriteFileAtomic(path, results)) {
        prompt_.Ask("The results file " + path.string() + " could not be written.", "Error",
                    Buttons::Ok, Icon::Exclamation);
        return false;
    }
    (void)pending;  // the comfort table of a passive run is not drawn here
    return true;
}

}  // namespace solvane
