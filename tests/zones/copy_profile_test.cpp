#include <gtest/gtest.h>

#include "core/numeric_helpers.h"
#include "tests/zones/zone_fixture.h"
#include "zones/copy_zones.h"
#include "zones/profile_screen.h"
#include "zones/zone_fields.h"
#include "zones/zone_files.h"

namespace solvane {
namespace {

using testing::ZonSurface;

ZonSurface Wall(const std::string& orient) {
    ZonSurface s;
    s.orient = orient;
    return s;
}

struct CopyFixture : ::testing::Test {
    CopyFixture() : form(p.session, p.prompt), copy(p.session, p.prompt, form) {
        p.AddZone(1, "1-1", 1000, {Wall("0")});
        p.AddZone(2, "1-2", 500, {Wall("0"), Wall("90"), Wall("315")});
        p.AddZone(3, "2-1", 800, {Wall("180")});
        for (int z = 1; z <= 3; ++z) ReadZoneFile(p.session.model, p.session.paths, z);
        form.ShowZone(1);
        p.prompt.asked.clear();
    }
    testing::ZoneProject p;
    ZoneFormController form;
    CopyToZonesController copy;
};

TEST_F(CopyFixture, NothingNewNothingCopied) {
    EXPECT_FALSE(copy.Open(kCopyWindows));
    EXPECT_FALSE(copy.CopyAll(kCopyFields));
    ASSERT_EQ(p.prompt.asked.size(), 2u);
    EXPECT_EQ(p.prompt.asked[0].title, "Copy Data");
    EXPECT_EQ(p.prompt.asked[0].text,
              "New data have not been entered.  No data are copied to the other zones.");
}

TEST_F(CopyFixture, WindowFractionsGoToTheTickedZonesSideBySide) {
    const SurfaceState& sf = p.session.model.surfaces;
    form.fields.At("ElevArea", 0).text = ".2";
    ASSERT_TRUE(form.ElevationFraction(0, ".2"));
    form.fields.At("ElevArea", 1).text = " ";  // a blank is not entered
    ASSERT_TRUE(copy.Open(kCopyWindows));
    EXPECT_FALSE(copy.fields.At("CopyZone", 1).enabled);
    EXPECT_EQ(copy.fields.At("CopyZone", 2).text, "1-2  Zone 1-2");
    copy.Tick(2, true);
    ASSERT_TRUE(copy.Ok());
    EXPECT_FLOAT_EQ(sf.SurfWindowArea[2][1], 80);  // 400 x .2
    EXPECT_FLOAT_EQ(sf.SurfWindowArea[2][2], 80);  // east: as it was
    EXPECT_FLOAT_EQ(sf.SurfWindowArea[2][3], 80);  // 315 counts as north here
    EXPECT_FLOAT_EQ(sf.SurfWindowArea[3][1], 80);  // not ticked
    EXPECT_FLOAT_EQ(form.elevation.ElevWinFraction[2][0], 0.2f);

    form.fields.At("ElevArea", 0).text = ".05";
    form.fields.At("ElevArea", 2).text = "0";
    ASSERT_TRUE(copy.CopyAll(kCopyWindows));
    EXPECT_FLOAT_EQ(sf.SurfWindowArea[3][1], 0);
    EXPECT_FLOAT_EQ(sf.SurfWindowArea[2][1], 20);

    form.fields.At("ElevArea", 0).text = "1.5";
    EXPECT_FALSE(copy.CopyAll(kCopyWindows));
    EXPECT_EQ(p.prompt.asked.back().text,
              "Window or skylight fractions must be between 0 and 1, please re-enter.");
    ASSERT_TRUE(copy.Open(kCopyWindows));
    EXPECT_FALSE(copy.Ok());
    EXPECT_EQ(p.prompt.asked.back().text,
              "Window fractions must be between 0 and 1, please re-enter.");
    for (int d = 0; d <= 4; ++d) form.fields.At("ElevArea", d).text = "";
    EXPECT_FALSE(copy.CopyAll(kCopyWindows));
    EXPECT_EQ(p.prompt.asked.back().title, "Copy Window Data");
}

TEST_F(CopyFixture, FieldModeCopiesTheChangedFieldsOnly) {
    ProjectModel& m = p.session.model;
    const std::string before8 = m.zones.ZoneData[2][8];
    form.EnterField(7);
    form.EditField(7, "3.5");
    form.LeaveField(7);
    form.EnterField(5);
    form.EditField(5, "20");  // 50 per person
    form.LeaveField(5);
    form.ChooseSystem(9, false);
    form.ToggleDaylight();
    ASSERT_TRUE(copy.CopyAll(kCopyFields));
    for (int z : {2, 3}) {
        EXPECT_EQ(m.zones.ZoneData[z][7], "3.5");
        EXPECT_EQ(m.zones.ZoneData[z][20], " 9");
        EXPECT_EQ(m.zones.ZoneData[z][27], form.fields.At("zone", 27).text);
        EXPECT_EQ(m.zones.ZoneDaylight[z], NormaliseYesNo(form.fields["dayt"].text));
    }
    EXPECT_EQ(m.zones.ZoneData[2][5], " 10");  // 500 at 50 a person
    EXPECT_EQ(m.zones.ZoneData[3][5], " 16");
    EXPECT_EQ(m.zones.ZoneData[2][1], "1-2");
    EXPECT_EQ(m.zones.ZoneData[2][8], before8);
}

struct ProfileFixture : CopyFixture {
    ProfileFixture() : screen(p.session, p.prompt, form) {
        group = p.session.model.btypes.BTypeProfileGroup[26];
        p.session.model.profiles.Types[kOccupancy].GroupNum[group] = NumText(group);
        p.session.model.profiles.ProfileTypeUsed[kOccupancy] = 1;
        for (int d = 1; d <= 3; ++d)
            p.session.model.profiles.Types[kOccupancy].Profile[group][d] =
                p.session.model.library.LibraryProfile[kOccupancy][group][d];
        form.fields.At("zone", 6).text = StrForm(group);
        screen.Open(form.EnterField(6));
        p.prompt.asked.clear();
    }
    int Other() const { return group == 3 ? 4 : 3; }
    ProfileScreenController screen;
    int group = 0;
};

TEST_F(ProfileFixture, OpeningShowsTheRowsMarksAndFocus) {
    EXPECT_EQ(screen.ProfileType, kOccupancy);
    EXPECT_EQ(screen.SelectedGroup, group);
    EXPECT_EQ(screen.fields.At("Pnum", 1).text, " 1.");
    EXPECT_EQ(screen.fields.At("Pnum", group).color, kFocusMagenta);
    EXPECT_EQ(screen.fields.At("SchedType", group).color, kMarkYellow);
    EXPECT_EQ(screen.fields.At("SchedType", Other()).color, kPlainWhite);
    EXPECT_EQ(screen.fields.At("Pnum", Other()).value, static_cast<int>(kNumberRed));
    EXPECT_EQ(ProfileValues(screen.fields.At("ProfVal", 3 * group - 2).text).size(), 24u);
    const std::string& title = p.session.model.profiles.ProfileTypeTitle[kOccupancy];
    EXPECT_EQ(screen.fields.caption.rfind(title.substr(0, 37) + " ...   ", 0), 0u);
    EXPECT_EQ(screen.fields["ProfileName"].text, title);
}

TEST_F(ProfileFixture, KeysWarnOnASharedRowOnceAndTheProjectFollows) {
    const int box = 3 * group - 2;
    EXPECT_FALSE(screen.Key(box, 'x'));
    EXPECT_EQ(p.prompt.asked.back().text, "You should use numerical value.");
    EXPECT_TRUE(screen.Key(box, '5'));
    EXPECT_EQ(p.prompt.asked.back().title, "Warning");
    const std::size_t asked = p.prompt.asked.size();
    EXPECT_TRUE(screen.Key(box, '0'));
    EXPECT_EQ(p.prompt.asked.size(), asked);
    std::string text(24 * 4, ' ');
    for (int h = 0; h < 24; ++h) text[h * 4 + 3] = '5';
    screen.Edit(box, text);
    EXPECT_EQ(p.session.model.profiles.Types[kOccupancy].Profile[group][1], text);
}

TEST_F(ProfileFixture, OkRefusesBadProfilesAndKeepsAnUntouchedField) {
    const int box = 3 * group - 2;
    const std::string good = screen.fields.At("ProfVal", box).text;
    screen.Edit(box, good.substr(0, good.size() - 4));  // 23 values
    EXPECT_FALSE(screen.Ok());
    EXPECT_EQ(p.prompt.asked.back().title, "Error...");
    screen.Edit(box, "1/2" + good.substr(3));
    EXPECT_FALSE(screen.Ok());
    EXPECT_TRUE(ProfileTextValid(" 1.5" + good.substr(4)));
    screen.Edit(box, good);
    ASSERT_TRUE(screen.Ok());
    EXPECT_EQ(form.fields.At("zone", 6).text, StrForm(group));
    EXPECT_EQ(p.session.model.zoneEdit.ZoneFieldChanged[1][6], 0);
}

TEST_F(ProfileFixture, APickedRowJoinsTheProjectAndMarksTheField) {
    screen.ClickRow(Other());
    EXPECT_EQ(screen.fields.At("Pnum", group).color, kPlainWhite);
    EXPECT_EQ(screen.fields.At("SchedType", group).color, kMarkYellow);
    EXPECT_EQ(screen.PreviousGroup, group);
    ASSERT_TRUE(screen.Ok());
    const ProjectModel& m = p.session.model;
    EXPECT_EQ(form.fields.At("zone", 6).text, StrForm(Other()));
    EXPECT_EQ(m.zoneEdit.ZoneFieldChanged[1][6], 1);
    EXPECT_EQ(m.profiles.Types[kOccupancy].GroupNum[Other()], NumText(Other()));
    EXPECT_EQ(m.profiles.Types[kOccupancy].Profile[Other()][2],
              screen.fields.At("ProfVal", 3 * Other() - 1).text);
}

TEST_F(ProfileFixture, UndoTakesTheFocusBackToTheOpeningGroup) {
    screen.ClickRow(Other());
    screen.Undo();
    EXPECT_EQ(screen.SelectedGroup, group);
    EXPECT_FALSE(screen.Marked(Other()));
    EXPECT_TRUE(p.session.model.profiles.Types[kOccupancy].GroupNum[Other()].empty());
    EXPECT_EQ(screen.fields.At("Pnum", group).color, kFocusMagenta);
}

// The edited-row marks are written by box number and read as group numbers:
// an edit of box 4 (group 2, weekdays) asks about group 4.
TEST_F(ProfileFixture, OrphanPassReadsTheBoxNumberAsAGroup) {
    if (group == 2 || group == 4) GTEST_SKIP() << "the office group is one of the two rows";
    EXPECT_TRUE(screen.Key(4, '1'));
    p.prompt.Queue(Answer::Yes);
    ASSERT_TRUE(screen.Ok());
    const auto& asked = p.prompt.asked.back();
    EXPECT_EQ(asked.title, "Select Profile");
    EXPECT_TRUE(screen.Marked(4));
    EXPECT_FALSE(screen.Marked(2));
    EXPECT_EQ(form.fields.At("zone", 6).text, StrForm(group));  // no row was clicked
}

TEST_F(ProfileFixture, ClipboardWorksOnTheLastBox) {
    const int box = 3 * group - 2;
    screen.Focus(box);
    const std::string text = screen.fields.At("ProfVal", box).text;
    screen.Copy(0, 4);
    EXPECT_EQ(screen.ClipText, text.substr(0, 4));
    screen.Cut(4, 4);
    EXPECT_EQ(screen.fields.At("ProfVal", box).text, text.substr(0, 4) + text.substr(8));
    screen.Paste(0, 0);
    EXPECT_EQ(screen.fields.At("ProfVal", box).text.substr(0, 4), text.substr(4, 4));
}

TEST_F(CopyFixture, ThermostatScreenWarnsOncePerRow) {
    ProjectModel& m = p.session.model;
    const int g = m.btypes.BTypeProfileGroup[26];
    m.profiles.Types[kCoolStat].GroupNum[g] = NumText(g);
    TemperatureController t(p.session, p.prompt, form);
    t.Open(g);
    EXPECT_EQ(t.fields.caption.substr(t.fields.caption.size() - 31),
              "Temperature Profiles (degree F)");
    EXPECT_EQ(t.fields.At("temp", 1).text, m.library.LibraryProfile[kCoolStat][g][1]);
    EXPECT_TRUE(t.Key(kCoolStat, 1, '7'));
    EXPECT_TRUE(t.Key(kCoolStat, 1, '8'));
    EXPECT_TRUE(t.Key(kCoolStat, 2, '8'));
    EXPECT_FALSE(t.Key(kHeatStat, 1, 'a'));
    EXPECT_EQ(p.prompt.asked.size(), 3u);  // two warnings and the refused key
    t.Edit(kCoolStat, 1, "  70");
    EXPECT_EQ(m.profiles.Types[kCoolStat].Profile[g][1], "  70");
    t.Undo();
    EXPECT_EQ(t.fields.At("temp", 1).text, m.library.LibraryProfile[kCoolStat][g][1]);
    t.Ok();
    EXPECT_EQ(m.profiles.ProfileTypeUsed[kHeatStat], 1);
}

TEST_F(CopyFixture, VentilationRateTakesThePrefixOfItsFilledBox) {
    VentilationRateController v(p.session, p.prompt, form);
    form.fields.At("zone", 9).text = "CS.06";
    v.Open();
    EXPECT_EQ(v.fields.At("ven", 1).text, ".06");
    EXPECT_EQ(v.fields.At("ven", 0).text, "");
    v.fields.At("ven", 1).text = "";
    EXPECT_FALSE(v.Ok());
    EXPECT_EQ(p.prompt.asked.back().text, "Please enter the ventilation rate");
    v.fields.At("ven", 0).text = " 1 0";
    ASSERT_TRUE(v.Ok());
    EXPECT_EQ(form.fields.At("zone", 9).text, "CP10");
    EXPECT_EQ(p.session.model.zoneEdit.ZoneFieldChanged[1][9], 1);
}

}  // namespace
}  // namespace solvane
