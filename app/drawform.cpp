#include "app/drawform.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/canvas_view.h"
#include "app/field_binding.h"
#include "app/field_edits.h"
#include "app/form_helpers.h"
#include "app/help_viewer.h"
#include "app/isometric.h"
#include "app/picture_output.h"
#include "app/winareasel.h"

namespace solvane {

namespace {

QString Hex(Color c) {
    return QString::asprintf("#%06x", static_cast<unsigned>(c & 0xFFFFFF));
}

// A zone's name box takes the zone when it gets the focus.
class NameFocusFilter : public QObject {
  public:
    NameFocusFilter(std::function<void(int)> onFocus, QObject* parent)
        : QObject(parent), onFocus_(std::move(onFocus)) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusIn) {
            const auto [name, index] = SplitFieldName(watched->objectName().toStdString());
            if (name == "znname" && index >= 0) onFocus_(index + 1);
        }
        return false;
    }

  private:
    std::function<void(int)> onFocus_;
};

// The eraser: a white square with a dark edge.
QCursor EraseCursor() {
    QPixmap pm(16, 16);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setPen(Qt::black);
    p.setBrush(Qt::white);
    p.drawRect(2, 2, 11, 11);
    p.drawLine(2, 13, 13, 2);
    return QCursor(pm, 2, 13);
}

}  // namespace

DrawFormScreen::DrawFormScreen(
    Session& session, Prompt& prompt,
    std::function<std::unique_ptr<DrawFormController>(Canvas&)> makeController,
    std::function<void(const Navigation&)> navigate)
    : session_(session),
      prompt_(prompt),
      navigate_(std::move(navigate)),
      canvas_(kCanvasWidth, kCanvasHeight, ScreenPixelsPerUnit()) {
    setObjectName("DrawForm");
    setWindowTitle("Building Sketch");
    controller_ = makeController(canvas_);
    edits_ = new FieldEdits(
        controller_->fields,
        [this](const std::string& field, int key) {
            return controller_->KeyAllowed(field, key) ? key : 0;
        },
        this,
        [this](const std::string& field, const std::string& text) {
            const auto [name, index] = SplitFieldName(field);
            if (name == "znname") controller_->NameEdited(index + 1, text);
            if (field == "num_floors") controller_->FloorsEdited(text);
            if (field == "ceiling_ht") controller_->CeilingEdited(text);
            if (field == "gridsize") controller_->GridSizeEdited(text);
            if (field == "Rotation") controller_->RotationEdited(text);
            ShowFields();
        });

    BuildMenus();
    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);
    layout->addWidget(BuildTools());
    auto* middle = new QHBoxLayout;
    view_ = new CanvasView(canvas_);
    view_->setObjectName("Picture1");
    middle->addWidget(view_, 1);
    middle->addWidget(BuildSidePanel());
    layout->addLayout(middle, 1);
    layout->addWidget(BuildNames());
    setCentralWidget(central);

    auto* coords = new QLabel;
    coords->setObjectName("Coordinates_0");
    coords->setMinimumWidth(150);
    auto* dims = new QLabel;
    dims->setObjectName("Coordinates_1");
    dims->setMinimumWidth(150);
    cellInfo_ = new QLabel;
    cellInfo_->setObjectName("CellInfo");
    statusBar()->addWidget(coords);
    statusBar()->addWidget(dims);
    statusBar()->addWidget(cellInfo_, 1);
    ConnectCanvas();

    isometric_ = new IsometricScreen(prompt_, QDir::homePath(), this);
    sizerController_ = std::make_unique<WindowSizerController>(session_, prompt_);
    sizer_ = new WinAreaSelScreen(*sizerController_, this);
    resize(1280, 900);
}

DrawFormScreen::~DrawFormScreen() = default;

void DrawFormScreen::BuildMenus() {
    QMenu* file = menuBar()->addMenu("&File");
    file->setObjectName("filemenu");
    const auto add = [&](QMenu* menu, const char* name, const char* text) {
        QAction* a = menu->addAction(text);
        a->setObjectName(name);
        return a;
    };
    connect(add(file, "LoadItem", "&Open Drawing..."), &QAction::triggered, this,
            [this] { LoadItem(); });
    connect(add(file, "SaveItem", "&Save Drawing..."), &QAction::triggered, this,
            [this] { SaveItem(); });
    connect(add(file, "PrintItem", "&Print..."), &QAction::triggered, this, [this] {
        PrintPicture(this, canvas_.image(), QDir::homePath(), "Building Sketch", prompt_);
    });
    file->addSeparator();
    connect(add(file, "DoneSketch", "&Done: Derive Zones"), &QAction::triggered, this,
            [this] { Act(controller_->Exit()); });
    connect(add(file, "ToItem", "&Cancel Drawing"), &QAction::triggered, this,
            [this] { Act(controller_->Finish()); });

    QMenu* edit = menuBar()->addMenu("&Edit");
    connect(add(edit, "Erase_area", "Erase &Area..."), &QAction::triggered, this,
            [this] { Do([this] { controller_->EraseArea(); }); });
    connect(add(edit, "Refresh_grid_menu", "&Cleanup"), &QAction::triggered, this,
            [this] { Do([this] { controller_->RefreshGrid(); }); });

    QMenu* help = menuBar()->addMenu("&Help");
    connect(add(help, "tutorial", "&Tutorial"), &QAction::triggered, this, [this] {
        if (!help_) help_ = new HelpViewer(session_.paths, this);
        help_->ShowFile("\\Helpinfo\\Help20-10.txt");
    });
    connect(add(help, "Issues", "Drawing &Tips"), &QAction::triggered, this,
            [this] { controller_->Issues(); });
    connect(add(help, "Comply189", "&189.1 Window Alert"), &QAction::triggered, this,
            [this] { controller_->Comply189(); });
}

QWidget* DrawFormScreen::BuildTools() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    const auto button = [&](const char* name, const char* text, const char* tip,
                            std::function<void()> action) {
        QPushButton* b = AddButton(row, name, text);
        b->setToolTip(tip);
        connect(b, &QPushButton::clicked, this, [this, action] { Do(action); });
        return b;
    };
    DrawFormController& c = *controller_;
    button("DrawBox", "Rectangle", "Draw zones as rectangles", [&c] { c.UseTool(Tool::Box); });
    button("MatrixButton", "Cell Paint", "Add or clear single cells of the selected zone",
           [&c] { c.UseTool(Tool::Matrix); });
    auto* guides = new QToolButton;
    guides->setObjectName("Guidelines");
    guides->setText("Guides ▾");
    guides->setToolTip("Guide lines and circles: drawing aids that are not part of any zone");
    guides->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(guides);
    const std::pair<const char*, Tool> kinds[] = {
        {"Guide Line", Tool::Line}, {"Guide Circle", Tool::Circle}, {"Free Line", Tool::Free}};
    for (const auto& [text, tool] : kinds)
        connect(menu->addAction(text), &QAction::triggered, this,
                [this, tool = tool] { Do([this, tool] { controller_->UseTool(tool); }); });
    guides->setMenu(menu);
    row->addWidget(guides);
    button("boxbutton", "Erase Box", "Erase the cells inside a box you draw",
           [&c] { c.BoxButton(); });
    button("erase_dwg", "Erase Level", "Erase the drawing of this level, or remove the level",
           [&c] { c.EraseDrawing(); });
    button("Redraw", "Redraw", "Draw the level again from its cells", [&c] { c.Redraw(); });
    button("Refresh_grid", "Cleanup", "Repaint the sheet with one name a zone",
           [&c] { c.RefreshGrid(); });
    button("Dwg_Scale", "Drawing Scale", "Set the grid from the width of the sheet",
           [&c] { c.DrawingScale(); });
    row->addStretch(1);
    connect(AddButton(row, "WinSizer", "Window Sizer"), &QPushButton::clicked, this,
            [this] { sizer_->Open(); });
    connect(AddButton(row, "View3D", "3D View"), &QPushButton::clicked, this,
            [this] { OpenView3D(); });
    return bar;
}

QWidget* DrawFormScreen::BuildSidePanel() {
    auto* panel = new QWidget;
    panel->setMaximumWidth(230);
    auto* col = new QVBoxLayout(panel);
    col->setContentsMargins(0, 0, 0, 0);

    auto* levelBox = new QGroupBox("Level");
    auto* lv = new QGridLayout(levelBox);
    AddLabel(lv, 0, 0, "Level");
    auto* up = new QPushButton("Level Up ▲");
    up->setObjectName("LevUp");
    auto* down = new QPushButton("Level Down ▼");
    down->setObjectName("LevDn");
    lv->addWidget(up, 1, 0);
    lv->addWidget(down, 1, 1);
    connect(up, &QPushButton::clicked, this, [this] { Do([this] { controller_->LevelUp(); }); });
    connect(down, &QPushButton::clicked, this,
            [this] { Do([this] { controller_->LevelDown(); }); });
    lv->addWidget(new QLabel("No. of Floors:"), 2, 0);
    AddEdit(lv, 2, 1, "num_floors", edits_, 70);
    lv->addWidget(new QLabel("Room Height:"), 3, 0);
    AddEdit(lv, 3, 1, "ceiling_ht", edits_, 70);
    col->addWidget(levelBox);

    auto* bldg = new QGroupBox("Building");
    auto* bv = new QGridLayout(bldg);
    bv->addWidget(new QLabel("Grid Size:"), 0, 0);
    QLineEdit* grid = AddEdit(bv, 0, 1, "gridsize", edits_, 70);
    AddLabel(bv, 1, 1, "draw_unit");
    bv->addWidget(new QLabel("Rotation (deg.):"), 2, 0);
    QLineEdit* rotation = AddEdit(bv, 2, 1, "Rotation", edits_, 70);
    AddLabel(bv, 3, 0, "Stories");
    AddLabel(bv, 4, 0, "BldgArea");
    AddLabel(bv, 5, 0, "zone_area");
    auto* selected = new QLabel;
    selected->setObjectName("SelectedZone");
    selected->setWordWrap(true);
    bv->addWidget(selected, 6, 0, 1, 2);
    col->addWidget(bldg);
    col->addStretch(1);

    // Leaving these boxes applies them; the grid size may be refused on entry.
    struct LeaveFilter : QObject {
        std::function<void(QEvent::Type)> on;
        bool eventFilter(QObject*, QEvent* e) override {
            if (e->type() == QEvent::FocusIn || e->type() == QEvent::FocusOut) on(e->type());
            return false;
        }
    };
    auto* gridFilter = new LeaveFilter;
    gridFilter->setParent(this);
    gridFilter->on = [this, grid](QEvent::Type t) {
        if (t == QEvent::FocusIn) {
            grid->setReadOnly(!controller_->GridSizeFocus());
        } else {
            controller_->GridSizeLeave();
        }
        ShowFields();
    };
    grid->installEventFilter(gridFilter);
    auto* rotationFilter = new LeaveFilter;
    rotationFilter->setParent(this);
    rotationFilter->on = [this](QEvent::Type t) {
        if (t == QEvent::FocusIn)
            controller_->RotationFocus();
        else
            controller_->RotationLeave();
        ShowFields();
    };
    rotation->installEventFilter(rotationFilter);

    auto* done = new QPushButton("Done");
    done->setObjectName("Exit");
    done->setToolTip("Derive the zones from the drawing and return to the main menu");
    connect(done, &QPushButton::clicked, this, [this] { Act(controller_->Exit()); });
    auto* cancel = new QPushButton("Cancel Drawing");
    cancel->setObjectName("finish");
    cancel->setToolTip("Return to the main menu with the drawing as it was");
    connect(cancel, &QPushButton::clicked, this, [this] { Act(controller_->Finish()); });
    col->addWidget(done);
    col->addWidget(cancel);
    return panel;
}

QWidget* DrawFormScreen::BuildNames() {
    auto* box = new QGroupBox("Zone Names");
    auto* grid = new QGridLayout(box);
    grid->setVerticalSpacing(2);
    auto* focus = new NameFocusFilter(
        [this](int zone) { Do([this, zone] { controller_->NameFocus(zone); }); }, this);
    for (int i = 0; i < 25; ++i) {
        QLineEdit* e = AddEdit(grid, i / 5, i % 5, QString("znname_%1").arg(i), edits_);
        e->setMaxLength(20);
        e->setStyleSheet("QLineEdit { border: 1px solid #a0a0a0; border-left: 14px solid " +
                         Hex(controller_->ZoneColorOf(i + 1)) + "; padding: 1px 2px; }");
        e->installEventFilter(focus);
    }
    return box;
}

void DrawFormScreen::ConnectCanvas() {
    const auto sheet = [](QPointF c) { return QPointF(SheetX(c.x()), SheetY(c.y())); };
    const auto button = [](Qt::MouseButton b) {
        return b == Qt::RightButton  ? MouseButton::Right
               : b == Qt::LeftButton ? MouseButton::Left
                                     : MouseButton::Middle;
    };
    connect(view_, &CanvasView::pressed, this, [=, this](QPointF at, Qt::MouseButton b) {
        const QPointF s = sheet(at);
        controller_->MouseDown(s.x(), s.y(), button(b));
        ShowFields();
    });
    connect(view_, &CanvasView::moved, this, [=, this](QPointF at, Qt::MouseButtons buttons) {
        const QPointF s = sheet(at);
        controller_->MouseMove(s.x(), s.y(), buttons & Qt::LeftButton);
        view_->setCursor([&] {
            switch (controller_->Pointer(s.x(), s.y())) {
                case PointerShape::Cross:
                    return QCursor(Qt::CrossCursor);
                case PointerShape::Paint:
                    return QCursor(Qt::PointingHandCursor);
                case PointerShape::Erase:
                    return EraseCursor();
                case PointerShape::Arrow:
                    break;
            }
            return QCursor(Qt::ArrowCursor);
        }());
        ShowFields();
    });
    connect(view_, &CanvasView::released, this, [=, this](QPointF at, Qt::MouseButton b) {
        const QPointF s = sheet(at);
        controller_->MouseUp(s.x(), s.y(), button(b));
        ShowFields();
    });
    connect(view_, &CanvasView::left, this, [this] {
        controller_->PointerLeft();
        ShowFields();
    });
    view_->SetOverlay([this](QPainter& p) { PaintBand(p); });
}

void DrawFormScreen::PaintBand(QPainter& p) const {
    const RubberBand& b = controller_->band();
    if (!b.active) return;
    QPen pen(b.erase ? QColor(200, 0, 0) : QColor(0, 0, 0));
    pen.setStyle(Qt::DashLine);
    pen.setCosmetic(true);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    const QPointF a(b.x1 + 100, kCanvasHeight - b.y1), z(b.x2 + 100, kCanvasHeight - b.y2);
    switch (b.tool) {
        case Tool::Box:
            p.drawRect(QRectF(a, z).normalized());
            break;
        case Tool::Line:
        case Tool::Free:
            p.drawLine(a, z);
            break;
        case Tool::Circle: {
            const double r = std::hypot(z.x() - a.x(), z.y() - a.y());
            p.drawEllipse(a, r, r);
            break;
        }
        case Tool::Matrix:
            break;
    }
}

void DrawFormScreen::Open() {
    if (!controller_->Load()) {
        // The drawing could not be read (the user was told): back to the hub.
        navigate_({Screen::MainMenu, true, false});
        return;
    }
    ShowFields();
    show();
    raise();
    activateWindow();
}

void DrawFormScreen::ShowFields() {
    ApplyFields(this, controller_->fields);
    cellInfo_->setText(QString::fromStdString(controller_->fields.Text("CellInfo")));
    view_->update();
}

void DrawFormScreen::Do(const std::function<void()>& action) {
    action();
    ShowFields();
}

void DrawFormScreen::Act(const Navigation& nav) {
    ShowFields();
    if (nav.show == Screen::None && !nav.endProgram) return;
    isometric_->hide();
    sizer_->hide();
    hide();
    navigate_(nav);
}

void DrawFormScreen::closeEvent(QCloseEvent* event) {
    // The close box is Cancel Drawing: asked, and refused if not confirmed.
    event->ignore();
    Act(controller_->Finish());
}

void DrawFormScreen::OpenView3D() {
    isometric_->Open(controller_->Scene(),
                     QString::fromStdString(session_.model.ProjectData[kProjName]).trimmed());
}

void DrawFormScreen::LoadItem() {
    const QString file = QFileDialog::getOpenFileName(this, "Open Drawing", QDir::homePath(),
                                                      "Drawings (*.wri);;All files (*)");
    if (file.isEmpty()) return;
    controller_->LoadDrawing(file.toStdString());
    ShowFields();
}

void DrawFormScreen::SaveItem() {
    QStringList options = {"Picture of the sheet (JPEG)", "Drawing (to open again later)"};
    bool ok = false;
    const QString choice =
        QInputDialog::getItem(this, "Save Drawing", "Save as:", options, 0, false, &ok);
    if (!ok) return;
    QString name = QString::fromStdString(session_.model.ProjectData[kProjName]).trimmed();
    if (name.isEmpty()) name = "building";
    if (choice == options[0]) {
        SavePictureAs(this, canvas_.image(), QDir::homePath(), name + ".jpg", prompt_);
        return;
    }
    QString file = QFileDialog::getSaveFileName(
        this, "Save Drawing", QDir::homePath() + "/" + name + ".wri", "Drawings (*.wri)");
    if (file.isEmpty()) return;
    if (!file.endsWith(".wri", Qt::CaseInsensitive)) file += ".wri";
    controller_->SaveDrawing(file.toStdString());
}

}  // namespace solvane
