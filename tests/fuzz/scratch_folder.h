// A folder of a fuzz target's own under the temporary folder, made on first
// use and removed when the program ends.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

namespace solvane::fuzz {

class ScratchFolder {
  public:
    explicit ScratchFolder(const std::string& prefix) {
        namespace fs = std::filesystem;
        std::string pattern = (fs::temp_directory_path() / (prefix + "XXXXXX")).string();
        const char* made = mkdtemp(pattern.data());
        path_ = made ? fs::path(made) : fs::temp_directory_path() / prefix;
        fs::create_directories(path_);
    }
    ~ScratchFolder() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

  private:
    std::filesystem::path path_;
};

}  // namespace solvane::fuzz
