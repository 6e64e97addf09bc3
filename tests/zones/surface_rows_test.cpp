#include "zones/surface_rows.h"

#include <gtest/gtest.h>

#include "tests/zones/zone_fixture.h"
#include "zones/zone_files.h"
#include "zones/zone_form.h"

namespace solvane {
namespace {

using testing::ZonSurface;

// A zone of one floor with a north wall, an east wall and a roof.
struct SurfaceFixture : ::testing::Test {
    explicit SurfaceFixture(int units = 1, const std::string& climate = "3 A")
        : p(units, climate), form(p.session, p.prompt) {}
    void Open(std::vector<ZonSurface> surfaces, const std::string& number = "1-1") {
        p.AddZone(1, number, 1000, surfaces);
        ReadZoneFile(p.session.model, p.session.paths, 1);
        ASSERT_TRUE(form.ShowZone(1));
        p.prompt.asked.clear();
    }
    std::string Buf(int column, int row) { return form.surfaces.buffers.At(column, row); }
    testing::ZoneProject p;
    ZoneFormController form;
};

ZonSurface Wall(const std::string& orient, const std::string& area = "400") {
    ZonSurface s;
    s.orient = orient;
    s.area = area;
    return s;
}

ZonSurface Roof() {
    ZonSurface s;
    s.wallId = "1", s.exposure = "6", s.slope = "0", s.winArea = "0";
    return s;
}

TEST(SurfaceDirections, TheTwoRulesDifferAtExactly315Degrees) {
    EXPECT_EQ(WindowDirection(2, 315), 3);
    EXPECT_EQ(ShadeDirection(2, 315), 0);
    EXPECT_EQ(WindowDirection(2, 316), 0);
    EXPECT_EQ(WindowDirection(2, 44), 0);
    EXPECT_EQ(WindowDirection(2, 45), 1);
    EXPECT_EQ(WindowDirection(2, 180), 2);
    EXPECT_EQ(ShadeDirection(2, 270), 3);
    EXPECT_EQ(WindowDirection(6, 90), 4);
    EXPECT_EQ(ShadeDirection(6, 90), 4);
}

TEST(SurfaceLabels, ClassesOfTheCatalogRows) {
    const FixedLabels labels = MakeFixedLabels();
    EXPECT_EQ(WallIdText(labels, 3), "Roof  3");
    EXPECT_EQ(WallIdText(labels, 4), "Wall  4");  // the mass wall, first of the walls
    EXPECT_EQ(WallIdText(labels, 11), "Door  11");
    EXPECT_EQ(WallIdText(labels, 40), "Other  40");
    EXPECT_EQ(WallIdNumber("Door  11"), 11);
    EXPECT_EQ(WallIdNumber("6"), 6);
}

TEST_F(SurfaceFixture, RowsShowTheirTextForms) {
    Open({Wall("0"), Roof()});
    EXPECT_EQ(Buf(kColWallId, 1), "Wall  6");
    EXPECT_EQ(Buf(kColSurf, 1), " 2 Conc.");
    EXPECT_EQ(Buf(kColWallId, 2), "Roof  1");
    EXPECT_EQ(Buf(kColSurf, 2), " 6 Sky *");
    EXPECT_EQ(form.fields.At("wallid", 2).text, "Roof  1");
    EXPECT_EQ(form.fields.At("wallid", 3).text, "");
}

TEST_F(SurfaceFixture, TwelveRowsShownAndTheScrollMovesThem) {
    std::vector<ZonSurface> many;
    for (int i = 0; i < 20; ++i) many.push_back(Wall(std::to_string(i * 10)));
    Open(many);
    EXPECT_EQ(form.fields.At("orient", 12).text, " 110");
    form.ScrollSurfaces(8);
    EXPECT_EQ(form.fields.At("orient", 1).text, " 80");
    EXPECT_EQ(form.fields.At("orient", 12).text, " 190");
    // Typing in a shown box reaches the buffer of its row.
    form.EditSurface("orient", 1, "85");
    EXPECT_EQ(Buf(kColOrient, 9), "85");
}

TEST_F(SurfaceFixture, KeyRulesOfTheColumns) {
    Open({Wall("0")});
    char key = 'f';
    EXPECT_TRUE(form.SurfaceKey("shade", key));
    EXPECT_EQ(key, 'F');
    key = 'x';
    EXPECT_FALSE(form.SurfaceKey("shade", key));
    EXPECT_EQ(p.prompt.asked.back().text, "You should type either F or L or R or T or N.");
    key = '-';
    EXPECT_FALSE(form.SurfaceKey("shade", key));
    EXPECT_EQ(p.prompt.asked.back().text,
              "You should type either a number or the shading code (F, L, R, T, or N).");
    key = 's';
    EXPECT_TRUE(form.SurfaceKey("swb", key));
    EXPECT_EQ(key, 'S');
    key = 'x';
    EXPECT_FALSE(form.SurfaceKey("swb", key));
    key = '3';
    EXPECT_FALSE(form.SurfaceKey("blind", key));
    EXPECT_EQ(p.prompt.asked.back().text, "Please enter 0, 1 or 5.");
    key = 'a';
    EXPECT_FALSE(form.SurfaceKey("wallarea", key));
    key = '1';
    EXPECT_FALSE(form.SurfaceKey("surf", key));
    EXPECT_EQ(p.prompt.asked.back().title, "Exterior Outdoor Exposure");
    EXPECT_EQ(p.prompt.beeps, 6);
}

TEST_F(SurfaceFixture, DoorRowsAndCatalogSearchOnLeave) {
    Open({Wall("0"), Wall("90")});
    form.EditSurface("wallid", 2, "11");  // the opaque door of the catalog
    EXPECT_TRUE(form.LeaveSurface("wallid", 2));
    EXPECT_EQ(Buf(kColWallId, 2), "Door  11");
    EXPECT_EQ(Buf(kColWallArea, 2), " 21 ");
    EXPECT_EQ(Buf(kColSill, 2), " 4.5 ");
    EXPECT_EQ(Buf(kColSwb, 2), "B  ");

    form.EditSurface("wallid", 1, "49");
    EXPECT_FALSE(form.LeaveSurface("wallid", 1));
    EXPECT_EQ(p.prompt.asked.back().text,
              "Error.  Wall ID number is not in the wall catalog.  Select the wall ID number "
              "again.");
    const std::size_t asked = p.prompt.asked.size();
    form.EditSurface("wallid", 1, "1");  // accepted without a search
    EXPECT_TRUE(form.LeaveSurface("wallid", 1));
    form.EditSurface("windowid", 1, "49");
    EXPECT_FALSE(form.LeaveSurface("windowid", 1));
    EXPECT_EQ(p.prompt.asked.size(), asked + 1);
}

struct SiSurfaceFixture : SurfaceFixture {
    SiSurfaceFixture() : SurfaceFixture(2) {}
};

TEST_F(SiSurfaceFixture, DoorDefaultsInSi) {
    Open({Wall("0", "40")});
    form.EditSurface("wallid", 1, "Door  11");
    EXPECT_TRUE(form.LeaveSurface("wallid", 1));
    EXPECT_EQ(Buf(kColWallArea, 1), " 2 ");
    EXPECT_EQ(Buf(kColSill, 1), " 1.4 ");
    EXPECT_EQ(Buf(kColTopWin, 1), " 2.3 ");
}

TEST_F(SurfaceFixture, ElevationFractionsSetTheWindowsOfOneSide) {
    Open({Wall("0"), Wall("90"), Wall("315", "10"), Roof()});
    EXPECT_TRUE(form.ElevationFraction(0, ".25"));
    EXPECT_EQ(Buf(kColWinArea, 1), " 100");
    EXPECT_EQ(Buf(kColWinArea, 2), " 80");  // east untouched
    // 315 degrees is west for the fractions; a window under a square foot is none.
    EXPECT_TRUE(form.ElevationFraction(3, ".05"));
    EXPECT_EQ(Buf(kColWinArea, 3), " 0");
    EXPECT_TRUE(form.ElevationFraction(1, "1"));
    EXPECT_FLOAT_EQ(p.session.model.surfaces.SurfWindowArea[1][2], 400);
    EXPECT_FALSE(form.ElevationFraction(1, "1.01"));
    EXPECT_EQ(p.prompt.asked.back().title, "FractiOn Error!");
    EXPECT_TRUE(form.ElevationFraction(4, ".03"));
    EXPECT_EQ(Buf(kColWinArea, 4), " 12");
}

TEST_F(SurfaceFixture, OkChecksTheSurfacesInOrder) {
    Open({Wall("0"), Wall("180")});
    // The window alert: Yes turns fractions into areas.
    form.EditSurface("winarea", 1, ".1");
    p.prompt.Queue(Answer::Yes);
    // then a shading word with a wrong letter stops OK
    form.EditSurface("shade", 2, " N0. X1. N0.");
    EXPECT_FALSE(form.Ok());
    EXPECT_EQ(p.prompt.asked[0].title, "Window area alert");
    EXPECT_EQ(Buf(kColWinArea, 1), " 40");
    EXPECT_EQ(p.prompt.asked[1].title, "Shading error");
    EXPECT_EQ(form.fields.At("shade", 2).color, kRed);

    form.EditSurface("shade", 2, " N0. N0. F.5");
    form.EditSurface("winarea", 2, "401");
    EXPECT_FALSE(form.Ok());
    EXPECT_EQ(p.prompt.asked.back().title, "Wall and window area conflict");

    form.EditSurface("winarea", 2, "400");  // as large as the wall passes
    form.EditSurface("windowid", 2, "49");
    EXPECT_FALSE(form.Ok());
    EXPECT_EQ(p.prompt.asked.back().text,
              "One of your window ID numbers is not in the catalog.  Please double click the ID "
              "number and select the right ID.");

    form.EditSurface("windowid", 2, " 1");
    form.EditSurface("wallid", 1, "Wall  49");
    EXPECT_FALSE(form.Ok());
    EXPECT_EQ(p.prompt.asked.back().text,
              "One of your wall ID numbers is not in the catalog.  Please double click the ID "
              "number and select the correct ID.");

    form.EditSurface("wallid", 1, "Roof  1");
    const std::size_t asked = p.prompt.asked.size();
    EXPECT_TRUE(form.Ok());
    EXPECT_EQ(p.prompt.asked.size(), asked);  // the alert is asked once a zone
    const SurfaceState& sf = p.session.model.surfaces;
    EXPECT_EQ(sf.SurfWallId[1][1], 1);
    EXPECT_EQ(sf.SurfOrient[1][1], 0);  // a roof has no orientation
    EXPECT_FLOAT_EQ(sf.SurfWindowArea[1][1], 40);
    EXPECT_FLOAT_EQ(sf.SurfWindowArea[1][2], 400);
    EXPECT_EQ(sf.SurfShade[1][2], " N0. N0. F.5");
}

TEST_F(SurfaceFixture, AZoneWithoutSurfacesSkipsTheChecks) {
    Open({});
    EXPECT_EQ(form.fields.At("shade", 1).text, "");
    EXPECT_TRUE(form.Ok());
    EXPECT_TRUE(p.prompt.asked.empty());
    EXPECT_EQ(p.session.model.zones.ZoneSurfaceCount[1], 0);
}

TEST_F(SurfaceFixture, OverhangFactorBelowTheCodeMinimumOnTheFirstFloor) {
    Open({Wall("180"), Wall("0"), Wall("315")});
    // South side, first floor, window fraction below a half: 0.5 is required.
    p.prompt.Queue(Answer::Cancel);
    EXPECT_FALSE(form.ElevationPF(2, ".3"));
    EXPECT_EQ(p.prompt.asked.back().title, "PF inadequate.");
    EXPECT_EQ(p.prompt.asked.back().text,
              "This PF value of .3 will not meet the energy code minimum requirement of .5 on "
              "this floor; Click Cancel to revise the value or click OK to ignore the energy "
              "standard and proceed.");
    EXPECT_EQ(form.fields.At("ElevPF", 2).text, "");
    EXPECT_EQ(Buf(kColShade, 1), " N0. N0. N0.");

    // OK goes on and the shading text takes the factor.
    p.prompt.Queue(Answer::Ok);
    p.prompt.Queue(Answer::Yes);
    EXPECT_TRUE(form.ElevationPF(2, ".3"));
    EXPECT_TRUE(form.PFAlertsOff);
    EXPECT_EQ(p.prompt.asked.back().title, "Shade transfer check.");
    EXPECT_EQ(Buf(kColShade, 1), " N0. N0. F.3");
    EXPECT_FLOAT_EQ(form.elevation.ElevPFLower[1][2], 0.3f);

    // North of the equator the north side is never tested; at 315 degrees the
    // overhang rule counts the wall as north, so both take the factor.
    const std::size_t asked = p.prompt.asked.size();
    EXPECT_TRUE(form.ElevationPF(0, ".1"));
    EXPECT_EQ(p.prompt.asked.size(), asked + 1);  // only the transfer check
    EXPECT_EQ(Buf(kColShade, 2), " N0. N0. F.1");
    EXPECT_EQ(Buf(kColShade, 3), " N0. N0. F.1");

    EXPECT_FALSE(form.ElevationPF(1, "-.2"));
    EXPECT_EQ(p.prompt.asked.back().title, "Negative sign Error!");
}

struct ColdSurfaceFixture : SurfaceFixture {
    ColdSurfaceFixture() : SurfaceFixture(1, "4 A") {}
};

TEST_F(ColdSurfaceFixture, Climate4ANeverAsksForALargerOverhang) {
    Open({Wall("180")});
    EXPECT_TRUE(form.ElevationPF(2, ".1"));
    ASSERT_EQ(p.prompt.asked.size(), 1u);
    EXPECT_EQ(p.prompt.asked[0].title, "Shade transfer check.");
}

TEST_F(SurfaceFixture, UpperFloorsNeedAQuarter) {
    Open({Wall("90")}, "2-1");
    p.prompt.Queue(Answer::Cancel);
    EXPECT_FALSE(form.ElevationPF(1, ".2"));
    EXPECT_NE(p.prompt.asked.back().text.find("requirement of .25"), std::string::npos);
    p.prompt.Queue(Answer::Yes);
    EXPECT_TRUE(form.ElevationPF(1, ".25"));
    EXPECT_FLOAT_EQ(form.elevation.ElevPFUpper[1][1], 0.25f);
}

}  // namespace
}  // namespace solvane
