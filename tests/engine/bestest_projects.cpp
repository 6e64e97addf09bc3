// The ASHRAE 140 cases through the project route: the project reader
// stages the file into a scratch program folder, the engine's translation
// reads the model and the building matrix.
#include <filesystem>
#include <stdexcept>
#include <string>

#include <unistd.h>

#include "bestest_cases.h"
#include "core/session.h"
#include "core/text_file.h"
#include "engine/epw_reader.h"
#include "engine/project_translation.h"
#include "projectfile/project_file.h"
#include "ui/scripted_prompt.h"

namespace solvane::engine::testing {

ProjectRunInputs LoadProjectCase(const std::string& path, int runType, const ProjectEdit& edit) {
    // A folder of this process and call: test processes run side by side.
    static int calls = 0;
    const auto dir = std::filesystem::temp_directory_path() /
                     ("solvane_case_" + std::filesystem::path(path).stem().string() + "_" +
                      std::to_string(::getpid()) + "_" + std::to_string(++calls));
    std::filesystem::create_directories(dir / "temp");
    std::filesystem::create_directories(dir / "sketch");
    Session session;
    session.paths = ProgramPaths(dir);
    ScriptedPrompt prompt;
    const auto text = ReadTextFile(path);
    if (!text) throw std::runtime_error("cannot read " + path);
    if (ReadProjectFile(session, prompt, *text, path, {}) != ReadStatus::Read)
        throw std::runtime_error("cannot read the project " + path);
    std::string matrix =
        ReadTextFile(session.paths.Resolve("\\sketch\\bld_mtx.all")).value_or(std::string());
    std::filesystem::remove_all(dir);
    if (edit) edit(session.model, matrix);
    return TranslateProject(session.model, runType, matrix);
}

Building ProjectCaseBuilding(bool heavy, bool freeFloat) {
    const std::string file = heavy ? "case900.inp" : "case600.inp";
    return LoadProjectCase(std::string(SOLVANE_SOURCE_DIR) + "/tests/engine/projects/" + file,
                           freeFloat ? 4 : 3)
        .building;
}

const WeatherYear& DenverWeather() {
    static const WeatherYear w =
        ReadEpwFile(std::string(SOLVANE_SOURCE_DIR) + "/tests/fixtures/weather/725650TYCST.epw");
    return w;
}

}  // namespace solvane::engine::testing
