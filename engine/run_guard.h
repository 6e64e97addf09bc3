// What a run leaves in its folder: the outputs of an earlier run go before
// this one starts, and a run stopped by a signal leaves its record and no
// output, whole or half-written.
#pragma once

#include <array>
#include <filesystem>
#include <string>

namespace solvane::engine {

// Every file the engine writes, Monitor.txt first.
inline constexpr std::array<const char*, 8> kEngineOutputs = {
    "Monitor.txt", "sim$.out",   "ecalc$.wth", "ecalc$.flt",
    "ecalc$.hry",  "etemp$.hry", "eweth$.hry", "Progress.txt"};

// Removes the outputs in `dir` except Monitor.txt when `keepMonitor` is set;
// a file that is not there is no failure.
void RemoveOutputs(const std::filesystem::path& dir, bool keepMonitor = false);

// From now on SIGTERM, SIGINT and SIGHUP end the engine at once: every output
// in `dir` and the temporary file of one being written are removed,
// `monitorText` becomes Monitor.txt, and the process ends by the signal. May
// be called again to change the text.
void ArmStopHandler(const std::filesystem::path& dir, const std::string& monitorText);

}  // namespace solvane::engine
