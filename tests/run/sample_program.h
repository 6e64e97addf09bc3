// A program folder in the system's temp for a test run: the program's data,
// the real engine (or a stand-in script) and a sample project read into a
// session with the program's own hooks.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "cli/program_services.h"
#include "core/session.h"
#include "core/text_file.h"
#include "projectfile/project_file.h"
#include "ui/scripted_prompt.h"

namespace solvane::test {

inline std::filesystem::path MakeSampleProgram(const std::string& name) {
    namespace fs = std::filesystem;
    const fs::path root =
        fs::temp_directory_path() / ("solvane_" + name + "_" + std::to_string(::getpid()));
    fs::remove_all(root);
    fs::create_directories(root / "temp");
    const fs::path data = SOLVANE_DATA_DIR;
    for (const char* dir : {"Codes", "profiles", "Bldg-Prop", "Helpinfo", "sketch"})
        fs::copy(data / dir, root / dir, fs::copy_options::recursive);
    return root;
}

// The engine: the real one, or a shell script standing in for it.
inline void InstallEngine(const std::filesystem::path& root, const std::string& script = {}) {
    namespace fs = std::filesystem;
    fs::remove(root / "Solv2020");
    if (script.empty()) {
        fs::create_symlink(SOLV2020_PATH, root / "Solv2020");
    } else {
        WriteFileAtomic(root / "Solv2020", script);
        fs::permissions(root / "Solv2020", fs::perms::owner_all);
    }
}

inline void LoadSample(Session& session, ScriptedPrompt& prompt, const std::string& sample) {
    const auto text = ReadTextFile(std::string(SOLVANE_DATA_DIR) + "/sample/" + sample);
    ASSERT_TRUE(text);
    ASSERT_EQ(ReadProjectFile(session, prompt, *text, sample, MakeProjectFileHooks()),
              ReadStatus::Read)
        << (prompt.asked.empty() ? "" : prompt.asked[0].text);
    session.model.flags.PendingAfterSave = 3;
}

}  // namespace solvane::test
