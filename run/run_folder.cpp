#include "run/run_folder.h"

#include <strings.h>
#include <unistd.h>

#include <atomic>
#include <string>

namespace solvane {

namespace {

std::atomic<int> folderCount{0};

bool Named(const std::filesystem::path& p, const char* name) {
    return strcasecmp(p.filename().c_str(), name) == 0;
}

}  // namespace

RunFolder::RunFolder(const ProgramPaths& home) {
    namespace fs = std::filesystem;
    const fs::path base = fs::temp_directory_path();
    do {
        dir_ = base / ("solvane-run-" + std::to_string(::getpid()) + "-" +
                       std::to_string(folderCount.fetch_add(1)));
    } while (fs::exists(dir_));
    fs::create_directories(dir_);
    const fs::path source = fs::absolute(home.ProgramDir());
    for (const fs::directory_entry& e : fs::directory_iterator(source)) {
        const fs::path target = dir_ / e.path().filename();
        if (Named(e.path(), "temp")) {
            fs::create_directory(target);
        } else if (Named(e.path(), "sketch")) {
            fs::copy(e.path(), target, fs::copy_options::recursive);
        } else {
            fs::create_symlink(e.path(), target);
        }
    }
    paths_ = ProgramPaths(dir_);
}

RunFolder::~RunFolder() {
    std::error_code ec;
    std::filesystem::remove_all(dir_, ec);
}

}  // namespace solvane
