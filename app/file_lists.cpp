#include "app/file_lists.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>

namespace solvane {

FileLists::FileLists(FileBrowser& browser, QWidget* parent) : QWidget(parent), browser_(browser) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    drives_ = new QComboBox;
    drives_->setObjectName("Drive1");
    folder_ = new QLabel;
    folder_->setObjectName("Dir1Path");
    folders_ = new QListWidget;
    folders_->setObjectName("Dir1");
    files_ = new QListWidget;
    files_->setObjectName("File1");
    grid->addWidget(new QLabel("Places:"), 0, 0);
    grid->addWidget(drives_, 1, 0);
    grid->addWidget(folder_, 2, 0, 1, 2);
    grid->addWidget(new QLabel("Folders:"), 3, 0);
    grid->addWidget(new QLabel("Files:"), 3, 1);
    grid->addWidget(folders_, 4, 0);
    grid->addWidget(files_, 4, 1);

    connect(drives_, &QComboBox::activated, this, [this](int index) {
        browser_.ChooseDrive(index);
        emit folderChanged();
        Refresh();
    });
    connect(folders_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        browser_.OpenFolder(folders_->row(item));
        emit folderChanged();
        Refresh();
    });
    connect(files_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) emit fileChosen(row);
    });
    connect(files_, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { emit fileActivated(files_->row(item)); });
}

void FileLists::Refresh() {
    const QSignalBlocker b1(drives_), b2(folders_), b3(files_);
    drives_->clear();
    for (const auto& d : browser_.Drive1) drives_->addItem(QString::fromStdString(d));
    folder_->setText(QString::fromStdString(browser_.Dir1Path));
    folders_->clear();
    for (const auto& d : browser_.Dir1) folders_->addItem(QString::fromStdString(d));
    files_->clear();
    for (const auto& f : browser_.File1) files_->addItem(QString::fromStdString(f));
}

}  // namespace solvane
