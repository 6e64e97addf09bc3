#include "app/field_binding.h"

#include <QAbstractButton>
#include <QAction>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QWidget>

namespace solvane {

namespace {

QString ColorName(Color c) {
    return QString::asprintf("#%06x", static_cast<unsigned>(c));
}

void ApplyToWidget(QWidget* w, const FieldState& f) {
    if (auto* menu = qobject_cast<QMenu*>(w)) {
        menu->menuAction()->setEnabled(f.enabled);
        menu->menuAction()->setVisible(f.visible);
        return;
    }
    w->setEnabled(f.enabled);
    if (w->parentWidget() && w->parentWidget()->isVisible()) {
        w->setVisible(f.visible);
    } else {
        w->setHidden(!f.visible);
    }
    if (auto* radio = qobject_cast<QRadioButton*>(w)) {
        radio->setChecked(f.value != 0);
        return;
    }
    if (auto* edit = qobject_cast<QLineEdit*>(w)) {
        const QString text = QString::fromStdString(f.text);
        if (edit->text() != text) {
            edit->setText(text);
            edit->setCursorPosition(0);  // show a long text from its start
        }
        // A text longer than its box is shown whole in the box's tooltip.
        const int room = edit->width() - 8;
        edit->setToolTip(edit->fontMetrics().horizontalAdvance(text) > room ? text : QString());
        return;
    }
    if (f.text.empty()) return;
    if (auto* label = qobject_cast<QLabel*>(w)) {
        if (label->pixmap().isNull()) {
            label->setText(QString::fromStdString(f.text));
            label->setStyleSheet("color: " + ColorName(f.color) + ";");
        } else {
            label->setToolTip(QString::fromStdString(f.text));
        }
    } else if (auto* button = qobject_cast<QAbstractButton*>(w)) {
        if (button->icon().isNull())
            button->setText(QString::fromStdString(f.text));
        else
            button->setToolTip(QString::fromStdString(f.text));
    }
}

}  // namespace

void ApplyFields(QWidget* screen, const ScreenFields& fields) {
    if (!fields.caption.empty()) screen->setWindowTitle(QString::fromStdString(fields.caption));
    for (const auto& [name, state] : fields.All()) {
        const QString qname = QString::fromStdString(name);
        if (auto* w = screen->findChild<QWidget*>(qname)) {
            ApplyToWidget(w, state);
        } else if (auto* action = screen->findChild<QAction*>(qname)) {
            action->setEnabled(state.enabled);
            action->setVisible(state.visible);
            if (!state.text.empty()) action->setText(QString::fromStdString(state.text));
        }
    }
}

}  // namespace solvane
