#include "app/file_forms.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QUrl>
#include <QVBoxLayout>

#include "app/form_helpers.h"

namespace solvane {

// ---- Qt's file dialog for projects ----------------------------------------------

ProjectFileDialog::ProjectFileDialog(const ProjectFolders& folders, QWidget* parent)
    : QFileDialog(parent) {
    // Qt's own dialog rather than the desktop's, so that it takes the field
    // names and behaves the same everywhere.
    setOption(QFileDialog::DontUseNativeDialog);
    setNameFilter("Project files (*.inp)");
    setFilter(QDir::AllDirs | QDir::Files | QDir::NoDotAndDotDot);  // no hidden folders
    const QList<QUrl> places = {QUrl::fromLocalFile(folders.projects),
                                QUrl::fromLocalFile(folders.samples),
                                QUrl::fromLocalFile(QDir::homePath()), QUrl::fromLocalFile("/")};
    setSidebarUrls(places);
    name_ = findChild<QLineEdit*>("fileNameEdit");
}

// The accept mode makes the buttons anew: they are named after it is set.
void ProjectFileDialog::SetMode(QFileDialog::AcceptMode mode) {
    setAcceptMode(mode);
    setLabelText(QFileDialog::Accept, "OK");
    if (auto* buttons = findChild<QDialogButtonBox*>()) {
        for (QAbstractButton* b : buttons->buttons()) {
            const auto role = buttons->buttonRole(b);
            if (role == QDialogButtonBox::AcceptRole) b->setObjectName("OK");
            if (role == QDialogButtonBox::RejectRole) b->setObjectName("Cancel");
        }
    }
}

void ProjectFileDialog::OpenIn(const QString& folder) {
    setDirectory(folder);
    show();
    raise();
    activateWindow();
}

// A folder typed or chosen is entered; a file goes to the controller, which
// tells the user of anything wrong with it.
void ProjectFileDialog::accept() {
    const QStringList files = selectedFiles();
    if (files.isEmpty()) return;
    const QFileInfo info(files.front());
    if (info.isDir()) {
        setDirectory(info.absoluteFilePath());
        if (name_) name_->clear();
        return;
    }
    if (chosen) chosen(info.absoluteFilePath());
}

void ProjectFileDialog::reject() {
    QFileDialog::reject();
    if (cancelled) cancelled();
}

// ---- open --------------------------------------------------------------------------

OldFileFormScreen::OldFileFormScreen(OldFileFormController& controller, Navigate navigate,
                                     const ProjectFolders& folders, QWidget* parent)
    : ProjectFileDialog(folders, parent), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("oldfileform");
    setWindowTitle("Open Existing Project");
    SetMode(QFileDialog::AcceptOpen);
    setFileMode(QFileDialog::AnyFile);  // a mistyped name is told by the controller
    if (name_) name_->setObjectName("retrievefile");
    chosen = [this](const QString& path) {
        controller_.retrievefile = path.toStdString();
        hide();
        const Navigation nav = controller_.Ok();
        if (nav.show == Screen::None && !nav.endProgram) show();
        navigate_(nav);
    };
    cancelled = [this] { navigate_(controller_.Cancel()); };
}

void OldFileFormScreen::Open(const std::string& folder) {
    controller_.Show(folder);
    if (name_) name_->clear();
    OpenIn(QString::fromStdString(folder));
}

// ---- samples -------------------------------------------------------------------------

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
    description_ = new QLabel;
    description_->setObjectName("Description");
    description_->setWordWrap(true);
    layout->addWidget(description_);
    auto* box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    box->button(QDialogButtonBox::Ok)->setObjectName("OK");
    box->button(QDialogButtonBox::Cancel)->setObjectName("Cancel");
    layout->addWidget(box);
    connect(files_, &QListWidget::currentRowChanged, this, [this](int row) {
        controller_.selected = row;
        const auto& d = controller_.Descriptions;
        description_->setText(row >= 0 && row < static_cast<int>(d.size())
                                  ? QString::fromStdString(d[static_cast<std::size_t>(row)])
                                  : QString());
    });
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
    for (std::size_t i = 0; i < controller_.File1.size(); ++i) {
        files_->addItem(QString::fromStdString(controller_.File1[i]));
        if (i < controller_.Descriptions.size())
            files_->item(static_cast<int>(i))
                ->setToolTip(QString::fromStdString(controller_.Descriptions[i]));
    }
    if (!controller_.File1.empty()) files_->setCurrentRow(0);
    show();
    raise();
}

// ---- save ------------------------------------------------------------------------------

SaveInputFormScreen::SaveInputFormScreen(Session& session, SaveInputFormController& controller,
                                         Navigate navigate, const ProjectFolders& folders,
                                         QWidget* parent)
    : ProjectFileDialog(folders, parent),
      session_(session),
      controller_(controller),
      navigate_(std::move(navigate)) {
    setObjectName("saveinputform");
    setWindowTitle("Save Project File");
    SetMode(QFileDialog::AcceptSave);
    setFileMode(QFileDialog::AnyFile);
    // The controller asks before replacing a file, in its own words.
    setOption(QFileDialog::DontConfirmOverwrite);
    if (name_) name_->setObjectName("inputname");

    auto* units = new QGroupBox("Save in");
    auto* unitsLayout = new QHBoxLayout(units);
    ownUnits_ = new QRadioButton;
    ownUnits_->setObjectName("unitsave_1");
    otherUnits_ = new QRadioButton;
    otherUnits_->setObjectName("unitsave_2");
    unitsLayout->addWidget(ownUnits_);
    unitsLayout->addWidget(otherUnits_);
    if (auto* grid = qobject_cast<QGridLayout*>(layout()))
        grid->addWidget(units, grid->rowCount(), 0, 1, grid->columnCount());

    chosen = [this](const QString& path) {
        controller_.inputname = path.toStdString();
        controller_.unitChoice = otherUnits_->isChecked() ? 2 : 1;
        const Navigation nav = controller_.Ok();
        if (nav.show == Screen::None && !nav.endProgram) return;  // stays for another name
        hide();
        if (saved) saved(QString::fromStdString(session_.model.session.InputFileName));
        navigate_(nav);
    };
    cancelled = [this] { navigate_(controller_.Cancel()); };
}

void SaveInputFormScreen::Open(const std::string& folder) {
    controller_.Show(folder);
    const bool si = session_.model.session.Units == 2;
    ownUnits_->setText(si ? "SI Units (the project's)" : "I-P Units (the project's)");
    otherUnits_->setText(si ? "I-P Units" : "SI Units");
    ownUnits_->setChecked(controller_.unitChoice != 2);
    otherUnits_->setChecked(controller_.unitChoice == 2);
    OpenIn(QString::fromStdString(folder));
    selectFile(QString::fromStdString(controller_.inputname));
    if (controller_.inputname.empty() && name_) name_->clear();
}

}  // namespace solvane
