// libFuzzer target for the project file reader. Each input is read as a
// project file into a fresh session; a file that reads is then written back
// in its own units and in both others, and its design temperatures are
// computed, so that the writers see whatever the reader can produce.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "core/line_writer.h"
#include "core/session.h"
#include "core/text_file.h"
#include "projectfile/design_temps.h"
#include "projectfile/file_dialogs.h"
#include "projectfile/project_file.h"
#include "tests/fuzz/scratch_folder.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace {

// A program folder of the fuzzer's own for the staging and matrix files.
const fs::path& ProgramFolder() {
    static const solvane::fuzz::ScratchFolder folder("solvane_fuzz_");
    static const bool made = [] {
        fs::create_directories(folder.Path() / "temp");
        fs::create_directories(folder.Path() / "sketch");
        return true;
    }();
    (void)made;
    return folder.Path();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace solvane;
    auto session = std::make_unique<Session>();
    session->paths = ProgramPaths(ProgramFolder());
    ScriptedPrompt prompt;
    ProjectFileHooks hooks;
    // A density of 0 for type 0 takes the reader through its division check;
    // every other type reads on.
    hooks.buildingTypeOccupancy = [](Session&, int type) { return type == 0 ? 0.0 : 5.0; };
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (ReadProjectFile(*session, prompt, text, "fuzz.inp", hooks) == ReadStatus::Read) {
        LineWriter own, si, ip;
        ComputeDesignTemps(session->model.climate, session->model.session.Units);
        WriteProjectFileToSI(*session, si);
        WriteProjectFileToIP(*session, ip);
        WriteProjectFile(*session, own);
    }
    DeleteStagedZones(session->paths);
    return 0;
}
