#include "app/winareasel.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/field_binding.h"
#include "app/field_edits.h"
#include "app/form_helpers.h"

namespace solvane {

namespace {

// Leaving a factor box stores it in its row's working copy.
class FactorLeave : public QObject {
  public:
    FactorLeave(WindowSizerController& controller, QObject* parent)
        : QObject(parent), controller_(controller) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusOut) {
            const auto [name, row] = SplitFieldName(watched->objectName().toStdString());
            if (row >= 0) controller_.LeaveFactor(row, name == "PF2");
        }
        return false;
    }

  private:
    WindowSizerController& controller_;
};

}  // namespace

WinAreaSelScreen::WinAreaSelScreen(WindowSizerController& controller, QWidget* parent)
    : QDialog(parent), controller_(controller) {
    setObjectName("WinAreaSel");
    setWindowTitle("Window Sizer");
    auto* edits = new FieldEdits(
        controller_.fields,
        [](const std::string&, int key) {
            return WindowSizerController::FactorKeyAccepted(key) ? key : 0;
        },
        this);
    auto* leave = new FactorLeave(controller_, this);
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel("Exposure"), 0, 0);
    grid->addWidget(new QLabel("Window Area\n(% of wall)"), 0, 1);
    grid->addWidget(new QLabel("Overhang PF\nlevel 1"), 0, 2);
    grid->addWidget(new QLabel("Overhang PF\nupper levels"), 0, 3);
    for (int n = 0; n < kSizerRows; ++n) {
        AddLabel(grid, n + 1, 0, QString("ElevName_%1").arg(n));
        AddEdit(grid, n + 1, 1, QString("WinAr_%1").arg(n), edits, 70);
        if (n == 4) break;  // skylights have no overhang
        for (int k = 0; k < 2; ++k) {
            QLineEdit* e =
                AddEdit(grid, n + 1, 2 + k, QString("PF%1_%2").arg(k + 1).arg(n), edits, 70);
            e->installEventFilter(leave);
        }
    }
    grid->addWidget(new QLabel("(% of roof)"), 5, 2);
    layout->addLayout(grid);

    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "Apply", "Apply"), &QPushButton::clicked, this, [this] {
        controller_.Apply();
        ShowFields();
    });
    connect(AddButton(buttons, "SaveExit", "Save && Exit"), &QPushButton::clicked, this, [this] {
        const bool close = controller_.SaveExit(true);
        ShowFields();
        if (close) accept();
    });
    connect(AddButton(buttons, "Cancel", "Cancel"), &QPushButton::clicked, this,
            &WinAreaSelScreen::reject);
    layout->addLayout(buttons);
}

void WinAreaSelScreen::Open() {
    controller_.Open();
    ShowFields();
    show();
    raise();
}

void WinAreaSelScreen::ShowFields() {
    ApplyFields(this, controller_.fields);
}

void WinAreaSelScreen::reject() {
    controller_.Cancel();
    QDialog::reject();
}

}  // namespace solvane
