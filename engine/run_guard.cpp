#include "engine/run_guard.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <vector>

namespace solvane::engine {
namespace {

constexpr std::array<int, 3> kStopSignals = {SIGTERM, SIGINT, SIGHUP};

// What the handler needs, prepared beforehand: it may only make system calls
// on text that is already there. Changed only while the signals are blocked.
struct StopRecord {
    std::vector<std::string> removals;  // outputs and their temporary names
    std::string monitorPath, monitorTemp, monitorText;
};
StopRecord* stopRecord = nullptr;

void OnStop(int signal) {
    const StopRecord& r = *stopRecord;
    for (const std::string& p : r.removals) ::unlink(p.c_str());
    const int fd = ::open(r.monitorTemp.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (fd >= 0) {
        const char* data = r.monitorText.data();
        std::size_t left = r.monitorText.size();
        while (left > 0) {
            const ssize_t n = ::write(fd, data, left);
            if (n <= 0) break;
            data += n;
            left -= static_cast<std::size_t>(n);
        }
        ::close(fd);
        if (left == 0)
            ::rename(r.monitorTemp.c_str(), r.monitorPath.c_str());
        else
            ::unlink(r.monitorTemp.c_str());
    }
    ::signal(signal, SIG_DFL);
    ::raise(signal);
}

}  // namespace

void RemoveOutputs(const std::filesystem::path& dir, bool keepMonitor) {
    for (const char* name : kEngineOutputs) {
        if (keepMonitor && std::string_view(name) == "Monitor.txt") continue;
        std::error_code ec;
        std::filesystem::remove(dir / name, ec);
    }
}

void ArmStopHandler(const std::filesystem::path& dir, const std::string& monitorText) {
    sigset_t block, previous;
    sigemptyset(&block);
    for (int s : kStopSignals) sigaddset(&block, s);
    sigprocmask(SIG_BLOCK, &block, &previous);
    static StopRecord record;
    if (record.removals.empty()) {
        // The temporary names are those of WriteFileAtomic.
        const std::string pid = std::to_string(::getpid());
        for (const char* name : kEngineOutputs) {
            const std::string p = (dir / name).string();
            record.removals.push_back(p);
            record.removals.push_back(p + ".tmp-" + pid);
        }
        record.monitorPath = (dir / "Monitor.txt").string();
        record.monitorTemp = record.monitorPath + ".stop-" + pid;
    }
    record.monitorText = monitorText;
    stopRecord = &record;
    struct sigaction action {};
    action.sa_handler = OnStop;
    sigemptyset(&action.sa_mask);
    for (int s : kStopSignals) sigaddset(&action.sa_mask, s);
    for (int s : kStopSignals) sigaction(s, &action, nullptr);
    sigprocmask(SIG_SETMASK, &previous, nullptr);
}

}  // namespace solvane::engine
