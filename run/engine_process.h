// Starting the engine as a child process in the temp folder and watching it.
#pragma once

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

// Starts the engine with no arguments in \temp. The process id is -1, with
// the reason in `error`, when it could not be started.
EngineProcess StartEngine(const ProgramPaths& paths, std::string& error);

// Waits up to `milliseconds` for the process; true while it still runs.
bool IsEngineRunning(EngineProcess& engine, int milliseconds);

// Ends a running engine: asked to stop first, killed when it does not within
// `graceMilliseconds`; the process is reaped either way.
void StopEngine(EngineProcess& engine, int graceMilliseconds = 2000);

// Deletes \temp\*.flt before a run; failures are ignored.
void DeleteComfortFiles(const ProgramPaths& paths);

}  // namespace solvane
