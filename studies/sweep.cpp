#include "studies/sweep.h"

#include <chrono>
#include <map>
#include <memory>
#include <mutex>

#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "propertydb/envelope_defaults.h"
#include "run/run_folder.h"
#include "studies/ensemble.h"
#include "studies/run_metrics.h"
#include "ui/scripted_prompt.h"
#include "weather/weather_screen.h"

namespace solvane {

namespace {

std::string Trimmed(std::string s) {
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.pop_back();
    std::size_t start = s.find_first_not_of(' ');
    return start == std::string::npos ? std::string() : s.substr(start);
}

// The state part of a name field: behind the first ", ", without the marker.
std::string StateOfNameField(const std::string& name) {
    const std::size_t comma = name.find(", ");
    if (comma == std::string::npos) return {};
    std::string state = Trimmed(name.substr(comma + 2));
    while (!state.empty() && std::string_view("#!*@ ").find(state.back()) != std::string::npos)
        state.pop_back();
    return state;
}

std::string Figure(const RunMetrics& m, std::string_view key) {
    const Metric* f = m.Find(key);
    return f && f->value ? NumText(*f->value) : std::string();
}

}  // namespace

std::vector<Station> ListStations(const ProgramPaths& paths, int region) {
    std::vector<Station> out;
    for (int r = region == 0 ? 1 : region; r <= (region == 0 ? kRegions : region); ++r) {
        const auto text = ReadTextFile(paths.Resolve(RegionFilePath(r)));
        if (!text) continue;
        const std::vector<std::string> lines = SplitLines(*text);
        for (std::size_t at = 0; at + kRecordLines <= lines.size(); at += kRecordLines) {
            const std::vector<std::string> key = SplitKeyLine(lines[at]);
            const NameLine name = ParseNameLine(lines[at + 1]);
            Station s;
            s.region = r;
            s.ordinal = static_cast<int>(at / kRecordLines) + 1;
            s.city = CityOfNameField(name.name);
            s.state = StateOfNameField(name.name);
            s.wmo = name.wmo;
            s.latitude = name.latitude;
            s.longitude = name.longitude;
            s.climateZone =
                Trimmed(ParseClimateHeader(key.size() > 2 ? key[2] : "", 1).ClimateZone);
            out.push_back(std::move(s));
        }
    }
    return out;
}

void ApplyStation(Session& session, Prompt& prompt, ClimateIndex& index,
                  const std::vector<std::string>& regionLines, const Station& station,
                  bool codeDefaults) {
    WeatherScreen screen(session.model, session.paths, prompt, index);
    screen.CurrentRegion = station.region;
    screen.CityMarker.clear();
    screen.ShowCityRecord(regionLines, station.ordinal);
    screen.fields["sttext"].text = station.state;
    screen.fields["citytext"].text = station.city;
    screen.fields["Combo3"].text = station.city;
    if (codeDefaults) {
        // As a new location does on the desktop: the catalogs start again from
        // the climate zone's envelope file.
        screen.refreshClimateDefaults = [&] {
            ProjectModel& m = session.model;
            if (m.session.CodeNum == 0 || m.session.BuildingType == 0) return;
            LoadEnvelopeDefaults(session, prompt);
            m.flags.CatalogReload[1] = m.flags.CatalogReload[2] = 1;
        };
    }
    screen.Ok();
    // The run computes the station's own design temperatures.
    session.model.climate.DesTempsPresent = 0;
    session.model.climate.DesTemps[1].clear();
}

std::vector<SweepRow> RunSweep(const Session& opened, const ClimateIndex& index,
                               const std::vector<Station>& stations, const SweepOptions& options,
                               const std::function<void(const SweepProgress&)>& progress) {
    const auto started = std::chrono::steady_clock::now();
    SweepWriter writer(options.out);
    std::vector<const Station*> todo;
    std::vector<SweepRow> rows;
    for (const Station& s : stations) {
        const auto found =
            writer.Done().find(std::to_string(s.region) + ":" + std::to_string(s.ordinal));
        if (found != writer.Done().end())
            rows.push_back(found->second);
        else
            todo.push_back(&s);
    }
    std::map<int, std::vector<std::string>> regionLines;
    for (const Station* s : todo)
        if (!regionLines.count(s->region))
            regionLines[s->region] = SplitLines(
                ReadTextFile(opened.paths.Resolve(RegionFilePath(s->region))).value_or(""));

    const int jobs = std::clamp(options.jobs, 1, std::max(1, static_cast<int>(todo.size())));
    std::vector<std::unique_ptr<RunFolder>> folders(static_cast<std::size_t>(jobs));
    std::vector<std::unique_ptr<ClimateIndex>> indexes(static_cast<std::size_t>(jobs));
    std::mutex lock;
    SweepProgress state;
    state.done = state.resumed = static_cast<int>(rows.size());
    state.total = static_cast<int>(stations.size());
    const std::string units = opened.model.session.Units == 2 ? "SI" : "IP";
    ParallelFor(static_cast<int>(todo.size()), jobs, [&](int worker, int task) {
        const Station& st = *todo[static_cast<std::size_t>(task)];
        SweepRow row;
        row.region = st.region, row.ordinal = st.ordinal;
        row.station = st.city, row.state = st.state, row.wmo = st.wmo;
        row.climateZone = st.climateZone;
        row.latitude = NumText(st.latitude), row.longitude = NumText(st.longitude);
        row.units = units;
        row.figures.assign(std::size(kSweepFigures), std::string());
        try {
            const auto w = static_cast<std::size_t>(worker);
            if (!folders[w]) folders[w] = std::make_unique<RunFolder>(opened.paths);
            if (!indexes[w]) indexes[w] = std::make_unique<ClimateIndex>(index);
            Session session = opened;
            session.paths = folders[w]->Paths();
            ScriptedPrompt prompt;
            ApplyStation(session, prompt, *indexes[w], regionLines[st.region], st,
                         options.codeDefaults);
            const RunOutcome outcome = RunHeadless(session, prompt, options.request);
            const auto& t = session.model.climate.DesTemps;
            row.summerDryBulb = t[1], row.summerWetBulb = t[2], row.winterDryBulb = t[3];
            if (outcome.status != 0) {
                row.status = outcome.error;
            } else if (const auto metrics = ReadRunMetrics(outcome.report)) {
                row.status = "ok";
                for (std::size_t k = 0; k < std::size(kSweepFigures); ++k)
                    row.figures[k] = Figure(*metrics.table, kSweepFigures[k]);
            } else {
                row.status = metrics.error;
            }
        } catch (const std::exception& e) {
            row.status = e.what();
        }
        std::lock_guard guard(lock);
        writer.Append(row);
        rows.push_back(row);
        ++state.done;
        state.last = row.station + ", " + row.state;
        state.seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
        if (progress) progress(state);
    });
    return rows;
}

std::vector<std::string> SweepJobList(const std::string& command, int stationCount, int parts,
                                      const std::filesystem::path& outDir) {
    std::vector<std::string> jobs;
    parts = std::clamp(parts, 1, std::max(1, stationCount));
    for (int p = 0; p < parts; ++p) {
        const int first = 1 + static_cast<int>(static_cast<long>(stationCount) * p / parts);
        const int last = static_cast<int>(static_cast<long>(stationCount) * (p + 1) / parts);
        char name[32];
        std::snprintf(name, sizeof name, "part-%04d.csv", p + 1);
        jobs.push_back(command + " --stations " + std::to_string(first) + "-" +
                       std::to_string(last) + " --out '" + (outDir / name).string() + "'");
    }
    return jobs;
}

}  // namespace solvane
