#include "sketch/window_sizer.h"

#include <gtest/gtest.h>

#include "ui/scripted_prompt.h"

namespace solvane {
namespace {

using Texts = std::vector<std::string>;

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
    // The boxes `name_0` .. `name_<count-1>`.
    Texts Boxes(const char* name, int count = 4) {
        Texts t;
        for (int n = 0; n < count; ++n) t.push_back(sizer.fields.At(name, n).text);
        return t;
    }
    Texts Titles() const {
        Texts t;
        for (const auto& a : prompt.asked) t.push_back(a.title);
        return t;
    }

    Session session;
    ScriptedPrompt prompt;
    WindowSizerController sizer{session, prompt};
};

TEST_F(WindowSizer, FirstVisitByCodeAndHemisphereLaterVisitsTheSavedFigures) {
    sizer.Open();
    EXPECT_EQ(Boxes("WinAr", 5), (Texts{"40", "20", "40", "15", "3"}));
    EXPECT_EQ(Boxes("PF1"), (Texts{"0", ".5", ".5", ".5"}));
    EXPECT_EQ(Boxes("PF2"), (Texts{"0", ".25", ".25", ".25"}));
    EXPECT_EQ(Boxes("ElevName", 5),
              (Texts{"North (N)", "East (E)", "South (S)", "West (W)", "Skylight"}));
    const WindowSizerState& s = session.model.sizer;
    EXPECT_EQ(s.WindowPercentDefault[2], 40.0f);
    EXPECT_FLOAT_EQ(s.WindowFraction[3], 0.15f);
    EXPECT_EQ(s.OverhangFirst[100][2], 0.5f);

    // Code 1 gives 5 % skylights; a southern site shades the north instead;
    // turned by 90 degrees, the sheet's west side faces north.
    session.model.session.CodeNum = 1;
    session.model.climate.Latitude = -20;
    session.model.sketch.Rotation = 90;
    sizer.Open();
    EXPECT_EQ(Boxes("WinAr", 5)[4], "5");
    EXPECT_EQ(Boxes("PF1"), (Texts{".5", ".5", "0", ".5"}));
    EXPECT_EQ(Boxes("PF2"), (Texts{".25", ".25", "0", ".25"}));
    EXPECT_EQ(Boxes("ElevName")[0], "North (W)");

    // Saved figures come back; a saved factor of 0 shows the code's figure
    // except on the row the hemisphere exempts.
    Set("WinAr", 0, "25");
    Set("PF1", 1, "0");
    ASSERT_TRUE(sizer.SaveExit(true));
    EXPECT_EQ(session.model.flags.WindowSizerFresh, 0);
    EXPECT_EQ(s.OverhangFirst[55][1], 0.0f);
    sizer.Open();
    EXPECT_EQ(Boxes("WinAr", 1)[0], "25");
    EXPECT_EQ(Boxes("PF1"), (Texts{".5", ".5", "0", ".5"}));
    EXPECT_EQ(s.WindowPercentDefault[0], 40.0f);
}

TEST_F(WindowSizer, CodeThreeLimitsEastAndWestToASixthOfTheSum) {
    session.model.session.CodeNum = 3;
    sizer.Open();
    Set("WinAr", 0, "30");
    Set("WinAr", 2, "30");
    Set("WinAr", 3, "20");
    sizer.Apply();
    EXPECT_EQ(Titles(), (Texts{"Window Area limit exceeded.", "Window Area limit exceeded.",
                               "Window Sizer"}));
    EXPECT_EQ(prompt.asked[0].text,
              "Eastern and Western facing window areas are restricted to 16.17% of wall area. "
              "East (E) area is being changed");
    EXPECT_EQ(Boxes("WinAr"), (Texts{"30", "16.17", "30", "16.17"}));
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
    EXPECT_EQ(Titles(), (Texts{"Window Area limit exceeded.", "Overhang projection insufficient.",
                               "Overhang projection insufficient.",
                               "Skylight Area minimum not met.", "Window Sizer"}));
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
    EXPECT_EQ(Boxes("WinAr", 5), (Texts{"30", "20", "30", "15", "1"}));
    EXPECT_EQ(Boxes("PF1")[2] + Boxes("PF2")[2], ".5.25");

    prompt.asked.clear();
    Set("WinAr", 4, "4");
    sizer.Apply();
    EXPECT_EQ(prompt.asked[0].title, "Skylight Area limit exceeded.");
    EXPECT_EQ(prompt.asked[0].text,
              "Skylight areas are restricted to 3% of roof area. The Skylight area is being "
              "changed");
    EXPECT_EQ(Boxes("WinAr", 5)[4], "3");
}

TEST_F(WindowSizer, OverhangMinimumOnlyInWarmClimates) {
    for (const char* zone : {"5 A", "4 A"}) {
        session.model.session.ClimateZone = zone;
        prompt.asked.clear();
        sizer.Open();
        Set("PF1", 2, "0");
        sizer.Apply();
        EXPECT_EQ(Titles(), Texts{"Window Sizer"}) << zone;
        EXPECT_FALSE(sizer.ChangeMade());
    }
    EXPECT_EQ(prompt.asked[0].text,
              "These changes have not been saved. If you wish to apply these new areas, click on "
              "the SaveExit button, or click Cancel to make no changes.");
    // 4 C in the southern hemisphere: the north row must be shaded.
    session.model.session.ClimateZone = "4 C";
    session.model.climate.Latitude = -10;
    prompt.asked.clear();
    sizer.Open();
    Set("PF1", 0, ".2");
    sizer.Apply();
    EXPECT_EQ(prompt.asked[0].text.substr(0, 55),
              "In Southern hemisphere, the northern walls are required");
    EXPECT_EQ(Boxes("PF1")[0], ".5");
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
    EXPECT_FLOAT_EQ(session.model.sizer.WindowFraction[1], 0.12f);
    EXPECT_EQ(session.model.sizer.OverhangUpper[100][3], 0.4f);
    EXPECT_EQ(session.model.sizer.WindowSizerApplied, 1);

    sizer.Cancel();
    EXPECT_EQ(session.model.sizer.WindowSizerApplied, 0);
    EXPECT_EQ(session.model.sizer.WindowPercent[1], 12.0f);

    EXPECT_TRUE(WindowSizerController::FactorKeyAccepted('.'));
    EXPECT_FALSE(WindowSizerController::FactorKeyAccepted('-'));
}

}  // namespace
}  // namespace solvane
