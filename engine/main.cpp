// Solv2020: the simulation engine, started with no arguments in the
// program's temp folder (see engine_run.h for what it reads and writes).
#include <filesystem>

#include "engine/engine_run.h"

int main() {
    return solvane::engine::RunEngine(std::filesystem::current_path());
}
