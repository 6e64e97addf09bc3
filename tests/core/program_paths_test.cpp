#include "core/program_paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace fs = std::filesystem;

namespace solvane {
namespace {

class ProgramPathsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        root_ = fs::temp_directory_path() /
                ("solvane_pp_" + std::to_string(::getpid()) + "_" +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::create_directories(root_ / "Codes");
        fs::create_directories(root_ / "temp");
        std::ofstream(root_ / "Codes" / "HTfuel.txt") << "x";
        std::ofstream(root_ / "temp" / "a1.tmp") << "x";
    }
    void TearDown() override { fs::remove_all(root_); }
    fs::path root_;
};

TEST_F(ProgramPathsTest, ResolvesEitherSlashWithoutRegardToCase) {
    ProgramPaths p(root_);
    EXPECT_EQ(p.Resolve("\\codes\\HTFUEL.txt"), root_ / "Codes" / "HTfuel.txt");
    EXPECT_EQ(p.Resolve("/temp/wthChange.txt"), root_ / "temp" / "wthChange.txt");
    EXPECT_TRUE(FileExists(p, "\\CODES\\htfuel.TXT"));
    EXPECT_FALSE(FileExists(p, "\\codes\\none.txt"));
}

TEST_F(ProgramPathsTest, WildCardsCount) {
    ProgramPaths p(root_);
    EXPECT_TRUE(FileExists(p, "\\temp\\*.tmp"));
    EXPECT_FALSE(FileExists(p, "\\temp\\*.zon"));
}

TEST_F(ProgramPathsTest, HomeOptionComesFirst) {
    const ProgramPaths p = LocateProgramDir(root_.string(), "/nonexistent/Solv");
    EXPECT_EQ(p.ProgramDir(), fs::absolute(root_));
    EXPECT_THROW(LocateProgramDir((root_ / "nothing").string(), "/x"), std::runtime_error);
}

TEST_F(ProgramPathsTest, ReadOnlyFolderIsCopiedForTheUserOnce) {
    const fs::path xdg = root_.string() + "_xdg";
    ::setenv("XDG_DATA_HOME", xdg.c_str(), 1);
    const auto readOnly = [](const fs::path&) { return false; };
    const ProgramPaths p = LocateProgramDir(root_.string(), "/x", readOnly);
    EXPECT_EQ(p.ProgramDir(), xdg / "solvane");
    EXPECT_TRUE(fs::exists(xdg / "solvane" / "Codes" / "HTfuel.txt"));
    // The user's edits in the copy survive the next start.
    std::ofstream(xdg / "solvane" / "Codes" / "HTfuel.txt") << "edited";
    LocateProgramDir(root_.string(), "/x", readOnly);
    std::ifstream in(xdg / "solvane" / "Codes" / "HTfuel.txt");
    std::string text;
    in >> text;
    EXPECT_EQ(text, "edited");
    ::unsetenv("XDG_DATA_HOME");
    fs::remove_all(xdg);
}

}  // namespace
}  // namespace solvane
