// Reading and writing a whole project file, with its staging files.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

#include "core/line_writer.h"
#include "core/session.h"
#include "core/text_file.h"
#include "projectfile/project_file.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace {

struct Sample {
    fs::path root;
    std::string text;
    Sample() {
        root = fs::temp_directory_path() / ("solvane_bench_pf_" + std::to_string(::getpid()));
        fs::create_directories(root / "temp");
        fs::create_directories(root / "sketch");
        text = *solvane::ReadTextFile(fs::path(SOLVANE_SOURCE_DIR) / "data" / "sample" /
                                      "Small Office [two levels, I-P].inp");
    }
    ~Sample() {
        std::error_code ec;
        fs::remove_all(root, ec);
    }
};

void BM_ReadProjectFile(benchmark::State& state) {
    Sample sample;
    solvane::ScriptedPrompt prompt;
    for (auto _ : state) {
        auto session = std::make_unique<solvane::Session>();
        session->paths = solvane::ProgramPaths(sample.root);
        benchmark::DoNotOptimize(
            solvane::ReadProjectFile(*session, prompt, sample.text, "office.inp", {}));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * sample.text.size()));
}
BENCHMARK(BM_ReadProjectFile);

void BM_WriteProjectFile(benchmark::State& state) {
    Sample sample;
    solvane::ScriptedPrompt prompt;
    auto session = std::make_unique<solvane::Session>();
    session->paths = solvane::ProgramPaths(sample.root);
    solvane::ReadProjectFile(*session, prompt, sample.text, "office.inp", {});
    for (auto _ : state) {
        solvane::LineWriter out;
        solvane::WriteProjectFile(*session, out);
        benchmark::DoNotOptimize(out.Str());
    }
}
BENCHMARK(BM_WriteProjectFile);

}  // namespace
