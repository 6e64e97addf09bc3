#include "economics/economics_form.h"

#include <gtest/gtest.h>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "tests/propertydb/program_folder.h"
#include "ui/scripted_prompt.h"

namespace solvane {
namespace {

TEST(DefaultEconomics, FirstEightCharactersAndSiPrices) {
    testing::ProgramFolder folder;
    ProjectModel m;
    m.session.Units = 1;
    LoadDefaultEconomics(m, folder.Paths());
    EXPECT_EQ(m.economics.EconomicsData[0], "25      ");
    EXPECT_EQ(NumVal(m.economics.EconomicsData[5]), 0.1048);
    EXPECT_EQ(m.economics.DemandCharge, " N");
    const std::string gasIp = m.economics.EconomicsData[7];

    m.session.Units = 2;
    LoadDefaultEconomics(m, folder.Paths());
    EXPECT_EQ(m.economics.EconomicsData[7],
              FormatField(StrForm(RoundOff(NumVal(gasIp) / 0.1055054762, 2)), "@@@@@@"));
    EXPECT_EQ(m.economics.EconomicsData[9], "   .01");  // 5.00 / 3.7854125 / 100

    folder.Write(kEconomicsFile, "heading\r\n25\r\n");
    EXPECT_THROW(LoadDefaultEconomics(m, folder.Paths()), ReadError);
}

TEST(EconomicsForm, KeyRules) {
    EXPECT_TRUE(EconomicsKeyAccepted(3, '7'));
    EXPECT_TRUE(EconomicsKeyAccepted(3, 46));
    EXPECT_TRUE(EconomicsKeyAccepted(3, 8));
    EXPECT_FALSE(EconomicsKeyAccepted(3, '-'));
    EXPECT_FALSE(EconomicsKeyAccepted(3, 'Y'));
    EXPECT_TRUE(EconomicsKeyAccepted(11, 'y'));
    EXPECT_TRUE(EconomicsKeyAccepted(11, 'N'));
    EXPECT_FALSE(EconomicsKeyAccepted(11, '1'));
    EXPECT_TRUE(DemandFlagMeansYes(" Y"));
    EXPECT_TRUE(DemandFlagMeansYes("Yes"));
    EXPECT_FALSE(DemandFlagMeansYes("y"));
    EXPECT_FALSE(DemandFlagMeansYes(" N"));
}

struct FormFixture : ::testing::Test {
    FormFixture() {
        session.paths = folder.Paths();
        session.model.session.Units = 2;
        LoadDefaultEconomics(session.model, session.paths);
    }
    testing::ProgramFolder folder;
    Session session;
    ScriptedPrompt prompt;
};

TEST_F(FormFixture, DemandScheduleIsAskedForBeforeOk) {
    EconomicsController form(session, prompt);
    form.Open();
    EXPECT_EQ(form.fields["gasunit"].text, "$/GJoule");
    EXPECT_EQ(form.fields["waterunit"].text, "$/1000 L");
    EXPECT_FALSE(form.KeyPress(2, 'x'));
    EXPECT_EQ(prompt.beeps, 1);
    EXPECT_TRUE(form.ClickDemand());
    EXPECT_EQ(form.fields["demand"].text, "Y");
    EXPECT_EQ(form.Ok().show, Screen::None);
    EXPECT_EQ(prompt.asked.back().title, "Demand Charge");
    EXPECT_EQ(prompt.asked.back().text, "Please enter the demand charge schedule.");
    EXPECT_EQ(session.model.flags.TaskDone[3], 0);

    DemandChargeController demand(session, prompt);
    demand.Open();
    demand.fields.At("demandtext", 1).text = "100";
    demand.fields.At("charge", 1).text = "8.5";
    demand.fields.At("demandtext", 3).text = "after a gap";
    demand.Back();
    EXPECT_EQ(session.model.economics.NumDemandRates, 1);
    EXPECT_EQ(session.model.economics.DemandRateCost[1], "8.5");

    form.fields.At("economics", 5).text = ".12";
    EXPECT_EQ(form.Ok().show, Screen::MainMenu);
    EXPECT_EQ(session.model.economics.EconomicsData[5], ".12");
    EXPECT_EQ(session.model.economics.EconomicsData[11], "Y");
    EXPECT_EQ(session.model.flags.TaskDone[3], 1);
}

TEST_F(FormFixture, UndoAndCancelRestoreTheStoredValues) {
    EconomicsController form(session, prompt);
    form.Open();
    const std::string stored = form.fields.At("economics", 3).text;
    form.fields.At("economics", 3).text = ".09";
    form.Undo();
    EXPECT_EQ(form.fields.At("economics", 3).text, stored);
    form.fields.At("economics", 3).text = ".09";
    EXPECT_EQ(form.Cancel().show, Screen::MainMenu);
    EXPECT_EQ(session.model.economics.EconomicsData[3], stored);
}

TEST_F(FormFixture, DemandScheduleText) {
    DemandChargeController demand(session, prompt);
    demand.Open();
    EXPECT_FALSE(demand.LoadSchedule("100, 8.5\r\nabc\r\n"));
    EXPECT_EQ(prompt.asked.back().text,
              "The demand charge file has a wrong format.  Please check the file and try again.");
    EXPECT_EQ(demand.fields.At("demandtext", 1).text, "");
    EXPECT_TRUE(demand.LoadSchedule("100, 8.5\r\n200,9\r\n"));
    EXPECT_EQ(demand.fields.At("charge", 2).text, "9");
    demand.Back();
    EXPECT_EQ(session.model.economics.NumDemandRates, 2);
}

}  // namespace
}  // namespace solvane
