// The survey's bars of the benchmark screen: the delivered figures, their
// reader's errors, and the picture drawn to scale in either unit system.
#include "results/eui_screen.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/item_reader.h"
#include "core/text_file.h"
#include "ui/raster_canvas.h"

namespace solvane {
namespace {

std::string DeliveredTargets() {
    return ReadTextFile(std::string(SOLVANE_DATA_DIR) + "/Codes/EUI-Targets.txt").value_or("");
}

TEST(EuiTargets, DeliveredFiguresAgreeWithTheBuildingTypes) {
    const EuiTargets t = ReadEuiTargets(DeliveredTargets(), "EUI-Targets.txt");
    EXPECT_EQ(t.activity[26], "Administrative/professional office");
    EXPECT_FLOAT_EQ(t.site[26][0], 31.6f);
    EXPECT_FLOAT_EQ(t.site[26][1], 51.4f);
    EXPECT_FLOAT_EQ(t.site[26][2], 72.9f);
    EXPECT_EQ(t.site[33][1], 0);  // the survey covers no houses
    // Each median is the survey figure the building type file gives, to the
    // whole number that file keeps.
    const auto types = SplitLines(
        ReadTextFile(std::string(SOLVANE_DATA_DIR) + "/Codes/BType2020-Defaults.txt").value_or(""));
    int checked = 0;
    for (int type = 1; type <= kBuildingTypes; ++type) {
        if (t.site[type][1] <= 0) continue;
        const std::string& row = types.at(static_cast<std::size_t>(type + 2));
        // The site figure is the third item from the end of the row.
        std::vector<std::string> items;
        std::size_t at = 0;
        for (std::size_t comma; (comma = row.find(',', at)) != std::string::npos; at = comma + 1)
            items.push_back(row.substr(at, comma - at));
        items.push_back(row.substr(at));
        ASSERT_GE(items.size(), 3u);
        EXPECT_NEAR(t.site[type][1], std::stod(items[items.size() - 3]), 0.51) << type;
        ++checked;
    }
    EXPECT_EQ(checked, 39);
}

TEST(EuiTargets, BadRowsAreNamedWithTheirLine) {
    std::string text = DeliveredTargets();
    const std::string row5 = "\n5,\"Other public assembly\"";
    const std::size_t at = text.find(row5);
    ASSERT_NE(at, std::string::npos);
    std::string swapped = text;
    swapped.replace(at + 1, 1, "6");
    try {
        ReadEuiTargets(swapped, "EUI-Targets.txt");
        FAIL() << "a row out of order was taken";
    } catch (const ReadError& e) {
        EXPECT_NE(std::string(e.what()).find("building type 5"), std::string::npos) << e.what();
        EXPECT_EQ(e.Line(), 8);
    }
    EXPECT_THROW(ReadEuiTargets(text.substr(0, at), "EUI-Targets.txt"), ReadError);
    std::string unordered = text;
    unordered.replace(unordered.find("31.6,51.4,72.9"), 14, "51.4,31.6,72.9");
    EXPECT_THROW(ReadEuiTargets(unordered, "EUI-Targets.txt"), ReadError);
}

TEST(EuiPicture, BarsAreDrawnToScale) {
    RasterCanvas c(600, 250);
    EuiPicture p;
    p.activity = "Administrative/professional office";
    p.survey = {25, 50, 75};
    p.siteEUI = 100;  // the longest bar: the scale runs to 120
    p.climateZone = "5";
    DrawEuiPicture(c, p);
    // Rows of 37 pixels from y 52; bars from x 170 over 410 pixels.
    const auto row = [](int i) { return 52 + 37 * i + 17; };
    const auto end = [](double v) { return 170 + static_cast<int>(410 * v / 120); };
    const Color colors[] = {0xA0A0A0, 0xF0B040, 0x30A050, 0x3070C0};
    const double values[] = {75, 50, 25, 100};
    for (int i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(c.ColorAt(end(values[i]) - 3, row(i)), colors[i]);
        EXPECT_EQ(c.ColorAt(end(values[i]) + 3, row(i)), 0xFFFFFFu);
    }

    // Without survey figures the building's bar stands alone, at full scale.
    p.activity.clear();
    DrawEuiPicture(c, p);
    EXPECT_EQ(c.ColorAt(end(100) - 3, row(0)), 0x3070C0u);
    EXPECT_EQ(c.ColorAt(300, row(1)), 0xFFFFFFu);
}

}  // namespace
}  // namespace solvane
