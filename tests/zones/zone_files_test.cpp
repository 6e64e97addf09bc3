#include "zones/zone_files.h"

#include <gtest/gtest.h>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "tests/zones/zone_fixture.h"
#include "zones/zone_list.h"

namespace solvane {
namespace {

using testing::ZonSurface;

TEST(ZoneFiles, NamesAndFloorsFollowTheZoneNumber) {
    EXPECT_EQ(ZoneFileName("12-3"), "\\temp\\temp12-3.zon");
    EXPECT_EQ(ZoneFloor("12-3"), 12);
    EXPECT_EQ(ZoneFloor("1-10"), 1);
}

TEST(ZoneFiles, ReadStopsAtEndAndTheCountDropsToWhatWasRead) {
    testing::ZoneProject p;
    ZonSurface roof;
    roof.wallId = "1", roof.orient = "0", roof.exposure = "6", roof.slope = "0";
    roof.shade = " N0. N0. N0.", roof.swb = "S  ";
    p.AddZone(1, "12-3", 1000, {ZonSurface{}, roof});
    ProjectModel& m = p.session.model;
    m.zones.ZoneSurfaceCount[1] = 5;  // more than the file holds
    ReadZoneFile(m, p.session.paths, 1);
    EXPECT_EQ(m.zones.ZoneSurfaceCount[1], 2);
    EXPECT_EQ(m.surfaces.SurfWallId[1][1], 6);
    EXPECT_FLOAT_EQ(m.surfaces.SurfWindowArea[1][1], 80);
    EXPECT_EQ(m.surfaces.SurfShade[1][1], " N0. N0. N0.");
    EXPECT_EQ(m.surfaces.SurfExposure[1][2], 6);
    EXPECT_EQ(m.surfaces.SurfSWB[1][2], "S");  // an unquoted text loses its blanks
    EXPECT_FLOAT_EQ(m.surfaces.SurfGroundRefl[1][2], 0.2f);

    // What the tables hold writes back to the same values.
    const std::string text = ZoneFileText(m, 1);
    p.folder.Write("\\temp\\temp12-3.zon", text);
    ProjectModel copy = m;
    copy.surfaces = SurfaceState{};
    ReadZoneFile(copy, p.session.paths, 1);
    EXPECT_EQ(ZoneFileText(copy, 1), text);
}

TEST(ZoneFiles, MissingOrCutFilesAreReadErrors) {
    testing::ZoneProject p;
    ProjectModel& m = p.session.model;
    m.zones.ZoneNumber[1] = "1-9";
    m.zones.ZoneSurfaceCount[1] = 1;
    EXPECT_THROW(ReadZoneFile(m, p.session.paths, 1), ReadError);
    p.folder.Write("\\temp\\temp1-9.zon", "6\r\n400\r\n0\r\n");
    EXPECT_THROW(ReadZoneFile(m, p.session.paths, 1), ReadError);
    // A file of only "end" is a zone without surfaces.
    p.folder.Write("\\temp\\temp1-9.zon", "end\r\n");
    ReadZoneFile(m, p.session.paths, 1);
    EXPECT_EQ(m.zones.ZoneSurfaceCount[1], 0);
}

// The second pass takes the file's values where area and orientation agree
// and keeps the tables' where they differ; a window larger than the file's
// wall shrinks to a fifth of it.
TEST(ZoneFiles, SecondPassComparesAreaAndOrientation) {
    testing::ZoneProject p;
    ZonSurface same, moved;
    same.shade = " N0. N0. F.5", same.winArea = "500";
    moved.orient = "90", moved.shade = " R1. N0. N0.", moved.windowId = "3";
    p.AddZone(1, "1-1", 1000, {same, moved});
    ProjectModel& m = p.session.model;
    SurfaceState& sf = m.surfaces;
    sf.SurfArea[1][1] = 400.3f, sf.SurfOrient[1][1] = 0, sf.SurfShade[1][1] = " N0. N0. N0.";
    sf.SurfArea[1][2] = 400, sf.SurfOrient[1][2] = 180, sf.SurfShade[1][2] = " N0. N0. T.3";
    sf.SurfWindowId[1][2] = 2, sf.SurfWindowArea[1][2] = 50;
    ReadZoneFileKeeping(m, p.session.paths, 1);
    EXPECT_EQ(sf.SurfShade[1][1], " N0. N0. F.5");
    EXPECT_FLOAT_EQ(sf.SurfWindowArea[1][1], 80);  // 500 > 400: a fifth of the wall
    EXPECT_EQ(sf.SurfShade[1][2], " N0. N0. T.3");
    EXPECT_EQ(sf.SurfOrient[1][2], 180);
    EXPECT_EQ(sf.SurfWindowId[1][2], 2);
    EXPECT_FLOAT_EQ(sf.SurfWindowArea[1][2], 50);
}

TEST(ZoneFiles, ReDerivationReadsEveryZoneAndPeopleFromTheAreaPerPerson) {
    testing::ZoneProject p;
    ProjectModel& m = p.session.model;
    p.AddZone(1, "1-1", 1000, {ZonSurface{}, ZonSurface{}});
    p.AddZone(2, "2-1", 600, {ZonSurface{}});
    m.flags.ReSketched = 1;
    m.zones.ZoneAreaPerPerson[1] = m.zones.ZoneAreaPerPerson[2] = 200;
    m.BuildingFloorArea = 1600;
    m.sketch.RotationText = "15";
    ASSERT_TRUE(ReDeriveZones(p.session, p.prompt));
    EXPECT_EQ(m.zones.ZoneData[1][5], " 5");
    EXPECT_EQ(m.zones.ZoneData[2][5], " 3");
    EXPECT_EQ(m.zones.ZoneSurfaceCount[1], 2);
    EXPECT_EQ(m.zones.ZoneSurfaceCount[2], 1);
    EXPECT_EQ(m.ProjectData[kFloorArea], "1600");
    EXPECT_EQ(m.ProjectData[kOrientation], "15");
    const int group = m.btypes.BTypeProfileGroup[26];
    EXPECT_EQ(m.profiles.Types[kLights].GroupNum[group], NumText(group));

    // A zone whose file is gone stops the entry with the access prompt.
    std::filesystem::remove(p.session.paths.Resolve("\\temp\\temp2-1.zon"));
    EXPECT_FALSE(ReDeriveZones(p.session, p.prompt));
    EXPECT_TRUE(p.Asked("Zone data access Error"));
}

TEST(ZoneFiles, NoZonesAtAllIsAnAccessError) {
    testing::ZoneProject p;
    EXPECT_FALSE(ReDeriveZones(p.session, p.prompt));
    ASSERT_EQ(p.prompt.asked.size(), 1u);
    EXPECT_EQ(p.prompt.asked[0].text,
              "You have not drawn your building, or you have not named the building zone(s).  "
              "Please return to the sketch program.");
}

}  // namespace
}  // namespace solvane
