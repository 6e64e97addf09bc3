// The climate sweep: one design run at every station of the climate database
// (or of one region, or a range of the list), each with its own climate
// record and design temperatures, and, when asked, the envelope defaults of
// its climate zone.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "core/session.h"
#include "run/headless_run.h"
#include "studies/sweep_file.h"
#include "weather/climate_database.h"

namespace solvane {

struct Station {
    int region = 0, ordinal = 0;  // region file and record number (1 = first)
    std::string city, state, wmo, climateZone;
    double latitude = 0, longitude = 0;
};

// The stations of one region (1..8), or of all of them (0), in file order.
std::vector<Station> ListStations(const ProgramPaths& paths, int region);

struct SweepOptions {
    RunRequest request;         // the run of each station; the seed is the same for all
    bool codeDefaults = false;  // --defaults code: the climate zone's envelope defaults
    int jobs = 1;               // runs at a time
    std::filesystem::path out;  // the CSV the rows are appended to
};

struct SweepProgress {
    int done = 0, total = 0;  // stations of this sweep, those already in the file included
    int resumed = 0;          // stations the file held when the sweep began
    double seconds = 0;       // since this sweep began
    std::string last;         // the station just finished
};

// Runs the opened design at each station not yet in the output file, `jobs`
// at a time, and appends its row. Returns every row of the selection.
std::vector<SweepRow> RunSweep(const Session& opened, const ClimateIndex& index,
                               const std::vector<Station>& stations, const SweepOptions& options,
                               const std::function<void(const SweepProgress&)>& progress = {});

// Puts a station's record into the session's project as the location screen's
// OK does, with the design temperatures to be computed for the run.
void ApplyStation(Session& session, Prompt& prompt, ClimateIndex& index,
                  const std::vector<std::string>& regionLines, const Station& station,
                  bool codeDefaults);

// A job list for running a sweep across machines: `parts` lines, each a
// command that sweeps a range of the stations into its own part file.
std::vector<std::string> SweepJobList(const std::string& command, int stationCount, int parts,
                                      const std::filesystem::path& outDir);

}  // namespace solvane
