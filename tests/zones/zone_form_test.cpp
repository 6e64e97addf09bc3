#include "zones/zone_form.h"

#include <gtest/gtest.h>

#include "core/numeric_helpers.h"
#include "tests/zones/zone_fixture.h"
#include "zones/zone_fields.h"
#include "zones/zone_files.h"

namespace solvane {
namespace {

using testing::ZonSurface;

struct FormFixture : ::testing::Test {
    explicit FormFixture(int units = 1) : p(units), form(p.session, p.prompt) {
        p.AddZone(1, "1-1", 1000, {ZonSurface{}});
        p.AddZone(2, "1-2", 600, {});
        ReadZoneFile(p.session.model, p.session.paths, 1);
        ReadZoneFile(p.session.model, p.session.paths, 2);
    }
    std::string& Data(int z, int f) { return p.session.model.zones.ZoneData[z][f]; }
    std::string Box(int f) { return form.fields.At("zone", f).text; }
    void Type(int f, const std::string& text) {
        form.EnterField(f);
        form.EditField(f, text);
        form.LeaveField(f);
    }
    testing::ZoneProject p;
    ZoneFormController form;
};

TEST_F(FormFixture, ShowingAZoneAppliesItsFloorsAndDefaults) {
    Data(1, 4) = "0";
    Data(1, 9) = "  CP";
    Data(1, 16) = "0";
    Data(1, 20) = "2";
    Data(2, 20) = "11";
    Data(2, 29) = "";
    p.session.model.zones.ZoneNatVent[1] = " yes";
    p.session.model.zones.ZoneDaylight[1] = "maybe";
    EXPECT_FALSE(form.ShowZone(3));
    EXPECT_EQ(p.prompt.asked.back().text, "Zone does not exist.  Select another zone.");

    ASSERT_TRUE(form.ShowZone(1));
    EXPECT_EQ(Box(4), "100");
    const ProjectModel& m = p.session.model;
    EXPECT_EQ(Box(16), StrForm(m.btypes.BTypeProfileGroup[26]));
    EXPECT_EQ(Box(9), "CS" + StrForm(m.btypes.BTypeOA[26]));
    EXPECT_EQ(form.fields["natvent"].text, "Yes");
    EXPECT_EQ(form.fields["dayt"].text, "No");
    EXPECT_FALSE(form.fields.At("zone", 24).visible);
    EXPECT_TRUE(form.fields.At("zone", 22).visible);
    // The first zone shown brings every zone its system's catalog values.
    EXPECT_EQ(Data(2, 27), m.hvac.HvacCatalog[11].seer);
    EXPECT_FALSE(Data(2, 29).empty());
    EXPECT_EQ(form.fields.caption.rfind("Zone Description:... ", 0), 0u);
    EXPECT_EQ(form.fields["lblMass"].text, "lb/sq.ft.");

    // Internal mass below the floor comes back to it at OK.
    Type(4, "50");
    EXPECT_TRUE(form.Ok());
    EXPECT_EQ(Data(1, 4), "100");
    EXPECT_EQ(m.zones.ZoneDescribed[1], 1);
    EXPECT_EQ(m.flags.FirstVisit[1], 0);
}

TEST_F(FormFixture, LeaveRulesOfTheFields) {
    ASSERT_TRUE(form.ShowZone(1));
    ProjectModel& m = p.session.model;
    Type(3, "1200");
    EXPECT_FLOAT_EQ(m.zones.ZoneFloorArea[1], 1200);
    EXPECT_EQ(m.zoneEdit.ZoneFieldChanged[1][3], 1);
    // No people: the default area per person, no message.
    Type(5, "0");
    EXPECT_FLOAT_EQ(m.zones.ZoneAreaPerPerson[1], m.zones.DefaultAreaPerPerson);
    Type(5, "12");
    EXPECT_FLOAT_EQ(m.zones.ZoneAreaPerPerson[1], 100);
    Type(14, "0");
    EXPECT_EQ(Box(14), " 1 ");
    EXPECT_EQ(Data(1, 14), " 1 ");
    Type(23, Box(23));
    EXPECT_EQ(m.zoneEdit.ZoneFieldChanged[1][23], 0);  // unchanged text marks nothing
    Type(23, ".8");
    EXPECT_EQ(m.zoneEdit.ZoneFieldChanged[1][23], 1);
    EXPECT_TRUE(p.prompt.asked.empty());

    // The menu-only fields refuse typing and keep their text.
    for (int f : {6, 11, 20, 21}) EXPECT_FALSE(form.FieldKey(f));
    EXPECT_TRUE(form.FieldKey(12));
    EXPECT_EQ(p.prompt.asked[0].title, "Profiles");
    EXPECT_EQ(p.prompt.asked[1].title, "Lighting Type");
    EXPECT_EQ(p.prompt.asked[3].text, "Select HVAC system from Pull-down Menu");
}

TEST_F(FormFixture, UndoAndCancelComeBackFromTheRecord) {
    ASSERT_TRUE(form.ShowZone(1));
    const std::string before = Box(7);
    form.EnterField(7);
    form.EditField(7, "99");
    form.Undo();
    EXPECT_EQ(Box(7), before);

    form.ChooseSystem(9, false);
    const std::string cost = Box(29);
    form.Undo();  // field 20 brings 26 to 30 back with it
    EXPECT_EQ(Box(20), Data(1, 20));
    EXPECT_EQ(Box(29), Data(1, 29));
    (void)cost;

    form.ToggleNatVent();
    form.EditSurface("orient", 1, "45");
    form.Cancel();
    EXPECT_EQ(form.fields["natvent"].text, p.session.model.zones.ZoneNatVent[1]);
    EXPECT_EQ(form.surfaces.buffers.At(kColOrient, 1), " 0");
}

TEST_F(FormFixture, HeatingTypeCostRules) {
    ASSERT_TRUE(form.ShowZone(1));
    form.ChooseSystem(3, false);
    form.ChooseHeating(2);
    const double base = NumVal(Box(29));
    EXPECT_EQ(Box(28), "1.00");
    form.ChooseHeating(1);
    EXPECT_DOUBLE_EQ(NumVal(Box(29)), base + 200);
    EXPECT_EQ(Box(30), HvacMaintenanceCost(3, base + 200));
    EXPECT_EQ(Box(28), "0.80");
    form.ChooseHeating(1);  // already fossil: nothing added
    EXPECT_DOUBLE_EQ(NumVal(Box(29)), base + 200);
    EXPECT_EQ(Box(21), " 1");
    EXPECT_EQ(p.session.model.zoneEdit.ZoneFieldChanged[1][21], 1);

    form.ChooseSystem(8, false);
    const std::string first = Box(29), maint = Box(30);
    form.ChooseHeating(3);
    EXPECT_EQ(Box(29), first);
    EXPECT_EQ(Box(30), maint);
    EXPECT_EQ(Box(28), "3.30");
}

TEST_F(FormFixture, LightingTypeScalesThePowerByLampEfficacy) {
    ASSERT_TRUE(form.ShowZone(1));
    const ProjectModel& m = p.session.model;
    const int reference = static_cast<int>(m.btypes.BTypeColumn[26][12]);
    const double power = m.btypes.BTypeColumn[26][14];  // 90.1-2019
    form.ChooseLighting(reference);
    EXPECT_EQ(Box(11), StrForm(reference) + " ");
    form.ChooseLighting(9);  // incandescent: far less light a watt
    EXPECT_GT(NumVal(Box(13)), power);
    form.ChooseLighting(reference);
    EXPECT_EQ(Box(13), StrForm(RoundOff(power, 2)));
    EXPECT_EQ(m.zoneEdit.ZoneFieldChanged[1][13], 1);
}

TEST_F(FormFixture, SwitchesAndTheDaylightingCheck) {
    ASSERT_TRUE(form.ShowZone(1));
    form.fields["natvent"].text = "No";
    Data(1, 22) = "7";
    form.ToggleNatVent();
    EXPECT_EQ(Box(22), "4");
    EXPECT_TRUE(form.fields.At("zone", 22).visible);
    form.ToggleNatVent();
    EXPECT_FALSE(form.fields.At("zone", 22).visible);

    form.fields["dayt"].text = " No";
    form.ToggleDaylight();
    EXPECT_EQ(form.fields["dayt"].text, "Yes");
    EXPECT_EQ(form.DaylightTouched[1], 1);
    form.EditField(24, "0");
    EXPECT_FALSE(form.Ok());
    EXPECT_EQ(p.prompt.asked.back().text,
              "Daylighting depth or target footcandles cannot be 0 if daylight is used.  Please "
              "correct your input.");
    EXPECT_EQ(p.session.model.zones.ZoneDescribed[1], 0);
    form.EditField(24, "15");
    form.ToggleEconomiser();
    const std::string econ = form.fields["Econcycle"].text;
    EXPECT_TRUE(form.Ok());
    EXPECT_EQ(p.session.model.zones.ZoneDaylight[1], "Yes");
    EXPECT_EQ(p.session.model.zones.ZoneNatVent[1], "No");
    EXPECT_EQ(p.session.model.zones.ZoneEconCycle[1], econ);

    form.DaylightingHelp();
    EXPECT_EQ(p.prompt.asked.back().title, "Daylighting Requirements:");
    EXPECT_NE(p.prompt.asked.back().text.find("Exercize Center"), std::string::npos);
}

struct SiFormFixture : FormFixture {
    SiFormFixture() : FormFixture(2) {}
};

TEST_F(SiFormFixture, SiFloorsCaptionsAndSwitchValues) {
    Data(1, 4) = "0";
    Data(1, 9) = "CS0";
    ASSERT_TRUE(form.ShowZone(1));
    EXPECT_EQ(Box(4), "488");
    EXPECT_EQ(Box(9),
              "CS" + StrForm(static_cast<float>(p.session.model.btypes.BTypeOA[26] * 5.08)));
    EXPECT_EQ(form.fields["lblMass"].text, "kg/sq.m.");
    EXPECT_EQ(form.fields["lblCool"].text, " Cool.   COP");
    form.fields["natvent"].text = "";
    form.ToggleNatVent();
    EXPECT_EQ(Box(22), "20");
    form.fields["dayt"].text = "Yes";
    form.EditField(25, "0");
    EXPECT_FALSE(form.Ok());
    // The message keeps its word "footcandles" in SI too.
    EXPECT_NE(p.prompt.asked.back().text.find("footcandles"), std::string::npos);
}

}  // namespace
}  // namespace solvane
