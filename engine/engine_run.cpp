#include "engine/engine_run.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/session.h"
#include "core/text_file.h"
#include "engine/control_file.h"
#include "engine/costs.h"
#include "engine/custom_weather.h"
#include "engine/dx_coil.h"
#include "engine/epw_reader.h"
#include "engine/fixed_column_weather.h"
#include "engine/hvac_systems.h"
#include "engine/project_checks.h"
#include "engine/project_translation.h"
#include "engine/report.h"
#include "engine/run_guard.h"
#include "engine/simulation.h"
#include "engine/sizing.h"
#include "engine/synthetic_weather.h"
#include "projectfile/project_file.h"

namespace solvane::engine {
namespace {

namespace fs = std::filesystem;

// The engine has no one to ask: every message goes to Monitor.txt.
struct LogPrompt : Prompt {
    std::vector<std::string> messages;
    Answer Ask(const std::string& text, const std::string& title, Buttons, Icon) override {
        messages.push_back(title.empty() ? text : title + ": " + text);
        return Answer::Ok;
    }
    std::optional<std::string> Input(const std::string&, const std::string&,
                                     const std::string&) override {
        return std::nullopt;
    }
};

std::string Read(const fs::path& p) {
    const auto t = ReadTextFile(p);
    if (!t) throw ReadError(p.string(), 0, "cannot open " + p.filename().string());
    return *t;
}

void Write(const fs::path& p, const std::string& text) {
    std::string why;
    if (!WriteFileAtomic(p, text, &why)) throw std::runtime_error(WriteFailureText(p, why));
}

// The record of a run that did not complete. When even Monitor.txt cannot be
// written, the record goes to the standard error stream.
int Failed(const fs::path& here, const std::string& monitor) {
    RemoveOutputs(here, true);
    std::string why;
    if (WriteFileAtomic(here / "Monitor.txt", monitor, &why)) return 1;
    std::fputs(("Solv2020: " + WriteFailureText(here / "Monitor.txt", why) + "\n").c_str(), stderr);
    std::fputs(monitor.c_str(), stderr);
    return 1;
}

}  // namespace

int RunEngine(const fs::path& here, const EngineRunOptions& options) {
    const auto start = std::chrono::steady_clock::now();
    ReportContext ctx;
    std::vector<std::string> notes;
    int zoneCount = 0;
    // The project reader stages zone files and the matrix under a program
    // folder; a private one keeps the user's sketch untouched.
    const fs::path work = here / "Solv2020.work";
    // Nothing of an earlier run may pass for this one's, and a stop by a
    // signal leaves the record alone.
    RemoveOutputs(here);
    if (options.stopHandler)
        ArmStopHandler(here, MonitorText(ctx, 0, {}, "SIMULATION STOPPED BEFORE IT COMPLETED"));
    std::error_code removed;
    fs::remove_all(work, removed);
    try {
        ctx.control = ReadControlFile(Read(here / "ecalc$.tmp"), "ecalc$.tmp");
        const std::string inp = Read(here / "ecalc$.inp");
        const std::vector<std::string> lines = SplitLines(inp);
        if (lines.empty()) throw ReadError("ecalc$.inp", 1, "empty input file");
        const EngineHead head = ReadEngineHeadLine(lines[0]);
        ctx.si = head.si;

        fs::create_directories(work / "temp");
        fs::create_directories(work / "sketch");
        Session session;
        session.paths = ProgramPaths(work);
        LogPrompt prompt;
        const ReadStatus st = ReadProjectFile(session, prompt, inp, "ecalc$.inp", {});
        notes.insert(notes.end(), prompt.messages.begin(), prompt.messages.end());
        if (st != ReadStatus::Read) throw std::runtime_error("ecalc$.inp could not be read");

        const std::vector<std::string> checked = CheckProject(session.model, lines, "ecalc$.inp");
        notes.insert(notes.end(), checked.begin(), checked.end());
        const auto matrix = ReadTextFile(session.paths.Resolve("\\sketch\\bld_mtx.all"));
        ProjectRunInputs in =
            TranslateProject(session.model, ctx.control.runType, matrix ? *matrix : std::string());
        notes.insert(notes.end(), in.notes.begin(), in.notes.end());
        // A unit's own performance map, when the run folder has one.
        if (fs::exists(here / "Solv2020.dx")) {
            const auto maps = ReadDxPerformanceFile(Read(here / "Solv2020.dx"), "Solv2020.dx");
            const auto mapped = AttachDxPerformance(in.building, in.systems, maps);
            notes.insert(notes.end(), mapped.begin(), mapped.end());
        }
        ctx.projectName = session.model.ProjectData[kProjName];
        ctx.location = in.location.substr(0, 36);
        zoneCount = static_cast<int>(in.building.zones.size());

        WeatherYear weather;
        if (ctx.control.weatherType == 0) {
            weather = SynthesizeWeather(in.climate, in.site, SeedFromText(head.weatherSeed));
            ctx.weatherSource = "SIMULATED FROM THE CLIMATE RECORD, SEED " + head.weatherSeed;
        } else {
            // The control file's type names the form: 1 EPW, 2 WYEC2, 3 IWEC,
            // 4 custom (Helpinfo\custom.txt). WYEC2 files carry no latitude
            // or longitude: the project's station stands in.
            weather = ReadWeatherOfType(ctx.control.weatherType, Read(here / "ecalc$.tmy"),
                                        "ecalc$.tmy", in.site, "ecalc$.tmp");
            ctx.weatherSource = "RECORDED " + weather.site.name;
        }

        if (options.stopHandler)
            ArmStopHandler(
                here, MonitorText(ctx, zoneCount, notes, "SIMULATION STOPPED BEFORE IT COMPLETED"));
        RunOptions opt;
        opt.beginDay = std::min(ctx.control.beginDay, 365);
        opt.endDay = std::min(ctx.control.endDay, 365);
        if (options.maxDays > 0)
            opt.endDay = std::min(opt.endDay, opt.beginDay + options.maxDays - 1);
        opt.skipMonth = ctx.control.skipMonth;
        opt.firstWeekday = ctx.control.firstDayOfYear - 1;
        opt.hvacOff = ctx.control.runType == 4;
        opt.threads = options.threads;
        opt.comfortLower =
            ctx.si ? ctx.control.comfortLower : (ctx.control.comfortLower - 32) / 1.8;
        opt.comfortUpper =
            ctx.si ? ctx.control.comfortUpper : (ctx.control.comfortUpper - 32) / 1.8;
        // The desktop follows the run by the days done (Progress.txt); a
        // record it cannot write only costs the bar its moves.
        const fs::path progress = here / "Progress.txt";
        opt.onDay = [&progress](int done, int total) {
            WriteFileAtomic(progress, std::to_string(done) + " " + std::to_string(total) + "\r\n");
        };
        opt.onDay(0, std::max(1, opt.endDay - opt.beginDay + 1));
        const RunResults res = Simulate(in.building, weather, opt);

        // The plant is sized on the design days of the project's design
        // temperatures when it has them.
        std::optional<DesignLoads> design;
        if (in.design && !opt.hvacOff)
            design = DesignDayLoads(in.building, weather, *in.design, opt);
        const SystemsResults sys = SimulateSystems(in.building, res, weather, opt, in.systems,
                                                   design ? &*design : nullptr);
        const bool wholeYear = opt.beginDay == 1 && opt.endDay == 365 &&
                               std::none_of(opt.skipMonth.begin(), opt.skipMonth.end(),
                                            [](bool skip) { return skip; });
        const CostResults costs = ComputeCosts(
            EconomicInputsOf(session.model), sys, ZoneCostRatesOf(session.model, in.building),
            MonthOfDay(std::clamp(ctx.control.beginDay, 1, 365) - 1),
            MonthOfDay(std::clamp(ctx.control.endDay, 1, 365) - 1), wholeYear);
        Write(here / "sim$.out", SimOutText(in.building, res, sys, in.systems, ctx, &costs));
        Write(here / "ecalc$.wth", WeatherSummaryText(weather, ctx));
        Write(here / "ecalc$.flt", ComfortText(in.building, res, ctx));
        if (ctx.control.hourlyOutput) {
            Write(here / "ecalc$.hry", HourlyEnergyText(res, ctx));
            Write(here / "etemp$.hry", HourlyTemperatureText(res, ctx));
            Write(here / "eweth$.hry", HourlyWeatherText(weather, ctx));
        }
        const double secs =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        char buf[96];
        std::snprintf(buf, sizeof buf, "SIMULATION COMPLETED IN %.2f SEC.", secs);
        std::error_code ec;
        fs::remove_all(work, ec);
        Write(here / "Monitor.txt", MonitorText(ctx, zoneCount, notes, buf));
        return 0;
    } catch (const ReadError& e) {
        notes.push_back("ERROR IN " + e.File() + " LINE " + std::to_string(e.Line()) + ": " +
                        e.what());
    } catch (const std::exception& e) {
        notes.push_back(std::string("ERROR: ") + e.what());
    }
    std::error_code ec;
    fs::remove_all(work, ec);
    return Failed(here, MonitorText(ctx, zoneCount, notes, "SIMULATION NOT COMPLETED"));
}

}  // namespace solvane::engine
