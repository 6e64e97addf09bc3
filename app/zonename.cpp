#include "app/zonename.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "app/field_binding.h"
#include "app/form_helpers.h"

namespace solvane {

ZoneNameScreen::ZoneNameScreen(ZoneNameController& controller,
                               std::function<void(const Navigation&)> navigate, QWidget* parent)
    : QDialog(parent), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("zonename");
    auto* layout = new QVBoxLayout(this);
    for (const char* name : {"builname", "builloc"}) {
        auto* label = new QLabel;
        label->setObjectName(name);
        layout->addWidget(label);
    }
    list_ = new QTableWidget(0, kZoneListColumns);
    list_->setObjectName("MSFlexGrid1");
    list_->setSelectionBehavior(QAbstractItemView::SelectRows);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->verticalHeader()->hide();
    list_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    layout->addWidget(list_, 1);
    const auto open = [this] {
        const int row = list_->currentRow();
        Act(controller_.Ok(row < 0 ? 0 : row + 1));
    };
    connect(list_, &QTableWidget::cellDoubleClicked, this, open);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    connect(AddButton(buttons, "OK", "Open Zone"), &QPushButton::clicked, this, open);
    connect(AddButton(buttons, "back", "Main Menu"), &QPushButton::clicked, this,
            [this] { Act(controller_.Back()); });
    layout->addLayout(buttons);
    resize(640, 480);
}

bool ZoneNameScreen::Open() {
    if (!controller_.Enter()) return false;
    ShowFields();
    if (list_->rowCount() > 0) list_->setCurrentCell(0, 0);
    show();
    raise();
    return true;
}

void ZoneNameScreen::ShowFields() {
    ApplyFields(this, controller_.fields);
    QStringList headings;
    for (int c = 0; c < kZoneListColumns; ++c)
        headings << QString::fromStdString(ZoneListCell(controller_.fields, 0, c).text);
    list_->setHorizontalHeaderLabels(headings);
    // The rows that hold a zone, in their order.
    int rows = 0;
    while (rows + 1 < kZoneListRows && !ZoneListCell(controller_.fields, rows + 1, 0).text.empty())
        ++rows;
    list_->setRowCount(rows);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < kZoneListColumns; ++c)
            list_->setItem(r, c,
                           new QTableWidgetItem(QString::fromStdString(
                               ZoneListCell(controller_.fields, r + 1, c).text)));
}

void ZoneNameScreen::reject() {
    Act(controller_.Back());
}

void ZoneNameScreen::Act(const Navigation& nav) {
    ShowFields();
    if (nav.show == Screen::None && !nav.endProgram) return;
    QDialog::hide();
    navigate_(nav);
}

}  // namespace solvane
