#include "app/form_helpers.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "app/field_edits.h"

namespace solvane {

QLineEdit* AddEdit(QGridLayout* grid, int row, int column, const QString& name, FieldEdits* edits,
                   int width) {
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    if (width > 0) edit->setFixedWidth(width);
    if (edits) edits->Bind(edit);
    grid->addWidget(edit, row, column);
    return edit;
}

QPushButton* AddButton(QBoxLayout* layout, const QString& name, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    layout->addWidget(button);
    return button;
}

QLabel* AddLabel(QGridLayout* grid, int row, int column, const QString& name,
                 const QString& caption) {
    auto* label = new QLabel(caption);
    label->setObjectName(name);
    grid->addWidget(label, row, column);
    return label;
}

std::pair<std::string, int> SplitFieldName(const std::string& field) {
    const auto bar = field.rfind('_');
    if (bar == std::string::npos || bar + 1 >= field.size()) return {field, -1};
    const std::string digits = field.substr(bar + 1);
    if (digits.find_first_not_of("0123456789") != std::string::npos) return {field, -1};
    return {field.substr(0, bar), std::stoi(digits)};
}

}  // namespace solvane
