#include "app/file_forms.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/file_lists.h"
#include "app/form_helpers.h"

namespace solvane {

namespace {

// OK and Cancel buttons named as the dialogs' fields.
QDialogButtonBox* OkCancel(QDialog* dialog, const char* okName, const char* cancelName) {
    auto* box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    box->button(QDialogButtonBox::Ok)->setObjectName(okName);
    box->button(QDialogButtonBox::Cancel)->setObjectName(cancelName);
    dialog->layout()->addWidget(box);
    return box;
}

}  // namespace

OldFileFormScreen::OldFileFormScreen(OldFileFormController& controller, Navigate navigate,
                                     QWidget* parent)
    : QDialog(parent), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("oldfileform");
    setWindowTitle("Open Existing Project");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel("Project file name:"));
    name_ = new QLineEdit;
    name_->setObjectName("retrievefile");
    layout->addWidget(name_);
    lists_ = new FileLists(controller_.browser);
    layout->addWidget(lists_);
    auto* box = OkCancel(this, "OK", "Cancel");

    connect(lists_, &FileLists::fileChosen, this, [this](int index) {
        controller_.ChooseFile(index);
        name_->setText(QString::fromStdString(controller_.retrievefile));
    });
    auto ok = [this] {
        controller_.retrievefile = name_->text().toStdString();
        hide();
        const Navigation nav = controller_.Ok();
        if (nav.show == Screen::None && !nav.endProgram) show();
        navigate_(nav);
    };
    connect(lists_, &FileLists::fileActivated, this, [this, ok](int index) {
        controller_.ChooseFile(index);
        ok();
    });
    connect(box, &QDialogButtonBox::accepted, this, ok);
    connect(box, &QDialogButtonBox::rejected, this, [this] {
        hide();
        navigate_(controller_.Cancel());
    });
    EscapeIsCancel(this);
}

void OldFileFormScreen::Open(const std::string& folder) {
    controller_.Show(folder);
    name_->setText(QString::fromStdString(controller_.retrievefile));
    lists_->Refresh();
    show();
    raise();
}

SampleFileFormScreen::SampleFileFormScreen(SampleFileFormController& controller, Navigate navigate,
                                           QWidget* parent)
    : QDialog(parent), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("SampleFileForm");
    setWindowTitle("Sample Projects");
    auto* layout = new QVBoxLayout(this);
    auto* note =
        new QLabel("Sample projects are ready to run. Open one, look at its zones, and run it.");
    note->setObjectName("filesamp");
    note->setWordWrap(true);
    layout->addWidget(note);
    files_ = new QListWidget;
    files_->setObjectName("File1");
    layout->addWidget(files_);
    auto* box = OkCancel(this, "OK", "Cancel");
    connect(files_, &QListWidget::currentRowChanged, this,
            [this](int row) { controller_.selected = row; });
    auto ok = [this] {
        hide();
        const Navigation nav = controller_.Ok();
        if (nav.show == Screen::None && !nav.endProgram) show();
        navigate_(nav);
    };
    connect(files_, &QListWidget::itemDoubleClicked, this, ok);
    connect(box, &QDialogButtonBox::accepted, this, ok);
    connect(box, &QDialogButtonBox::rejected, this, [this] {
        hide();
        navigate_(controller_.Cancel());
    });
    EscapeIsCancel(this);
}

void SampleFileFormScreen::Open() {
    controller_.Show();
    files_->clear();
    for (const auto& name : controller_.File1) files_->addItem(QString::fromStdString(name));
    if (!controller_.File1.empty()) files_->setCurrentRow(0);
    show();
    raise();
}

SaveInputFormScreen::SaveInputFormScreen(Session& session, SaveInputFormController& controller,
                                         Navigate navigate, QWidget* parent)
    : QDialog(parent), session_(session), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("saveinputform");
    setWindowTitle("Save Project File");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel("Project file name:"));
    name_ = new QLineEdit;
    name_->setObjectName("inputname");
    layout->addWidget(name_);
    lists_ = new FileLists(controller_.browser);
    layout->addWidget(lists_);
    auto* units = new QGroupBox("Save in");
    auto* unitsLayout = new QVBoxLayout(units);
    ownUnits_ = new QRadioButton;
    ownUnits_->setObjectName("unitsave_1");
    otherUnits_ = new QRadioButton;
    otherUnits_->setObjectName("unitsave_2");
    unitsLayout->addWidget(ownUnits_);
    unitsLayout->addWidget(otherUnits_);
    layout->addWidget(units);
    auto* box = OkCancel(this, "OK", "Cancel");

    connect(lists_, &FileLists::fileChosen, this, [this](int index) {
        controller_.ChooseFile(index);
        name_->setText(QString::fromStdString(controller_.inputname));
    });
    connect(box, &QDialogButtonBox::accepted, this, [this] {
        controller_.inputname = name_->text().toStdString();
        controller_.unitChoice = otherUnits_->isChecked() ? 2 : 1;
        const Navigation nav = controller_.Ok();
        if (nav.show != Screen::None || nav.endProgram) {
            hide();
            if (saved) saved(QString::fromStdString(session_.model.session.InputFileName));
        }
        lists_->Refresh();
        navigate_(nav);
    });
    connect(box, &QDialogButtonBox::rejected, this, [this] {
        hide();
        navigate_(controller_.Cancel());
    });
    EscapeIsCancel(this);
}

void SaveInputFormScreen::Open(const std::string& folder) {
    controller_.Show(folder);
    const bool si = session_.model.session.Units == 2;
    ownUnits_->setText(si ? "SI Units (the project's)" : "I-P Units (the project's)");
    otherUnits_->setText(si ? "I-P Units" : "SI Units");
    ownUnits_->setChecked(controller_.unitChoice != 2);
    otherUnits_->setChecked(controller_.unitChoice == 2);
    name_->setText(QString::fromStdString(controller_.inputname));
    lists_->Refresh();
    show();
    raise();
}

}  // namespace solvane
