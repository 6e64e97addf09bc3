// A whole program started offscreen in a scratch copy of the program folder,
// driven through its widgets found by their field names.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QRadioButton>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "app/app_shell.h"
#include "app/mainform.h"
#include "app/mainmenu.h"
#include "ui/scripted_prompt.h"

namespace solvane::test {

class AppFixture : public ::testing::Test {
  protected:
    // A test that only reads the climate files shares the delivered ones
    // instead of copying them.
    virtual bool ShareClimateFiles() const { return false; }

    void SetUp() override {
        root_ = std::filesystem::temp_directory_path() /
                ("solvane_front_" + std::to_string(::getpid()) + "_" +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(root_);
        std::filesystem::create_directories(root_);
        for (const auto& entry : std::filesystem::directory_iterator(SOLVANE_DATA_DIR)) {
            const auto to = root_ / entry.path().filename();
            if (entry.path().filename() == "weather" && ShareClimateFiles())
                std::filesystem::create_directory_symlink(entry.path(), to);
            else
                std::filesystem::copy(entry.path(), to, std::filesystem::copy_options::recursive);
        }
        std::filesystem::create_directories(root_ / "temp");
        std::filesystem::remove(root_ / "temp" / "ecalc$.unt");
        // The user's folders are the test's own.
        home_ = qgetenv("HOME");
        std::filesystem::create_directories(root_ / "home");
        qputenv("HOME", QByteArray::fromStdString((root_ / "home").string()));
        shell_ = std::make_unique<AppShell>(ProgramPaths(root_), prompt_);
        shell_->Start(StartupEnvironment{});
    }
    void TearDown() override {
        shell_.reset();
        qputenv("HOME", home_);
        std::filesystem::remove_all(root_);
    }
    template <typename T>
    T* Find(QWidget* screen, const char* name) {
        T* w = screen->findChild<T*>(name);
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
    // Units, not as the default, then "Begin >>".
    void Begin(const char* units = "unitnum_1") {
        prompt_.Queue(Answer::No);
        Find<QRadioButton>(shell_->mainform(), units)->click();
        Find<QAbstractButton>(shell_->mainform(), "continue")->click();
    }
    ProjectModel& model() { return shell_->session().model; }
    // Saves a picture of a screen when SOLVANE_SCREENSHOTS names a folder.
    static void Snapshot(QWidget* screen, const char* name) {
        if (const char* dir = std::getenv("SOLVANE_SCREENSHOTS"))
            screen->grab().save(QString("%1/%2.png").arg(dir, name));
    }

    std::filesystem::path root_;
    QByteArray home_;
    ScriptedPrompt prompt_;
    std::unique_ptr<AppShell> shell_;
};

}  // namespace solvane::test
