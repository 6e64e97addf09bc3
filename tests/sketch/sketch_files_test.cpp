#include "sketch/sketch_files.h"

#include <gtest/gtest.h>

#include "core/main_menu.h"
#include "sketch/matrix_file.h"
#include "tests/sketch/sketch_test_support.h"

namespace solvane {
namespace {

using testing::LevelBlock;

struct SketchFiles : ::testing::Test, testing::SketchBench {};

TEST(SketchCells, CodesAndColours) {
    EXPECT_EQ(std::string({CellCode(9), CellCode(10), CellCode(25)}), "9AP");
    for (int z = 0; z <= 25; ++z) EXPECT_EQ(CellZone(CellCode(z)), z);
    EXPECT_EQ(CellZone(' '), 0);  // the blank of a widened old row
    EXPECT_EQ(CellZone('Z'), 0);

    // Palette rule: entries 15..22 gain 32, 23 and 24 lose 32, in the red byte.
    const std::vector<Color> some = {ZoneColor(5),  ZoneColor(16), ZoneColor(19),
                                     ZoneColor(20), ZoneColor(24), ZoneColor(26)};
    EXPECT_EQ(some,
              (std::vector<Color>{0x800000, 0xA00000, 0xE0C0C0, 0xA08080, 0xDF0000, 0xFFFFFF}));
    for (int z = 1; z <= 25; ++z) EXPECT_EQ(ZoneOfColor(ZoneColor(z)), z) << z;
    EXPECT_EQ(ZoneOfColor(kWhite), 0);
    EXPECT_EQ(ZoneOfColor(0xE1E1E1), 0);
    EXPECT_EQ(ZoneOfColor(0x100000), -1);  // the grid dots
}

TEST(MatrixLines, FixedColumns) {
    EXPECT_EQ(MatrixHeaderLine(6, 240), "Section Area: 240");
    EXPECT_EQ(MatrixHeaderValue("Rotation    : 350"), 350.0f);
    EXPECT_EQ(MatrixHeaderValue("Rotation    :350"), 350.0f);

    ZoneLineFields f{"A very long zone name indeed", 120, 300, 9.5f, 100, 400, 200, 300};
    const std::string line = MatrixZoneLine(12, f);
    EXPECT_EQ(line.substr(0, 39), "ZoneName[12]:A very long zone na   120 ");
    EXPECT_EQ(MatrixZoneLine(3, f).substr(0, 13), "ZoneName[3 ]:");
    EXPECT_EQ(ZoneLineNumber(line), 12);
    const auto figures = [](const ZoneLineFields& z) {
        return std::vector<float>{z.labelX, z.labelY, z.ceilingHt, z.left,
                                  z.top,    z.right,  z.bottom};
    };
    EXPECT_EQ(figures(ReadZoneLine(line)), figures(f));
    // A field too wide for its place is cut, never pushing the others along.
    f.labelX = 123456.75f;
    EXPECT_EQ(ReadZoneLine(MatrixZoneLine(1, f)).labelY, 300);
}

TEST_F(SketchFiles, TemplateOfANewProjectInFeet) {
    // The hub's sketch command copies the empty drawing for a new project.
    session.availableScreens.insert(Screen::DrawForm);
    session.model.zones.ZoneDescribed[3] = 1;
    folder.Write("\\sketch\\bld_mtx.all", "an older drawing\r\n");
    EXPECT_EQ(MainMenuController(session, prompt).Sketch().show, Screen::DrawForm);
    EXPECT_EQ(session.model.sketch.FreshMatrix, 1);
    EXPECT_EQ(session.model.zones.ZoneDescribed[3], 0);

    auto ctx = Context();
    ASSERT_TRUE(LoadSketchFiles(ctx));
    const SketchState& sk = session.model.sketch;
    EXPECT_EQ((std::vector<int>{sk.TopFloor, sk.CurrentLevel, sk.FreshMatrix}),
              (std::vector<int>{1, 1, 0}));
    EXPECT_EQ(sk.GridSize, 2.0f);
    EXPECT_EQ(sk.LevelCeilingHt[1], 10.0f);
    EXPECT_EQ(screen.fields.Text("Level") + screen.fields.Text("draw_unit"), "Level= 1(Feet)");
    EXPECT_EQ(screen.ZoneNameText(7), " Zone 1-7");
    EXPECT_TRUE(prompt.asked.empty());

    // Written back unchanged, the level is the template to the byte.
    ASSERT_TRUE(WriteLevelFile(ctx));
    EXPECT_EQ(*ReadTextFile(session.paths.Resolve("\\sketch\\bld_mtx.i1")),
              *ReadTextFile(session.paths.Resolve(kMatrixTemplateFile)));
}

TEST_F(SketchFiles, NewSiDrawingTakesGridOneAndRoomHeightThreeAndAHalfOnEveryLevel) {
    session.model.session.Units = 2;
    auto all = LevelBlock(1, 2, 1, 10, {});
    const auto second = LevelBlock(2, 2, 3, 12, {});
    all.insert(all.end(), second.begin(), second.end());
    WriteAll(all);
    session.model.sketch.FreshMatrix = 1;
    auto ctx = Context();
    ASSERT_TRUE(LoadSketchFiles(ctx));
    const SketchState& sk = session.model.sketch;
    EXPECT_EQ(sk.GridSize, 1.0f);
    EXPECT_EQ(sk.LevelCeilingHt[1], 3.5f);
    EXPECT_EQ(sk.LevelCeilingHt[2], 3.5f);
    EXPECT_EQ(sk.LevelFloors[2], 3.0f);
    EXPECT_EQ(sk.Stories, 4.0f);
    EXPECT_DOUBLE_EQ(sk.LevelHeight[2], 10.5);
    EXPECT_EQ(LevelLines(2)[3], "Room Height : 3.5");
    EXPECT_EQ(screen.fields.Text("draw_unit"), "(Metres)");

    // A drawing that is not fresh keeps its own figures.
    ASSERT_TRUE(LoadSketchFiles(ctx));
    WriteAll(all);
    ASSERT_TRUE(LoadSketchFiles(ctx));
    EXPECT_EQ(sk.GridSize, 2.0f);
    EXPECT_EQ(sk.LevelCeilingHt[2], 12.0f);
}

TEST_F(SketchFiles, OldDrawingWithTenZonesAndNarrowRowsIsUpgraded) {
    std::vector<std::string> old;
    const auto block = LevelBlock(1, 2, 1, 10, {});
    old.insert(old.end(), block.begin(), block.begin() + 16);  // header and zones 1..10
    for (int r = 0; r < 60; ++r) {
        std::string row(48, '0');
        if (r == 0) row.replace(0, 3, "123");  // top row, columns 1..3
        old.push_back(row);
    }
    WriteAll(old);
    auto ctx = Context();
    ASSERT_TRUE(LoadSketchFiles(ctx));

    const auto lines = LevelLines(1);
    ASSERT_EQ(lines.size(), 91u);
    EXPECT_EQ(ZoneLineNumber(lines[30]), 25);
    EXPECT_EQ(ReadZoneLine(lines[30]).name, " Zone 1-25");
    EXPECT_EQ(lines[31].size(), 90u);
    EXPECT_EQ(lines[31].substr(0, 8), "00001230");
    const SketchState& sk = session.model.sketch;
    EXPECT_EQ(sk.SketchGrid[60][4], 0);
    EXPECT_EQ(sk.SketchGrid[60][5], 1);
    EXPECT_EQ(sk.SketchGrid[60][7], 3);
    EXPECT_EQ(screen.ZoneNameText(25), " Zone 1-25");

    // A narrow row of a drawing that has all 25 zone lines moves one column.
    auto narrow = LevelBlock(1, 2, 1, 10, {});
    narrow[31] = "7" + std::string(47, '0');
    WriteAll(narrow);
    ASSERT_TRUE(LoadSketchFiles(ctx));
    EXPECT_EQ(sk.SketchGrid[60][1], 0);
    EXPECT_EQ(sk.SketchGrid[60][2], 7);
    EXPECT_EQ(sk.SketchGrid[60][90], 0);
}

TEST_F(SketchFiles, ShortLastLevelIsPaddedAndAShortLevelFileLeavesRowsAlone) {
    auto all = LevelBlock(1, 2, 1, 10, {"11"});
    auto top = LevelBlock(2, 2, 1, 10, {"P2"});
    top.resize(40);  // the last level stops after nine grid rows
    all.insert(all.end(), top.begin(), top.end());
    WriteAll(all);
    auto ctx = Context();
    ASSERT_TRUE(LoadSketchFiles(ctx));
    EXPECT_EQ(session.model.sketch.TopFloor, 2);
    const auto lines = LevelLines(2);
    ASSERT_EQ(lines.size(), 91u);
    EXPECT_EQ(lines[90], std::string(90, '0'));

    ASSERT_TRUE(ShowLevel(ctx, 2));
    EXPECT_EQ(session.model.sketch.SketchGrid[60][1], 25);  // "P"
    EXPECT_EQ(session.model.sketch.SketchGrid[60][2], 2);

    // A level file that ends early: the rows it doesn't reach stay as they were.
    session.model.sketch.SketchGrid[10][5] = 4;
    auto cut = LevelLines(2);
    cut.resize(35);
    std::string text;
    for (const auto& l : cut) text += l + "\r\n";
    folder.Write("\\sketch\\bld_mtx.i2", text);
    ASSERT_TRUE(ShowLevel(ctx, 2));
    EXPECT_EQ(session.model.sketch.SketchGrid[10][5], 4);
    EXPECT_EQ(session.model.sketch.SketchGrid[60][1], 25);
}

TEST_F(SketchFiles, UnreadableDrawingGivesTheFailurePromptAndKeepsTheFile) {
    folder.Write("\\sketch\\bld_mtx.all", "no level here\r\n");
    auto ctx = Context();
    EXPECT_FALSE(LoadSketchFiles(ctx));
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].text,
              "An error has been encountered. Solvane will now close; restart Solvane and "
              "re-load your project file.");
    EXPECT_EQ(prompt.asked[0].title, "Unknown graphics error number.");
    EXPECT_EQ(ReadLines("\\sketch\\bld_mtx.all")[0], "no level here");

    std::filesystem::remove(session.paths.Resolve(kMatrixAllFile));
    EXPECT_FALSE(LoadSketchFiles(ctx));
    EXPECT_EQ(prompt.asked.size(), 2u);

    // More levels than the rectangle tables hold.
    std::vector<std::string> many;
    for (int level = 1; level <= kMaxLevels + 1; ++level) {
        const auto block = LevelBlock(level, 2, 1, 10, {});
        many.insert(many.end(), block.begin(), block.end());
    }
    WriteAll(many);
    EXPECT_FALSE(LoadSketchFiles(ctx));
    EXPECT_EQ(prompt.asked.size(), 3u);

    // A label place beyond the 16-bit field it is kept in.
    auto block = LevelBlock(1, 2, 1, 10, {"11"});
    block[7].replace(kZoneLabelXColumn - 1, 5, "99999");
    WriteAll(block);
    EXPECT_FALSE(LoadSketchFiles(ctx));
    EXPECT_EQ(prompt.asked.size(), 4u);
    EXPECT_EQ(ReadLines("\\sketch\\bld_mtx.all")[7], block[7]);
}

TEST_F(SketchFiles, ZoneNumberBeyondAnyFigureNamesNoZone) {
    EXPECT_EQ(ZoneLineNumber("ZoneName[1111111111111111111111111111111111111123]: Zone 1-1"), 0);
    auto block = LevelBlock(1, 2, 1, 10, {"11"});
    block[6].replace(9, 2, "1111111111111111111111111111111111111123");
    WriteAll(block);
    auto ctx = Context();
    ASSERT_TRUE(LoadSketchFiles(ctx));
    EXPECT_EQ(session.model.sketch.SketchGrid[60][1], 1);
    EXPECT_TRUE(prompt.asked.empty());
}

TEST_F(SketchFiles, ScanReadsTheCellsBackFromTheCanvas) {
    WriteAll(LevelBlock(1, 2, 2, 10, {}));
    auto ctx = Context();
    ASSERT_TRUE(LoadSketchFiles(ctx));
    SketchState& sk = session.model.sketch;
    for (int i = 1; i <= 60; ++i)
        for (int j = 1; j <= 90; ++j)
            sk.SketchGrid[i][j] = static_cast<std::int16_t>((i * 7 + j) % 26);
    PaintSketchGrid(canvas, sk);
    const auto painted = sk.SketchGrid;
    for (int i = 1; i <= 60; ++i)
        for (int j = 1; j <= 90; ++j) sk.SketchGrid[i][j] = 9;
    ScanLevel(ctx);
    EXPECT_EQ(sk.SketchGrid, painted);

    // A name printed over the upper part of a cell doesn't change what it reads;
    // the grey of the level below reads as empty; an unknown colour is left alone.
    for (auto& row : sk.SketchGrid) row.fill(0);
    for (int j = 1; j <= 10; ++j)
        for (int i = 1; i <= 6; ++i) sk.SketchGrid[i][j] = 3;
    PaintSketchGrid(canvas, sk);
    const Point top = SheetToPixel(canvas, 20, 60);
    canvas.FillBox(top.x, top.y, top.x + 30, top.y + 4, ZoneColor(1));
    SheetFillBox(canvas, 200, 0, 300, 100, kLowerLevelGrey);
    SheetFillBox(canvas, 400, 0, 410, 10, 0x123456);
    sk.SketchGrid[1][41] = 8;
    sk.SketchGrid[1][21] = 5;
    ScanLevel(ctx);
    EXPECT_EQ(sk.SketchGrid[6][3], 3);
    EXPECT_EQ(sk.SketchGrid[1][21], 0);
    EXPECT_EQ(sk.SketchGrid[1][41], 8);
    EXPECT_EQ(screen.ZoneSketchArea[3], 240.0f);  // 60 cells of 2 x 2
    EXPECT_EQ(screen.MatrixHeader[5], 240.0f);
    EXPECT_EQ(screen.MatrixHeader[6], 480.0f);  // two floors
    EXPECT_EQ(session.model.BuildingFloorAreaEntered, 480.0f);
    EXPECT_EQ(screen.fields.Text("BldgArea"), "BldArea= 480");

    // Scanning again doesn't count the level twice. Once the user has clicked
    // the sheet, a zone left with no cells gets its default name back.
    screen.SheetClicked = true;
    screen.ZoneNameBox(5).text = "Gone";
    screen.ZoneLabelX[1][5] = 120;
    ScanLevel(ctx);
    EXPECT_EQ(session.model.BuildingFloorAreaEntered, 480.0f);
    EXPECT_EQ(screen.ZoneNameText(5), " Zone 1-5");
    EXPECT_EQ(screen.ZoneLabelX[1][5], 0);
}

TEST_F(SketchFiles, LevelsSurviveWriteShowAndJoin) {
    auto all = LevelBlock(1, 2, 1, 10, {"1111", "1111"});
    const auto second = LevelBlock(2, 2, 1, 9, {"22"});
    const auto third = LevelBlock(3, 2, 1, 8, {"333"});
    all.insert(all.end(), second.begin(), second.end());
    all.insert(all.end(), third.begin(), third.end());
    WriteAll(all);
    auto ctx = Context();
    ASSERT_TRUE(LoadSketchFiles(ctx));
    EXPECT_EQ(screen.ZoneSketchArea[1], 32.0f);

    // Name a zone, go up a level and back: the name and the cells come back;
    // a zone without cells loses its rectangle.
    screen.ZoneNameBox(1).text = "Lobby";
    screen.ZoneRectRight[1][7] = 300;
    ASSERT_TRUE(WriteLevelFile(ctx));
    EXPECT_EQ(screen.ZoneRectRight[1][7], 0.0f);
    ASSERT_TRUE(ShowLevel(ctx, 2));
    EXPECT_EQ(screen.ZoneNameText(1), " Zone 2-1");
    EXPECT_EQ(session.model.sketch.LevelCeilingHt[2], 9.0f);
    ASSERT_TRUE(ShowLevel(ctx, 1));
    EXPECT_EQ(screen.ZoneNameText(1), "Lobby");
    EXPECT_EQ(session.model.sketch.SketchGrid[59][4], 1);

    ASSERT_TRUE(JoinLevelFiles(session));
    const auto joined = ReadLines("\\sketch\\bld_mtx.all");
    ASSERT_EQ(joined.size(), 3u * 91u);
    EXPECT_EQ(ReadZoneLine(joined[6]).name, "Lobby");
    EXPECT_FALSE(std::filesystem::exists(session.paths.Resolve(kMatrixBakFile)));

    // Removing level 2 leaves levels 1 and 3 as levels 1 and 2.
    ASSERT_TRUE(ShowLevel(ctx, 2));
    ASSERT_TRUE(RemoveLevelFromAll(ctx));
    EXPECT_EQ(session.model.sketch.TopFloor, 2);
    EXPECT_EQ(LevelLines(2)[31].substr(0, 4), "3330");
    EXPECT_EQ(session.model.sketch.LevelCeilingHt[2], 8.0f);
}

}  // namespace
}  // namespace solvane
