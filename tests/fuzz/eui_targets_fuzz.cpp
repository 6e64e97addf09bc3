// libFuzzer target for the survey figures of the benchmark screen
// (\codes\EUI-Targets.txt): each input is the file's text. A file that reads
// gives every type's picture of bars, in both unit systems, with the
// building's own EUI below zero and far beyond the survey's; no bar may
// reach far off the picture.
#include <cstdint>
#include <string>

#include "core/item_reader.h"
#include "results/eui_screen.h"
#include "tests/fuzz/bounds_canvas.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace solvane;
    EuiTargets targets;
    try {
        targets = ReadEuiTargets(std::string(reinterpret_cast<const char*>(data), size),
                                 "EUI-Targets.txt");
    } catch (const ReadError&) {
        return 0;
    }
    fuzz::BoundsCanvas canvas;
    for (int type = 1; type <= kBuildingTypes; ++type) {
        for (const bool si : {false, true}) {
            EuiPicture p;
            p.si = si;
            p.activity = targets.activity[type];
            for (int q = 0; q < 3; ++q) p.survey[q] = targets.site[type][q] * (si ? 11.36f : 1.0f);
            p.climateZone = "4 A";
            for (const double eui : {-50.0, 1e30}) {
                p.siteEUI = eui;
                DrawEuiPicture(canvas, p);
            }
        }
    }
    return 0;
}
