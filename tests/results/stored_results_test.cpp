// Stored results: the name rule, the stored file set, and a save then a view
// again in a new session giving the same charts and tables.
#include "results/stored_results.h"

#include <gtest/gtest.h>

#include "office_run.h"
#include "results/result_view.h"
#include "results/tabular.h"
#include "ui/raster_canvas.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

TEST(StoredName, ExtensionRule) {
    EXPECT_TRUE(ValidOutputName("trial.ot1"));
    EXPECT_TRUE(ValidOutputName("trial.OT3"));
    EXPECT_TRUE(ValidOutputName("trial.fl0"));
    EXPECT_TRUE(ValidOutputName("run2.ot9"));  // a digit in the stem is the stem's
    EXPECT_FALSE(ValidOutputName("trial.ot"));
    EXPECT_FALSE(ValidOutputName("trial.otx"));
    EXPECT_FALSE(ValidOutputName("trial.Ot1"));
    EXPECT_FALSE(ValidOutputName("trial.inp"));
    EXPECT_FALSE(ValidOutputName("trial.fl1", false));  // viewing wants ".ot"
    const StoredFileSet s = StoredFiles("/p/Trial.OT3");
    EXPECT_EQ(s.results, "/p/Trial.ot3");
    EXPECT_EQ(s.comfort, "/p/Trial-ot3.flt");
    EXPECT_EQ(s.energy, "/p/Trial-ot3-Energy.hry");
    EXPECT_EQ(s.temperature, "/p/Trial-ot3-Temp.hry");
    EXPECT_EQ(s.weather, "/p/Trial-ot3-Weth.hry");
}

TEST(StoredName, CodeAndTypeOfAReport) {
    const auto id = ReadReportIdentity(
        "x\r\n    TYPE:        Office 2 of 6\r\n ENERGY CODE:  189.1-2017 (High Performance)\r\n");
    ASSERT_TRUE(id);
    EXPECT_EQ(id->CodeNum, 3);
    EXPECT_EQ(id->BuildingType, 26);  // the digits joined
    EXPECT_FALSE(ReadReportIdentity("no code line\r\n"));
    const auto office = ReadReportIdentity(test::RunOfficeWithHourlyOutput().report);
    ASSERT_TRUE(office);
    EXPECT_EQ(office->CodeNum, 2);  // the office sample is on 90.1-2019
    EXPECT_EQ(office->ProjectName, "Lakeview Office");
}

class StoredResultsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const std::string name = ::testing::UnitTest::GetInstance()->current_test_info()->name();
        root_ = test::ProgramWithOfficeResults("stored_" + name);
        store_ = root_ / "projects";
        fs::create_directories(store_);
        session_.paths = ProgramPaths(root_);
        session_.model.flags.RunDone = 1;
        session_.model.flags.OutputAvailable = 1;
        session_.model.flags.HourlyOutputFlag = 1;
        session_.model.session.InputFileShortName = "office.inp";
        session_.model.ProjectData[kProjName] = "Lakeview Office";  // as the sample names it
    }
    void TearDown() override { fs::remove_all(root_); }
    fs::path Temp(const std::string& name) { return root_ / "temp" / name; }
    Navigation Save(const std::string& name) {
        SaveOutFormController form(session_, prompt_);
        form.Show(store_.string());
        form.outputname = name;
        return form.Ok();
    }

    fs::path root_, store_;
    Session session_;
    ScriptedPrompt prompt_;
};

TEST_F(StoredResultsTest, SaveWritesTheSetAndASecondNumberLeavesTheFirst) {
    session_.model.session.PreviousInputFileName = "/x/Small Office.inp";
    SaveOutFormController form(session_, prompt_);
    form.Show(store_.string());
    EXPECT_EQ(form.outputname, "Small Office.ot1");
    EXPECT_FALSE(form.fields.Visible("nosave"));

    EXPECT_EQ(Save("trial.OT3").show, Screen::MainMenu);
    const StoredFileSet set = StoredFiles((store_ / "trial.OT3").string());
    EXPECT_EQ(ReadTextFile(set.results), ReadTextFile(Temp("ecalc$.out")));
    EXPECT_EQ(ReadTextFile(set.comfort), ReadTextFile(Temp("ecalc$.flt")));
    EXPECT_EQ(ReadTextFile(set.energy), ReadTextFile(Temp("ecalc$.hry")));
    EXPECT_EQ(ReadTextFile(set.temperature), ReadTextFile(Temp("etemp$.hry")));
    EXPECT_EQ(ReadTextFile(set.weather), ReadTextFile(Temp("eweth$.hry")));
    EXPECT_TRUE(fs::exists(store_ / "trial.ot3"));
    EXPECT_TRUE(fs::exists(store_ / "trial-ot3.flt"));
    EXPECT_EQ(session_.model.flags.OutputFileSaved, 1);
    EXPECT_EQ(session_.model.flags.RunDone, 0);
    EXPECT_EQ(session_.model.session.OutputFileName, (store_ / "trial.ot3").string());

    // A later run saved under .ot4 leaves .ot3 alone; without hourly output
    // it stores no hourly files.
    WriteFileAtomic(Temp("ecalc$.out"), "another run\r\n");
    session_.model.flags.HourlyOutputFlag = 0;
    Save("trial.ot4");
    EXPECT_EQ(ReadTextFile(store_ / "trial.ot4").value(), "another run\r\n");
    EXPECT_NE(ReadTextFile(store_ / "trial.ot3").value(), "another run\r\n");
    EXPECT_FALSE(fs::exists(store_ / "trial-ot4-Energy.hry"));
    EXPECT_TRUE(prompt_.asked.empty());
}

TEST_F(StoredResultsTest, BadNamesAndAnExistingFileAreAskedAbout) {
    EXPECT_EQ(Save("trial.ot").show, Screen::None);
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].title, "Error");
    EXPECT_EQ(prompt_.asked[0].text, kOutputNameError);
    EXPECT_TRUE(fs::is_empty(store_));

    Save("trial.ot1");
    WriteFileAtomic(Temp("ecalc$.out"), "second\r\n");
    prompt_.Queue(Answer::No);
    EXPECT_EQ(Save("trial.ot1").show, Screen::None);
    EXPECT_EQ(prompt_.asked[1].title, "File exists!");
    EXPECT_NE(prompt_.asked[1].text.find("This file already exits."), std::string::npos);
    EXPECT_EQ(prompt_.asked[2].title, "Give file new name.");
    EXPECT_NE(ReadTextFile(store_ / "trial.ot1").value(), "second\r\n");
    prompt_.Queue(Answer::Yes);
    Save("trial.ot1");
    EXPECT_EQ(ReadTextFile(store_ / "trial.ot1").value(), "second\r\n");
}

TEST_F(StoredResultsTest, SaveLetsAWaitingRunGoOnOrTheProgramEnd) {
    session_.model.flags.PendingAfterSave = 3;
    SaveOutFormController form(session_, prompt_);
    form.Show(store_.string());
    EXPECT_TRUE(form.fields.Visible("nosave"));
    EXPECT_EQ(form.NoSave().show, Screen::RunSim);
    form.outputname = "a.ot1";
    EXPECT_EQ(form.Ok().show, Screen::RunSim);
    session_.model.flags.PendingAfterSave = 0;
    session_.model.flags.ExitAfterSave = 1;
    EXPECT_TRUE(form.NoSave().endProgram);
    EXPECT_EQ(form.Cancel().show, Screen::MainMenu);
    EXPECT_EQ(session_.model.flags.ExitAfterSave, 0);  // Cancel stays in the program
}

// Everything the result screens show of the results in \temp.
struct Shown {
    std::vector<std::string> tables;
    std::vector<std::string> captions;
    std::vector<Color> pixels;
};
Shown ShowAll(Session& session) {
    // Views the report lacks (the zone pages before the input report has
    // them, the costs without economics) are told and skipped alike.
    ScriptedPrompt prompt;
    Shown s;
    TabularController tab(session, prompt);
    for (int v = 1; v <= kTableViews; ++v) {
        if (!tab.Show(static_cast<TableView>(v))) continue;
        do {
            s.tables.push_back(tab.fields.caption + "\n" + tab.text());
            tab.Zone(1);
        } while (tab.ZonePageIndex() < tab.ZonePageCount() &&
                 s.tables.back() != tab.fields.caption + "\n" + tab.text());
    }
    ResultViewController charts(session, prompt);
    RasterCanvas canvas(480, 360);
    for (auto kind : {ChartKind::Source, ChartKind::Monthly, ChartKind::Peak})
        for (int view = 0; view < (kind == ChartKind::Peak ? 4 : 2); ++view) {
            if (!(view == 0 ? charts.Show(kind, canvas) : charts.ShowView(view, canvas))) continue;
            s.captions.push_back(charts.fields.caption + "|" + charts.fields.Text("Totheat"));
            for (int y = 0; y < 360; y += 7)
                for (int x = 0; x < 480; x += 7) s.pixels.push_back(canvas.ColorAt(x, y));
        }
    return s;
}

TEST_F(StoredResultsTest, ViewAgainInANewSessionShowsTheSameChartsAndTables) {
    for (const std::string name : {"office.ot1", "office2.ot2"}) {
        const Shown before = ShowAll(session_);
        ASSERT_GE(before.tables.size(), 6u);
        ASSERT_GE(before.captions.size(), 7u);
        ASSERT_EQ(Save(name).show, Screen::MainMenu);

        // A new project: the results of \temp are gone.
        for (const char* f : {"ecalc$.out", "ecalc$.flt", "ecalc$.hry", "etemp$.hry", "eweth$.hry"})
            fs::remove(Temp(f));
        Session fresh;
        fresh.paths = ProgramPaths(root_);
        EXPECT_EQ(TableEntry(fresh, 3).show, Screen::SelectView);  // no results: choose a set
        SelectViewController view(fresh, prompt_);
        view.Show(store_.string());
        const auto it = std::find(view.browser.File1.begin(), view.browser.File1.end(), name);
        ASSERT_NE(it, view.browser.File1.end()) << name;
        view.ChooseFile(static_cast<int>(it - view.browser.File1.begin()));
        EXPECT_EQ(view.Ok().show, Screen::Tabular);
        EXPECT_EQ(fresh.model.flags.OutputAvailable, 1);
        EXPECT_EQ(fresh.model.flags.HourlyOutputFlag, 1);
        EXPECT_EQ(fresh.model.session.CodeNum, 2);
        EXPECT_EQ(fresh.model.session.InputFileShortName, (store_ / name).filename().string());
        EXPECT_TRUE(fs::exists(Temp("etemp$.hry")));
        EXPECT_TRUE(fs::exists(Temp("ecalc$.flt")));
        fresh.model.session.InputFileShortName = "office.inp";  // as the live screens named it
        const Shown after = ShowAll(fresh);
        EXPECT_EQ(after.tables, before.tables) << name;
        EXPECT_EQ(after.captions, before.captions) << name;
        EXPECT_EQ(after.pixels, before.pixels) << name;
        EXPECT_EQ(TableEntry(fresh, 3).show, Screen::Tabular);  // results now in \temp
        EXPECT_TRUE(prompt_.asked.empty()) << prompt_.asked[0].text;
    }
}

TEST_F(StoredResultsTest, ASetWithoutHourlyFilesViewsAndAMissingFileIsTold) {
    session_.model.flags.HourlyOutputFlag = 0;
    Save("plain.ot1");
    Session fresh;
    fresh.paths = ProgramPaths(root_);
    EXPECT_TRUE(OpenStoredResults(fresh, prompt_, (store_ / "plain.ot1").string()));
    EXPECT_EQ(fresh.model.flags.HourlyOutputFlag, 0);
    EXPECT_FALSE(fs::exists(Temp("ecalc$.hry")));  // none of another run stays
    EXPECT_TRUE(prompt_.asked.empty());

    EXPECT_FALSE(OpenStoredResults(fresh, prompt_, (store_ / "gone.ot1").string()));
    EXPECT_EQ(prompt_.asked.back().text, "Output file does not exist");
    EXPECT_FALSE(OpenStoredResults(fresh, prompt_, (store_ / "plain.txt").string()));
    EXPECT_EQ(prompt_.asked.back().text, kOutputNameError);
}

TEST_F(StoredResultsTest, AProjectUnderWayKeepsItsCode) {
    Save("office.ot1");
    session_.model.session.CodeNum = 3;
    session_.model.session.BuildingType = 5;
    ASSERT_TRUE(OpenStoredResults(session_, prompt_, (store_ / "office.ot1").string()));
    EXPECT_EQ(session_.model.session.CodeNum, 3);
    EXPECT_EQ(session_.model.session.BuildingType, 5);
}

TEST_F(StoredResultsTest, RetrieveAsksFirstAboutAnUnsavedRun) {
    session_.model.flags.OutputFileSaved = 0;
    prompt_.Queue(Answer::Yes);
    EXPECT_EQ(RetrieveEntry(session_, prompt_).show, Screen::SaveOutForm);
    EXPECT_EQ(prompt_.asked.back().title, "Save output");
    EXPECT_EQ(prompt_.asked.back().text,
              "The last run has not been saved.  Do you wish to save it?");
    prompt_.Queue(Answer::No);
    EXPECT_EQ(RetrieveEntry(session_, prompt_).show, Screen::SelectView);
    EXPECT_EQ(session_.model.flags.ViewRequest, 12);
    EXPECT_EQ(GraphEntry(session_, 5).show, Screen::ResultCharts);
    EXPECT_EQ(session_.model.flags.GraphRequest, 5);
}

}  // namespace
}  // namespace solvane
