// The bundled sample projects: each opens without a word, its zones are the
// ones its own drawing gives, it saves as it reads, it runs, and it is what
// solvane-make-samples makes today.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "cli/program_services.h"
#include "core/numeric_helpers.h"
#include "core/startup.h"
#include "core/text_file.h"
#include "projectfile/file_dialogs.h"
#include "sketch/derive_zones.h"
#include "sketch/sketch_files.h"
#include "tests/propertydb/program_folder.h"
#include "tools/samples/sample_builder.h"
#include "ui/raster_canvas.h"
#include "ui/scripted_prompt.h"
#include "zones/zone_form.h"
#include "zones/zone_list.h"

namespace solvane {
namespace {

namespace fs = std::filesystem;

const fs::path kSamples = fs::path(SOLVANE_SOURCE_DIR) / "data" / "sample";

std::vector<fs::path> SampleFiles() {
    std::vector<fs::path> files;
    for (const auto& e : fs::directory_iterator(kSamples))
        if (e.path().extension() == ".inp") files.push_back(e.path());
    std::sort(files.begin(), files.end());
    return files;
}

std::string Text(const fs::path& file) {
    const auto text = ReadTextFile(file);
    return text ? *text : std::string();
}

class BundledSamples : public ::testing::Test {
  protected:
    // A started program on a scratch folder with `file` read in; the read
    // asks nothing.
    void Open(Session& s, const std::string& text, const fs::path& file) {
        s.paths = folder_.Paths();
        StartUp(s, prompt_, StartupEnvironment{}, MakeStartupHooks(climate_));
        prompt_.asked.clear();
        s.model.session.InputFileName = file.string();
        ASSERT_EQ(ReadProjectFile(s, prompt_, text, file.string(), MakeProjectFileHooks()),
                  ReadStatus::Read);
        EXPECT_TRUE(prompt_.asked.empty()) << prompt_.asked.front().title;
    }

    testing::ProgramFolder folder_;
    ScriptedPrompt prompt_;
    ClimateIndex climate_;
};

TEST_F(BundledSamples, ThereAreSixWithDescriptionsTheSampleListShows) {
    const auto files = SampleFiles();
    EXPECT_EQ(files.size(), samples::BundledSamples().size());
    EXPECT_GE(files.size(), 6u);
    Session s;
    s.paths = ProgramPaths(fs::path(SOLVANE_SOURCE_DIR) / "data");
    SampleFileFormController list(s, prompt_);
    list.Show();
    ASSERT_EQ(list.Files.size(), files.size());
    for (std::size_t i = 0; i < files.size(); ++i) {
        EXPECT_EQ(list.File1[i].find('['), std::string::npos) << list.File1[i];
        EXPECT_GT(list.Descriptions[i].size(), 20u) << list.Files[i];
        EXPECT_EQ(list.Descriptions[i].find("not entered"), std::string::npos);
    }
}

// Read, derive the zones again from the file's own building matrix, write,
// read and write again.
TEST_F(BundledSamples, ZonesComeFromTheirDrawingAndFilesSaveAsTheyRead) {
    for (const fs::path& file : SampleFiles()) {
        SCOPED_TRACE(file.filename().string());
        Session s;
        ASSERT_NO_FATAL_FAILURE(Open(s, Text(file), file));
        const ZoneState zones = s.model.zones;
        ASSERT_GE(zones.NumZones, 3);

        // Writing first: the drawing below overwrites the staged zone files.
        const fs::path first = folder_.Dir() / "first.inp", second = folder_.Dir() / "second.inp";
        ASSERT_TRUE(WriteProjectFileTo(s, prompt_, first, false));

        Session d;
        d.paths = s.paths;
        d.model = s.model;
        SketchScreen screen;
        RasterCanvas canvas{1000, 600};
        SketchContext ctx{d, screen, canvas, prompt_};
        ASSERT_TRUE(LoadSketchFiles(ctx));
        ASSERT_TRUE(DeriveZones(d, screen, prompt_));
        ASSERT_EQ(d.model.zones.NumZones, zones.NumZones);
        float area = 0;
        for (int z = 1; z <= zones.NumZones; ++z) {
            EXPECT_EQ(d.model.zones.ZoneNumber[z], zones.ZoneNumber[z]);
            EXPECT_EQ(d.model.zones.ZoneName[z], zones.ZoneName[z]);
            EXPECT_EQ(d.model.zones.ZoneFloorArea[z], zones.ZoneFloorArea[z]) << z;
            EXPECT_EQ(d.model.zones.ZoneSurfaceCount[z], zones.ZoneSurfaceCount[z]) << z;
            area += zones.ZoneFloorArea[z];
        }
        // The zones' areas make up the building's, each level counted by its floors.
        EXPECT_EQ(d.model.BuildingFloorArea, NumVal(s.model.ProjectData[kFloorArea]));
        EXPECT_LE(area, d.model.BuildingFloorArea);

        Session again;
        ASSERT_NO_FATAL_FAILURE(Open(again, Text(first), first));
        ASSERT_TRUE(WriteProjectFileTo(again, prompt_, second, false));
        EXPECT_EQ(Text(first), Text(second));
    }
}

// A user who opens a sample and looks at every zone, pressing OK on each,
// changes nothing: the zone screen takes each surface as the file has it.
TEST_F(BundledSamples, OkOnEveryZoneChangesNothing) {
    for (const fs::path& file : SampleFiles()) {
        SCOPED_TRACE(file.filename().string());
        Session s;
        ASSERT_NO_FATAL_FAILURE(Open(s, Text(file), file));
        const fs::path before = folder_.Dir() / "before.inp", after = folder_.Dir() / "after.inp";
        ASSERT_TRUE(WriteProjectFileTo(s, prompt_, before, false));
        s.availableScreens.insert(Screen::ZoneForm);
        ZoneListController list(s, prompt_);
        ZoneFormController form(s, prompt_);
        list.Fill();
        for (int z = 1; z <= s.model.zones.NumZones; ++z) {
            ASSERT_TRUE(list.Pick(z));
            ASSERT_TRUE(form.ShowZone(list.PickedZone));
            ASSERT_TRUE(form.Ok()) << s.model.zones.ZoneName[z];
        }
        ASSERT_TRUE(WriteProjectFileTo(s, prompt_, after, false));
        EXPECT_EQ(Text(before), Text(after));
    }
}

TEST(BundledSamplesMaker, MakesTheCommittedFilesByteForByte) {
    const auto definitions = samples::BundledSamples();
    const auto texts = samples::MakeAllSamples(fs::path(SOLVANE_SOURCE_DIR) / "data");
    ASSERT_EQ(texts.size(), definitions.size());
    for (std::size_t i = 0; i < definitions.size(); ++i) {
        EXPECT_TRUE(Text(kSamples / definitions[i].fileName) == texts[i])
            << definitions[i].fileName << " differs from what solvane-make-samples makes";
    }
}

// Each sample runs in the build's program folder with the fixed weather.
TEST(BundledSamplesRun, EachCompletesAtTheCommandLine) {
    const fs::path home = SOLVANE_PROGRAM_DIR;
    for (const fs::path& file : SampleFiles()) {
        SCOPED_TRACE(file.filename().string());
        fs::remove(home / "temp" / "Monitor.txt");
        const std::string command = std::string("\"") + SOLVANE_CLI + "\" --home \"" +
                                    home.string() + "\" run \"" + file.string() +
                                    "\" --repeat-weather >/dev/null 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0);
        EXPECT_NE(Text(home / "temp" / "Monitor.txt").find("COMPLETED"), std::string::npos);
    }
}

}  // namespace
}  // namespace solvane
