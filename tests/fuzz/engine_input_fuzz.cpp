// libFuzzer target for the engine's whole input path: the input is a run
// control file, a line "=====", then the project input file. Both are put in
// a folder of the target's own and the engine runs there as it does in
// temp, with the simulation cut short after a day. A run either completes or
// leaves Monitor.txt saying why; it must not crash or trip a sanitizer.
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/text_file.h"
#include "engine/engine_run.h"
#include "tests/fuzz/scratch_folder.h"

namespace fs = std::filesystem;

namespace {

const fs::path& RunFolder() {
    static const solvane::fuzz::ScratchFolder folder("solvane_engine_");
    return folder.Path();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace solvane;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::size_t cut = text.find("=====");
    const std::string_view control = text.substr(0, cut);
    std::string_view project;
    if (cut != std::string_view::npos) {
        const std::size_t next = text.find('\n', cut);
        project = next == std::string_view::npos ? std::string_view() : text.substr(next + 1);
    }
    const fs::path& dir = RunFolder();
    WriteFileAtomic(dir / "ecalc$.tmp", control);
    WriteFileAtomic(dir / "ecalc$.inp", project);
    engine::EngineRunOptions options;
    options.maxDays = 1;
    options.stopHandler = false;
    const int status = engine::RunEngine(dir, options);
    // A run that did not complete always says why.
    if (status != 0 && !ReadTextFile(dir / "Monitor.txt")) __builtin_trap();
    return 0;
}
