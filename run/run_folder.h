// A private program folder for one of several runs at once: the shared data
// folders are linked from the real program folder, while temp (the engine's
// files) and sketch (the working copies of the levels) are its own.
#pragma once

#include <filesystem>

#include "core/program_paths.h"

namespace solvane {

class RunFolder {
  public:
    // Makes the folder under the system's temporary folder. Throws
    // std::filesystem::filesystem_error when it cannot be made.
    explicit RunFolder(const ProgramPaths& home);
    ~RunFolder();
    RunFolder(const RunFolder&) = delete;
    RunFolder& operator=(const RunFolder&) = delete;

    const ProgramPaths& Paths() const { return paths_; }

  private:
    std::filesystem::path dir_;
    ProgramPaths paths_;
};

}  // namespace solvane
