// Help and orientation: every help text a screen names is delivered and
// opens under its heading; the hub's Tutorial menu and About box; the
// weather screen's and the sketch's help buttons.
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>

#include "app/about_box.h"
#include "app/help_viewer.h"
#include "app/weather.h"
#include "app_fixture.h"
#include "code/code_selection.h"
#include "core/text_file.h"
#include "weather/recorded_weather.h"

namespace solvane {
namespace {

using test::AppFixture;
using HelpTest = AppFixture;

// The help texts the screens name, with the heading each is shown under.
const std::pair<std::string, std::string> kNamedHelp[] = {
    {kCodeHelpFile, "ENERGY CODE SELECTION"},
    {"\\Helpinfo\\Help20-5.txt", "WEATHER DATA"},
    {"\\Helpinfo\\Help20-7.txt", "WALL AND ROOF PROPERTIES"},
    {"\\Helpinfo\\Help20-8.txt", "WINDOW AND SKYLIGHT PROPERTIES"},
    {"\\Helpinfo\\Help20-10.txt", "BUILDING SKETCH"},
    {kSourcesFile, "DATA SOURCES"},
};

HelpViewer* Viewer(QWidget* screen) {
    for (auto* v : screen->findChildren<HelpViewer*>())
        if (v->isVisible()) return v;
    return nullptr;
}

TEST_F(HelpTest, EveryNamedTextOpensUnderItsHeading) {
    HelpViewer viewer(shell_->session().paths, nullptr);
    for (const auto& [file, heading] : kNamedHelp) {
        SCOPED_TRACE(file);
        viewer.ShowFile(file);
        EXPECT_EQ(viewer.windowTitle().toStdString(), heading);
        const QString text = viewer.findChild<QPlainTextEdit*>("Text1")->toPlainText();
        EXPECT_GT(text.count('\n'), 8);
        EXPECT_FALSE(text.contains("was not found"));
    }
    // The format samples of the recorded weather screen.
    for (int f = 1; f <= 4; ++f) {
        const auto* sample = kRecordedFormats[static_cast<std::size_t>(f)].sampleFile;
        SCOPED_TRACE(sample);
        const auto text = ReadTextFile(shell_->session().paths.Resolve(sample));
        ASSERT_TRUE(text);
        EXPECT_GT(SplitLines(*text).size(), 10u);
    }
    // A missing text says which file it looked for.
    viewer.ShowFile("\\Helpinfo\\NoSuchHelp.txt");
    EXPECT_TRUE(
        viewer.findChild<QPlainTextEdit*>("Text1")->toPlainText().contains("NoSuchHelp.txt"));
}

TEST_F(HelpTest, TutorialMenuOpensEachTopicAndTheAboutBox) {
    Begin();
    QWidget* hub = shell_->mainmenu();
    int topics = 0;
    for (auto* action : hub->findChildren<QAction*>()) {
        if (!action->objectName().startsWith("helptopic_")) continue;
        ++topics;
        action->trigger();
        HelpViewer* v = Viewer(hub);
        ASSERT_NE(v, nullptr) << action->text().toStdString();
        EXPECT_EQ(v->windowTitle(), action->text().replace("&&", "&"));
        v->hide();
    }
    // Every text of Helpinfo is a topic.
    EXPECT_EQ(topics, static_cast<int>(HelpTopics(shell_->session().paths).size()));
    EXPECT_GE(topics, 10);

    Find<QAction>(hub, "aboutitem")->trigger();
    auto* about = hub->findChild<AboutBox*>("about");
    ASSERT_NE(about, nullptr);
    EXPECT_TRUE(about->isVisible());
    EXPECT_EQ(Find<QLabel>(about, "version")->text(), QString("Version ") + SOLVANE_VERSION);
    const QString sources = Find<QPlainTextEdit>(about, "sources")->toPlainText();
    EXPECT_TRUE(sources.startsWith("DATA SOURCES"));
    EXPECT_TRUE(sources.contains("climate.onebuilding.org"));
    EXPECT_TRUE(sources.contains("Natural Earth"));
}

TEST_F(HelpTest, WeatherScreenHelpButton) {
    Begin();
    Find<QAbstractButton>(shell_->mainmenu(), "weatherdata")->click();
    QWidget* weather = shell_->weather();
    ASSERT_TRUE(weather->isVisible());
    Find<QAbstractButton>(weather, "help")->click();
    HelpViewer* v = Viewer(weather);
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v->windowTitle(), "WEATHER DATA");
    EXPECT_TRUE(weather->isVisible());  // help keeps the screen open
}

}  // namespace
}  // namespace solvane
