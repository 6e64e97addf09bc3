#include "app/projectinfo.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/field_binding.h"
#include "app/field_edits.h"
#include "app/form_helpers.h"

namespace solvane {

namespace {
constexpr const char* kCaptions[] = {
    "Building Type:", "Project Name:",      "Project Description:", "Location:",
    "Design Stage:",  "Scheme Number:",     "Construction Year:",   "Orientation (deg.):",
    "Floor Area:",    "Construction Cost:", "Occupied Days/Week:",  "Annual Holidays:",
    "Climate Zone:",  "Energy Code:"};
}  // namespace

ProjectInfoScreen::ProjectInfoScreen(ProjectInfoController& controller,
                                     std::function<void(const Navigation&)> navigate,
                                     QWidget* parent)
    : QDialog(parent), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("projectinfo");
    auto* edits = new FieldEdits(
        controller_.fields,
        [this](const std::string& field, int key) {
            return controller_.KeyPress(SplitFieldName(field).second) ? key : 0;
        },
        this,
        [this](const std::string& field, const std::string& text) {
            controller_.Change(SplitFieldName(field).second, text);
        });
    auto* layout = new QVBoxLayout(this);

    auto* building = new QToolButton;
    building->setObjectName("buildingmenu");
    building->setText("Building Type  ▾");
    building->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(building);
    menu->setObjectName("building");
    for (int i = 1; i <= kBuildingTypes; ++i) {
        QAction* a = menu->addAction(QString::number(i));
        a->setObjectName(QString("building_%1").arg(i));
        connect(a, &QAction::triggered, this, [this, i] {
            controller_.SelectBuildingType(i);
            ShowFields();
        });
    }
    building->setMenu(menu);
    layout->addWidget(building, 0, Qt::AlignLeft);

    auto* grid = new QGridLayout;
    for (int i = 0; i <= 13; ++i) {
        grid->addWidget(new QLabel(kCaptions[i]), i, 0);
        // Year, orientation, floor area, cost, days and holidays are numbers.
        const bool number = i >= 6 && i <= 11;
        QLineEdit* e = AddEdit(grid, i, 1, QString("projectid_%1").arg(i), edits, 0, number);
        e->setMinimumWidth(360);
        if (i == 0 || i == 13) e->setReadOnly(true);
    }
    AddLabel(grid, 8, 2, "areaunit");
    AddLabel(grid, 9, 2, "costunit");
    layout->addLayout(grid);

    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "getweather", "Weather Data..."), &QPushButton::clicked, this,
            [this] { Act(controller_.GetWeather()); });
    connect(AddButton(buttons, "undobutton", "Undo"), &QPushButton::clicked, this, [this] {
        controller_.UndoProject();
        ShowFields();
    });
    connect(AddButton(buttons, "OK", "OK"), &QPushButton::clicked, this,
            [this] { Act(controller_.AcceptProject()); });
    connect(AddButton(buttons, "Cancel", "Cancel"), &QPushButton::clicked, this,
            [this] { Act(controller_.CancelProject()); });
    layout->addLayout(buttons);
    EscapeIsCancel(this);

    auto* timer = new QTimer(this);
    timer->setObjectName("Timer1");
    timer->setInterval(1000);
    connect(timer, &QTimer::timeout, this, [this] {
        controller_.TimerTick();
        ShowFields();
    });
    timer->start();
}

void ProjectInfoScreen::Open() {
    controller_.Open();
    ShowFields();
    show();
    raise();
}

void ProjectInfoScreen::ShowFields() {
    ApplyFields(this, controller_.fields);
}

void ProjectInfoScreen::Act(Navigation nav) {
    ShowFields();
    if (nav.show != Screen::None || nav.endProgram) hide();
    navigate_(nav);
}

}  // namespace solvane
