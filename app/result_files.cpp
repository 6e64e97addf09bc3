#include "app/result_files.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace solvane {

namespace {
const char* const kResultsFilter = "Stored results (*.ot? *.OT? *.fl? *.FL?)";
}

SaveOutFormScreen::SaveOutFormScreen(SaveOutFormController& controller, Navigate navigate,
                                     const ProjectFolders& folders, QWidget* parent)
    : ProjectFileDialog(folders, parent), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("saveoutform");
    setWindowTitle("Save Simulation Results");
    setNameFilter(kResultsFilter);
    SetMode(QFileDialog::AcceptSave);
    setFileMode(QFileDialog::AnyFile);
    setOption(QFileDialog::DontConfirmOverwrite);  // the controller asks in its own words
    if (name_) name_->setObjectName("outputname");
    if (auto* buttons = findChild<QDialogButtonBox*>())
        for (QAbstractButton* b : buttons->buttons()) {
            if (b->objectName() == "OK") b->setObjectName("okbutton");
            if (b->objectName() == "Cancel") b->setObjectName("cancelbuttton");
        }
    auto* note = new QLabel;
    note->setObjectName("Text1");
    note->setWordWrap(true);
    nosave_ = new QPushButton("Don't Save");
    nosave_->setObjectName("nosave");
    if (auto* grid = qobject_cast<QGridLayout*>(layout())) {
        const int row = grid->rowCount();
        grid->addWidget(note, row, 0, 1, grid->columnCount() - 1);
        grid->addWidget(nosave_, row, grid->columnCount() - 1);
    }
    connect(nosave_, &QPushButton::clicked, this, [this] {
        hide();
        navigate_(controller_.NoSave());
    });
    chosen = [this](const QString& path) {
        controller_.outputname = path.toStdString();
        const Navigation nav = controller_.Ok();
        if (nav.show == Screen::None && !nav.endProgram) return;  // stays for another name
        hide();
        navigate_(nav);
    };
    cancelled = [this] { navigate_(controller_.Cancel()); };
}

void SaveOutFormScreen::Open(const std::string& folder,
                             const std::optional<ResultsName>& suggestion) {
    controller_.Show(folder, suggestion);
    if (auto* note = findChild<QLabel*>("Text1"))
        note->setText(QString::fromStdString(controller_.fields.Text("Text1")));
    nosave_->setVisible(controller_.fields.Visible("nosave"));
    OpenIn(QString::fromStdString(controller_.browser.Dir1Path));
    selectFile(QString::fromStdString(controller_.outputname));
}

SelectViewScreen::SelectViewScreen(SelectViewController& controller, Navigate navigate,
                                   const ProjectFolders& folders, QWidget* parent)
    : ProjectFileDialog(folders, parent), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("selectview");
    setWindowTitle("Retrieve Previous Output File");
    setNameFilter("Stored results (*.ot? *.OT?)");
    SetMode(QFileDialog::AcceptOpen);
    setFileMode(QFileDialog::AnyFile);  // a mistyped name is told by the controller
    if (name_) name_->setObjectName("Text1");
    chosen = [this](const QString& path) {
        controller_.Text1 = path.toStdString();
        hide();
        const Navigation nav = controller_.Ok();
        if (nav.show == Screen::None && !nav.endProgram) {
            show();
            return;
        }
        navigate_(nav);
    };
    cancelled = [this] { navigate_(controller_.Cancel()); };
}

void SelectViewScreen::Open(const std::string& folder) {
    controller_.Show(folder);
    OpenIn(QString::fromStdString(folder));
    if (name_) name_->clear();
}

}  // namespace solvane
