// Solv2020: the simulation engine, started with no arguments in the
// program's temp folder (see engine_run.h for what it reads and writes).
// "--threads N" sets how many zones it steps at once (default: every core).
#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "engine/engine_run.h"

int main(int argc, char** argv) {
    solvane::engine::EngineRunOptions options;
    for (int i = 1; i < argc; ++i) {
        const char* value = i + 1 < argc ? argv[i + 1] : "";
        const char* end = value + std::strlen(value);
        int n = 0;
        if (std::strcmp(argv[i], "--threads") == 0 && std::from_chars(value, end, n).ptr == end &&
            n >= 1 && n <= 256 && end != value) {
            options.threads = n;
            ++i;
            continue;
        }
        std::fprintf(stderr, "Solv2020: unknown argument %s (usage: Solv2020 [--threads N])\n",
                     argv[i]);
        return 2;
    }
    return solvane::engine::RunEngine(std::filesystem::current_path(), options);
}
