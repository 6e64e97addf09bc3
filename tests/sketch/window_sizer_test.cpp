#include "sketch/window_sizer.h"

#include <gtest/gtest.h>

#include "ui/scripted_prompt.h"

namespace solvane {
namespace {

struct WindowSizer : ::testing::Test {
    WindowSizer() {
        ProjectModel& m = session.model;
        m.session.CodeNum = 2;
        m.session.BuildingType = 1;
        m.session.ClimateZone = "3 A";
        m.climate.Latitude = 35;
        m.flags.WindowSizerFresh = 1;
        for (int t = 1; t <= 40; ++t) {
            m.btypes.BTypeSizerText[t] = "40";
            m.btypes.BTypeName[t] = "Type " + std::to_string(t);
        }
    }
    void Set(const char* name, int row, const std::string& text) {
        sizer.fields.At(name, row).text = text;
    }
    std::string Box(const char* name, int row) { return sizer.fields.At(name, row).text; }
    std::vector<std::string> Titles() const {
        std::vector<std::string> t;
        for (const auto& a : prompt.asked) t.push_back(a.title);
        return t;
    }

    Session session;
    ScriptedPrompt prompt;
    WindowSizerController sizer{session, prompt};
};

TEST_F(WindowSizer, FirstVisitByCodeAndHemisphere) {
    sizer.Open();
    EXPECT_EQ(Box("WinAr", 0), "40");
    EXPECT_EQ(Box("WinAr", 1), "20");
    EXPECT_EQ(Box("WinAr", 3), "15");
    EXPECT_EQ(Box("WinAr", 4), "3");
    EXPECT_EQ(Box("PF1", 0), "0");
    EXPECT_EQ(Box("PF1", 2), ".5");
    EXPECT_EQ(Box("PF2", 1), ".25");
    EXPECT_EQ(Box("ElevName", 0), "North (N)");
    const WindowSizerState& s = session.model.sizer;
    EXPECT_EQ(s.WindowPercentDefault[2], 40.0f);
    EXPECT_FLOAT_EQ(s.WindowFraction[3], 0.15f);
    EXPECT_EQ(s.OverhangFirst[100][2], 0.5f);
    EXPECT_EQ(s.OverhangUpper[7][0], 0.0f);

    // Code 1 gives 5 % skylights; a southern site shades the north instead.
    session.model.session.CodeNum = 1;
    session.model.climate.Latitude = -20;
    session.model.sketch.Rotation = 90;
    sizer.Open();
    EXPECT_EQ(Box("WinAr", 4), "5");
    EXPECT_EQ(Box("PF1", 0), ".5");
    EXPECT_EQ(Box("PF2", 0), ".25");
    EXPECT_EQ(Box("PF1", 2), "0");
    EXPECT_EQ(Box("PF2", 2), "0");
    EXPECT_EQ(Box("ElevName", 0), "North (W)");  // the sheet's west side faces north
}

TEST_F(WindowSizer, LaterVisitsShowSavedFiguresAndLiftZeroFactors) {
    sizer.Open();
    Set("WinAr", 0, "25");
    Set("PF1", 1, "0");
    Set("PF1", 0, "0");
    ASSERT_TRUE(sizer.SaveExit(true));
    EXPECT_EQ(session.model.flags.WindowSizerFresh, 0);
    EXPECT_EQ(session.model.sizer.WindowSizerApplied, 1);
    EXPECT_EQ(session.model.sizer.OverhangFirst[55][1], 0.0f);

    WindowSizerController again(session, prompt);
    again.Open();
    EXPECT_EQ(again.fields.At("WinAr", 0).text, "25");
    EXPECT_EQ(again.fields.At("PF1", 1).text, ".5");  // a saved 0 shows the code figure
    EXPECT_EQ(again.fields.At("PF1", 0).text, "0");   // but the exempt row keeps it
    EXPECT_EQ(session.model.sizer.WindowPercentDefault[0], 40.0f);
}

TEST_F(WindowSizer, CodeThreeLimitsEastAndWestToASixthOfTheSum) {
    session.model.session.CodeNum = 3;
    sizer.Open();
    Set("WinAr", 0, "30");
    Set("WinAr", 1, "20");
    Set("WinAr", 2, "30");
    Set("WinAr", 3, "20");
    sizer.Apply();
    ASSERT_EQ(prompt.asked.size(), 3u);
    EXPECT_EQ(prompt.asked[0].title, "Window Area limit exceeded.");
    EXPECT_EQ(prompt.asked[0].text,
              "Eastern and Western facing window areas are restricted to 16.17% of wall area. "
              "East (E) area is being changed");
    EXPECT_EQ(Box("WinAr", 1), "16.17");
    EXPECT_EQ(Box("WinAr", 3), "16.17");
    EXPECT_EQ(Box("WinAr", 0), "30");
    EXPECT_FLOAT_EQ(session.model.sizer.WindowFraction[3], 0.1617f);
    EXPECT_TRUE(sizer.ChangeMade());
    EXPECT_EQ(prompt.asked[2].text,
              "No changes have been applied.  To keep the values, click on SaveExit button.");
}

TEST_F(WindowSizer, TypeLimitSkylightsAndTheSunwardOverhang) {
    session.model.session.BuildingType = 40;
    session.model.btypes.BTypeSizerText[40] = "30";
    sizer.Open();
    Set("WinAr", 0, "30");
    Set("WinAr", 2, "35");
    Set("WinAr", 4, "0");
    Set("PF1", 2, "0");
    Set("PF2", 2, ".1");
    sizer.Apply();
    EXPECT_EQ(Titles(), (std::vector<std::string>{
                            "Window Area limit exceeded.", "Overhang projection insufficient.",
                            "Overhang projection insufficient.", "Skylight Area minimum not met.",
                            "Window Sizer"}));
    EXPECT_EQ(prompt.asked[0].text,
              "Northern and Southern facing window areas are restricted to 30% of wall area. "
              "South (S) area is being changed");
    EXPECT_EQ(prompt.asked[1].text,
              "In Northern hemisphere, the southern walls are required to have an overhang PF "
              "value of 0.5 or greater on ground level floor. South (S) PF is being changed to "
              "0.5 for ground level Fenestration.");
    EXPECT_EQ(prompt.asked[3].text,
              "Building type [Type 40] is required to have a skylight area equal or greater that "
              "1% of roof area. The Skylight area is being set to 1%.");
    EXPECT_EQ(Box("WinAr", 2), "30");
    EXPECT_EQ(Box("PF1", 2), ".5");
    EXPECT_EQ(Box("PF2", 2), ".25");
    EXPECT_EQ(Box("WinAr", 4), "1");

    // Too much skylight for the code.
    prompt.asked.clear();
    Set("WinAr", 4, "4");
    sizer.Apply();
    EXPECT_EQ(prompt.asked[0].title, "Skylight Area limit exceeded.");
    EXPECT_EQ(prompt.asked[0].text,
              "Skylight areas are restricted to 3% of roof area. The Skylight area is being "
              "changed");
    EXPECT_EQ(Box("WinAr", 4), "3");
}

TEST_F(WindowSizer, OverhangMinimumOnlyInWarmClimates) {
    for (const char* zone : {"5 A", "4 A"}) {
        session.model.session.ClimateZone = zone;
        prompt.asked.clear();
        sizer.Open();
        Set("PF1", 2, "0");
        sizer.Apply();
        ASSERT_EQ(prompt.asked.size(), 1u) << zone;
        EXPECT_FALSE(sizer.ChangeMade());
        EXPECT_EQ(prompt.asked[0].text,
                  "These changes have not been saved. If you wish to apply these new areas, click "
                  "on the SaveExit button, or click Cancel to make no changes.");
    }
    // 4 C and the southern hemisphere: the north row must be shaded.
    session.model.session.ClimateZone = "4 C";
    session.model.climate.Latitude = -10;
    prompt.asked.clear();
    sizer.Open();
    Set("PF1", 0, ".2");
    sizer.Apply();
    ASSERT_GE(prompt.asked.size(), 2u);
    EXPECT_EQ(prompt.asked[0].text.substr(0, 55),
              "In Southern hemisphere, the northern walls are required");
    EXPECT_EQ(Box("PF1", 0), ".5");
}

TEST_F(WindowSizer, SaveExitConfirmsAndCancelTakesTheSizerOutOfForce) {
    sizer.Open();
    Set("WinAr", 1, "12");
    Set("PF2", 3, ".4");
    sizer.LeaveFactor(3, true);
    EXPECT_EQ(session.model.sizer.PFUpperWork[3], 0.4f);

    prompt.Queue(Answer::Cancel);
    EXPECT_FALSE(sizer.SaveExit(false));
    EXPECT_EQ(prompt.asked[0].title, "Window Areas Will be Permanent if Applied.");
    EXPECT_EQ(prompt.asked[0].text.substr(0, 6), "ALERT!");
    EXPECT_EQ(prompt.asked[1].title, "Changes canceled:");
    EXPECT_EQ(session.model.sizer.WindowPercent[1], 20.0f);

    EXPECT_TRUE(sizer.SaveExit(true));
    EXPECT_EQ(prompt.asked[2].text.substr(0, 46), "NOTE: While you are still in the Drawing mode ");
    EXPECT_EQ(prompt.asked[3].title, "Changes saved.");
    EXPECT_EQ(prompt.asked[3].text, "Window area changes will be saved in all zones.");
    EXPECT_EQ(session.model.sizer.WindowPercent[1], 12.0f);
    EXPECT_FLOAT_EQ(session.model.sizer.WindowFraction[1], 0.12f);
    EXPECT_EQ(session.model.sizer.OverhangUpper[100][3], 0.4f);

    sizer.Cancel();
    EXPECT_EQ(session.model.sizer.WindowSizerApplied, 0);
    EXPECT_EQ(session.model.sizer.WindowPercent[1], 12.0f);

    EXPECT_TRUE(WindowSizerController::FactorKeyAccepted('.'));
    EXPECT_TRUE(WindowSizerController::FactorKeyAccepted('7'));
    EXPECT_FALSE(WindowSizerController::FactorKeyAccepted('-'));
    EXPECT_FALSE(WindowSizerController::FactorKeyAccepted('e'));
}

}  // namespace
}  // namespace solvane
