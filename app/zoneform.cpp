#include "app/zoneform.h"

#include <QEvent>
#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

#include "app/field_binding.h"
#include "app/field_edits.h"
#include "app/form_helpers.h"
#include "app/zone_dialogs.h"
#include "core/numeric_helpers.h"
#include "propertydb/hvac_catalog.h"
#include "zones/zone_fields.h"

namespace solvane {

namespace {

// The record's boxes with their captions, as the screen shows them.
struct RecordField {
    int field;
    const char* caption;
    const char* unitCaption;  // the label that changes with the units, if any
    bool whole = false;       // the unit label is the whole caption
};
constexpr RecordField kRecord[] = {
    {1, "Zone No.", nullptr},
    {2, "Zone Name", nullptr},
    {3, "Floor Area", nullptr},
    {4, "Internal Mass", "lblMass"},
    {5, "No. of People", nullptr},
    {6, "Occupancy Profile", nullptr},
    {7, "Hot Water", "lblHotWater"},
    {8, "Hot Water Profile", nullptr},
    {9, "Outdoor Air", nullptr},
    {11, "Lighting Type", nullptr},
    {12, "Lighting", "lblLightCost", true},
    {13, "Lighting Power", "lblLightPower"},
    {14, "Lighting Profile", nullptr},
    {15, "Receptacles (W/area)", nullptr},
    {16, "Receptacle Profile", nullptr},
    {17, "Fan Profile", nullptr},
    {18, "Cooling Thermostat", nullptr},
    {19, "Heating Thermostat", nullptr},
    {20, "HVAC System", nullptr},
    {21, "Heating Type", nullptr},
    {22, "Natural Ventilation", "lblNatVent", true},
    {23, "Infiltration (ACH)", nullptr},
    {24, "Daylighting Depth", "lblDayDepth", true},
    {25, "Daylighting Target", "lblDayTarget", true},
    {26, "Fan Static Pressure", nullptr},
    {27, "Cooling Efficiency", "lblCool", true},
    {28, "Heating Efficiency", nullptr},
    {29, "HVAC 1st Cost", nullptr},
    {30, "HVAC Maint. Cost", nullptr},
};

constexpr const char* kSurfaceCaption[kSurfaceColumns] = {
    "Wall ID", "Area",  "Orient.", "Exposure", "Shading (L F/T R)", "Window ID",  "Window Area",
    "Slope",   "S/W/B", "Blind",   "Diffuse",  "Sill Ht.",          "Window Ht.", "Grnd Refl."};
constexpr int kSurfaceWidth[kSurfaceColumns] = {70, 55, 45, 65, 110, 45, 60,
                                                40, 40, 35, 45, 45,  45, 45};
const char* const kDirection[] = {"North", "East", "South", "West", "Skylight"};

int FieldOf(const QString& name) {
    const auto [base, index] = SplitFieldName(name.toStdString());
    return base == "zone" ? index : 0;
}

}  // namespace

void ShowScreenFields(QWidget* screen, const ScreenFields& fields) {
    ApplyFields(screen, fields);
    for (const auto& [name, state] : fields.All()) {
        auto* edit = screen->findChild<QLineEdit*>(QString::fromStdString(name));
        if (!edit) continue;
        const QString style = state.color == kRed ? QStringLiteral("color: #ff0000;") : QString();
        if (edit->styleSheet() != style) edit->setStyleSheet(style);
    }
}

void NoDefaultButtons(QWidget* screen) {
    for (auto* button : screen->findChildren<QPushButton*>()) {
        button->setAutoDefault(false);
        button->setDefault(false);
    }
}

// ---- zonename ---------------------------------------------------------------------------

ZoneNameScreen::ZoneNameScreen(ZoneListController& list, std::function<void(int)> open,
                               std::function<void()> back, QWidget* parent)
    : QDialog(parent), list_(list), open_(std::move(open)), back_(std::move(back)) {
    setObjectName("zonename");
    auto* layout = new QVBoxLayout(this);
    auto* heads = new QHBoxLayout;
    for (const char* name : {"builname", "builloc"}) {
        auto* label = new QLabel;
        label->setObjectName(name);
        heads->addWidget(label);
    }
    layout->addLayout(heads);
    grid_ = new QTableWidget(0, 3);
    grid_->setObjectName("MSFlexGrid1");
    grid_->setHorizontalHeaderLabels({"Zone Number", "Zone Name", "Zone Sequence"});
    grid_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid_->setSelectionMode(QAbstractItemView::SingleSelection);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->verticalHeader()->hide();
    connect(grid_, &QTableWidget::cellDoubleClicked, this,
            [this](int row, int) { open_(row + 1); });
    layout->addWidget(grid_);
    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "OK", "Open Zone"), &QPushButton::clicked, this,
            [this] { open_(grid_->currentRow() + 1); });
    connect(AddButton(buttons, "back", "Return to Main Menu"), &QPushButton::clicked, this,
            [this] { back_(); });
    layout->addLayout(buttons);
    resize(560, 480);
}

void ZoneNameScreen::Refresh() {
    list_.Fill();
    ApplyFields(this, list_.fields);
    int rows = 0;
    while (rows < kMaxZones && !list_.fields.At("ZoneNumber", rows + 1).text.empty()) ++rows;
    grid_->setRowCount(rows);
    for (int r = 1; r <= rows; ++r) {
        const char* columns[] = {"ZoneNumber", "ZoneName", "ZoneSeq"};
        for (int c = 0; c < 3; ++c)
            grid_->setItem(
                r - 1, c,
                new QTableWidgetItem(QString::fromStdString(list_.fields.At(columns[c], r).text)));
    }
    if (rows > 0 && grid_->currentRow() < 0) grid_->selectRow(0);
}

void ZoneNameScreen::reject() {
    back_();
}

// ---- the bundle -----------------------------------------------------------------------------

ZoneScreens::ZoneScreens(Session& session, Prompt& prompt,
                         std::function<void(const Navigation&)> navigate, QWidget* hub)
    : listController_(session, prompt),
      formController_(session, prompt),
      copyController_(session, prompt, formController_),
      profileController_(session, prompt, formController_),
      temperatureController_(session, prompt, formController_),
      ventilationController_(session, prompt, formController_),
      pickerController_(session, prompt, formController_) {
    list_ = std::make_unique<ZoneNameScreen>(
        listController_,
        [this](int row) {
            if (!listController_.Pick(row)) return;
            if (form_->ShowZone(listController_.PickedZone)) list_->hide();
        },
        [this, navigate] {
            if (!listController_.Back()) return;
            list_->hide();
            navigate({Screen::MainMenu, false, false});
        },
        hub);
    form_ = std::make_unique<ZoneFormScreen>(
        session, formController_, copyController_, profileController_, temperatureController_,
        ventilationController_, pickerController_,
        [this] {
            list_->Refresh();
            list_->show();
            list_->raise();
        },
        hub);
}

ZoneScreens::~ZoneScreens() = default;

void ZoneScreens::Open() {
    list_->Refresh();
    list_->show();
    list_->raise();
    list_->activateWindow();
}

// ---- zoneform ---------------------------------------------------------------------------------

ZoneFormScreen::ZoneFormScreen(Session& session, ZoneFormController& form,
                               CopyToZonesController& copy, ProfileScreenController& profile,
                               TemperatureController& temperature,
                               VentilationRateController& ventilation,
                               CatalogPickerController& picker, std::function<void()> backToList,
                               QWidget* parent)
    : QDialog(parent),
      session_(session),
      form_(form),
      copy_(copy),
      profile_(profile),
      temperature_(temperature),
      ventilation_(ventilation),
      picker_(picker),
      backToList_(std::move(backToList)) {
    setObjectName("zoneform");
    auto* layout = new QVBoxLayout(this);
    auto* bar = new QMenuBar;
    BuildMenus(bar);
    layout->setMenuBar(bar);
    auto* heads = new QHBoxLayout;
    for (const char* name : {"builname", "builtype", "builloc"}) {
        auto* label = new QLabel;
        label->setObjectName(name);
        heads->addWidget(label);
    }
    layout->addLayout(heads);
    layout->addWidget(BuildRecord());
    auto* middle = new QHBoxLayout;
    middle->addWidget(BuildSurfaces(), 1);
    middle->addWidget(BuildElevations());
    layout->addLayout(middle);

    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "okey", "OK"), &QPushButton::clicked, this, [this] {
        if (busy_) return;
        if (form_.Ok()) {
            hide();
            backToList_();
        }
        ShowFields();
    });
    connect(AddButton(buttons, "Undo", "Undo"), &QPushButton::clicked, this, [this] {
        form_.Undo();
        ShowFields();
    });
    connect(AddButton(buttons, "Cancel", "Cancel"), &QPushButton::clicked, this,
            [this] { reject(); });
    connect(AddButton(buttons, "copyzone_1", "Copy windows to zones..."), &QPushButton::clicked,
            this, [this] {
                if (copy_.Open(kCopyWindows)) copyDialog_->Open();
                ShowFields();
            });
    connect(AddButton(buttons, "copyzone_2", "Copy new data to zones..."), &QPushButton::clicked,
            this, [this] {
                if (copy_.Open(kCopyFields)) copyDialog_->Open();
                ShowFields();
            });
    connect(AddButton(buttons, "copyall_1", "Copy windows to all zones"), &QPushButton::clicked,
            this, [this] {
                copy_.CopyAll(kCopyWindows);
                ShowFields();
            });
    connect(AddButton(buttons, "copyall_2", "Copy new data to all zones"), &QPushButton::clicked,
            this, [this] {
                copy_.CopyAll(kCopyFields);
                ShowFields();
            });
    layout->addLayout(buttons);

    profileDialog_ = new ProfileDialog(
        profile_, [this] { ShowFields(); }, this);
    temperatureDialog_ = new TemperatureDialog(
        temperature_, [this] { ShowFields(); }, this);
    ventilationDialog_ = new VentilationDialog(ventilation_, this);
    copyDialog_ = new CopyToZoneDialog(copy_, this);
    pickerDialog_ = new WallWinDialog(
        picker_, [this] { ShowFields(); }, this);
    NoDefaultButtons(this);
}

void ZoneFormScreen::BuildMenus(QMenuBar* bar) {
    QMenu* profile = bar->addMenu("&Profiles");
    profile->setObjectName("profile");
    const char* profiles[] = {"Occupancy",        "Hot Water",          "Lights",
                              "Receptacles",      "Fans / Ventilation", "Summer Thermostat",
                              "Winter Thermostat"};
    for (int i = 1; i <= kProfileTypes; ++i)
        profile->addAction(profiles[i - 1], this,
                           [this, i] { OpenProfile(form_.ChooseProfile(i)); });
    profile->addSeparator();
    profile->addAction("Thermostat profiles of the zone...", this, [this] {
        temperatureDialog_->Open(static_cast<int>(NumVal(form_.fields.At("zone", 18).text)));
    });

    QMenu* light = bar->addMenu("&Lighting");
    light->setObjectName("light");
    for (int t = 1; t <= kLampTypes; ++t)
        light->addAction(QString("%1. %2").arg(t).arg(LampTypeName(t)), this, [this, t] {
            form_.ChooseLighting(t);
            ShowFields();
        });

    QMenu* ac = bar->addMenu("&HVAC");
    ac->setObjectName("ac");
    connect(ac, &QMenu::aboutToShow, this, [this, ac] {
        ac->clear();
        for (int s = 1; s <= kHvacSystems; ++s) {
            const std::string& name = session_.model.hvac.HvacCatalog[s].Des;
            ac->addAction(QString("%1. %2").arg(s).arg(QString::fromStdString(name)), this,
                          [this, s] {
                              form_.ChooseSystem(s);
                              ShowFields();
                          });
        }
    });

    QMenu* heat = bar->addMenu("H&eating");
    heat->setObjectName("heat");
    const char* heats[] = {"1. Gas / fossil", "2. Electric", "3. Heat pump"};
    for (int i = 1; i <= 3; ++i)
        heat->addAction(heats[i - 1], this, [this, i] {
            form_.ChooseHeating(i);
            ShowFields();
        });

    QMenu* exposure = bar->addMenu("E&xposure");
    exposure->setObjectName("ExtSurface");
    const char* exposures[] = {"1 Asphalt", "2 Concrete",   "3 Grass",     "4 Trees",
                               "5 Water",   "6 Sky (roof)", "7 Slab edge", "76 Below grade"};
    for (int i = 0; i <= 7; ++i)
        exposure->addAction(exposures[i], this, [this, i] {
            form_.surfaces.ChooseExposure(exposureBox_, i);
            ShowFields();
        });

    QMenu* help = bar->addMenu("&Help");
    help->addAction("Daylighting", this, [this] { form_.DaylightingHelp(); });
}

QWidget* ZoneFormScreen::BuildRecord() {
    auto* box = new QWidget;
    auto* grid = new QGridLayout(box);
    grid->setSpacing(3);
    auto* edits = new FieldEdits(
        form_.fields,
        [this](const std::string& name, int key) {
            const int f = FieldOf(QString::fromStdString(name));
            if (key == 8 || key == 9 || key == 13) return key;
            return form_.FieldKey(f) ? key : 0;
        },
        this,
        [this](const std::string& name, const std::string& text) {
            form_.EditField(FieldOf(QString::fromStdString(name)), text);
        });
    int i = 0;
    for (const RecordField& r : kRecord) {
        const int row = (i % 8) * 1, column = (i / 8) * 2;
        auto* label = new QLabel(r.caption);
        if (r.unitCaption && r.whole) {
            label->setObjectName(r.unitCaption);
            grid->addWidget(label, row, column);
        } else if (r.unitCaption) {
            label->setObjectName(QString(r.unitCaption) + "_caption");
            auto* unit = new QLabel;
            unit->setObjectName(r.unitCaption);
            auto* pair = new QHBoxLayout;
            pair->addWidget(label);
            pair->addWidget(unit);
            grid->addLayout(pair, row, column);
        } else {
            grid->addWidget(label, row, column);
        }
        QLineEdit* edit =
            AddEdit(grid, row, column + 1, QString("zone_%1").arg(r.field), edits, 90);
        edit->installEventFilter(this);
        captions_[edit] = label;
        ++i;
    }
    // The switches: a click flips Yes and No.
    auto* switches = new QHBoxLayout;
    const std::pair<const char*, const char*> names[] = {{"natvent", "Natural ventilation:"},
                                                         {"Econcycle", "Economiser:"},
                                                         {"dayt", "Daylighting:"}};
    for (const auto& [name, caption] : names) {
        switches->addWidget(new QLabel(caption));
        auto* button = new QPushButton;
        button->setObjectName(name);
        button->setFlat(true);
        button->setStyleSheet("text-decoration: underline; color: #0000c0;");
        switches->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, n = std::string(name)] {
            if (n == "natvent") form_.ToggleNatVent();
            if (n == "Econcycle") form_.ToggleEconomiser();
            if (n == "dayt") form_.ToggleDaylight();
            ShowFields();
        });
    }
    grid->addLayout(switches, 8, 0, 1, 8);
    return box;
}

QWidget* ZoneFormScreen::BuildSurfaces() {
    auto* box = new QWidget;
    auto* outer = new QHBoxLayout(box);
    auto* grid = new QGridLayout;
    grid->setSpacing(1);
    auto* edits = new FieldEdits(
        form_.fields,
        [this](const std::string& name, int key) {
            const auto [column, index] = SplitFieldName(name);
            if (column == "surf") exposureBox_ = index;
            char c = static_cast<char>(key);
            return form_.SurfaceKey(column, c) ? static_cast<unsigned char>(c) : 0;
        },
        this,
        [this](const std::string& name, const std::string& text) {
            const auto [column, index] = SplitFieldName(name);
            form_.EditSurface(column, index, text);
        });
    for (int c = 0; c < kSurfaceColumns; ++c) {
        auto* caption = new QLabel(kSurfaceCaption[c]);
        caption->setWordWrap(true);
        if (c == kColWallArea) caption->setObjectName("lblWallArea");
        if (c == kColWinArea) caption->setObjectName("lblGlassArea");
        if (c == kColSill) caption->setObjectName("lblSill");
        grid->addWidget(caption, 0, c);
        for (int r = 1; r <= kShownRows; ++r) {
            QLineEdit* edit = AddEdit(grid, r, c, QString("%1_%2").arg(kSurfaceColumn[c]).arg(r),
                                      edits, kSurfaceWidth[c]);
            edit->installEventFilter(this);
            connect(edit, &QLineEdit::editingFinished, this, [this, c, r] {
                if (busy_) return;
                busy_ = true;
                form_.LeaveSurface(kSurfaceColumn[c], r);
                busy_ = false;
                ShowFields();
            });
        }
    }
    outer->addLayout(grid);
    auto* scroll = new QScrollBar(Qt::Vertical);
    scroll->setObjectName("envscroll");
    scroll->setRange(0, kMaxSurfaces - kShownRows);
    connect(scroll, &QScrollBar::valueChanged, this, [this](int top) {
        form_.ScrollSurfaces(top);
        ShowFields();
    });
    outer->addWidget(scroll);
    return box;
}

QWidget* ZoneFormScreen::BuildElevations() {
    auto* box = new QWidget;
    auto* grid = new QGridLayout(box);
    grid->addWidget(new QLabel("Side"), 0, 0);
    grid->addWidget(new QLabel("Window\nfraction"), 0, 1);
    grid->addWidget(new QLabel("Overhang\nPF"), 0, 2);
    for (int d = 0; d <= 4; ++d) {
        grid->addWidget(new QLabel(kDirection[d]), d + 1, 0);
        auto* area = AddEdit(grid, d + 1, 1, QString("ElevArea_%1").arg(d), nullptr, 55);
        connect(area, &QLineEdit::editingFinished, this, [this, d, area] {
            if (busy_ || !area->isModified()) return;
            busy_ = true;
            area->setModified(false);
            form_.fields.At("ElevArea", d).text = area->text().toStdString();
            form_.ElevationFraction(d, area->text().toStdString());
            busy_ = false;
            ShowFields();
        });
        if (d == 4) continue;
        auto* pf = AddEdit(grid, d + 1, 2, QString("ElevPF_%1").arg(d), nullptr, 55);
        connect(pf, &QLineEdit::editingFinished, this, [this, d, pf] {
            if (busy_ || !pf->isModified()) return;
            busy_ = true;
            pf->setModified(false);
            form_.fields.At("ElevPF", d).text = pf->text().toStdString();
            form_.ElevationPF(d, pf->text().toStdString());
            busy_ = false;
            ShowFields();
        });
    }
    grid->setRowStretch(6, 1);
    return box;
}

bool ZoneFormScreen::ShowZone(int zone) {
    if (!form_.ShowZone(zone)) return false;
    if (auto* scroll = findChild<QScrollBar*>("envscroll")) scroll->setValue(0);
    ShowFields();
    show();
    raise();
    activateWindow();
    return true;
}

void ZoneFormScreen::ShowFields() {
    ShowScreenFields(this, form_.fields);
    // A box hidden with its switch takes its caption with it.
    for (const auto& [edit, label] : captions_) label->setVisible(!edit->isHidden());
}

void ZoneFormScreen::OpenProfile(int type) {
    if (type < 1) return;
    profile_.Open(type);
    profileDialog_->Open();
}

void ZoneFormScreen::OpenPicker(int kind, int box) {
    if (!picker_.Open(kind, box)) return;
    pickerDialog_->Open();
}

bool ZoneFormScreen::eventFilter(QObject* watched, QEvent* event) {
    auto* edit = qobject_cast<QLineEdit*>(watched);
    if (!edit) return QDialog::eventFilter(watched, event);
    const QString name = edit->objectName();
    const int field = FieldOf(name);
    if (event->type() == QEvent::MouseButtonDblClick && field == 0) {
        const auto [column, index] = SplitFieldName(name.toStdString());
        if (column == "wallid") OpenPicker(1, index);
        if (column == "windowid") OpenPicker(2, index);
        return true;
    }
    if (field == 0) return QDialog::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        const bool byUser = reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
                            reason == Qt::BacktabFocusReason;
        const int type = form_.EnterField(field);
        if (byUser && type > 0) OpenProfile(type);
        if (byUser && field == 9) {
            ventilation_.Open();
            ventilationDialog_->Open();
            ShowFields();
        }
    } else if (event->type() == QEvent::FocusOut && !busy_) {
        busy_ = true;
        form_.LeaveField(field);
        busy_ = false;
        ShowFields();
    }
    return QDialog::eventFilter(watched, event);
}

void ZoneFormScreen::reject() {
    form_.Cancel();
    ShowFields();
    hide();
    backToList_();
}

}  // namespace solvane
