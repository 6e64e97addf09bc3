// One run of the engine in a folder: it reads ecalc$.inp and ecalc$.tmp
// there (and the recorded weather ecalc$.tmy when the control file asks for
// it), simulates and writes Monitor.txt, sim$.out, ecalc$.wth and ecalc$.flt.
#pragma once

#include <filesystem>

namespace solvane::engine {

struct EngineRunOptions {
    // When above 0 the simulation ends after that many days of the period
    // (for fuzzing the whole input path quickly).
    int maxDays = 0;
    // SIGTERM, SIGINT and SIGHUP end the run leaving only its record.
    bool stopHandler = true;
    // Zones stepped at once; 0: the machine's core count. The figures do not
    // depend on it.
    int threads = 0;
};

// Returns the exit status: 0 on success, 1 when the inputs could not be used
// or an output could not be written (Monitor.txt then says why, or the
// standard error stream when Monitor.txt itself cannot be written). Stopped by
// a signal, the process ends leaving Monitor.txt saying so and no other
// output.
int RunEngine(const std::filesystem::path& here, const EngineRunOptions& options = {});

}  // namespace solvane::engine
