// Starting the engine as a child process in the temp folder and watching it.
#pragma once

#include <optional>

#include <sys/types.h>

#include <string>

#include "core/program_paths.h"

namespace solvane {

// The engine executable in the program folder.
inline constexpr const char* kEngineName = "Solv2020";

struct EngineProcess {
    pid_t pid = -1;
    bool finished = false;
    int exitStatus = -1;  // once finished: the exit code, -1 when it did not end normally
};

// The engine: in the program folder, else beside the running program when
// that stands in a bin folder (an installed system keeps its programs in
// /usr/bin and the program folder, or the user's copy of it, elsewhere).
std::filesystem::path EnginePath(const ProgramPaths& paths);

// Starts the engine in \temp: with no arguments, or with "--threads N" when
// `threads` is above 0. The process id is -1, with the reason in `error`,
// when it could not be started.
EngineProcess StartEngine(const ProgramPaths& paths, std::string& error, int threads = 0);

// Waits up to `milliseconds` for the process; true while it still runs.
bool IsEngineRunning(EngineProcess& engine, int milliseconds);

// Asks the engine to stop (SIGTERM), waits up to `graceMilliseconds` for it
// to leave its record, then ends it outright (SIGKILL). Returns once it is
// gone.
void StopEngine(EngineProcess& engine, int graceMilliseconds = 2000);

// Deletes \temp\*.flt before a run; failures are ignored.
void DeleteComfortFiles(const ProgramPaths& paths);

// Deletes what an earlier run of the engine left in \temp (Monitor.txt,
// sim$.out, ecalc$.wth, ecalc$.flt, the hourly files and Progress.txt), so
// that nothing of it can be taken for this run's.
void DeleteEngineOutputs(const ProgramPaths& paths);

// After a run that was stopped or failed: every engine output but its record
// (Monitor.txt), so that nothing of an unfinished run looks like results.
void ClearUnfinishedRun(const ProgramPaths& paths);

// How far the running engine has come, 0 to 100, from \temp\Progress.txt
// ("days done" and "days of the period"); nothing while there is no such
// record or it cannot be read.
std::optional<int> EngineProgress(const ProgramPaths& paths);

}  // namespace solvane
