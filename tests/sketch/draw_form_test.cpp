// The sketch screen's controller driven by pointer events on an in-memory
// canvas, with the drawing files in a throw-away program folder.
#include "sketch/draw_form.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/text_file.h"
#include "sketch/matrix_file.h"
#include "tests/propertydb/program_folder.h"
#include "ui/raster_canvas.h"
#include "ui/scripted_prompt.h"

namespace solvane {
namespace {

class DrawFormTest : public ::testing::Test {
  protected:
    DrawFormTest() {
        session_.paths = folder_.Paths();
        session_.model.session.Units = 1;
        std::filesystem::copy_file(session_.paths.Resolve(kMatrixTemplateFile),
                                   session_.paths.Resolve(kMatrixAllFile),
                                   std::filesystem::copy_options::overwrite_existing);
        form_ = std::make_unique<DrawFormController>(session_, canvas_, prompt_);
        EXPECT_TRUE(form_->Load());
    }

    void Drag(double x1, double y1, double x2, double y2) {
        form_->MouseDown(x1, y1, MouseButton::Left);
        form_->MouseMove((x1 + x2) / 2, (y1 + y2) / 2, true);
        form_->MouseMove(x2, y2, true);
        form_->MouseUp(x2, y2, MouseButton::Left);
    }
    // A click on the zone's box in the legend column.
    void PickZone(int zone) {
        form_->MouseDown(-93, 600 - 24 * (zone - 1) - 12, MouseButton::Left);
    }
    int Cell(int row, int column) const { return session_.model.sketch.SketchGrid[row][column]; }
    float Area(int zone) const { return form_->screen.ZoneSketchArea[zone]; }
    int CountCells(int zone) const {
        int n = 0;
        for (int i = 1; i <= 60; ++i)
            for (int j = 1; j <= 90; ++j) n += Cell(i, j) == zone;
        return n;
    }
    std::string Text(const char* field) const { return form_->fields.Text(field); }

    testing::ProgramFolder folder_;
    Session session_;
    RasterCanvas canvas_{1000, 600};
    ScriptedPrompt prompt_;
    std::unique_ptr<DrawFormController> form_;
};

TEST_F(DrawFormTest, BoxesSnapToTheGridAndBecomeCells) {
    EXPECT_EQ(Text("Level"), "Level= 1");
    EXPECT_EQ(Text("gridsize"), "2");
    form_->MouseDown(12, 18, MouseButton::Left);
    EXPECT_EQ(Text("Coordinates_1"), "Dim: 0., 0.");
    form_->MouseMove(98, 61, true);
    EXPECT_EQ(Text("Coordinates_0"), "X,Y=20,12");  // node (100, 60) at 0.2 ft a unit
    EXPECT_EQ(Text("Coordinates_1"), "Dim: >18, ^8");
    EXPECT_TRUE(form_->band().active);
    form_->MouseUp(98, 61, MouseButton::Left);
    EXPECT_FALSE(form_->band().active);

    // Nodes (10, 20) to (100, 60): rows 3..6, columns 2..10, 36 cells of 4 ft2.
    EXPECT_EQ(CountCells(1), 36);
    EXPECT_EQ(Cell(3, 2), 1);
    EXPECT_EQ(Cell(6, 10), 1);
    EXPECT_EQ(Cell(2, 2), 0);
    EXPECT_EQ(Cell(3, 11), 0);
    EXPECT_EQ(Area(1), 144);
    EXPECT_EQ(Text("zone_area"), "Zn area= 144");
    EXPECT_EQ(Text("BldgArea"), "BldArea= 144");
    EXPECT_EQ(form_->screen.ZoneRectLeft[1][1], 10);
    EXPECT_EQ(form_->screen.ZoneRectTop[1][1], 60);
    EXPECT_EQ(form_->screen.ZoneLabelY[1][1], 40);  // the middle row of the box
    EXPECT_NE(form_->screen.ZoneLabelX[1][1], 0);

    // A second zone drawn over part of the first takes those cells.
    PickZone(2);
    EXPECT_EQ(form_->SelectedZone(), 2);
    Drag(50, 40, 150, 100);
    EXPECT_EQ(Cell(5, 6), 2);
    EXPECT_EQ(Cell(4, 6), 1);
    EXPECT_EQ(CountCells(2), 60);
    EXPECT_EQ(CountCells(1), 36 - 10);
    EXPECT_EQ(Area(1), 26 * 4);

    // A click or a box under 5 by 5 units draws nothing.
    Drag(300, 300, 303, 303);
    Drag(400, 300, 400, 300);
    EXPECT_EQ(CountCells(2), 60);
}

TEST_F(DrawFormTest, ErasingAWholeZoneOrPartOfOne) {
    Drag(100, 100, 200, 200);  // zone 1: 100 cells
    PickZone(3);
    Drag(300, 100, 400, 200);  // zone 3: 100 cells

    // A box that holds zone 1 entirely removes it without a word.
    prompt_.Queue(Answer::Ok);
    form_->BoxButton();
    EXPECT_TRUE(form_->erasing());
    Drag(90, 90, 210, 210);
    EXPECT_FALSE(form_->erasing());
    EXPECT_EQ(CountCells(1), 0);
    EXPECT_EQ(form_->screen.ZoneLabelX[1][1], 0);
    EXPECT_EQ(prompt_.asked.size(), 1u);  // only the erase box's own question

    // Half of zone 3: the rest stays and the user is told.
    prompt_.Queue(Answer::Ok);
    form_->BoxButton();
    Drag(350, 90, 410, 210);
    ASSERT_EQ(prompt_.asked.size(), 3u);
    EXPECT_EQ(prompt_.asked[2].title, "Total zone area not removed.");
    EXPECT_EQ(prompt_.asked[2].text.rfind("It appears that you have removed only a portion", 0),
              0u);
    EXPECT_EQ(CountCells(3), 50);
    EXPECT_EQ(Area(3), 200);
    EXPECT_EQ(Cell(11, 35), 3);
    EXPECT_EQ(Cell(11, 36), 0);

    // Cancel leaves the box tool drawing.
    prompt_.Queue(Answer::Cancel);
    form_->BoxButton();
    EXPECT_FALSE(form_->erasing());
}

TEST_F(DrawFormTest, CellPaintAddsAndClearsSingleCellsAndRuns) {
    form_->UseTool(Tool::Matrix);
    form_->MouseDown(15, 15, MouseButton::Left);  // cell (2, 2)
    form_->MouseUp(15, 15, MouseButton::Left);
    EXPECT_EQ(Cell(2, 2), 1);
    EXPECT_EQ(Area(1), 4);
    // A drag paints a run; passing over painted cells keeps them.
    form_->MouseDown(15, 25, MouseButton::Left);
    for (double x = 15; x <= 65; x += 5) form_->MouseMove(x, 25, true);
    form_->MouseUp(65, 25, MouseButton::Left);
    EXPECT_EQ(CountCells(1), 7);
    // A click on a painted cell clears it.
    form_->MouseDown(35, 25, MouseButton::Left);
    form_->MouseUp(35, 25, MouseButton::Left);
    EXPECT_EQ(Cell(3, 4), 0);
    EXPECT_EQ(CountCells(1), 6);
    EXPECT_EQ(Area(1), 24);
}

TEST_F(DrawFormTest, FloorsPerLevelAndNewLevelsCopiedFromBelow) {
    Drag(100, 100, 200, 200);  // 100 cells, 400 ft2
    form_->NameEdited(1, "Lobby");

    // Level 1 keeps one floor.
    form_->FloorsEdited("2");
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].title, "Floors per level stipulation.");
    EXPECT_EQ(Text("num_floors"), "1");
    EXPECT_EQ(session_.model.sketch.LevelFloors[1], 1);

    // Going up past the top adds a level that starts as a copy of level 1.
    prompt_.Queue(Answer::Yes);
    form_->LevelUp();
    EXPECT_EQ(prompt_.asked.back().title, "Maximum Levels Exceeded");
    const SketchState& sk = session_.model.sketch;
    EXPECT_EQ(sk.TopFloor, 2);
    EXPECT_EQ(sk.CurrentLevel, 2);
    EXPECT_EQ(Text("Level"), "Level= 2");
    EXPECT_EQ(CountCells(1), 100);
    EXPECT_EQ(Text("znname_0"), "Lobby");
    EXPECT_EQ(sk.LevelFloors[2], 1);
    EXPECT_EQ(session_.model.BuildingFloorAreaEntered, 800);
    EXPECT_EQ(sk.Stories, 2);

    // Two floors on level 2 double its areas.
    form_->FloorsEdited("2");
    EXPECT_EQ(sk.LevelFloors[2], 2);
    EXPECT_EQ(Area(1), 800);
    EXPECT_EQ(sk.Stories, 3);
    EXPECT_EQ(session_.model.BuildingFloorAreaEntered, 1200);
    EXPECT_EQ(Text("BldgArea"), "BldArea= 1200");

    // With two floors, erasing the level only advises.
    const std::size_t asked = prompt_.asked.size();
    form_->EraseDrawing();
    ASSERT_EQ(prompt_.asked.size(), asked + 1);
    EXPECT_EQ(prompt_.asked.back().title, "Simply revise number of floors at this level.");
    EXPECT_EQ(CountCells(1), 100);

    // Down and up again: each level keeps what it holds.
    form_->LevelDown();
    EXPECT_EQ(sk.CurrentLevel, 1);
    EXPECT_EQ(sk.LevelFloors[1], 1);
    form_->LevelDown();
    EXPECT_EQ(sk.CurrentLevel, 1);
    form_->LevelUp();
    EXPECT_EQ(sk.CurrentLevel, 2);
    EXPECT_EQ(Text("num_floors"), "2");
    // No to another level stays on the top one.
    prompt_.Queue(Answer::No);
    form_->LevelUp();
    EXPECT_EQ(sk.CurrentLevel, 2);
    EXPECT_EQ(sk.TopFloor, 2);
}

TEST_F(DrawFormTest, ErasingALevelRemovesItOrClearsItsDrawing) {
    Drag(100, 100, 200, 200);
    prompt_.Queue(Answer::Yes);
    form_->LevelUp();
    PickZone(2);
    Drag(300, 300, 400, 400);
    const SketchState& sk = session_.model.sketch;

    // No: the drawing of level 2 goes, the level stays.
    prompt_.Queue(Answer::Yes);
    prompt_.Queue(Answer::No);
    form_->EraseDrawing();
    EXPECT_EQ(prompt_.asked.back().title,
              "Remove this Floor?  Building Height would be Reduced by one story!");
    EXPECT_EQ(sk.TopFloor, 2);
    EXPECT_EQ(sk.CurrentLevel, 2);
    EXPECT_EQ(CountCells(1) + CountCells(2), 0);
    EXPECT_EQ(session_.model.BuildingFloorAreaEntered, 400);

    // Yes: the level goes and the drawing is loaded again at level 1.
    Drag(300, 300, 400, 400);
    prompt_.Queue(Answer::Yes);
    prompt_.Queue(Answer::Yes);
    form_->EraseDrawing();
    EXPECT_EQ(sk.TopFloor, 1);
    EXPECT_EQ(sk.CurrentLevel, 1);
    EXPECT_EQ(CountCells(1), 100);
    EXPECT_EQ(session_.model.BuildingFloorAreaEntered, 400);

    // The only level is cleared, not removed; No to the first question keeps it.
    prompt_.Queue(Answer::No);
    form_->EraseDrawing();
    EXPECT_EQ(CountCells(1), 100);
    prompt_.Queue(Answer::Yes);
    prompt_.Queue(Answer::Yes);
    form_->EraseDrawing();
    EXPECT_EQ(sk.TopFloor, 1);
    EXPECT_EQ(CountCells(1), 0);
    EXPECT_EQ(session_.model.BuildingFloorAreaEntered, 0);
}

TEST_F(DrawFormTest, AnUpperLevelShowsTheLevelBelowInGreyReadAsEmpty) {
    Drag(100, 100, 200, 200);
    prompt_.Queue(Answer::Yes);
    form_->LevelUp();
    prompt_.Queue(Answer::Ok);
    form_->BoxButton();
    Drag(90, 90, 210, 210);
    EXPECT_EQ(CountCells(1), 0);
    const Point p = SheetToPixel(canvas_, 155, 152.5);
    EXPECT_EQ(canvas_.ColorAt(p.x, p.y), kLowerLevelGrey);
    EXPECT_EQ(session_.model.BuildingFloorAreaEntered, 400);
}

TEST_F(DrawFormTest, GridSizeChangesEveryAreaOnLevelOneOnly) {
    Drag(100, 100, 200, 200);
    EXPECT_EQ(Area(1), 400);
    EXPECT_TRUE(form_->GridSizeFocus());
    form_->GridSizeEdited("4");
    form_->GridSizeLeave();
    EXPECT_EQ(session_.model.sketch.GridSize, 4);
    EXPECT_FLOAT_EQ(session_.model.sketch.DrawingScale, 0.4f);
    EXPECT_EQ(Area(1), 1600);
    EXPECT_EQ(session_.model.BuildingFloorAreaEntered, 1600);
    EXPECT_EQ(CountCells(1), 100);  // the same cells
    // A text ending in a point is still being typed.
    form_->GridSizeEdited("3.");
    form_->GridSizeLeave();
    EXPECT_EQ(session_.model.sketch.GridSize, 4);

    prompt_.Queue(Answer::Yes);
    form_->LevelUp();
    EXPECT_FALSE(form_->GridSizeFocus());
    EXPECT_EQ(prompt_.asked.back().text, "Grid size change can only be made from first level");
    EXPECT_EQ(prompt_.asked.back().title, "Grid Size Change");
}

TEST_F(DrawFormTest, DrawingScaleAndRotation) {
    prompt_.QueueInput("300");  // 300 ft over 90 columns: 3.33, taken up to 3.5
    form_->DrawingScale();
    EXPECT_EQ(session_.model.sketch.GridSize, 3.5f);
    EXPECT_EQ(Text("gridsize"), "3.5");
    prompt_.QueueInput(std::nullopt);
    form_->DrawingScale();
    EXPECT_EQ(session_.model.sketch.GridSize, 3.5f);

    const std::size_t asked = prompt_.asked.size();
    form_->RotationFocus();
    EXPECT_EQ(prompt_.asked.size(), asked);  // level 1: no word
    form_->RotationEdited("2a70");
    form_->RotationLeave();
    EXPECT_EQ(session_.model.sketch.Rotation, 270);
    EXPECT_EQ(Text("Rotation"), "270");
    EXPECT_EQ(form_->FacingIndex, 3);

    // A turn made on level 2 holds for the building when level 1 shows again.
    prompt_.Queue(Answer::Yes);
    form_->LevelUp();
    form_->RotationFocus();
    EXPECT_EQ(prompt_.asked.back().title, "Rotation Change");
    form_->RotationEdited("30");
    form_->RotationLeave();
    form_->LevelDown();
    EXPECT_EQ(session_.model.sketch.CurrentLevel, 1);
    EXPECT_EQ(session_.model.sketch.Rotation, 30);
    EXPECT_EQ(Text("Rotation"), "30");
}

TEST_F(DrawFormTest, ExitDerivesZonesOnlyWhenConfirmed) {
    // Nothing drawn: told, and OK leaves without a sketch.
    prompt_.Queue(Answer::Cancel);
    EXPECT_EQ(form_->Exit().show, Screen::None);
    EXPECT_EQ(prompt_.asked.back().title, "Building plan not drawn.");
    prompt_.Queue(Answer::Ok);
    EXPECT_EQ(form_->Exit().show, Screen::MainMenu);
    EXPECT_EQ(session_.model.zones.NumZones, 0);

    Drag(100, 100, 200, 200);
    prompt_.Queue(Answer::No);
    EXPECT_EQ(form_->Exit().show, Screen::None);
    EXPECT_EQ(prompt_.asked.back().title, "Window Save Alert!");
    EXPECT_EQ(session_.model.zones.NumZones, 0);
    prompt_.Queue(Answer::Yes);
    const Navigation nav = form_->Exit();
    EXPECT_EQ(nav.show, Screen::MainMenu);
    ASSERT_EQ(session_.model.zones.NumZones, 1);
    EXPECT_EQ(session_.model.zones.ZoneName[1], " Zone 1-1");
    EXPECT_EQ(session_.model.zones.ZoneFloorArea[1], 400);
    EXPECT_EQ(session_.model.flags.ReSketched, 1);
    EXPECT_FALSE(session_.mainmenu.Enabled("executerun"));
    // The level was written and joined into the stored drawing.
    const auto all = ReadTextFile(session_.paths.Resolve(kMatrixAllFile));
    ASSERT_TRUE(all);
    EXPECT_EQ(SplitLines(*all)[31 + 60 - 11].substr(10, 10), "1111111111");
}

TEST_F(DrawFormTest, FinishAndSavedDrawingsLeaveTheStoredDrawingAlone) {
    const auto before = ReadTextFile(session_.paths.Resolve(kMatrixAllFile));
    Drag(100, 100, 200, 200);
    const auto saved = folder_.Dir() / "mine.wri";
    EXPECT_TRUE(form_->SaveDrawing(saved.string()));
    EXPECT_EQ(ReadTextFile(session_.paths.Resolve(kMatrixAllFile)), before);

    prompt_.Queue(Answer::Cancel);
    EXPECT_EQ(form_->Finish().show, Screen::None);
    prompt_.Queue(Answer::Ok);
    EXPECT_EQ(form_->Finish().show, Screen::MainMenu);
    EXPECT_EQ(ReadTextFile(session_.paths.Resolve(kMatrixAllFile)), before);

    // The saved drawing loads back with its cells.
    ASSERT_TRUE(form_->Load());
    EXPECT_EQ(CountCells(1), 0);
    ASSERT_TRUE(form_->LoadDrawing(saved.string()));
    EXPECT_EQ(CountCells(1), 100);
    EXPECT_FALSE(form_->LoadDrawing((folder_.Dir() / "missing.wri").string()));
    EXPECT_EQ(prompt_.asked.back().title, "Open Drawing");
}

TEST_F(DrawFormTest, TheSceneOfThe3DViewHoldsEachLevelsRectangles) {
    Drag(100, 100, 200, 200);
    PickZone(2);
    Drag(200, 100, 300, 150);
    prompt_.Queue(Answer::Yes);
    form_->LevelUp();
    form_->CeilingEdited("1x2");
    EXPECT_EQ(Text("ceiling_ht"), "12");
    const IsoScene scene = form_->Scene();
    ASSERT_EQ(scene.levelHeight.size(), 2u);
    EXPECT_EQ(scene.levelHeight[0], 10);
    EXPECT_EQ(scene.levelHeight[1], 12);
    ASSERT_EQ(scene.zones.size(), 4u);
    EXPECT_EQ(scene.zones[1].level, 1);
    EXPECT_EQ(scene.zones[1].zone, 2);
    EXPECT_EQ(scene.zones[1].rect.left, 200);
    EXPECT_EQ(scene.zones[1].rect.bottom, 100);
    EXPECT_EQ(scene.zones[3].level, 2);
    EXPECT_FLOAT_EQ(scene.drawingScale, 0.2f);
}

}  // namespace
}  // namespace solvane
