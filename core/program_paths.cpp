#include "core/program_paths.h"

#include <fnmatch.h>
#include <strings.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace solvane {

ProgramPaths::ProgramPaths(fs::path programDir) : programDir_(std::move(programDir)) {}

namespace {

std::vector<std::string> SplitPath(std::string_view relative) {
    std::vector<std::string> parts;
    std::string part;
    for (char c : relative) {
        if (c == '/' || c == '\\') {
            if (!part.empty()) parts.push_back(std::move(part));
            part.clear();
        } else {
            part += c;
        }
    }
    if (!part.empty()) parts.push_back(std::move(part));
    return parts;
}

bool HasWildCard(const std::string& s) {
    return s.find_first_of("*?") != std::string::npos;
}

// The name of the entry of `dir` that matches `name` without regard to case,
// preferring an exact match; `name` itself when none does.
std::string MatchEntry(const fs::path& dir, const std::string& name) {
    std::error_code ec;
    if (fs::exists(dir / name, ec)) return name;
    for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string entry = it->path().filename().string();
        if (strcasecmp(entry.c_str(), name.c_str()) == 0) return entry;
    }
    return name;
}

bool DirectoryHasProgramFolders(const fs::path& dir) {
    std::error_code ec;
    for (std::string_view folder : kProgramFolders) {
        if (fs::is_directory(dir / MatchEntry(dir, std::string(folder)), ec)) return true;
    }
    return false;
}

fs::path UserDataHome() {
    if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg) return fs::path(xdg);
    if (const char* home = std::getenv("HOME"); home && *home)
        return fs::path(home) / ".local" / "share";
    return fs::temp_directory_path();
}

}  // namespace

bool ProgramDirWritable(const fs::path& dir) {
    const fs::path temp = dir / MatchEntry(dir, "temp");
    return ::access(dir.c_str(), W_OK) == 0 &&
           (!fs::exists(temp) || ::access(temp.c_str(), W_OK) == 0);
}

fs::path ProgramPaths::Resolve(std::string_view relative) const {
    fs::path path = programDir_;
    for (const std::string& part : SplitPath(relative)) {
        path /= HasWildCard(part) ? part : MatchEntry(path, part);
    }
    return path;
}

ProgramPaths LocateProgramDir(std::string_view homeOption, const fs::path& executable,
                              const std::function<bool(const fs::path&)>& writable) {
    fs::path dir;
    if (!homeOption.empty()) {
        dir = fs::path(homeOption);
    } else if (const char* env = std::getenv("SOLVANE_HOME"); env && *env) {
        dir = fs::path(env);
    } else {
        std::error_code ec;
        fs::path exeDir = fs::weakly_canonical(executable, ec).parent_path();
        if (DirectoryHasProgramFolders(exeDir)) {
            dir = exeDir;
        } else if (DirectoryHasProgramFolders(exeDir.parent_path() / "share" / "solvane")) {
            dir = exeDir.parent_path() / "share" / "solvane";
        }
    }
    if (dir.empty() || !fs::is_directory(dir))
        throw std::runtime_error("The program folder was not found" +
                                 (dir.empty() ? std::string() : ": " + dir.string()));
    dir = fs::absolute(dir);
    if (writable(dir)) return ProgramPaths(dir);

    // An installed, read-only program folder: work in a per-user copy.
    const fs::path copy = UserDataHome() / "solvane";
    std::error_code ec;
    if (!fs::exists(copy / "temp", ec)) {
        fs::create_directories(copy, ec);
        fs::copy(dir, copy, fs::copy_options::recursive | fs::copy_options::skip_existing, ec);
        if (ec) throw std::runtime_error("Cannot copy the program folder to " + copy.string());
        fs::create_directories(copy / "temp", ec);
    }
    return ProgramPaths(copy);
}

bool FileExists(const fs::path& path) {
    const std::string name = path.filename().string();
    std::error_code ec;
    if (!HasWildCard(name)) return !name.empty() && fs::exists(path, ec);
    const fs::path dir = path.has_parent_path() ? path.parent_path() : fs::path(".");
    for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string entry = it->path().filename().string();
        if (fnmatch(name.c_str(), entry.c_str(), FNM_CASEFOLD) == 0) return true;
    }
    return false;
}

bool FileExists(const ProgramPaths& paths, std::string_view relative) {
    return FileExists(paths.Resolve(relative));
}

}  // namespace solvane
