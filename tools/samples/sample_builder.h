// The bundled sample projects, each made as a user makes a project: units,
// code, location, building type, a drawn sketch, the window sizer, every zone
// through the zone screen, and the save dialog. Nothing of a sample is written
// by hand; the files under data/sample are this program's own output.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace solvane::samples {

// A rectangle of sheet cells: its lower left cell (0-based, from the sheet's
// left and bottom edges) and its size in cells.
struct CellBox {
    int x = 0, y = 0, width = 0, depth = 0;
};

// A zone of a level: its name in the sketch and the boxes drawn for it.
struct SketchZone {
    std::string name;
    std::vector<CellBox> boxes;
};

struct SketchLevel {
    std::string floors = "1";  // floors this level stands for
    std::string ceiling;       // room height; empty keeps the sketch's own
    std::vector<SketchZone> zones;
};

// A box of the zone screen typed in for one zone, named as in the sketch.
struct ZoneEdit {
    std::string zone;
    int field = 0;
    std::string value;
};

struct SampleSpec {
    std::string fileName;     // under \sample, with its bracketed note
    std::string description;  // the project description the sample list shows
    int units = 1;            // 1 I-P, 2 SI
    int codeIcon = 0;         // 0: 90.1, 1: 189.1
    bool code2010 = false;    // with icon 0: 90.1-2010 instead of 2019
    int region = 1;           // location screen
    std::string state, city;
    int buildingType = 0;
    std::string projectName, designStage, scheme, year, cost;
    std::string gridSize;  // empty keeps the sketch's own
    std::string rotation;
    std::vector<SketchLevel> levels;
    std::vector<ZoneEdit> edits;
    double weatherSeed = 0.5;
};

// The samples the program ships with.
std::vector<SampleSpec> BundledSamples();

// Makes one sample in `programDir`, a scratch copy of the program folder,
// and returns the project file's text. Throws std::runtime_error naming the
// step that did not go as a user's would (a prompt that warns or refuses).
std::string MakeSample(const SampleSpec& spec, const std::filesystem::path& programDir);

// Makes every sample, each in a fresh copy of `dataDir` under a scratch
// folder that is removed afterwards; the texts in the order of BundledSamples.
std::vector<std::string> MakeAllSamples(const std::filesystem::path& dataDir);

}  // namespace solvane::samples
