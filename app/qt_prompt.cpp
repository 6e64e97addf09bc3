#include "app/qt_prompt.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>

namespace solvane {

namespace {

QMessageBox::StandardButtons ToQt(Buttons b) {
    switch (b) {
        case Buttons::Ok:
            return QMessageBox::Ok;
        case Buttons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case Buttons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case Buttons::RetryCancel:
            return QMessageBox::Retry | QMessageBox::Cancel;
        case Buttons::AbortRetryIgnore:
            return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon ToQt(Icon i) {
    switch (i) {
        case Icon::Critical:
            return QMessageBox::Critical;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

Answer FromQt(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        case QMessageBox::Cancel:
            return Answer::Cancel;
        case QMessageBox::Retry:
            return Answer::Retry;
        case QMessageBox::Abort:
            return Answer::Abort;
        case QMessageBox::Ignore:
            return Answer::Ignore;
        default:
            return Answer::Ok;
    }
}

}  // namespace

Answer QtPrompt::Ask(const std::string& text, const std::string& title, Buttons buttons,
                     Icon icon) {
    QMessageBox box(ToQt(icon), QString::fromStdString(title), QString::fromStdString(text),
                    ToQt(buttons), parent_);
    // The window's close box means the last button: Cancel or No.
    return FromQt(box.exec());
}

std::optional<std::string> QtPrompt::Input(const std::string& text, const std::string& title,
                                           const std::string& initial) {
    bool ok = false;
    const QString value =
        QInputDialog::getText(parent_, QString::fromStdString(title), QString::fromStdString(text),
                              QLineEdit::Normal, QString::fromStdString(initial), &ok);
    if (!ok) return std::nullopt;
    return value.toStdString();
}

void QtPrompt::Beep() {
    QApplication::beep();
}

}  // namespace solvane
