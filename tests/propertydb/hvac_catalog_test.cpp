#include "propertydb/hvac_catalog.h"

#include <gtest/gtest.h>

#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "propertydb/envelope_defaults.h"
#include "tests/propertydb/program_folder.h"
#include "ui/scripted_prompt.h"

namespace solvane {
namespace {

// Fifteen systems; system s has a first cost of 1000 and costs 37 a year.
std::string TestHvacFile() {
    std::string s = "h1\r\nh2\r\nh3\r\n";
    for (int n = 1; n <= 15; ++n)
        s += std::to_string(n) + ",\"Sys " + std::to_string(n) +
             "\",\"f\",\"a\",2.5,622,14,4.1,55,12.8,1000,37,\"GAS\",1,.8\r\n";
    return s;
}

TEST(HvacCatalog, RealFilesHoldFifteenSystemsNamedAsTheReportPrintsThem) {
    testing::ProgramFolder folder;
    ProjectModel m;
    m.session.CodeNum = 2;
    LoadHvacCatalog(m, folder.Paths());
    EXPECT_EQ(m.hvac.HvacCatalog[1].Des, "V.A.V. w/ parallel FCU");
    EXPECT_EQ(m.hvac.HvacCatalog[9].Des, "Pkged Rooftop HP, CV (DX)");
    EXPECT_EQ(m.hvac.HvacCatalog[15].Des, "Evap. Cooler, CV Fan");
    EXPECT_EQ(m.hvac.HvacCatalog[11].seer, " 14");
    // 189.1-2017 reads its own file: the stricter boilers of its Table B-6.
    EXPECT_EQ(m.hvac.HvacCatalog[2].HTCOP, " .8");
    m.session.CodeNum = 3;
    LoadHvacCatalog(m, folder.Paths());
    EXPECT_EQ(m.hvac.HvacCatalog[2].HTCOP, " .89");
    EXPECT_EQ(HvacEfficiencyFile(3), "\\codes/HVAC-Eff-gb.txt");
    EXPECT_EQ(HvacEfficiencyFile(1), "\\codes/HVAC-Eff-90.txt");
}

// The ratings of both efficiency files against the published minimum each
// system stands for.
TEST(HvacCatalog, RatingsFollowThePublishedMinima) {
    testing::ProgramFolder folder;
    ProjectModel ninety, green;
    ninety.session.CodeNum = 2;
    green.session.CodeNum = 3;
    LoadHvacCatalog(ninety, folder.Paths());
    LoadHvacCatalog(green, folder.Paths());
    int checked = 0;
    for (const auto& c : testing::FixtureRows("hvac_published.csv")) {
        const int system = std::stoi(c[0]);
        const double a = std::stod(c[4]);
        double expected = a;
        if (c[3] == "kw_per_ton") expected = 12 / a;
        if (c[3] == "ptac") expected = a - std::stod(c[5]) * 12;
        if (c[3] == "hspf") expected = a / 3.412;
        for (const ProjectModel* m : {&ninety, &green}) {
            const bool isGreen = m == &green;
            if ((c[2] == "90" && isGreen) || (c[2] == "gb" && !isGreen)) continue;
            const HvacRow& r = m->hvac.HvacCatalog[system];
            const std::string& text = c[1] == "seer" ? r.seer : r.HTCOP;
            EXPECT_NEAR(NumVal(text), expected, 0.005) << c[6] << (isGreen ? " (gb)" : " (90)");
            if (c[1] == "seer") {
                EXPECT_NEAR(NumVal(r.cop), expected / 3.412, 0.005) << c[6];
            }
            ++checked;
        }
    }
    EXPECT_EQ(checked, 48);
}

struct ApplyFixture : ::testing::Test {
    ApplyFixture() {
        folder.Write("\\codes/HVAC-Eff-90.txt", TestHvacFile());
        m.session.CodeNum = 2;
        m.session.Units = 1;
    }
    testing::ProgramFolder folder;
    ProjectModel m;
    ScriptedPrompt prompt;
    ScreenFields zone;
};

TEST_F(ApplyFixture, FossilHeatingAddsTheHeaterCost) {
    zone.At("zone", 21).text = "1";
    ApplyHvacSystem(m, folder.Paths(), prompt, 3, 4, false, zone);
    EXPECT_EQ(NumVal(zone.At("zone", 29).text), 1200);
    EXPECT_FLOAT_EQ(static_cast<float>(NumVal(zone.At("zone", 30).text)), 44.4f);
    EXPECT_EQ(zone.At("zone", 30).text, " 44.4");
    EXPECT_EQ(zone.At("zone", 20).text, " 3");
    EXPECT_EQ(m.zones.ZoneData[4][27], " 14");
    EXPECT_EQ(m.zoneEdit.ZoneFieldChanged[4][29], 1);
    EXPECT_EQ(m.zoneEdit.CurrentField, 20);
    EXPECT_EQ(m.hvac.CurrentHvacSystem, 3);

    ScreenFields window;
    window.At("zone", 21).text = "1";
    ApplyHvacSystem(m, folder.Paths(), prompt, 14, 5, false, window);
    EXPECT_EQ(window.At("zone", 29).text, " 1000");
    EXPECT_EQ(window.At("zone", 30).text, " 37");
}

TEST_F(ApplyFixture, SiTakesThePascalAndCopColumns) {
    m.session.Units = 2;
    zone.At("zone", 21).text = "2";
    ApplyHvacSystem(m, folder.Paths(), prompt, 11, 1, false, zone);
    EXPECT_EQ(zone.At("zone", 26).text, " 622");
    EXPECT_EQ(zone.At("zone", 27).text, " 4.1");
    EXPECT_EQ(zone.At("zone", 29).text, " 1000");
}

TEST_F(ApplyFixture, UnchangedFieldsAreNotMarked) {
    zone.At("zone", 21).text = "2";
    ApplyHvacSystem(m, folder.Paths(), prompt, 11, 1, false, zone);
    m.zoneEdit.ZoneFieldChanged[1].fill(0);
    ApplyHvacSystem(m, folder.Paths(), prompt, 11, 1, false, zone);
    EXPECT_EQ(m.zoneEdit.ZoneFieldChanged[1][26], 0);
    EXPECT_EQ(m.zoneEdit.ZoneFieldChanged[1][20], 0);
}

TEST_F(ApplyFixture, WaterCooledNoticeOnlyOnceInTheProgramsLife) {
    ApplyHvacSystem(m, folder.Paths(), prompt, 11, 1, true, zone);
    EXPECT_TRUE(prompt.asked.empty());
    ApplyHvacSystem(m, folder.Paths(), prompt, 5, 1, true, zone);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title,
              "Notice for water cooled condensers systems with cooling towers.");
    EXPECT_NE(prompt.asked[0].text.find("(SEER)"), std::string::npos);
    ApplyHvacSystem(m, folder.Paths(), prompt, 1, 2, true, zone);
    EXPECT_EQ(prompt.asked.size(), 1u);
}

TEST(HvacCoolingFile, ColumnsAndGasLine) {
    std::array<HvacScreenRow, kHvacSystems + 1> rows;
    for (int n = 1; n <= kHvacSystems; ++n) {
        rows[n] = {StrForm(n), "Sys", "", "", " 2.5", " 14", " 55", " 1000", " 37", "", ""};
    }
    rows[2].id = "";
    const auto lines = SplitLines(HvacCoolingText(rows, 1));
    ASSERT_EQ(lines.size(), 3u + 14u * 2u);
    EXPECT_EQ(lines[0].find("FAN STATIC PRESS."), 63u);
    EXPECT_EQ(lines[2], "     " + std::string(135, '-'));
    // Row 1, then row 3: each row prints its own number.
    EXPECT_EQ(lines[3].substr(5, 2), " 1");
    EXPECT_EQ(lines[5].substr(5, 2), " 3");
    EXPECT_EQ(lines[3].substr(64, 4), " 2.5");
    EXPECT_EQ(lines[3].substr(71, 6), "   622");
    EXPECT_EQ(lines[3].substr(79, 3), " 14");
    EXPECT_EQ(lines[3].substr(85, 5), "  4.1");
    EXPECT_EQ(lines[3].substr(92, 3), " 55");
    EXPECT_EQ(lines[3].substr(96, 3), " 13");
    EXPECT_EQ(lines[3].substr(102, 5), " 1000");
    EXPECT_EQ(lines[3].substr(118), "ELEC. HEAT");
    // Gas line of system 1: first cost + 200, maintenance + 7.4.
    EXPECT_EQ(lines[4].substr(0, 102), std::string(102, ' '));
    EXPECT_EQ(lines[4].substr(102, 5), " 1200");
    EXPECT_EQ(lines[4].substr(110, 5), " 44.4");
    EXPECT_EQ(lines[4].substr(118), "GAS HEAT");
    // System 7 (row pair 6 after the headings, system 2 being left out).
    EXPECT_EQ(lines[3 + 5 * 2 + 1].substr(102, 3), "   ");
    // System 8: the first cost as it stands, maintenance + 9.
    EXPECT_EQ(lines[3 + 6 * 2 + 1].substr(102, 5), " 1000");
    EXPECT_EQ(lines[3 + 6 * 2 + 1].substr(110, 5), "   46");
}

TEST(HvacCatalog, MaintenanceShareBySystem) {
    EXPECT_EQ(HvacMaintenanceCost(3, 1200), " 44.4");
    EXPECT_EQ(HvacMaintenanceCost(4, 1000), "   40");
    EXPECT_EQ(HvacMaintenanceCost(9, 1000), "   45");
}

TEST(HvacScreen, NoCodeNoScreenAndEditsAskBeforeWriting) {
    testing::ProgramFolder folder;
    Session session;
    session.paths = folder.Paths();
    ScriptedPrompt prompt;
    HvacController c(session, prompt);
    EXPECT_FALSE(c.Open());
    EXPECT_EQ(prompt.asked.back().title, kMissingSpecsTitle);

    session.model.session.CodeNum = 1;
    session.model.session.Units = 2;
    ASSERT_TRUE(c.Open());
    EXPECT_EQ(c.fields["seer_caption"].text, "Cooling COP");
    EXPECT_EQ(c.fields.At("stpres", 1).text, " 1020");
    EXPECT_EQ(c.Ok().show, Screen::MainMenu);  // nothing edited

    // SI shows the costs per kW; the database keeps them per ton.
    EXPECT_EQ(c.fields["fcost_caption"].text, "1st Cost ($/kW)");
    const std::string row1PerTon = session.model.hvac.HvacCatalog[1].fcost;
    EXPECT_NEAR(NumVal(c.fields.At("fcost", 1).text) * 3.51685, NumVal(row1PerTon), 0.02);
    c.Edit("fcost", 3, "2500");
    prompt.Queue(Answer::Yes);
    EXPECT_EQ(c.Ok().show, Screen::None);
    EXPECT_EQ(prompt.asked.back().text, "The HVAC system database has been updated.");
    const auto text = ReadTextFile(folder.Paths().Resolve(kHvacCoolingFile));
    ASSERT_TRUE(text.has_value());
    EXPECT_NE(text->find("8792.1"), std::string::npos);  // 2500 $/kW
    EXPECT_NE(text->find(" " + row1PerTon + " "), std::string::npos) << row1PerTon;
    EXPECT_FALSE(c.HvacEdited);
}

}  // namespace
}  // namespace solvane
