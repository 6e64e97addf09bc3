// The commands over many runs: run --ensemble, sweep and merge.
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <fstream>

#include "cli/cli_commands.h"
#include "cli/run_summary_output.h"
#include "code/baseline.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "run/run_folder.h"
#include "studies/ensemble.h"
#include "studies/sweep.h"

namespace solvane::cli {

namespace {

std::string Number(double v) {
    if (!std::isfinite(v)) return "null";
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.6g", v);
    return buf;
}

std::string Label(const std::string& key) {
    if (key == "siteEUI") return "Site EUI";
    if (key == "sourceEUI") return "Source EUI";
    if (key.rfind("endUse.", 0) == 0) return "  " + key.substr(7);
    if (key == "siteEnergy") return "Site energy";
    if (key == "peakHeating") return "Peak heating load";
    if (key == "peakCooling") return "Peak cooling load";
    if (key == "unmetCoolingHours") return "Unmet cooling hours";
    if (key == "unmetHeatingHours") return "Unmet heating hours";
    if (key == "annualCost") return "Annual cost";
    return key;
}

int Jobs(const Options& options) {
    return options.jobs > 0 ? options.jobs : AvailableCores();
}

// Runs side by side share the cores: each engine steps its zones on one
// thread unless --threads says otherwise.
RunRequest ParallelRequest(const Options& options, double seed) {
    RunRequest r = RequestFromOptions(options, seed);
    if (options.threads == 0) r.engineThreads = 1;
    return r;
}

void PrintEnsembleText(const EnsembleResult& e, const HeadlessProject& p, int jobs,
                       std::ostream& out) {
    const ProjectModel& m = p.session.model;
    out << "Project:  " << m.ProjectData[kProjName] << " -- " << m.ProjectData[kLocation] << "\n";
    out << "Weather ensemble: " << e.runs.size() << " of " << e.seeds.size() << " runs completed, "
        << jobs << " at a time, in " << FormatField(NumText(e.seconds), "####.##") << " Sec.\n\n";
    char line[160];
    std::snprintf(line, sizeof line, "%-22s %-9s %12s %12s %12s\n", "", "unit", "10th pct",
                  "median", "90th pct");
    out << line;
    for (const MetricBand& b : e.bands) {
        if (b.detail) continue;
        if (b.count == 0) {
            std::snprintf(line, sizeof line, "%-22s %-9s %12s\n", Label(b.key).c_str(),
                          b.unit.c_str(), "not available");
        } else {
            std::snprintf(line, sizeof line, "%-22s %-9s %12.2f %12.2f %12.2f\n",
                          Label(b.key).c_str(), b.unit.c_str(), b.p10, b.median, b.p90);
        }
        out << line;
    }
    for (const std::string& f : e.failures) out << "Failed: " << f << "\n";
    out << "\nThe band is the spread of the synthetic weather from year to year within the\n"
           "station's own statistics (docs/ensembles.md).\n";
}

void PrintEnsembleJson(const EnsembleResult& e, const HeadlessProject& p, const Options& o,
                       int jobs, std::ostream& out) {
    const ProjectModel& m = p.session.model;
    const bool si = !e.runs.empty() && e.runs.front().units.si();
    out << "{\n  \"schema\": \"solvane-run-ensemble/1\",\n";
    out << "  \"project\": {\"name\": " << JsonString(m.ProjectData[kProjName])
        << ", \"location\": " << JsonString(m.ProjectData[kLocation])
        << ", \"file\": " << JsonString(p.file) << "},\n";
    out << "  \"units\": \"" << (si ? "SI" : "IP") << "\",\n";
    out << "  \"run\": {\"type\": \"" << (o.passive ? "passive" : "hvac") << "\"},\n";
    out << "  \"ensemble\": {\"size\": " << e.seeds.size() << ", \"completed\": " << e.runs.size()
        << ", \"jobs\": " << jobs << ", \"seconds\": " << Number(e.seconds) << ", \"seeds\": [";
    for (std::size_t i = 0; i < e.seeds.size(); ++i)
        out << (i ? ", " : "") << JsonString(NumText(e.seeds[i]));
    out << "], \"failures\": [";
    for (std::size_t i = 0; i < e.failures.size(); ++i)
        out << (i ? ", " : "") << JsonString(e.failures[i]);
    out << "]},\n  \"bands\": {";
    bool first = true;
    for (const MetricBand& b : e.bands) {
        out << (first ? "\n    " : ",\n    ") << JsonString(b.key) << ": ";
        first = false;
        if (b.count == 0) {
            out << "null";
            continue;
        }
        out << "{\"unit\": " << JsonString(b.unit) << ", \"count\": " << b.count
            << ", \"p10\": " << Number(b.p10) << ", \"median\": " << Number(b.median)
            << ", \"p90\": " << Number(b.p90) << ", \"min\": " << Number(b.min)
            << ", \"max\": " << Number(b.max) << "}";
    }
    out << "\n  }\n}\n";
}

// "1:23" or "45 s".
std::string Duration(double seconds) {
    if (!std::isfinite(seconds) || seconds < 0) return "?";
    if (seconds < 90) return std::to_string(static_cast<int>(seconds + 0.5)) + " s";
    const int s = static_cast<int>(seconds + 0.5);
    char buf[32];
    std::snprintf(buf, sizeof buf, "%d:%02d min", s / 60, s % 60);
    return buf;
}

bool EndsWith(const std::string& s, const char* tail) {
    const std::string t = tail;
    return s.size() >= t.size() && s.compare(s.size() - t.size(), t.size(), t) == 0;
}

// Writes the finished sweep or merge: the CSV sorted in station order, or JSON.
void WriteResults(const std::filesystem::path& out, const std::vector<SweepRow>& rows) {
    if (EndsWith(out.string(), ".json"))
        WriteSweepJson(out, rows);
    else
        WriteSweepCsv(out, rows);
}

std::string ShellQuoted(const std::string& s) {
    std::string out = "'";
    for (char c : s) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

int WriteJobList(const Options& o, const HeadlessProject& p, const std::string& executable,
                 int stationCount, std::ostream& out, std::ostream& err) {
    namespace fs = std::filesystem;
    const fs::path dir = fs::absolute(o.out);
    std::error_code ec;
    fs::create_directories(dir, ec);
    std::string command = ShellQuoted(fs::absolute(executable).string()) + " --home " +
                          ShellQuoted(fs::absolute(p.session.paths.ProgramDir()).string()) +
                          " sweep " + ShellQuoted(p.file);
    if (o.region) command += " --region " + std::to_string(o.region);
    command += " --defaults " + o.defaults;
    if (!o.seed.empty()) command += " --seed " + o.seed;
    if (o.passive) command += " --passive";
    if (!o.periodBegin.empty()) command += " --period " + o.periodBegin + " " + o.periodEnd;
    std::string jobs;
    for (const std::string& j : SweepJobList(command, stationCount, o.jobList, dir))
        jobs += j + "\n";
    const std::string slurm =
        "#!/bin/sh\n"
        "#SBATCH --job-name=solvane-sweep\n"
        "#SBATCH --array=1-" +
        std::to_string(std::min(o.jobList, std::max(1, stationCount))) +
        "\n"
        "# One line of jobs.txt per array task; each writes its own part file.\n"
        "sed -n \"${SLURM_ARRAY_TASK_ID}p\" " +
        ShellQuoted((dir / "jobs.txt").string()) + " | sh\n";
    std::string reason;
    if (!WriteFileAtomic(dir / "jobs.txt", jobs, &reason) ||
        !WriteFileAtomic(dir / "slurm-array.sh", slurm, &reason)) {
        err << "solvane-cli: " << WriteFailureText(dir, reason) << "\n";
        return 2;
    }
    out << "Wrote " << (dir / "jobs.txt").string() << " (" << o.jobList << " jobs, " << stationCount
        << " stations) and " << (dir / "slurm-array.sh").string() << "\n"
        << "GNU parallel:  parallel < " << (dir / "jobs.txt").string() << "\n"
        << "Slurm:         sbatch " << (dir / "slurm-array.sh").string() << "\n"
        << "Then:          solvane-cli merge " << (dir / "part-*.csv").string()
        << " --out results.csv\n";
    return 0;
}

}  // namespace

int RunEnsembleCommand(const Options& options, const std::string& executable, std::ostream& out,
                       std::ostream& err) {
    if (!options.recorded.empty() || !options.seed.empty() || options.repeatWeather) {
        err << "solvane-cli: --ensemble runs on its own seeds of simulated weather; it does not "
               "take --recorded, --seed or --repeat-weather\n";
        return 2;
    }
    HeadlessProject p;
    if (!OpenHeadless(options, executable, p, err)) return 2;
    const int jobs = Jobs(options);
    const bool tty = ::isatty(STDERR_FILENO);
    const EnsembleResult e = RunEnsemble(
        p.session, ParallelRequest(options, -1), EnsembleSeeds(options.ensemble), jobs,
        [&](int done, int total) {
            if (tty) err << "\rEnsemble: " << done << " of " << total << " runs" << std::flush;
        });
    if (tty) err << "\n";
    if (e.runs.empty()) {
        for (const std::string& f : e.failures) err << "solvane-cli: " << f << "\n";
        err << "solvane-cli: no run of the ensemble completed\n";
        return 1;
    }
    if (options.json)
        PrintEnsembleJson(e, p, options, jobs, out);
    else
        PrintEnsembleText(e, p, jobs, out);
    return e.failures.empty() ? 0 : 1;
}

namespace {

double Saved(double design, double baseline) {
    return baseline != 0 ? 100 * (baseline - design) / baseline : NAN;
}

struct Compared {
    const char* key;
    const char* label;
};
constexpr Compared kCompared[] = {{"siteEUI", "Site EUI"},
                                  {"sourceEUI", "Source EUI"},
                                  {"siteEnergy", "Site energy"},
                                  {"annualCost", "Annual cost"}};

}  // namespace

int RunBaselineCommand(const Options& options, const std::string& executable, std::ostream& out,
                       std::ostream& err) {
    if (!options.recorded.empty()) {
        err << "solvane-cli: --baseline runs on simulated weather; it does not take --recorded\n";
        return 2;
    }
    double seed = -1;
    if (!ParseSeed(options, seed, err)) return 2;
    HeadlessProject p;
    if (!OpenHeadless(options, executable, p, err)) return 2;
    // Both buildings see the same weather.
    RunRequest request = ParallelRequest(options, seed);
    if (request.seed < 0) request.repeatWeather = true;
    Session baseline = p.session;
    if (!MakeBaseline(baseline, p.prompt)) {
        PrintPrompts(p.prompt, p.startupPrompts, err);
        return 2;
    }
    RunOutcome design, base;
    try {
        RunFolder folder(p.session.paths);
        baseline.paths = folder.Paths();
        ScriptedPrompt baselinePrompt;
        ParallelFor(2, Jobs(options), [&](int, int task) {
            if (task == 0)
                design = RunHeadless(p.session, p.prompt, request);
            else
                base = RunHeadless(baseline, baselinePrompt, request);
        });
    } catch (const std::exception& e) {
        err << "solvane-cli: " << e.what() << "\n";
        return 1;
    }
    for (const RunOutcome* o : {&design, &base})
        if (o->status != 0) {
            err << "solvane-cli: " << (o == &design ? "design" : "baseline") << ": " << o->error
                << "\n";
            return o->status;
        }
    const auto ds = ReadRunSummary(design.report), bs = ReadRunSummary(base.report);
    const auto dm = ReadRunMetrics(design.report), bm = ReadRunMetrics(base.report);
    if (!ds || !bs || !dm || !bm) {
        err << "solvane-cli: " << (!ds ? ds.error : bs.error) << "\n";
        return 1;
    }
    const ProjectModel& m = p.session.model;
    const std::string codeLine = m.session.CodeName + ", climate zone " + m.session.ClimateZone +
                                 ", " + m.btypes.BTypeName[m.session.BuildingType];
    if (options.json) {
        out << "{\n\"schema\": \"solvane-run-baseline/1\",\n\"baselineOf\": "
            << JsonString(codeLine) << ",\n\"design\": ";
        PrintSummaryJson(
            *ds.table,
            SummaryContext{m, design.run, p.file, design.seconds, WeatherUsed(design.report)}, out);
        out << ",\n\"baseline\": ";
        PrintSummaryJson(*bs.table,
                         SummaryContext{baseline.model, base.run, p.file, base.seconds,
                                        WeatherUsed(base.report)},
                         out);
        out << ",\n\"savedPercent\": {";
        bool first = true;
        for (const Compared& c : kCompared) {
            const Metric* a = dm.table->Find(c.key);
            const Metric* b = bm.table->Find(c.key);
            out << (first ? "" : ", ") << "\"" << c.key << "\": "
                << (a && b && a->value && b->value ? Number(Saved(*a->value, *b->value))
                                                   : std::string("null"));
            first = false;
        }
        out << "}\n}\n";
        return 0;
    }
    PrintSummaryText(
        *ds.table,
        SummaryContext{m, design.run, p.file, design.seconds, WeatherUsed(design.report)}, out);
    out << "\nCode baseline: " << codeLine << "\n";
    char line[160];
    std::snprintf(line, sizeof line, "%-14s %-9s %12s %12s %9s\n", "", "unit", "design", "baseline",
                  "saved");
    out << line;
    for (const Compared& c : kCompared) {
        const Metric* a = dm.table->Find(c.key);
        const Metric* b = bm.table->Find(c.key);
        if (!a || !b || !a->value || !b->value) {
            std::snprintf(line, sizeof line, "%-14s %-9s %12s\n", c.label, a ? a->unit.c_str() : "",
                          "not available");
        } else {
            std::snprintf(line, sizeof line, "%-14s %-9s %12.2f %12.2f %8.1f%%\n", c.label,
                          a->unit.c_str(), *a->value, *b->value, Saved(*a->value, *b->value));
        }
        out << line;
    }
    out << "Window share: design " << FormatField(NumText(WindowShare(m)), "###.#")
        << " %, baseline " << FormatField(NumText(WindowShare(baseline.model)), "###.#") << " %\n";
    return 0;
}

int RunSweepCommand(const Options& options, const std::string& executable, std::ostream& out,
                    std::ostream& err) {
    if (options.out.empty()) {
        err << "solvane-cli: sweep needs --out FILE.csv or FILE.json\n";
        return 2;
    }
    double seed = -1;
    if (!ParseSeed(options, seed, err)) return 2;
    HeadlessProject p;
    if (!OpenHeadless(options, executable, p, err, true)) return 2;
    std::vector<Station> stations = ListStations(p.session.paths, options.region);
    if (options.stationFirst > 0) {
        if (options.stationFirst > static_cast<int>(stations.size())) {
            err << "solvane-cli: --stations begins after the last of " << stations.size()
                << " stations\n";
            return 2;
        }
        const auto last =
            std::min<std::size_t>(static_cast<std::size_t>(options.stationLast), stations.size());
        stations = std::vector<Station>(stations.begin() + (options.stationFirst - 1),
                                        stations.begin() + static_cast<long>(last));
    }
    if (options.jobList > 0)
        return WriteJobList(options, p, executable, static_cast<int>(stations.size()), out, err);

    SweepOptions s;
    s.request = ParallelRequest(options, seed);
    // One weather sequence for every station unless a seed is given, so that
    // stations differ by their climate alone and a rerun gives the same rows.
    s.request.repeatWeather = seed < 0;
    s.codeDefaults = options.defaults == "code";
    s.jobs = Jobs(options);
    const std::filesystem::path final = std::filesystem::absolute(options.out);
    const bool json = EndsWith(final.string(), ".json");
    s.out = json ? std::filesystem::path(final.string() + ".partial.csv") : final;
    const bool tty = ::isatty(STDERR_FILENO);
    std::vector<SweepRow> rows;
    try {
        rows = RunSweep(p.session, p.climate, stations, s, [&](const SweepProgress& g) {
            const int ran = g.done - g.resumed;
            const double left = ran > 0 ? g.seconds / ran * (g.total - g.done) : NAN;
            err << (tty ? "\r" : "") << "Sweep: " << g.done << " of " << g.total << " stations, "
                << Duration(g.seconds) << ", about " << Duration(left) << " left  " << g.last
                << (tty ? "\x1b[K" : "\n") << std::flush;
        });
        if (tty) err << "\n";
        // The whole file, in station order, stations outside this selection kept.
        const SweepFile all = ReadSweepCsv(s.out);
        WriteResults(final, all.rows);
        if (json) std::filesystem::remove(s.out);
    } catch (const std::exception& e) {
        err << "solvane-cli: " << e.what() << "\n";
        return 2;
    }
    int failed = 0;
    for (const SweepRow& r : rows) failed += r.status != "ok";
    out << "Swept " << rows.size() << " stations into " << final.string();
    if (failed) out << "; " << failed << " without figures (see their status)";
    out << "\n";
    return failed ? 1 : 0;
}

int RunMergeCommand(const Options& options, std::ostream& out, std::ostream& err) {
    if (options.out.empty() || options.arguments.empty()) {
        err << "solvane-cli: merge needs part files and --out FILE.csv or FILE.json\n";
        return 2;
    }
    std::vector<std::filesystem::path> parts(options.arguments.begin(), options.arguments.end());
    try {
        const std::vector<SweepRow> rows = MergeSweepParts(parts);
        WriteResults(options.out, rows);
        out << "Merged " << parts.size() << " parts, " << rows.size() << " stations, into "
            << options.out << "\n";
    } catch (const std::exception& e) {
        err << "solvane-cli: " << e.what() << "\n";
        return 2;
    }
    return 0;
}

}  // namespace solvane::cli
