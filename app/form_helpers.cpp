#include "app/form_helpers.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QDialog>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionFrame>

#include "app/field_edits.h"

namespace solvane {

QRect ElidingEdit::TextRect() const {
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()
        ->subElementRect(QStyle::SE_LineEditContents, &option, this)
        .adjusted(2, 0, -2, 0);
}

QString ElidingEdit::ShownText() const {
    if (hasFocus()) return text();
    return fontMetrics().elidedText(text(), Qt::ElideRight, TextRect().width());
}

void ElidingEdit::paintEvent(QPaintEvent* event) {
    const QString shown = ShownText();
    if (shown == text()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QStyleOptionFrame option;
    initStyleOption(&option);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Text));
    painter.drawText(TextRect(), Qt::AlignVCenter | Qt::AlignLeft, shown);
}

QLineEdit* AddEdit(QGridLayout* grid, int row, int column, const QString& name, FieldEdits* edits,
                   int width, bool number) {
    auto* edit = new ElidingEdit;
    edit->setObjectName(name);
    if (width > 0) edit->setFixedWidth(width);
    if (edits && number)
        edits->BindNumber(edit);
    else if (edits)
        edits->Bind(edit);
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

namespace {

class CancelKeys : public QObject {
  public:
    CancelKeys(QDialog* dialog, const char* cancelName)
        : QObject(dialog), dialog_(dialog), cancelName_(cancelName) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != dialog_) return false;
        const bool escape = event->type() == QEvent::KeyPress &&
                            static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        if (!escape && event->type() != QEvent::Close) return false;
        auto* cancel = dialog_->findChild<QAbstractButton*>(cancelName_);
        if (!cancel || !dialog_->isVisible()) return false;
        event->ignore();
        cancel->click();
        return true;
    }

  private:
    QDialog* dialog_;
    QString cancelName_;
};

}  // namespace

void EscapeIsCancel(QDialog* dialog, const char* cancelName) {
    dialog->installEventFilter(new CancelKeys(dialog, cancelName));
}

std::pair<std::string, int> SplitFieldName(const std::string& field) {
    const auto bar = field.rfind('_');
    if (bar == std::string::npos || bar + 1 >= field.size()) return {field, -1};
    const std::string digits = field.substr(bar + 1);
    if (digits.find_first_not_of("0123456789") != std::string::npos) return {field, -1};
    return {field.substr(0, bar), std::stoi(digits)};
}

}  // namespace solvane
