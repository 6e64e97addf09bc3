#include "app/field_edits.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace solvane {

FieldEdits::FieldEdits(ScreenFields& fields, KeyRule rule, QObject* parent, ChangeRule change)
    : QObject(parent), fields_(fields), rule_(std::move(rule)), change_(std::move(change)) {}

void FieldEdits::Bind(QLineEdit* edit) {
    edit->installEventFilter(this);
    connect(edit, &QLineEdit::textEdited, this, [this, edit](const QString& text) {
        const std::string name = edit->objectName().toStdString();
        if (change_)
            change_(name, text.toStdString());
        else
            fields_[name].text = text.toStdString();
    });
}

void FieldEdits::BindNumber(QLineEdit* edit) {
    Bind(edit);
    // Blanks around, a sign, digits and one decimal point: all that a number
    // field's text may hold while it is typed.
    static const QRegularExpression number(R"(^ *[-+]?[0-9]*\.?[0-9]* *$)");
    edit->setValidator(new QRegularExpressionValidator(number, edit));
}

bool FieldEdits::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !rule_) return false;
    auto* edit = qobject_cast<QLineEdit*>(watched);
    auto* key = static_cast<QKeyEvent*>(event);
    const QString typed = key->text();
    if (!edit || typed.size() != 1) return false;
    const QChar c = typed.at(0);
    // Editing keys (backspace is 8) go through the rule as well.
    const int code = c.unicode();
    const int answer = rule_(edit->objectName().toStdString(), code);
    if (answer == 0) return true;
    if (answer == code) return false;
    edit->insert(QString(QChar(answer)));
    emit edit->textEdited(edit->text());
    return true;
}

}  // namespace solvane
