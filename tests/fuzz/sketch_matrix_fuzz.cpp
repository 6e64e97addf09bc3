// libFuzzer target for the sketch's matrix files: each input becomes
// \sketch\bld_mtx.all and the sketch screen loads it as it does on entry
// (split into level files, head lines, level 1 shown with its full redraw
// and scanned). A drawing that loads is then walked as a user would: a level
// up (writing the level on screen and reading the next, or adding one), the
// 3D view of the stored rectangles, and the level files joined again.
// A drawing that cannot be read must say so and leave bld_mtx.all as it was.
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/session.h"
#include "core/text_file.h"
#include "sketch/draw_form.h"
#include "sketch/isometric.h"
#include "sketch/sketch_files.h"
#include "tests/fuzz/sampled_canvas.h"
#include "tests/fuzz/scratch_folder.h"
#include "ui/raster_canvas.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace {

const fs::path& ProgramFolder() {
    static const solvane::fuzz::ScratchFolder folder("solvane_sketch_");
    static const bool made = [] {
        fs::create_directories(folder.Path() / "sketch");
        fs::create_directories(folder.Path() / "temp");
        return true;
    }();
    (void)made;
    return folder.Path();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace solvane;
    if (size == 0) return 0;
    // The first byte picks the units and whether the drawing is a fresh
    // template copy (the SI rewrite of the header); the rest is the file.
    const bool si = data[0] & 1;
    const bool fresh = data[0] & 2;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);

    Session session;
    session.paths = ProgramPaths(ProgramFolder());
    session.model.session.Units = si ? 2 : 1;
    session.model.session.UnitsIndex = si ? 1 : 0;
    session.model.sketch.FreshMatrix = fresh ? 1 : 0;
    const fs::path all = session.paths.Resolve(kMatrixAllFile);
    WriteFileAtomic(all, text);

    // One pixel per sheet unit, as the sketch screen's own raster, keeping
    // the pixels the cells are read from.
    fuzz::SampledCanvas canvas(1000, 600);
    ScriptedPrompt prompt;
    DrawFormController form(session, canvas, prompt);
    if (!form.Load()) {
        // Told, and the user's drawing untouched.
        if (prompt.asked.empty()) __builtin_trap();
        if (ReadTextFile(all).value_or("") != text) __builtin_trap();
        return 0;
    }
    form.LevelUp();

    RasterCanvas picture(160, 120);
    IsometricController iso(picture, prompt);
    iso.Open(form.Scene());
    iso.View(1);

    JoinLevelFiles(session);
    return 0;
}
