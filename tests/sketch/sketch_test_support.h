// A sketch on a throw-away program folder: the session, the sketch screen's
// tables, an in-memory canvas of one pixel per sheet unit and a scripted prompt.
#pragma once

#include <string>
#include <vector>

#include "core/text_file.h"
#include "sketch/matrix_file.h"
#include "sketch/sketch_files.h"
#include "tests/propertydb/program_folder.h"
#include "ui/raster_canvas.h"
#include "ui/scripted_prompt.h"

namespace solvane::testing {

struct SketchBench {
    SketchBench() {
        session.paths = folder.Paths();
        session.model.session.Units = 1;
        session.model.session.UnitsIndex = 0;
    }
    SketchContext Context() { return SketchContext{session, screen, canvas, prompt}; }

    std::vector<std::string> ReadLines(const std::string& relative) const {
        const auto text = ReadTextFile(session.paths.Resolve(relative));
        return text ? SplitLines(*text) : std::vector<std::string>{};
    }
    std::vector<std::string> LevelLines(int level) const {
        return ReadLines("\\sketch\\bld_mtx.i" + std::to_string(level));
    }
    void WriteAll(const std::vector<std::string>& lines) const {
        std::string text;
        for (const auto& l : lines) text += l + "\r\n";
        folder.Write("\\sketch\\bld_mtx.all", text);
    }

    ProgramFolder folder;
    Session session;
    SketchScreen screen;
    RasterCanvas canvas{1000, 600};
    ScriptedPrompt prompt;
};

// One level block: header values, names of zones 1..25 (blank for the default),
// and the grid given as rows from the top, each at most 90 codes.
inline std::vector<std::string> LevelBlock(int level, float grid, float floors, float height,
                                           const std::vector<std::string>& topRows,
                                           float rotation = 0) {
    std::vector<std::string> lines;
    const float header[7] = {0, grid, rotation, floors, height, 0, 0};
    for (int k = 1; k <= 6; ++k) lines.push_back(MatrixHeaderLine(k, header[k]));
    for (int z = 1; z <= 25; ++z) {
        ZoneLineFields f;
        f.name = DefaultZoneName(level, z);
        f.ceilingHt = height;
        lines.push_back(MatrixZoneLine(z, f));
    }
    for (int r = 0; r < 60; ++r) {
        std::string row = r < static_cast<int>(topRows.size()) ? topRows[r] : "";
        row.resize(90, '0');
        lines.push_back(row + " ");
    }
    return lines;
}

}  // namespace solvane::testing
