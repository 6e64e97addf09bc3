#include "propertydb/schedule_library.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/item_reader.h"
#include "tests/propertydb/program_folder.h"

namespace solvane {
namespace {

// Counts the runs of non-blanks in a profile text.
int Values(const std::string& text) {
    int n = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != ' ' && (i == 0 || text[i - 1] == ' ')) ++n;
    return n;
}

TEST(ScheduleLibrary, TwelveGroupsOfSevenTypesAndThreeDays) {
    testing::ProgramFolder folder;
    ProjectModel m;
    m.session.Units = 1;
    LoadScheduleLibrary(m, folder.Paths());
    EXPECT_EQ(m.profiles.ProfileGroupName[1], "Office");
    EXPECT_EQ(m.profiles.ProfileGroupName[12], "Supermarket");
    EXPECT_EQ(m.profiles.ProfileTypeTitle[6], "Summer Thermostat (cooling set point)");
    for (int t = 1; t <= kProfileTypes; ++t)
        for (int g = 1; g <= kProfileGroups; ++g)
            for (int d = 1; d <= kDayTypes; ++d) {
                const std::string& text = m.library.LibraryProfile[t][g][d];
                EXPECT_EQ(text.size(), 96u) << t << " " << g << " " << d;
                EXPECT_EQ(Values(text), 24);
                EXPECT_EQ(m.profiles.Types[t].Profile[g][d], text);
                const int v = m.library.LibraryProfileValue[t][g][d][12];
                if (t <= kFans) {
                    EXPECT_GE(v, 0);
                    EXPECT_LE(v, 100);
                } else {
                    EXPECT_GE(v, 50);  // degrees F
                    EXPECT_LE(v, 90);
                }
            }
    // Office weekdays at noon: the prototype's occupied cooling set point.
    EXPECT_EQ(m.library.LibraryProfileValue[kCoolStat][1][1][12], 75);
}

// Every library value against the prototype schedule it was made from:
// fractions as whole percentages, set points in whole degrees F.
TEST(ScheduleLibrary, ValuesFollowThePrototypeSchedules) {
    testing::ProgramFolder folder;
    ProjectModel m;
    m.session.Units = 1;
    LoadScheduleLibrary(m, folder.Paths());
    int rows = 0;
    bool seen[kProfileTypes + 1][kProfileGroups + 1][kDayTypes + 1] = {};
    for (const auto& c : testing::FixtureRows("schedules_published.csv")) {
        ASSERT_EQ(c.size(), 31u);
        const int g = std::stoi(c[0]), t = std::stoi(c[1]), d = std::stoi(c[2]);
        seen[t][g][d] = true;
        for (int h = 1; h <= 24; ++h) {
            const double v = std::stod(c[6 + h]);
            const double expected = t <= kFans ? std::nearbyint(v * 100) : std::floor(v + 0.5);
            EXPECT_EQ(m.library.LibraryProfileValue[t][g][d][h], expected)
                << c[5] << " " << c[3] << " day " << d << " hour " << h;
        }
        ++rows;
    }
    // All but the residential group's fans, which the prototype does not schedule.
    EXPECT_EQ(rows, kProfileTypes * kProfileGroups * kDayTypes - 3);
    for (int d = 1; d <= kDayTypes; ++d) {
        EXPECT_FALSE(seen[kFans][9][d]);
        EXPECT_EQ(m.library.LibraryProfileValue[kFans][9][d][3], 100);
    }
}

TEST(ScheduleLibrary, ThermostatsInSiAndProjectEntriesKept) {
    testing::ProgramFolder folder;
    ProjectModel m;
    m.session.Units = 2;
    m.profiles.Types[kCoolStat].Profile[1][2] = "mine";
    LoadScheduleLibrary(m, folder.Paths());
    EXPECT_EQ(m.library.LibraryProfileValue[kCoolStat][1][1][12], 24);  // 75 F
    EXPECT_EQ(m.profiles.Types[kCoolStat].Profile[1][2], "mine");
    EXPECT_EQ(m.profiles.Types[kCoolStat].Profile[1][1].substr(44, 4), "  24");
    // Percentages are never converted.
    EXPECT_EQ(m.library.LibraryProfileValue[kOccupancy][1][1][10], 95);
}

TEST(ScheduleLibrary, SiConversionRoundsOnceToWholeDegrees) {
    testing::ProgramFolder folder;
    std::string s;
    for (int g = 1; g <= 12; ++g) {
        s += std::to_string(g) + ",\"G\"\r\nsource\r\n";
        for (int t = 1; t <= 7; ++t) {
            s += "Title\r\n";
            for (const char* day : {"\"M-F\"", "\"Sat\"", "\"Sun\""}) {
                s += day;
                for (int h = 1; h <= 24; ++h) s += h == 1 ? ",68" : h == 2 ? ",75" : ",77.5";
                s += "\r\n";
            }
        }
        s += "----\r\n";
    }
    folder.Write(kScheduleLibraryFile, s);
    ProjectModel m;
    m.session.Units = 2;
    LoadScheduleLibrary(m, folder.Paths());
    EXPECT_EQ(m.library.LibraryProfileValue[kHeatStat][3][2][1], 20);
    EXPECT_EQ(m.library.LibraryProfileValue[kHeatStat][3][2][2], 24);
    EXPECT_EQ(m.library.LibraryProfileValue[kHeatStat][3][2][3], 25);  // 25.28 C
    EXPECT_EQ(m.library.LibraryProfile[kHeatStat][3][2].substr(0, 8), "  20  24");
}

TEST(ScheduleLibrary, BuildingTypeGroupEntersTheProject) {
    testing::ProgramFolder folder;
    ProjectModel m;
    m.session.Units = 1;
    LoadScheduleLibrary(m, folder.Paths());
    m.session.BuildingType = 26;
    m.btypes.BTypeProfileGroup[26] = 1;
    m.profiles.Types[kLights].Profile[1][1] = "edited";
    m.profiles.ProfileTypeEdited[kLights] = 1;
    UseBuildingTypeProfiles(m);
    EXPECT_EQ(m.profiles.Types[kOccupancy].GroupNum[1], "1");
    EXPECT_EQ(m.profiles.Types[kLights].Profile[1][1], "edited");
    EXPECT_EQ(m.profiles.ProfileTypeUsed[kLights], 1);
    m.flags.DefaultsApplied = 1;
    UseBuildingTypeProfiles(m);
    EXPECT_EQ(m.profiles.Types[kLights].Profile[1][1], m.library.LibraryProfile[kLights][1][1]);
}

TEST(ScheduleLibrary, ShortFileIsAnError) {
    testing::ProgramFolder folder;
    folder.Write(kScheduleLibraryFile, "1,\"Office\"\r\nsource\r\nTitle\r\n\"M-F\",1,2\r\n");
    ProjectModel m;
    EXPECT_THROW(LoadScheduleLibrary(m, folder.Paths()), ReadError);
}

}  // namespace
}  // namespace solvane
