// The run and its results on the desktop, offscreen: a sample project run
// from the hub through the real engine, the progress seen on the way, the
// energy breakdown opened after it; and Cancel ending a hung engine.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>
#include <filesystem>

#include "app/app_shell.h"
#include "app/file_forms.h"
#include "app/mainform.h"
#include "app/mainmenu.h"
#include "app/result_screens.h"
#include "app/runsim.h"
#include "core/text_file.h"
#include "tests/app/app_fixture.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

class RunResultsTest : public test::AppFixture {
  protected:
    bool ShareClimateFiles() const override { return true; }
    // Begins in I-P, opens the office sample and goes to the run screen.
    QWidget* OpenRunScreen() {
        prompt_.Queue(Answer::No);
        Find<QAbstractButton>(shell_->mainform(), "unitnum_1")->click();
        Find<QAbstractButton>(shell_->mainform(), "continue")->click();
        QWidget* hub = shell_->mainmenu();
        Find<QAbstractButton>(hub, "Picture1")->click();
        auto* list = Find<QListWidget>(shell_->sampleFileForm(), "File1");
        list->setCurrentRow(0);
        Find<QAbstractButton>(shell_->sampleFileForm(), "OK")->click();
        prompt_.Queue(Answer::No);  // not saving before the run
        Find<QAbstractButton>(hub, "Image6")->click();
        auto* options = hub->findChild<QWidget*>("RunOptions");
        EXPECT_TRUE(options && options->isVisible());
        if (!options) return nullptr;
        prompt_.Queue(Answer::Yes);  // run without saving the input
        Find<QAbstractButton>(options, "Command1")->click();
        QWidget* run = shell_->runSim();
        EXPECT_TRUE(run->isVisible());
        return run;
    }
};

TEST_F(RunResultsTest, RunASampleSeeProgressAndTheEnergyBreakdown) {
    // The real engine, behind a pause so that the run lasts long enough to be
    // watched.
    WriteFileAtomic(root_ / "Solv2020", "#!/bin/sh\nsleep 1\nexec '" SOLV2020_PATH "'\n");
    fs::permissions(root_ / "Solv2020", fs::perms::owner_all);
    QWidget* run = OpenRunScreen();
    ASSERT_NE(run, nullptr);
    EXPECT_EQ(Find<QLineEdit>(run, "Text1_0")->text(), "1-Jan");
    Snapshot(run, "runsim");

    QSignalSpy finished(shell_->runSim(), &RunSimScreen::runFinished);
    Find<QAbstractButton>(run, "Command1")->click();
    auto* bar = Find<QProgressBar>(run, "ProgressBar1");
    EXPECT_TRUE(bar->isVisible());
    QTest::qWait(700);
    EXPECT_GT(bar->value(), 0);  // the bar moves while the window keeps painting
    EXPECT_NE(Find<QLabel>(run, "runstatus")->text().indexOf("Time="), -1);
    Snapshot(run, "runsim_running");
    ASSERT_TRUE(finished.wait(30000));
    EXPECT_NE(Find<QLabel>(run, "runstatus")->text().indexOf("Simulation Completed at "), -1);
    auto* review = Find<QAbstractButton>(run, "Command3");
    EXPECT_TRUE(review->isVisible());
    review->click();

    QWidget* source = shell_->results();
    ASSERT_TRUE(source->isVisible());
    EXPECT_EQ(source->objectName(), "source");
    EXPECT_NE(source->windowTitle().indexOf("Breakdown of Annual Energy"), -1);
    EXPECT_EQ(shell_->session().model.flags.OutputAvailable, 1);
    Snapshot(source, "source");

    // The loads chart and its export.
    Find<QAbstractButton>(source, "viewoutput")->click();
    auto* chooser = source->findChild<QWidget*>("ViewOutput");
    ASSERT_TRUE(chooser && chooser->isVisible());
    Find<QAbstractButton>(chooser, "viewpeak")->click();
    EXPECT_EQ(source->objectName(), "peak");
    Find<QAbstractButton>(source, "peakheat")->click();
    EXPECT_FALSE(Find<QAbstractButton>(source, "peakheat")->isEnabled());
    EXPECT_NE(Find<QLabel>(source, "Totheat")->text().indexOf("Total Peak Heating Loads = "), -1);
    Snapshot(source, "peak");
    ASSERT_TRUE(shell_->results()->Export(QString::fromStdString((root_ / "peak.pdf").string())));
    ASSERT_TRUE(shell_->results()->Export(QString::fromStdString((root_ / "peak.png").string())));
    EXPECT_GT(fs::file_size(root_ / "peak.pdf"), 1000u);
    EXPECT_GT(fs::file_size(root_ / "peak.png"), 1000u);

    // The hub's Graphs menu reaches the same charts once results exist.
    EXPECT_TRUE(shell_->session().mainmenu.Enabled("viewmenu"));
    source->hide();
    auto* monthly = shell_->mainmenu()->findChild<QAction*>("graph_5");
    ASSERT_NE(monthly, nullptr);
    monthly->trigger();
    EXPECT_TRUE(source->isVisible());
    EXPECT_EQ(source->objectName(), "monthly");
    EXPECT_NE(source->windowTitle().indexOf("Monthly Heating and Cooling Energy"), -1);
    Snapshot(source, "monthly");

    // Leaving unsaved results asks first; "No" returns to the hub.
    prompt_.Queue(Answer::No);
    Find<QAbstractButton>(source, "mainmenu")->click();
    EXPECT_EQ(prompt_.asked.back().title, "Save Output");
    EXPECT_FALSE(source->isVisible());
    EXPECT_TRUE(shell_->mainmenu()->isVisible());
}

TEST_F(RunResultsTest, CancelEndsAHungEngineAndTheProjectStaysAsItWas) {
    WriteFileAtomic(root_ / "Solv2020", "#!/bin/sh\ntrap '' TERM\nwhile :; do sleep 1; done\n");
    fs::permissions(root_ / "Solv2020", fs::perms::owner_all);
    QWidget* run = OpenRunScreen();
    ASSERT_NE(run, nullptr);
    const std::string year = shell_->session().model.ProjectData[kConYear];
    Find<QLineEdit>(run, "Text1_2")->setText("21");
    QSignalSpy finished(shell_->runSim(), &RunSimScreen::runFinished);
    Find<QAbstractButton>(run, "Command1")->click();
    QTest::qWait(400);
    EXPECT_EQ(finished.count(), 0);
    QTest::keyClick(run, Qt::Key_Escape);  // Escape is Cancel: it ends the engine
    EXPECT_EQ(finished.count(), 1);
    EXPECT_TRUE(run->isVisible());
    EXPECT_EQ(shell_->session().model.ProjectData[kConYear], year);
    EXPECT_EQ(shell_->session().model.flags.RunDone, 0);
    EXPECT_TRUE(Find<QAbstractButton>(run, "Command1")->isEnabled());
    // A second Cancel leaves the screen for the hub.
    Find<QAbstractButton>(run, "Command2")->click();
    EXPECT_FALSE(run->isVisible());
    EXPECT_TRUE(shell_->mainmenu()->isVisible());
}

}  // namespace
}  // namespace solvane

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
