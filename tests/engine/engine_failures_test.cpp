// The engine met with inputs it cannot use and with a folder it cannot fill:
// every refusal names the file, the line and the field; a run that does not
// complete leaves its record and nothing that could pass for results.
#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "core/item_reader.h"
#include "core/text_file.h"
#include "engine/control_file.h"

namespace solvane::engine {
namespace {

namespace fs = std::filesystem;
const std::string kSource = SOLVANE_SOURCE_DIR;

const char* const kControl =
    "Run type  : 3\r\nWthr type :  0\r\n1st day   :  1 \r\nRun begin : 1\r\n"
    "Run end   : 365\r\nHourly out:  0 \r\nCode Num  :  2 \r\nSkip month: \r\n"
    "Comfort   :  68       79 \r\n";

// The control file with line `line` (from 1) put in place.
std::string ControlWith(int line, const std::string& text) {
    std::vector<std::string> lines = SplitLines(kControl);
    lines[static_cast<std::size_t>(line - 1)] = text;
    std::string out;
    for (const auto& l : lines) out += l + "\r\n";
    return out;
}

TEST(ControlFile, RefusesWhatTheRunCannotUseNamingTheLine) {
    const struct {
        int line;
        std::string text;
    } cases[] = {
        {1, "Run type  : 1e99"},
        {1, "Run type  : 7"},
        {1, "Run type  : 2"},
        {1, "Run type  : x"},
        {2, "Wthr type : 9"},
        {3, "1st day   :  0 "},
        {4, "Run begin : 400"},
        {5, "Run end   : 0"},
        {6, "Hourly out:  2 "},
        {7, "Code Num  :  77 "},
        {8, "Skip month: 1e99 "},
        {9, "Comfort   :  79       68 "},
        {9, "Comfort   :  x        79 "},
        {8, "Skip month:  1  2  3  4  5  6  7  8  9  10  11  12 "},
    };
    for (const auto& c : cases) {
        try {
            ReadControlFile(ControlWith(c.line, c.text), "ecalc$.tmp");
            ADD_FAILURE() << c.text << " was taken";
        } catch (const ReadError& e) {
            EXPECT_EQ(e.File(), "ecalc$.tmp");
            EXPECT_EQ(e.Line(), c.line) << e.what();
        }
    }
    // A period wholly inside the skipped months leaves nothing to simulate;
    // one day outside them does.
    std::string january = ControlWith(5, "Run end   : 31");
    january.replace(january.find("Skip month: "), 12, "Skip month:  1 ");
    EXPECT_THROW(ReadControlFile(january, "x"), ReadError);
    january.replace(january.find("Run end   : 31"), 14, "Run end   : 32");
    EXPECT_NO_THROW(ReadControlFile(january, "x"));
}

// One engine run in a folder of its own.
struct EngineRun {
    fs::path dir;
    int status = -1;  // exit code, or -1 when ended by a signal
    int signal = 0;
    std::string monitor, err;
};

class EngineFolder : public ::testing::Test {
  protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() /
               ("solvane_failures_" + std::to_string(::getpid()) + "_" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
        inp_ = ReadTextFile(kSource + "/tests/engine/projects/case600.inp").value_or("");
        ASSERT_FALSE(inp_.empty());
    }
    void TearDown() override {
        std::error_code ec;
        fs::permissions(dir_, fs::perms::owner_all, ec);
        fs::remove_all(dir_, ec);
    }

    // Line number (from 1) of the n-th line that begins with `label`.
    int LineOf(const std::string& label, int nth = 1) const {
        const auto lines = SplitLines(inp_);
        for (std::size_t i = 0; i < lines.size(); ++i)
            if (lines[i].rfind(label, 0) == 0 && --nth == 0) return static_cast<int>(i) + 1;
        ADD_FAILURE() << label << " not in the project";
        return 0;
    }

    // The project with line `line` given a new value behind its label.
    std::string Edited(int line, const std::string& value) const {
        auto lines = SplitLines(inp_);
        std::string& l = lines[static_cast<std::size_t>(line - 1)];
        l = l.substr(0, 10) + value;
        std::string out;
        for (const auto& x : lines) out += x + "\r\n";
        return out;
    }

    // Starts the engine in the folder, optionally with a file size limit
    // (a disk that fills) and a stop signal once it is at work.
    EngineRun Run(const std::string& inp, const std::string& control = kControl,
                  rlim_t fileSizeLimit = RLIM_INFINITY, int stopSignal = 0, uid_t asUser = 0) {
        EXPECT_TRUE(WriteFileAtomic(dir_ / "ecalc$.inp", inp));
        EXPECT_TRUE(WriteFileAtomic(dir_ / "ecalc$.tmp", control));
        const std::string errPath = (dir_.parent_path() / (dir_.filename().string() + ".err"));
        const pid_t pid = ::fork();
        if (pid == 0) {
            if (::chdir(dir_.c_str()) != 0) ::_exit(126);
            const int fd = ::open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            ::dup2(fd, 2);
            const rlimit limit{fileSizeLimit, fileSizeLimit};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            ::signal(SIGXFSZ, SIG_IGN);  // a write past the limit then fails as on a full disk
            if (asUser != 0 && (::setgid(asUser) != 0 || ::setuid(asUser) != 0)) ::_exit(126);
            ::execl(SOLV2020_PATH, SOLV2020_PATH, static_cast<char*>(nullptr));
            ::_exit(127);
        }
        if (stopSignal != 0) {
            // The private work folder stands while the engine reads and simulates.
            for (int i = 0; i < 2000 && !fs::exists(dir_ / "Solv2020.work"); ++i)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            ::kill(pid, stopSignal);
        }
        int st = 0;
        ::waitpid(pid, &st, 0);
        EngineRun r;
        r.dir = dir_;
        r.status = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
        r.signal = WIFSIGNALED(st) ? WTERMSIG(st) : 0;
        r.monitor = ReadTextFile(dir_ / "Monitor.txt").value_or("");
        r.err = ReadTextFile(errPath).value_or("");
        fs::remove(errPath);
        return r;
    }

    bool AnyResult() const {
        for (const char* name : {"sim$.out", "ecalc$.wth", "ecalc$.flt", "ecalc$.hry"})
            if (fs::exists(dir_ / name)) return true;
        for (const auto& e : fs::directory_iterator(dir_))
            if (e.path().filename().string().find(".tmp-") != std::string::npos) return true;
        return false;
    }

    fs::path dir_;
    std::string inp_;
};

// Each wrong value stops the run before it simulates, with its own line.
TEST_F(EngineFolder, ProjectValuesItCannotUseAreRefusedAtTheirLine) {
    const auto zone = [&](const char* label) { return LineOf(label); };
    const struct {
        int line;
        std::string value, words;
    } cases[] = {
        {zone("Flr. Area"), "abc", "Flr. Area \"abc\" is not a number"},
        {zone("Flr. Area"), "1e400", "Flr. Area 1e400 is out of range"},
        {zone("No.People"), "-3", "No.People -3 is out of range"},
        {LineOf("U-Factor"), "-5", "wall 1, U-Factor -5 is out of range"},
        {zone("HVAC Type"), "99", "HVAC Type 99 is out of range"},
        {zone("Occ. Prof"), "9", "Occ. Prof 9: the project holds no such profile"},
        {zone("OA CFM"), "X", "OA CFM \"X\" must begin with CP, CS or PA"},
        {zone("OA CFM"), "CPabc", "OA CFM \"abc\" is not a number"},
        {zone("Zone No."), "ab", "Zone No. \"ab\" is not a level and zone number"},
        {LineOf("Wall Area"), "1e400", "Wall Area 1e400 is out of range"},
        {LineOf("Window ID"), "7", "Window ID 7 is not in the window catalog"},
        {LineOf("Wall ID."), "33", "Wall ID. 33 is not in the wall catalog"},
        {LineOf("\"M-F\"", 4), std::string("100 1e35") + std::string(84, ' '),
         "hour 2 1e35 is out of range"},
        {LineOf("DB Ave"), "  19.3  19.2", "holds 2 of its 12 monthly values"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.value);
        const EngineRun r = Run(Edited(c.line, c.value));
        EXPECT_EQ(r.status, 1);
        EXPECT_NE(r.monitor.find("ecalc$.inp, line " + std::to_string(c.line) + ": "),
                  std::string::npos)
            << r.monitor;
        EXPECT_NE(r.monitor.find(c.words), std::string::npos) << r.monitor;
        EXPECT_NE(r.monitor.find("SIMULATION NOT COMPLETED"), std::string::npos);
        EXPECT_FALSE(AnyResult());
    }
}

// A doubtful value the run can go on without is named in Monitor.txt with
// what the run took instead.
TEST_F(EngineFolder, ValuesTheRunWorksAroundAreNamed) {
    const int exposure = LineOf("Surf Exp.");
    const EngineRun r = Run(Edited(exposure, " 99 "));
    EXPECT_EQ(r.status, 0) << r.monitor;
    EXPECT_NE(r.monitor.find("line " + std::to_string(exposure) +
                             ": zone 1-1, surface 1, Surf Exp. 99 "
                             "is no exposure code"),
              std::string::npos)
        << r.monitor;
    std::string cut = inp_ + "Grid Size  : 10\r\nRotation   : 0\r\n";
    const EngineRun c = Run(cut);
    EXPECT_EQ(c.status, 0);
    // The case file holds a whole level; the cut one comes after it.
    EXPECT_NE(c.monitor.find("the building matrix of level 2 ends after 2 of its 91 lines"),
              std::string::npos)
        << c.monitor;
}

// Outputs of an earlier run do not survive a run that fails.
TEST_F(EngineFolder, AFailedRunLeavesOnlyItsRecord) {
    for (const char* name : {"sim$.out", "ecalc$.wth", "ecalc$.flt", "ecalc$.hry"})
        WriteFileAtomic(dir_ / name, "an earlier run\r\n");
    const EngineRun r = Run(inp_, ControlWith(1, "Run type  : 1e99"));
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.monitor.find("ecalc$.tmp, line 1: run type \"1e99\""), std::string::npos)
        << r.monitor;
    EXPECT_FALSE(AnyResult());
}

// A disk that fills: the write that failed is named with the system's reason,
// and no partial set of results is left.
TEST_F(EngineFolder, AWriteThatFailsIsNamedWithItsReason) {
    // Room for the staged project and the first reports, not for the weather
    // summary.
    const EngineRun r = Run(inp_, kControl, 16384);
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.monitor.find("ecalc$.wth could not be written: File too large"), std::string::npos)
        << r.monitor << r.err;
    EXPECT_FALSE(AnyResult());
}

// With no Monitor.txt to be had the record goes to the standard error stream.
TEST_F(EngineFolder, ARecordThatCannotBeWrittenGoesToStandardError) {
    fs::create_directories(dir_ / "Monitor.txt" / "in the way");
    const EngineRun r = Run(inp_);
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("Monitor.txt could not be written: "), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("SIMULATION"), std::string::npos) << r.err;
}

// A folder the engine may not write in (run as a user without the right):
// the reason goes to the standard error stream.
TEST_F(EngineFolder, AFolderItCannotWriteIsToldOnStandardError) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs root to run the engine as another user";
    const uid_t nobody = 65534;
    fs::permissions(dir_, fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                              fs::perms::others_read | fs::perms::others_exec);
    const EngineRun r = Run(inp_, kControl, RLIM_INFINITY, 0, nobody);
    if (r.status == 127) GTEST_SKIP() << "the engine's folder is closed to other users";
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("Monitor.txt could not be written: Permission denied"), std::string::npos)
        << r.err;
    EXPECT_NE(r.err.find("SIMULATION NOT COMPLETED"), std::string::npos) << r.err;
}

// Stopped by a signal at work, the engine leaves its record saying so and no
// output; had it finished first, its outputs are whole.
TEST_F(EngineFolder, AStopSignalLeavesTheRecordAndNoOutput) {
    for (const int sig : {SIGTERM, SIGINT}) {
        const EngineRun r = Run(inp_, ControlWith(6, "Hourly out:  1 "), RLIM_INFINITY, sig);
        if (r.signal != 0) {
            EXPECT_EQ(r.signal, sig);
            EXPECT_NE(r.monitor.find("SIMULATION STOPPED BEFORE IT COMPLETED"), std::string::npos)
                << r.monitor;
            EXPECT_FALSE(AnyResult());
        } else {
            EXPECT_EQ(r.status, 0);
            EXPECT_TRUE(fs::exists(dir_ / "sim$.out") && fs::exists(dir_ / "eweth$.hry"));
        }
    }
}

}  // namespace
}  // namespace solvane::engine
