// The reader with the routines the program wires into it: the schedule
// library, the envelope defaults and the building type table, over the
// program's own data folders.

#include <gtest/gtest.h>

#include "code/building_types.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "projectfile/project_file.h"
#include "propertydb/envelope_defaults.h"
#include "propertydb/schedule_library.h"
#include "test_project.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

TEST(LibraryHooksTest, SamplesReadWithTheProgramsData) {
    test::ProgramFolder folder("LibraryHooks");
    const fs::path data = fs::path(SOLVANE_SOURCE_DIR) / "data";
    for (const char* dir : {"Codes", "profiles", "Bldg-Prop"})
        fs::copy(data / dir, folder / dir, fs::copy_options::recursive);

    ProjectFileHooks hooks;
    hooks.loadScheduleLibrary = static_cast<void (*)(Session&, Prompt&)>(&LoadScheduleLibrary);
    hooks.loadEnvelopeDefaults = static_cast<void (*)(Session&, Prompt&)>(&LoadEnvelopeDefaults);
    hooks.buildingTypeOccupancy = &BuildingTypeOccupancy;

    for (const auto& entry : fs::directory_iterator(data / "sample")) {
        if (entry.path().extension() != ".inp") continue;
        const std::string name = entry.path().filename().string();
        SCOPED_TRACE(name);
        Session s;
        s.paths = ProgramPaths(folder.Root());
        ScriptedPrompt prompt;
        const auto text = ReadTextFile(data / "sample" / name);
        ASSERT_TRUE(text);
        ASSERT_EQ(ReadProjectFile(s, prompt, *text, name, hooks), ReadStatus::Read)
            << (prompt.asked.empty() ? "" : prompt.asked[0].text);
        const ProjectModel& m = s.model;
        // The library gives the titles and names the samples were written with.
        EXPECT_EQ(m.profiles.ProfileTypeTitle[1], "Occupancy (% of peak occupants)");
        EXPECT_EQ(m.profiles.ProfileGroupName[4], "Hospital / 24-hour care");
        // The default area per person follows the building type's density.
        const double density = BuildingTypeOccupancy(s, m.session.BuildingType);
        ASSERT_GT(density, 0);
        float expected = RoundOff(1000.0 / density, 0);
        if (m.session.Units == 2) expected = RoundOff(expected * 0.0929, 0);
        EXPECT_FLOAT_EQ(m.zones.DefaultAreaPerPerson, std::max(expected, 1.0f));
        // The read catalog entries replace the defaults at their ids.
        const std::size_t id = text->find("ID. #     ");
        ASSERT_NE(id, std::string::npos);
        const int first = static_cast<int>(NumVal(text->substr(id + 10, 3)));
        EXPECT_EQ(m.walls.WallUsed[first], 1);
        const std::size_t desc = text->find("Descript. ", id) + 10;
        EXPECT_EQ(m.walls.WallDescription[first],
                  text->substr(desc, text->find('\r', desc) - desc));
        LineWriter out;
        out.Line(HeadLine(m, s.labels.UnitsLabel[m.session.Units]));
        WriteProjectFile(s, out);
        test::ExpectWrittenAsRead(out.Str(), *text);
    }
}

}  // namespace
}  // namespace solvane
