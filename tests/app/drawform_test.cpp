// The sketch screen offscreen: opened from the hub, drawn on with simulated
// mouse events, and its 3D view.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <filesystem>

#include "app/app_shell.h"
#include "app/canvas_view.h"
#include "app/drawform.h"
#include "app/image_canvas.h"
#include "app/isometric.h"
#include "app/mainform.h"
#include "app/mainmenu.h"
#include "app/picture_output.h"
#include "app/winareasel.h"
#include "sketch/sheet_drawing.h"
#include "tests/app/app_fixture.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

class DrawFormScreenTest : public test::AppFixture {
  protected:
    void SetUp() override {
        AppFixture::SetUp();
        Begin();
        // Code, weather and project information done: the sketch task opens.
        auto& done = shell_->session().model.flags.TaskDone;
        done[1] = done[2] = done[6] = 1;
        shell_->mainmenu()->Activate();
    }

    DrawFormScreen* OpenSketch() {
        auto* task = shell_->mainmenu()->findChild<QAbstractButton*>("buildingsketch");
        EXPECT_TRUE(task->isEnabled());
        task->click();
        DrawFormScreen* form = shell_->drawForm();
        EXPECT_TRUE(form->isVisible());
        EXPECT_FALSE(shell_->mainmenu()->isVisible());
        QApplication::processEvents();
        return form;
    }
    // The widget point of a sheet point.
    static QPoint At(DrawFormScreen* form, double x, double y) {
        QApplication::processEvents();  // pending layout changes first
        return form->view()->ToWidget(QPointF(x + 100, 600 - y)).toPoint();
    }
    static void Drag(DrawFormScreen* form, double x1, double y1, double x2, double y2) {
        CanvasView* v = form->view();
        QTest::mousePress(v, Qt::LeftButton, {}, At(form, x1, y1));
        QTest::mouseMove(v, At(form, (x1 + x2) / 2, (y1 + y2) / 2));
        QTest::mouseMove(v, At(form, x2, y2));
        QTest::mouseRelease(v, Qt::LeftButton, {}, At(form, x2, y2));
    }
    int Cell(int row, int column) { return shell_->session().model.sketch.SketchGrid[row][column]; }
    int CountCells(int zone) {
        int n = 0;
        for (int i = 1; i <= 60; ++i)
            for (int j = 1; j <= 90; ++j) n += Cell(i, j) == zone;
        return n;
    }
};

TEST_F(DrawFormScreenTest, MouseStrokesDrawZonesIntoTheMatrix) {
    DrawFormScreen* form = OpenSketch();
    EXPECT_EQ(Find<QLabel>(form, "Level")->text(), "Level= 1");
    EXPECT_EQ(Find<QLineEdit>(form, "gridsize")->text(), "2");
    EXPECT_EQ(Find<QLineEdit>(form, "znname_0")->text(), " Zone 1-1");

    // Zone 1: nodes (100, 100) to (300, 200), 20 by 10 cells.
    Drag(form, 102, 101, 298, 199);
    EXPECT_EQ(CountCells(1), 200);
    EXPECT_EQ(Cell(11, 11), 1);
    EXPECT_EQ(Cell(20, 30), 1);
    EXPECT_EQ(Cell(21, 30), 0);
    EXPECT_EQ(Find<QLabel>(form, "zone_area")->text(), "Zn area= 800");
    // The picture holds the zone's colour where its cells are.
    const QImage& image = form->canvas().image();
    const int s = form->canvas().pixelsPerUnit();
    EXPECT_EQ(image.pixel((100 + 155) * s, (600 - 152) * s) & 0xFFFFFF, ZoneColor(1));

    // Zone 2 by its name box, drawn beside zone 1.
    QWidget* name2 = Find<QLineEdit>(form, "znname_1");
    name2->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(form->controller().SelectedZone(), 2);
    Find<QLineEdit>(form, "znname_1")->selectAll();
    QTest::keyClicks(name2, "Kitchen");
    Drag(form, 300, 100, 400, 150);
    EXPECT_EQ(CountCells(2), 50);
    EXPECT_EQ(form->controller().screen.ZoneNameText(2), "Kitchen");

    // The pointer tells the cell under it and takes the tool's shape.
    QTest::mouseMove(form->view(), At(form, 312, 108));
    EXPECT_EQ(Find<QLabel>(form, "CellInfo")->text().toStdString(),
              "Level 1, row 11, column 32: zone 2 (Kitchen)");
    EXPECT_EQ(form->view()->cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(Find<QLabel>(form, "Coordinates_0")->text().toStdString(), "X,Y=62,22");

    // Erase part of zone 1 with the erase box: the rest stays, the user is told.
    prompt_.Queue(Answer::Ok);
    Find<QAbstractButton>(form, "boxbutton")->click();
    QTest::mouseMove(form->view(), At(form, 150, 150));
    EXPECT_EQ(form->view()->cursor().shape(), Qt::BitmapCursor);
    Drag(form, 200, 90, 310, 210);
    EXPECT_EQ(prompt_.asked.back().title, "Total zone area not removed.");
    EXPECT_EQ(CountCells(1), 100);
    EXPECT_EQ(CountCells(2), 45);
    EXPECT_EQ(Find<QLabel>(form, "BldgArea")->text(), "BldArea= 580");
}

TEST_F(DrawFormScreenTest, NamesPrintedOnTheSheetDoNotChangeTheCellsRead) {
    DrawFormScreen* form = OpenSketch();
    // Descenders and capitals in a long name, on boxes of every height.
    auto* name = Find<QLineEdit>(form, "znname_0");
    name->selectAll();
    QTest::keyClicks(name, "Gypsy Jpq Query yyy");
    for (int rows = 1; rows <= 4; ++rows) {
        const double x = 20 + 100 * (rows - 1);
        Drag(form, x, 100, x + 90, 100 + 10 * rows);
    }
    EXPECT_EQ(CountCells(1), 9 * (1 + 2 + 3 + 4));
    Find<QAbstractButton>(form, "Refresh_grid")->click();
    EXPECT_EQ(CountCells(1), 9 * (1 + 2 + 3 + 4));
}

TEST_F(DrawFormScreenTest, FloorsOnLevelsOneAndTwoAndThe3DView) {
    DrawFormScreen* form = OpenSketch();
    Drag(form, 100, 100, 300, 300);
    auto* floors = Find<QLineEdit>(form, "num_floors");
    floors->selectAll();
    QTest::keyClicks(floors, "2");
    EXPECT_EQ(prompt_.asked.back().title, "Floors per level stipulation.");
    EXPECT_EQ(floors->text(), "1");

    prompt_.Queue(Answer::Yes);  // another level
    Find<QAbstractButton>(form, "LevUp")->click();
    EXPECT_EQ(Find<QLabel>(form, "Level")->text(), "Level= 2");
    EXPECT_EQ(CountCells(1), 400);
    floors->selectAll();
    QTest::keyClicks(floors, "x3");  // digits only
    EXPECT_EQ(floors->text(), "3");
    EXPECT_EQ(shell_->session().model.sketch.LevelFloors[2], 3);
    EXPECT_EQ(Find<QLabel>(form, "BldgArea")->text(), "BldArea= 6400");

    Find<QAbstractButton>(form, "View3D")->click();
    IsometricScreen* iso = form->isometric();
    ASSERT_TRUE(iso->isVisible());
    for (int button = 0; button < 4; ++button) {
        auto* corner = Find<QAbstractButton>(iso, ("View_" + std::to_string(button)).c_str());
        corner->click();
        EXPECT_TRUE(corner->isChecked());
        int zoneColour = 0;
        const QImage& image = iso->canvas().image();
        for (int y = 0; y < image.height(); y += 2)
            for (int x = 0; x < image.width(); x += 2)
                zoneColour += (image.pixel(x, y) & 0xFFFFFF) == ZoneColor(1);
        EXPECT_GT(zoneColour, 500) << button;
    }
    EXPECT_EQ(Find<QLineEdit>(iso, "ZRotation")->text(), "315");
    Find<QAbstractButton>(iso, "Close3D")->click();
    EXPECT_FALSE(iso->isVisible());
}

TEST_F(DrawFormScreenTest, TheCloseBoxAsksAndDoneReturnsToTheHub) {
    DrawFormScreen* form = OpenSketch();
    prompt_.Queue(Answer::Cancel);
    form->close();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(prompt_.asked.back().title, "Warning - Drawing update will not occur");

    prompt_.Queue(Answer::Ok);  // nothing drawn: back to the main menu
    Find<QAbstractButton>(form, "Exit")->click();
    EXPECT_EQ(prompt_.asked.back().title, "Building plan not drawn.");
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(shell_->mainmenu()->isVisible());
}

TEST_F(DrawFormScreenTest, WindowSizerOpensFromTheSketchAndKeepsItsFigures) {
    DrawFormScreen* form = OpenSketch();
    auto& model = shell_->session().model;
    model.flags.WindowSizerFresh = 1;
    Find<QAbstractButton>(form, "WinSizer")->click();
    QDialog* sizer = form->windowSizer();
    ASSERT_TRUE(sizer->isVisible());
    EXPECT_EQ(Find<QLineEdit>(sizer, "WinAr_0")->text(), "40");
    EXPECT_EQ(Find<QLabel>(sizer, "ElevName_4")->text(), "Skylight");

    auto* pf = Find<QLineEdit>(sizer, "PF1_1");
    pf->selectAll();
    QTest::keyClicks(pf, "a.7");  // letters are refused
    EXPECT_EQ(pf->text(), ".7");
    QFocusEvent out(QEvent::FocusOut);
    QApplication::sendEvent(pf, &out);
    EXPECT_FLOAT_EQ(model.sizer.PFFirstWork[1], 0.7f);
    auto* south = Find<QLineEdit>(sizer, "WinAr_2");
    south->selectAll();
    QTest::keyClicks(south, "35");

    prompt_.Queue(Answer::Ok);
    Find<QAbstractButton>(sizer, "SaveExit")->click();
    EXPECT_FALSE(sizer->isVisible());
    EXPECT_EQ(model.sizer.WindowSizerApplied, 1);
    EXPECT_EQ(model.sizer.WindowPercent[2], 35);
    EXPECT_FLOAT_EQ(model.sizer.OverhangFirst[7][1], 0.7f);

    // Escape is Cancel: the sizer is out of force, the saved figures stay.
    Find<QAbstractButton>(form, "WinSizer")->click();
    EXPECT_EQ(Find<QLineEdit>(sizer, "WinAr_2")->text(), "35");
    QTest::keyClick(sizer, Qt::Key_Escape);
    EXPECT_FALSE(sizer->isVisible());
    EXPECT_EQ(model.sizer.WindowSizerApplied, 0);
    EXPECT_EQ(model.sizer.WindowPercent[2], 35);
}

TEST_F(DrawFormScreenTest, TheSheetIsSavedAsAPictureAndPrintedToPdf) {
    DrawFormScreen* form = OpenSketch();
    Drag(form, 100, 100, 400, 300);
    const QImage& sheet = form->canvas().image();
    const QString jpg = QString::fromStdString((root_ / "sheet.jpg").string());
    ASSERT_TRUE(WriteJpeg(sheet, jpg));
    const QImage back(jpg);
    EXPECT_EQ(back.width(), sheet.width());
    EXPECT_EQ(back.height(), sheet.height());
    // Zone 1 is black; JPEG keeps it close.
    const int s = form->canvas().pixelsPerUnit();
    EXPECT_LT(qGray(back.pixel((100 + 250) * s, (600 - 205) * s)), 40);
    EXPECT_GT(qGray(back.pixel((100 + 600) * s, (600 - 505) * s)), 200);

    const QString pdf = QString::fromStdString((root_ / "sheet.pdf").string());
    ASSERT_TRUE(WritePdf(sheet, pdf, "Building Sketch"));
    QFile file(pdf);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.read(5).startsWith("%PDF-"));
    EXPECT_FALSE(WriteJpeg(sheet, QString::fromStdString((root_ / "no" / "x.jpg").string())));
}

TEST(ImageCanvas, ReadsBackWhatWasDrawnAtTwoPixelsAUnit) {
    ImageCanvas canvas(100, 50, 2);
    EXPECT_EQ(canvas.image().width(), 200);
    EXPECT_EQ(canvas.image().deviceIndependentSize().toSize(), QSize(100, 50));
    canvas.FillBox(19, 19, 10, 10, 0xFF0000);
    EXPECT_EQ(canvas.ColorAt(10, 10), 0xFF0000u);
    EXPECT_EQ(canvas.ColorAt(19, 19), 0xFF0000u);
    EXPECT_EQ(canvas.ColorAt(20, 19), 0xFFFFFFu);
    // Every device pixel of a unit has its colour.
    EXPECT_EQ(canvas.image().pixel(39, 39) & 0xFFFFFF, 0xFF0000u);
    canvas.Line(0, 30, 99, 30, 0x0000FF);
    EXPECT_EQ(canvas.ColorAt(0, 30), 0x0000FFu);
    EXPECT_EQ(canvas.ColorAt(99, 30), 0x0000FFu);
    EXPECT_EQ(canvas.ColorAt(50, 31), 0xFFFFFFu);
    EXPECT_EQ(canvas.ColorAt(100, 0), 0xFFFFFFFFu);  // outside

    // Text keeps to its band: descenders never reach the rows below it.
    canvas.Clear(0xFFFFFF);
    canvas.Text(0, 40, "gjpqy Gypsy", 5, 0x000000);
    int inked = 0;
    for (int x = 0; x < 100; ++x) {
        for (int y = 40; y < 47; ++y) inked += canvas.ColorAt(x, y) != 0xFFFFFF;
        EXPECT_EQ(canvas.ColorAt(x, 47), 0xFFFFFFu) << x;
    }
    EXPECT_GT(inked, 20);
}

}  // namespace
}  // namespace solvane
