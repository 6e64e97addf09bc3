#include "app/economics.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/field_binding.h"
#include "app/field_edits.h"
#include "app/form_helpers.h"
#include "core/text_file.h"

namespace solvane {

namespace {
// Cell, caption, row and column of the economics grid.
struct Cell {
    int index;
    const char* caption;
    int row, column;
};
constexpr Cell kCells[] = {
    {0, " Economic Life     :", 0, 0},
    {1, " Mech. System Life:", 1, 0},
    {2, " Solar System Life :", 2, 0},
    {3, " Discount Rate     :", 3, 0},
    {4, " Building Cost          Escalation          :", 4, 0},
    {5, " Electric:", 0, 3},
    {6, "Escalation", 0, 6},
    {7, " Gas:", 1, 3},
    {8, "Escalation", 1, 6},
    {9, " Water :", 2, 3},
    {10, "Escalation", 2, 6},
};
}  // namespace

DemandChargeScreen::DemandChargeScreen(DemandChargeController& controller, QWidget* parent)
    : QDialog(parent), controller_(controller) {
    setObjectName("Demandcharge");
    setWindowTitle("Demand Charge");
    setModal(true);
    auto* edits = new FieldEdits(controller_.fields, {}, this);
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel("KW Increment"), 0, 0);
    grid->addWidget(new QLabel("Cost ($)"), 0, 1);
    for (int i = 1; i <= kDemandSteps; ++i) {
        AddEdit(grid, i, 0, QString("demandtext_%1").arg(i), edits, 100, true);
        AddEdit(grid, i, 1, QString("charge_%1").arg(i), edits, 100, true);
    }
    layout->addLayout(grid);
    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "loadfile", "Load Schedule..."), &QPushButton::clicked, this,
            [this] {
                const QString file = QFileDialog::getOpenFileName(this, "Demand charge schedule");
                if (file.isEmpty()) return;
                if (const auto text = ReadTextFile(file.toStdString())) {
                    controller_.LoadSchedule(*text);
                    ApplyFields(this, controller_.fields);
                }
            });
    connect(AddButton(buttons, "back", "Back"), &QPushButton::clicked, this, [this] {
        controller_.Back();
        accept();
    });
    layout->addLayout(buttons);
}

void DemandChargeScreen::Open() {
    controller_.Open();
    ApplyFields(this, controller_.fields);
    exec();
}

EconomicsScreen::EconomicsScreen(EconomicsController& controller, DemandChargeController& demand,
                                 std::function<void(const Navigation&)> navigate, QWidget* parent)
    : QDialog(parent), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("Economicsform");
    demand_ = new DemandChargeScreen(demand, this);
    auto* edits = new FieldEdits(
        controller_.fields,
        [this](const std::string& field, int key) {
            return controller_.KeyPress(SplitFieldName(field).second, key) ? key : 0;
        },
        this);
    auto* layout = new QVBoxLayout(this);
    auto* heading = new QLabel;
    heading->setObjectName("heading");
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    layout->addWidget(heading, 0, Qt::AlignHCenter);

    auto* grid = new QGridLayout;
    for (const Cell& c : kCells) {
        grid->addWidget(new QLabel(c.caption), c.row, c.column);
        AddEdit(grid, c.row, c.column + 1, QString("economics_%1").arg(c.index), edits, 80,
                c.index != 11);
    }
    grid->addWidget(new QLabel("$/kWh"), 0, 5);
    AddLabel(grid, 1, 5, "gasunit");
    AddLabel(grid, 2, 5, "waterunit");
    grid->addWidget(new QLabel(" Demand Charge:"), 3, 3);
    auto* demandFlag = new QPushButton;
    demandFlag->setObjectName("demand");
    grid->addWidget(demandFlag, 3, 4);
    layout->addLayout(grid);
    connect(demandFlag, &QPushButton::clicked, this, [this] {
        if (controller_.ClickDemand()) demand_->Open();
        ShowFields();
    });

    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "okey", "OK"), &QPushButton::clicked, this,
            [this] { Act(controller_.Ok()); });
    connect(AddButton(buttons, "Undo", "Undo"), &QPushButton::clicked, this, [this] {
        controller_.Undo();
        ShowFields();
    });
    connect(AddButton(buttons, "Cancel", "Cancel"), &QPushButton::clicked, this,
            [this] { Act(controller_.Cancel()); });
    layout->addLayout(buttons);
    EscapeIsCancel(this);
}

void EconomicsScreen::Open() {
    controller_.Open();
    ShowFields();
    show();
    raise();
}

void EconomicsScreen::ShowFields() {
    ApplyFields(this, controller_.fields);
}

void EconomicsScreen::Act(Navigation nav) {
    ShowFields();
    if (nav.show != Screen::None || nav.endProgram) hide();
    navigate_(nav);
}

}  // namespace solvane
