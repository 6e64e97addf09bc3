#include "run/engine_process.h"

#include <poll.h>
#include <spawn.h>
#include <strings.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <sstream>
#include <thread>

#include "core/text_file.h"

extern char** environ;

namespace solvane {

std::filesystem::path EnginePath(const ProgramPaths& paths) {
    const std::filesystem::path inFolder = paths.Resolve(kEngineName);
    std::error_code ec;
    if (std::filesystem::exists(inFolder, ec)) return inFolder;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", ec);
    if (!ec && self.parent_path().filename() == "bin" &&
        std::filesystem::exists(self.parent_path() / kEngineName, ec))
        return self.parent_path() / kEngineName;
    return inFolder;
}

EngineProcess StartEngine(const ProgramPaths& paths, std::string& error, int threads) {
    const std::string program = EnginePath(paths).string();
    const std::string temp = paths.Resolve("temp").string();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addchdir_np(&actions, temp.c_str());
    const std::string threadsOption = "--threads", threadsValue = std::to_string(threads);
    char* argv[] = {const_cast<char*>(program.c_str()), nullptr, nullptr, nullptr};
    if (threads > 0) {
        argv[1] = const_cast<char*>(threadsOption.c_str());
        argv[2] = const_cast<char*>(threadsValue.c_str());
    }
    pid_t pid = -1;
    const int rc = posix_spawn(&pid, program.c_str(), &actions, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (rc != 0) {
        error = "cannot start " + program + ": " + std::strerror(rc);
        return {};
    }
    return {pid, false, -1};
}

namespace {

// Sleeps until the process ends or `milliseconds` pass: on a process file
// descriptor (Linux 5.3 and later) the wake-up is the moment it ends; without
// one, a tenth of a run's shortest time.
void AwaitEnd(pid_t pid, long milliseconds) {
#ifdef SYS_pidfd_open
    const int fd = static_cast<int>(::syscall(SYS_pidfd_open, pid, 0));
    if (fd >= 0) {
        pollfd p{fd, POLLIN, 0};
        ::poll(&p, 1, static_cast<int>(std::max(milliseconds, 0L)));
        ::close(fd);
        return;
    }
#endif
    std::this_thread::sleep_for(std::chrono::milliseconds(std::min(milliseconds, 10L)));
}

}  // namespace

bool IsEngineRunning(EngineProcess& engine, int milliseconds) {
    if (engine.finished || engine.pid <= 0) return false;
    const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    for (;;) {
        int status = 0;
        const pid_t r = waitpid(engine.pid, &status, WNOHANG);
        if (r == engine.pid || (r < 0 && errno != EINTR)) {
            // Ended, or no longer a child of ours: either way it is gone.
            engine.finished = true;
            engine.exitStatus = r == engine.pid && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
            return false;
        }
        const auto now = std::chrono::steady_clock::now();
        if (now >= until) return true;
        AwaitEnd(engine.pid,
                 std::chrono::duration_cast<std::chrono::milliseconds>(until - now).count() + 1);
    }
}

void StopEngine(EngineProcess& engine, int graceMilliseconds) {
    if (engine.finished || engine.pid <= 0) return;
    ::kill(engine.pid, SIGTERM);
    if (!IsEngineRunning(engine, graceMilliseconds)) return;
    ::kill(engine.pid, SIGKILL);
    while (IsEngineRunning(engine, 1000)) {
    }
}

namespace {
constexpr std::array<const char*, 8> kEngineOutputs = {
    "Monitor.txt", "sim$.out", "ecalc$.wth", "ecalc$.flt", "ecalc$.hry", "etemp$.hry",
    "eweth$.hry",  "Progress.txt"};
}  // namespace

void DeleteEngineOutputs(const ProgramPaths& paths) {
    for (const char* name : kEngineOutputs) {
        std::error_code ec;
        std::filesystem::remove(paths.Resolve("temp") / name, ec);
    }
}

void ClearUnfinishedRun(const ProgramPaths& paths) {
    // A stopped engine removes its own reports, but a worker thread may
    // still finish a write between that and its end; once the process is
    // gone, whatever it left (and any half-written temporary) goes too.
    const std::filesystem::path temp = paths.Resolve("temp");
    std::error_code ec;
    for (const char* name : kEngineOutputs)
        if (std::string_view(name) != "Monitor.txt") std::filesystem::remove(temp / name, ec);
    for (std::filesystem::directory_iterator it(temp, ec), end; !ec && it != end;
         it.increment(ec)) {
        const std::string name = it->path().filename().string();
        for (const char* output : kEngineOutputs)
            if (name.starts_with(std::string(output) + ".tmp-")) {
                std::error_code rc;
                std::filesystem::remove(it->path(), rc);
            }
    }
}

void DeleteComfortFiles(const ProgramPaths& paths) {
    std::error_code ec;
    for (std::filesystem::directory_iterator it(paths.Resolve("temp"), ec), end; !ec && it != end;
         it.increment(ec)) {
        if (strcasecmp(it->path().extension().c_str(), ".flt") == 0)
            std::filesystem::remove(it->path(), ec);
    }
}

std::optional<int> EngineProgress(const ProgramPaths& paths) {
    const auto text = ReadTextFile(paths.Resolve("\\temp\\Progress.txt"));
    if (!text) return std::nullopt;
    std::istringstream in(*text);
    long done = 0, total = 0;
    if (!(in >> done >> total) || total <= 0 || done < 0) return std::nullopt;
    return static_cast<int>(std::min(done, total) * 100 / total);
}

}  // namespace solvane
