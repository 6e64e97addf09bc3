// The zone screens in the desktop program, offscreen: a sample project's
// first zone edited through one field of each kind, then saved; the file
// holds every edit.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/app_shell.h"
#include "app/file_forms.h"
#include "app/mainform.h"
#include "app/mainmenu.h"
#include "app/zoneform.h"
#include "tests/app/app_fixture.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

class ZoneScreenTest : public test::AppFixture {
  protected:
    QAction* MenuEntry(QWidget* screen, const char* menu, int index) {
        auto* m = Find<QMenu>(screen, menu);
        emit m->aboutToShow();
        return m->actions().at(index);
    }
    void Type(QWidget* screen, const char* box, const char* text) {
        auto* edit = Find<QLineEdit>(screen, box);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Backspace);
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Return);
    }
};

TEST_F(ZoneScreenTest, EachKindOfFieldReachesTheSavedFile) {
    prompt_.Queue(Answer::No);
    Find<QRadioButton>(shell_->mainform(), "unitnum_1")->click();
    Find<QAbstractButton>(shell_->mainform(), "continue")->click();
    QWidget* hub = shell_->mainmenu();
    Find<QAbstractButton>(hub, "Picture1")->click();
    auto* samples = Find<QListWidget>(shell_->sampleFileForm(), "File1");
    samples->setCurrentRow(0);
    Find<QAbstractButton>(shell_->sampleFileForm(), "OK")->click();
    ASSERT_TRUE(Find<QWidget>(hub, "zonedescription")->isEnabled());

    Find<QAbstractButton>(hub, "zonedescription")->click();
    ZoneNameScreen* list = shell_->zones()->list();
    ASSERT_TRUE(list->isVisible());
    ASSERT_GE(list->grid()->rowCount(), 2);
    EXPECT_EQ(list->grid()->item(0, 0)->text(), "1-1");
    list->grid()->selectRow(0);
    Find<QAbstractButton>(list, "OK")->click();
    QWidget* form = shell_->zones()->form();
    ASSERT_TRUE(form->isVisible());
    EXPECT_TRUE(form->windowTitle().startsWith("Zone Description:... "));
    EXPECT_EQ(Find<QLineEdit>(form, "zone_4")->text(), "100");  // the internal mass floor

    Type(form, "zone_7", "3.5");                      // a typed field
    MenuEntry(form, "light", 3)->trigger();           // lighting type 4, LED
    MenuEntry(form, "ac", 8)->trigger();              // HVAC system 9
    MenuEntry(form, "heat", 1)->trigger();            // electric heat
    Find<QAbstractButton>(form, "natvent")->click();  // a switch
    MenuEntry(form, "profile", 0)->trigger();         // the occupancy schedule
    QWidget* schedules = form->findChild<QDialog*>("occupprof");
    ASSERT_NE(schedules, nullptr);
    ASSERT_TRUE(schedules->isVisible());
    Find<QAbstractButton>(schedules, "Pnum_2")->click();
    Snapshot(schedules, "occupprof");
    Find<QAbstractButton>(schedules, "okey")->click();
    EXPECT_EQ(Find<QLineEdit>(form, "zone_6")->text(), " 2");
    QTimer::singleShot(0, [this, form] {  // the outdoor air through its dialog
        QWidget* vent = form->findChild<QDialog*>("VentilationRate");
        ASSERT_NE(vent, nullptr);
        Find<QLineEdit>(vent, "ven_1")->clear();
        Find<QLineEdit>(vent, "ven_2")->clear();
        Type(vent, "ven_0", "17");
        Find<QAbstractButton>(vent, "Command1")->click();
    });
    QFocusEvent clicked(QEvent::FocusIn, Qt::MouseFocusReason);
    QApplication::sendEvent(Find<QLineEdit>(form, "zone_9"), &clicked);
    EXPECT_EQ(Find<QLineEdit>(form, "zone_9")->text(), "CP17");
    Type(form, "winarea_1", "100");   // a surface box
    Type(form, "ElevArea_2", ".25");  // the south side's window fraction
    Snapshot(form, "zoneform");
    Find<QAbstractButton>(form, "okey")->click();
    std::string told;
    for (const auto& a : prompt_.asked) told += a.title + ": " + a.text + "\n";
    ASSERT_FALSE(form->isVisible()) << told;
    ASSERT_TRUE(list->isVisible());
    Find<QAbstractButton>(list, "back")->click();
    ASSERT_TRUE(hub->isVisible());

    const fs::path saved = root_ / "edited.inp";
    ASSERT_TRUE(WriteProjectFileTo(shell_->session(), prompt_, saved, false));
    std::ifstream in(saved, std::ios::binary);
    std::stringstream file;
    file << in.rdbuf();
    const std::string text = file.str();
    const std::size_t zone2 = text.find("Zone No.  1-2");
    ASSERT_NE(zone2, std::string::npos);
    const std::string first = text.substr(0, zone2);
    for (const char* line :
         {"HW/person 3.5\r\n", "Lite Type  4 \r\n", "HVAC Type  9\r\n", "Htg. Type  2\r\n",
          "Nat. Vent Yes\r\n", "Occ. Prof  2\r\n", "OA CFM    CP 17\r\n", "Int. Mass 100\r\n"})
        EXPECT_NE(first.find(line), std::string::npos)
            << line << first.substr(first.find("ZONES"), 900);
    EXPECT_NE(first.find("Win. Area  100 "), std::string::npos);
}

}  // namespace
}  // namespace solvane

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
