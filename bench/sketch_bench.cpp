// Zone surface extraction over many levels: the derivation of every level's
// surfaces from the level files, and the whole exit step with its files.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

#include "core/line_writer.h"
#include "core/session.h"
#include "core/text_file.h"
#include "sketch/derive_zones.h"
#include "sketch/matrix_file.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace {

// A drawing of `levels` levels, each the full 60 x 90 sheet split into 25
// zones of 12 x 18 cells; with `courts`, each of the 9 inner zones has an open
// court of 4 x 8 cells in its middle, whose walls face each other.
struct Drawing {
    fs::path root;
    std::unique_ptr<solvane::Session> session = std::make_unique<solvane::Session>();
    solvane::SketchScreen screen;

    Drawing(int levels, bool courts) {
        root = fs::temp_directory_path() / ("solvane_bench_sketch_" + std::to_string(::getpid()) +
                                            "_" + std::to_string(levels) + (courts ? "c" : "f"));
        fs::create_directories(root / "temp");
        fs::create_directories(root / "sketch");
        session->paths = solvane::ProgramPaths(root);
        auto& m = session->model;
        m.session.Units = 1;
        m.session.BuildingType = 1;
        m.climate.Latitude = 40;
        auto& sk = m.sketch;
        sk.TopFloor = static_cast<std::int16_t>(levels);
        sk.CurrentLevel = 1;
        sk.GridSize = 2;
        std::array<std::int16_t, solvane::kSketchCols + 1> row{};
        // The 16 zones on the sheet's edges first, then the 9 inner ones: the
        // walls that take the code overhang stay within the first 100 rows.
        int zoneOfBlock[5][5];
        int edge = 0, inner = 16;
        for (int bi = 0; bi < 5; ++bi)
            for (int bj = 0; bj < 5; ++bj)
                zoneOfBlock[bi][bj] = bi == 0 || bi == 4 || bj == 0 || bj == 4 ? ++edge : ++inner;
        for (int l = 1; l <= levels; ++l) {
            sk.LevelFloors[l] = 1;
            sk.LevelCeilingHt[l] = 10;
            sk.LevelHeight[l] = 10;
            solvane::LineWriter out;
            const float header[7] = {0, 2, 0, 1, 10, 0, 0};
            for (int k = 1; k <= 6; ++k) out.Line(solvane::MatrixHeaderLine(k, header[k]));
            for (int z = 1; z <= 25; ++z) {
                solvane::ZoneLineFields f;
                f.name = solvane::DefaultZoneName(l, z);
                f.ceilingHt = 10;
                out.Line(solvane::MatrixZoneLine(z, f));
            }
            for (int i = 0; i < 60; ++i) {
                for (int j = 0; j < 90; ++j) {
                    const int bi = i / 12, bj = j / 18;
                    const int block = zoneOfBlock[bi][bj];
                    const int ci = i % 12, cj = j % 18;
                    const bool court =
                        courts && block > 16 && ci >= 4 && ci < 8 && cj >= 5 && cj < 13;
                    row[static_cast<std::size_t>(j + 1)] =
                        static_cast<std::int16_t>(court ? 0 : block);
                }
                out.Line(solvane::MatrixGridLine(row));
            }
            solvane::WriteFileAtomic(solvane::LevelFilePath(session->paths, l), out.Str());
        }
    }
    ~Drawing() {
        std::error_code ec;
        fs::remove_all(root, ec);
    }
};

void BM_DeriveSurfaces(benchmark::State& state) {
    Drawing drawing(static_cast<int>(state.range(0)), state.range(1) != 0);
    std::size_t surfaces = 0;
    for (auto _ : state) {
        const auto derived = solvane::DeriveSurfaces(*drawing.session);
        surfaces = 0;
        for (const auto& level : derived.levels)
            for (const auto& zone : level.zones) surfaces += zone.surfaces.size();
        benchmark::DoNotOptimize(surfaces);
    }
    state.counters["surfaces"] = static_cast<double>(surfaces);
}
// 50 levels of 25 zones filling the sheet, without and with courts.
BENCHMARK(BM_DeriveSurfaces)->Args({50, 0})->Args({50, 1})->Unit(benchmark::kMillisecond);

// The whole exit step, within the project's 100 zones: 4 levels of 25.
void BM_DeriveZones(benchmark::State& state) {
    Drawing drawing(4, state.range(0) != 0);
    solvane::ScriptedPrompt prompt;
    for (auto _ : state) {
        drawing.session->model.sketch.TopFloor = 4;
        benchmark::DoNotOptimize(solvane::DeriveZones(*drawing.session, drawing.screen, prompt));
    }
    if (!prompt.asked.empty()) state.SkipWithError(prompt.asked.front().text.c_str());
}
BENCHMARK(BM_DeriveZones)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
