// Everyday actions on the front screens, as a new user meets them: nothing
// typed or opened is lost, no action leaves the program without a window.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>
#include <fstream>
#include <functional>

#include "app/catalogs.h"
#include "app/desktop_mime.h"
#include "app/file_forms.h"
#include "app/form_helpers.h"
#include "app/projectinfo.h"
#include "app/warning.h"
#include "app/weather.h"
#include "core/numeric_helpers.h"
#include "tests/app/app_fixture.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

class FrontScreens : public test::AppFixture {
  protected:
    // Opens the sample at `row` of the sample dialog.
    void OpenSample(int row) {
        Find<QAbstractButton>(shell_->mainmenu(), "Picture1")->click();
        QWidget* samples = shell_->sampleFileForm();
        Find<QListWidget>(samples, "File1")->setCurrentRow(row);
        Find<QAbstractButton>(samples, "OK")->click();
    }
    // File -> Open with `path` typed in the name field and OK.
    void OpenFile(const fs::path& path) {
        prompt_.Queue(Answer::Yes);  // the unsaved-data warning, when it comes
        Find<QAction>(shell_->mainmenu(), "retrieveitem")->trigger();
        QWidget* open = shell_->oldFileForm();
        Find<QLineEdit>(open, "retrievefile")->setText(QString::fromStdString(path.string()));
        Find<QAbstractButton>(open, "OK")->click();
    }
    bool AnyWindowShown() const {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible()) return true;
        return false;
    }
};

TEST_F(FrontScreens, OpeningAFileThatIsNotAProjectKeepsTheProjectInMemory) {
    Begin();
    OpenSample(0);
    model().ProjectData[kProjName] = "Edited, not saved";
    const fs::path staged = root_ / "sketch" / "bld_mtx.all";
    ASSERT_TRUE(fs::exists(staged));
    std::ifstream before(staged);
    const std::string stagedBefore{std::istreambuf_iterator<char>(before), {}};

    const fs::path notes = root_ / "notes.inp";
    std::ofstream(notes) << "Shopping list\r\nmilk\r\n";
    OpenFile(notes);

    EXPECT_EQ(prompt_.asked.back().title, "Surprise");
    EXPECT_FALSE(shell_->ended());
    EXPECT_TRUE(AnyWindowShown());
    EXPECT_EQ(model().ProjectData[kProjName], "Edited, not saved");
    EXPECT_EQ(model().session.InputFileName.find("notes"), std::string::npos);
    EXPECT_GT(model().zones.NumZones, 0);
    std::ifstream after(staged);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(after), {}), stagedBefore);

    // The open dialog is still there for another choice: Cancel goes home.
    Find<QAbstractButton>(shell_->oldFileForm(), "Cancel")->click();
    EXPECT_TRUE(shell_->mainmenu()->isVisible());
}

// Escape and the close box are the Cancel of every dialog: the hub comes back.
TEST_F(FrontScreens, EscapeAndTheCloseBoxOfADialogReturnToTheHub) {
    Begin();
    QWidget* hub = shell_->mainmenu();
    const struct {
        const char* opener;
        std::function<QWidget*()> dialog;
    } dialogs[] = {
        {"retrieveitem", [this]() -> QWidget* { return shell_->oldFileForm(); }},
        {"Picture1", [this]() -> QWidget* { return shell_->sampleFileForm(); }},
        {"weatherdata", [this]() -> QWidget* { return shell_->weather(); }},
    };
    for (const auto& d : dialogs) {
        for (const bool escape : {true, false}) {
            SCOPED_TRACE(std::string(d.opener) + (escape ? " Escape" : " close box"));
            if (auto* action = hub->findChild<QAction*>(d.opener))
                action->trigger();
            else
                Find<QAbstractButton>(hub, d.opener)->click();
            QWidget* dialog = d.dialog();
            ASSERT_TRUE(dialog->isVisible());
            ASSERT_FALSE(hub->isVisible());
            if (escape)
                QTest::keyClick(dialog, Qt::Key_Escape);
            else
                dialog->close();
            EXPECT_FALSE(dialog->isVisible());
            EXPECT_TRUE(hub->isVisible());
        }
    }
    EXPECT_FALSE(shell_->ended());
}

TEST_F(FrontScreens, WeatherScreenOpensOnTheProjectsOwnStateAndCity) {
    Begin();
    OpenSample(2);  // the store in Phoenix, Arizona
    ASSERT_EQ(model().ProjectData[kLocation].rfind("Phoenix Sky Harbor Intl AP, Arizona", 0), 0u);
    Find<QAbstractButton>(shell_->mainmenu(), "weatherdata")->click();
    QWidget* weather = shell_->weather();
    ASSERT_TRUE(weather->isVisible());
    EXPECT_TRUE(Find<QRadioButton>(weather, "Option1_0")->isChecked());
    EXPECT_EQ(Find<QLineEdit>(weather, "sttext")->text(), "Arizona");
    EXPECT_EQ(Find<QComboBox>(weather, "Combo1")->currentText(), "Arizona");
    EXPECT_EQ(Find<QLineEdit>(weather, "citytext")->text(), "Phoenix Sky Harbor Intl AP");
    EXPECT_EQ(Find<QComboBox>(weather, "Combo3")->currentText(), "Phoenix Sky Harbor Intl AP");

    Find<QAbstractButton>(weather, "OK")->click();
    EXPECT_EQ(model().ProjectData[kLocation].rfind("Phoenix Sky Harbor Intl AP, Arizona ", 0), 0u)
        << model().ProjectData[kLocation];
    EXPECT_EQ(model().session.ClimateZone.rfind("1", 0), 0u) << model().session.ClimateZone;
}

std::string FileText(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Enter in a cell of the weather screen never writes the shared climate
// file, and a second station of the same name in a state is refused.
TEST_F(FrontScreens, WeatherScreenWritesTheClimateFileOnlyOnADeliberateNewName) {
    Begin();
    Find<QAbstractButton>(shell_->mainmenu(), "weatherdata")->click();
    QWidget* weather = shell_->weather();
    ASSERT_TRUE(weather->isVisible());
    const fs::path usa = root_ / "weather" / "Weth1-USA.asc";
    const std::string before = FileText(usa);
    ASSERT_FALSE(before.empty());

    auto* cell = Find<QLineEdit>(weather, "dbave_1");
    cell->setFocus();
    QTest::keyClick(cell, Qt::Key_Return);
    EXPECT_TRUE(FileText(usa) == before);
    for (const auto& p : prompt_.asked) EXPECT_NE(p.title, "City added confirmation.");
    EXPECT_TRUE(Find<QPushButton>(weather, "OK")->isDefault());
    EXPECT_FALSE(Find<QPushButton>(weather, "savenew")->isDefault());

    // An edited record under the name it already has is not added again.
    if (!weather->isVisible()) Find<QAbstractButton>(shell_->mainmenu(), "weatherdata")->click();
    auto* wmo = Find<QLineEdit>(weather, "WMO");
    QTest::keyClicks(wmo, "9");
    Find<QAbstractButton>(weather, "savenew")->click();
    EXPECT_EQ(prompt_.asked.back().title, "Save As New");
    EXPECT_TRUE(FileText(usa) == before);
    EXPECT_TRUE(weather->isVisible());

    // Under a new name it is added.
    auto* city = Find<QLineEdit>(weather, "citytext");
    city->setFocus();
    city->end(false);
    QTest::keyClicks(city, " North");
    Find<QAbstractButton>(weather, "savenew")->click();
    EXPECT_EQ(prompt_.asked.back().title, "City added confirmation.");
    EXPECT_NE(FileText(usa).find("Albertville Muni AP North, Alabama"), std::string::npos);
}

bool Asked(const ScriptedPrompt& prompt, const std::string& title) {
    for (const auto& p : prompt.asked)
        if (p.title == title) return true;
    return false;
}

// After New nothing of the previous project remains to be saved as the new
// one's, and an incomplete project is not written on the way out.
TEST_F(FrontScreens, NewThenSaveAndExitNeverWritesAnIncompleteProject) {
    Begin();
    OpenSample(0);
    prompt_.Queue(Answer::Yes);  // start a new project
    Find<QAction>(shell_->mainmenu(), "newitem")->trigger();
    EXPECT_EQ(model().session.BuildingType, 0);
    EXPECT_TRUE(model().ProjectData[kBldType].empty());
    EXPECT_EQ(model().session.ClimateZone, "1");
    for (int i = 1; i <= 11; ++i) EXPECT_TRUE(model().ProjectData[i].empty()) << i;
    EXPECT_TRUE(model().climate.WeatherData[2].empty());
    EXPECT_EQ(shell_->mainmenu()->windowTitle(), "SOLVANE 2020 New Project:... ");

    QWidget* warning = shell_->warning();
    Find<QAction>(shell_->mainmenu(), "exititem")->trigger();
    prompt_.Queue(Answer::No);  // not without saving: back to the project
    Find<QAbstractButton>(warning, "okey")->click();
    EXPECT_EQ(prompt_.asked.back().title, "Save and Exit");
    EXPECT_NE(prompt_.asked.back().text.find("weather data"), std::string::npos);
    EXPECT_FALSE(shell_->saveInputForm()->isVisible());
    EXPECT_TRUE(shell_->mainmenu()->isVisible());
    EXPECT_FALSE(shell_->ended());

    Find<QAction>(shell_->mainmenu(), "exititem")->trigger();
    prompt_.Queue(Answer::Yes);  // leave without it
    Find<QAbstractButton>(warning, "okey")->click();
    EXPECT_TRUE(shell_->ended());
    EXPECT_FALSE(shell_->saveInputForm()->isVisible());
}

// A project file that names no climate zone opens, with a message, and the
// weather task is open again.
TEST_F(FrontScreens, AProjectWithoutAClimateZoneOpensWithAMessage) {
    Begin();
    std::string text = FileText(root_ / "sample" / "Small Office [two levels, I-P].inp");
    const std::size_t zone = text.find("CLzone=  5 A");
    ASSERT_NE(zone, std::string::npos);
    text.replace(zone, 12, "CLzone=  0");
    const fs::path file = root_ / "no-zone.inp";
    std::ofstream(file, std::ios::binary) << text;
    OpenFile(file);
    EXPECT_FALSE(Asked(prompt_, "Surprise"));
    EXPECT_TRUE(Asked(prompt_, "No climate zone"));
    EXPECT_FALSE(shell_->ended());
    EXPECT_EQ(model().ProjectData[kProjName], "Lakeview Office");
    EXPECT_EQ(model().flags.TaskDone[2], 0);
    EXPECT_TRUE(Find<QWidget>(shell_->mainmenu(), "weatherdata")->isEnabled());
}

// The save dialog of a new project starts empty, in the project's own units.
TEST_F(FrontScreens, SaveDialogOfANewProjectStartsEmptyInItsOwnUnits) {
    Begin();
    OpenSample(0);
    Find<QAction>(shell_->mainmenu(), "saveinput")->trigger();
    QWidget* save = shell_->saveInputForm();
    ASSERT_TRUE(save->isVisible());
    EXPECT_TRUE(Find<QRadioButton>(save, "unitsave_1")->isChecked());
    Find<QLineEdit>(save, "inputname")->setText(QString::fromStdString((root_ / "si").string()));
    Find<QRadioButton>(save, "unitsave_2")->setChecked(true);
    Find<QAbstractButton>(save, "OK")->click();
    ASSERT_TRUE(fs::exists(root_ / "si.inp"));
    // The status line says where.
    EXPECT_EQ(Find<QLabel>(shell_->mainmenu(), "statusline")->text().toStdString(),
              "Project saved to " + (root_ / "si.inp").string());

    prompt_.Queue(Answer::Yes);
    Find<QAction>(shell_->mainmenu(), "newitem")->trigger();
    // As the hub opens it once the new project can be saved.
    shell_->Navigate({Screen::SaveInputForm, false, false});
    ASSERT_TRUE(save->isVisible());
    EXPECT_TRUE(Find<QLineEdit>(save, "inputname")->text().isEmpty());
    EXPECT_TRUE(Find<QRadioButton>(save, "unitsave_1")->isChecked());
    EXPECT_FALSE(Find<QRadioButton>(save, "unitsave_2")->isChecked());
}

// Number fields refuse what is not a number, typed or pasted.
TEST_F(FrontScreens, NumberFieldsTakeOnlyNumbers) {
    Begin();
    OpenSample(0);
    Find<QAbstractButton>(shell_->mainmenu(), "projectinformation")->click();
    QWidget* info = shell_->projectInfo();
    ASSERT_TRUE(info->isVisible());
    // The text of a box after `keys` are typed into it, emptied first.
    const auto typed = [](QLineEdit* box, const char* keys) {
        box->clear();
        QTest::keyClicks(box, keys);
        return box->text().toStdString();
    };
    auto* area = Find<QLineEdit>(info, "projectid_8");
    EXPECT_EQ(typed(area, "abc"), "");
    EXPECT_EQ(typed(area, "12.5x"), "12.5");
    EXPECT_EQ(typed(Find<QLineEdit>(info, "projectid_1"), "Site 2b"),
              "Site 2b");  // text stays free
    Find<QAbstractButton>(info, "OK")->click();
    EXPECT_EQ(model().ProjectData[kFloorArea], "12.5");

    Find<QAction>(shell_->mainmenu(), "dbase_1")->trigger();
    QWidget* catalog = shell_->catalog();
    ASSERT_TRUE(catalog->isVisible());
    EXPECT_EQ(typed(Find<QLineEdit>(catalog, "UF_1"), ".182q"), ".182");
    EXPECT_EQ(typed(Find<QLineEdit>(catalog, "Des_1"), "Wall q"), "Wall q");
}

// Each sample is what its description says: the building type's name is in
// the description, its occupied days and its zones' lighting profile are the
// type's.
TEST_F(FrontScreens, SamplesCarryTheBuildingTypeTheyDescribe) {
    Begin();
    const int samples = static_cast<int>(std::distance(fs::directory_iterator(root_ / "sample"),
                                                       fs::directory_iterator())) -
                        1;  // README
    ASSERT_GE(samples, 2);
    for (int row = 0; row < samples; ++row) {
        OpenSample(row);
        const ProjectModel& m = model();
        SCOPED_TRACE(m.ProjectData[kProjName]);
        const int type = m.session.BuildingType;
        ASSERT_GE(type, 1);
        const QString name = QString::fromStdString(m.btypes.BTypeName[type]).toLower();
        const QString description = QString::fromStdString(m.ProjectData[2]).toLower();
        bool named = false;
        for (const QString& word : name.split(QRegularExpression("[^a-z]+"), Qt::SkipEmptyParts))
            named = named || description.contains(word);
        EXPECT_TRUE(named) << name.toStdString() << " / " << description.toStdString();
        EXPECT_EQ(NumVal(m.ProjectData[10]), m.btypes.BTypeColumn[type][3]);
        // Its zones are lit on the type's own lighting profile.
        for (int z = 1; z <= m.zones.NumZones; ++z)
            EXPECT_EQ(NumVal(m.zones.ZoneData[z][14]), m.btypes.BTypeProfileGroup[type])
                << m.zones.ZoneName[z];

        Find<QAbstractButton>(shell_->mainmenu(), "projectinformation")->click();
        EXPECT_EQ(Find<QLineEdit>(shell_->projectInfo(), "projectid_0")->text().toStdString(),
                  std::to_string(type) + ".." + m.btypes.BTypeName[type]);
        Find<QAbstractButton>(shell_->projectInfo(), "Cancel")->click();
    }
}

// The hub shows where the user is, and the code icons blink in place.
TEST_F(FrontScreens, HubMarksFinishedTasksAndPointsAtTheNextOne) {
    Begin();
    QWidget* hub = shell_->mainmenu();
    QTest::qWait(50);
    const auto arrows = [&] {
        std::vector<int> shown;
        for (int row = 0; row < 7; ++row)
            if (Find<QWidget>(hub, ("Image7_" + std::to_string(row)).c_str())->isVisible())
                shown.push_back(row);
        return shown;
    };
    const auto marks = [&] {
        std::vector<int> shown;
        for (int row = 0; row < 7; ++row)
            if (Find<QWidget>(hub, ("TaskDoneMark_" + std::to_string(row)).c_str())->isVisible())
                shown.push_back(row);
        return shown;
    };
    EXPECT_EQ(arrows(), std::vector<int>{0});
    EXPECT_TRUE(marks().empty());

    // While the code is to be chosen its icons blink, but never move.
    auto* icon = Find<QWidget>(hub, "Image8_1");
    const QPoint where = icon->mapTo(hub, QPoint(0, 0));
    for (int tick = 0; tick < 3; ++tick) {
        QTest::qWait(550);
        EXPECT_EQ(icon->mapTo(hub, QPoint(0, 0)), where) << tick;
    }

    Find<QAbstractButton>(hub, "Image8_0")->click();  // 90.1, then 2019 and confirmed
    ASSERT_NE(model().session.CodeNum, 0);
    QTest::qWait(550);  // the next tick of the hub's timer
    EXPECT_EQ(arrows(), std::vector<int>{1});
    EXPECT_EQ(marks(), std::vector<int>{0});

    Find<QAbstractButton>(hub, "weatherdata")->click();
    Find<QAbstractButton>(shell_->weather(), "OK")->click();
    EXPECT_EQ(arrows(), std::vector<int>{2});
    EXPECT_EQ(marks(), (std::vector<int>{0, 1}));
}

// Menu captions show an "&" of their text as it is, with no shortcut mark.
TEST_F(FrontScreens, MenuCaptionsShowTheirAmpersands) {
    Begin();
    QWidget* hub = shell_->mainmenu();
    EXPECT_EQ(Find<QAction>(hub, "graph_5")->iconText(), "Monthly Heating & Cooling");
    EXPECT_EQ(Find<QAction>(hub, "dbase_2")->iconText(), "Window & Skylight Catalog");
    EXPECT_TRUE(QKeySequence::mnemonic(Find<QAction>(hub, "graph_5")->text()).isEmpty());
    // The marks the menus are meant to have stay.
    EXPECT_FALSE(QKeySequence::mnemonic(Find<QAction>(hub, "newitem")->text()).isEmpty());
}

// The spreadsheet alert at start-up is for a desktop whose MIME database
// knows no program for CSV files.
TEST(DesktopMime, KnowsACsvOpenerFromADesktopEntryOrAnAssociation) {
    const fs::path root =
        fs::temp_directory_path() / ("solvane_mime_" + std::to_string(::getpid()));
    fs::remove_all(root);
    for (const char* d : {"config", "data/applications"}) fs::create_directories(root / d);
    const char* vars[] = {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME", "XDG_DATA_DIRS"};
    std::vector<QByteArray> saved;
    for (const char* v : vars) saved.push_back(qgetenv(v));
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString((root / "config").string()));
    qputenv("XDG_CONFIG_DIRS", QByteArray::fromStdString((root / "none").string()));
    qputenv("XDG_DATA_HOME", QByteArray::fromStdString((root / "data").string()));
    qputenv("XDG_DATA_DIRS", QByteArray::fromStdString((root / "none").string()));

    std::ofstream(root / "data/applications/viewer.desktop")
        << "[Desktop Entry]\nName=Viewer\nMimeType=image/png;text/csv-schema;\n";
    EXPECT_FALSE(DesktopOpens("text/csv"));
    std::ofstream(root / "config/mimeapps.list") << "[Default Applications]\ntext/csv=\n";
    EXPECT_FALSE(DesktopOpens("text/csv"));

    std::ofstream(root / "config/mimeapps.list")
        << "[Default Applications]\ntext/csv=calc.desktop;\n";
    EXPECT_TRUE(DesktopOpens("text/csv"));
    fs::remove(root / "config/mimeapps.list");
    std::ofstream(root / "data/applications/calc.desktop")
        << "[Desktop Entry]\nName=Calc\nMimeType=text/plain;text/csv;\n";
    EXPECT_TRUE(DesktopOpens("text/csv"));

    for (std::size_t i = 0; i < saved.size(); ++i) {
        if (saved[i].isNull())
            qunsetenv(vars[i]);
        else
            qputenv(vars[i], saved[i]);
    }
    fs::remove_all(root);
}

// Open and save are Qt's file dialog: they start in the projects folder or
// the last folder used, offer the samples among their places, list projects
// only and leave hidden folders out.
TEST_F(FrontScreens, FileDialogsStartInTheProjectsFolderOrTheLastOneUsed) {
    Begin();
    QWidget* hub = shell_->mainmenu();
    const fs::path projects = root_ / "home" / "Documents" / "SOLVANE";
    Find<QAction>(hub, "retrieveitem")->trigger();
    auto* open = shell_->oldFileForm();
    ASSERT_TRUE(open->isVisible());
    EXPECT_TRUE(fs::is_directory(projects));
    EXPECT_EQ(open->directory().absolutePath().toStdString(), projects.string());
    EXPECT_EQ(open->nameFilters(), QStringList{"Project files (*.inp)"});
    EXPECT_FALSE(open->filter() & QDir::Hidden);
    bool samplesOffered = false;
    for (const QUrl& url : open->sidebarUrls())
        samplesOffered =
            samplesOffered || url.toLocalFile().toStdString() == (root_ / "sample").string();
    EXPECT_TRUE(samplesOffered);
    QTest::keyClick(open, Qt::Key_Escape);
    EXPECT_TRUE(hub->isVisible());

    // A project opened from a folder of the user's: the next dialog starts there.
    const fs::path work = root_ / "work";
    fs::create_directories(work);
    fs::copy_file(root_ / "sample" / "Retail Store [I-P].inp", work / "store.inp");
    OpenFile(work / "store.inp");
    EXPECT_EQ(prompt_.asked.back().title, "Project Retrieved");
    Find<QAction>(hub, "saveinput")->trigger();
    auto* save = shell_->saveInputForm();
    ASSERT_TRUE(save->isVisible());
    EXPECT_EQ(save->directory().absolutePath().toStdString(), work.string());
    EXPECT_EQ(Find<QLineEdit>(save, "inputname")->text(), "store.inp");
    QTest::keyClick(save, Qt::Key_Escape);

    // A sample is never offered to be saved over: its save starts in the last folder.
    OpenSample(0);
    Find<QAction>(hub, "saveinput")->trigger();
    EXPECT_EQ(save->directory().absolutePath().toStdString(), work.string());
    save->close();
    EXPECT_TRUE(hub->isVisible());
}

// The HVAC screen of an SI project: costs per kW, and texts longer than
// their cells whole in the cells' tooltips.
TEST_F(FrontScreens, HvacScreenInSiShowsCostsPerKwAndLongTextsInTooltips) {
    Begin("unitnum_2");
    OpenSample(1);  // the store, in SI
    Find<QAction>(shell_->mainmenu(), "dbase_3")->trigger();
    QWidget* hvac = shell_->hvac();
    ASSERT_TRUE(hvac->isVisible());
    EXPECT_EQ(Find<QLabel>(hvac, "fcost_caption")->text(), "1st Cost ($/kW)");
    EXPECT_EQ(Find<QLabel>(hvac, "mcost_caption")->text(), "Maint. Cost ($/kW)");
    int long_texts = 0;
    for (QLineEdit* cell : hvac->findChildren<QLineEdit*>()) {
        const bool longer = cell->fontMetrics().horizontalAdvance(cell->text()) > cell->width() - 8;
        if (longer) {
            ++long_texts;
            EXPECT_EQ(cell->toolTip(), cell->text()) << cell->objectName().toStdString();
            // Cut with an ellipsis in the box while the user is elsewhere.
            auto* eliding = dynamic_cast<ElidingEdit*>(cell);
            ASSERT_NE(eliding, nullptr);
            EXPECT_TRUE(eliding->ShownText().endsWith(QChar(0x2026)))
                << eliding->ShownText().toStdString();
        } else {
            EXPECT_TRUE(cell->toolTip().isEmpty()) << cell->objectName().toStdString();
        }
    }
    EXPECT_GT(long_texts, 0);
}

}  // namespace
}  // namespace solvane
