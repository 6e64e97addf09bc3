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
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
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
    // The real engine, behind a pause: the bar stays at 0 until the engine
    // reports its first day.
    WriteFileAtomic(root_ / "Solv2020", "#!/bin/sh\nsleep 1\nexec '" SOLV2020_PATH "'\n");
    fs::permissions(root_ / "Solv2020", fs::perms::owner_all);
    QWidget* run = OpenRunScreen();
    ASSERT_NE(run, nullptr);
    EXPECT_EQ(Find<QLineEdit>(run, "Text1_0")->text(), "1-Jan");
    auto* july = Find<QAbstractButton>(run, "mon_6");
    july->click();  // July marked: skipped
    // The mark shows: the button is painted in the marking colour.
    const QImage shot = july->grab().toImage();
    EXPECT_EQ(shot.pixelColor(shot.width() / 2, 3).rgb() & 0xFFFFFF, 0xFFFF80u);
    Snapshot(run, "runsim");

    QSignalSpy finished(shell_->runSim(), &RunSimScreen::runFinished);
    Find<QAbstractButton>(run, "Command1")->click();
    auto* bar = Find<QProgressBar>(run, "ProgressBar1");
    EXPECT_TRUE(bar->isVisible());
    QTest::qWait(500);
    EXPECT_EQ(bar->value(), 0);  // no day simulated yet, whatever the clock says
    EXPECT_NE(Find<QLabel>(run, "runstatus")->text().indexOf("Time="), -1);
    // The bar follows the days the engine reports, never going back, while
    // the window keeps painting.
    std::vector<int> seen;
    for (int waited = 0; finished.count() == 0 && waited < 30000; waited += 10) {
        QTest::qWait(10);
        if (bar->isVisible() && (seen.empty() || seen.back() != bar->value())) {
            seen.push_back(bar->value());
            if (seen.back() > 0 && seen.back() < 95) Snapshot(run, "runsim_running");
        }
    }
    ASSERT_EQ(finished.count(), 1);
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_TRUE(std::any_of(seen.begin(), seen.end(), [](int v) { return v > 0 && v < 95; }))
        << "values seen: " << seen.size();
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

    // The benchmark: the survey text and the picture of the project's units.
    Find<QAbstractButton>(source, "Label5")->click();
    auto* eui = source->findChild<QWidget*>("EUI");
    ASSERT_TRUE(eui && eui->isVisible());
    EXPECT_NE(Find<QPlainTextEdit>(eui, "Text1")->toPlainText().indexOf("2012 CBECS survey"), -1);
    EXPECT_NE(Find<QLabel>(eui, "Label3")->text().indexOf("Climate Zone"), -1);
    auto* picture = Find<QLabel>(eui, "Image1_1");
    EXPECT_TRUE(picture->isVisible());
    EXPECT_FALSE(picture->pixmap().isNull());
    EXPECT_FALSE(Find<QLabel>(eui, "Image1_2")->isVisible());
    Snapshot(eui, "eui");
    QTest::keyClick(eui, Qt::Key_Escape);
    EXPECT_FALSE(eui->isVisible());
    EXPECT_TRUE(source->isVisible());

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
