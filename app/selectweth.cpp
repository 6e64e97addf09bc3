#include "app/selectweth.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "app/file_lists.h"
#include "app/form_helpers.h"

namespace solvane {

namespace {

QPlainTextEdit* FixedPitchText(const char* name) {
    auto* text = new QPlainTextEdit;
    text->setObjectName(name);
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return text;
}

}  // namespace

ViewWeatherScreen::ViewWeatherScreen(QWidget* parent) : QDialog(parent) {
    setObjectName("viewweather");
    setWindowTitle("View Weather File");
    auto* layout = new QVBoxLayout(this);
    text_ = FixedPitchText("Text1");
    text_->setMinimumSize(760, 440);
    layout->addWidget(text_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    connect(AddButton(buttons, "OK", "OK"), &QPushButton::clicked, this, &QDialog::accept);
    connect(AddButton(buttons, "Cancel", "Cancel"), &QPushButton::clicked, this, &QDialog::reject);
    layout->addLayout(buttons);
}

void ViewWeatherScreen::Show(const std::string& text) {
    text_->setPlainText(QString::fromStdString(text));
    exec();
}

SelectWeatherScreen::SelectWeatherScreen(SelectWeatherController& controller, QWidget* parent)
    : QDialog(parent), controller_(controller) {
    setObjectName("selectweth");
    auto* layout = new QGridLayout(this);

    auto* formats = new QGroupBox("Weather File Format");
    formats->setObjectName("fileformatframe");
    auto* fl = new QVBoxLayout(formats);
    for (int f = 1; f <= 4; ++f) {
        auto* option = new QRadioButton(kRecordedFormats[static_cast<std::size_t>(f)].choice);
        option->setObjectName(QString("fileformat_%1").arg(f));
        fl->addWidget(option);
        connect(option, &QRadioButton::clicked, this, [this, f] {
            controller_.ChooseFormat(f);
            ShowFields();
        });
    }
    fl->addStretch();
    layout->addWidget(formats, 0, 0);

    lists_ = new FileLists(controller_.browser);
    layout->addWidget(lists_, 0, 1);
    connect(lists_, &FileLists::folderChanged, this, [this] { controller_.FolderChanged(); });
    connect(lists_, &FileLists::fileChosen, this, [this](int index) {
        controller_.ChooseFile(index);
        const QSignalBlocker block(name_);
        name_->setText(QString::fromStdString(controller_.fields().Text("Text1")));
    });
    connect(lists_, &FileLists::fileActivated, this, [this](int index) {
        controller_.ChooseFile(index);
        ShowFields();
    });

    auto* nameRow = new QHBoxLayout;
    nameRow->addWidget(new QLabel("Weather File Name:"));
    name_ = new QLineEdit;
    name_->setObjectName("Text1");
    nameRow->addWidget(name_, 1);
    connect(name_, &QLineEdit::textEdited, this, [this](const QString& text) {
        controller_.fields()["Text1"].text = text.toStdString();
    });
    layout->addLayout(nameRow, 1, 0, 1, 2);

    sampleFrame_ = new QGroupBox;
    sampleFrame_->setObjectName("fileform");
    auto* sl = new QVBoxLayout(sampleFrame_);
    sample_ = FixedPitchText("fileformtext");
    sample_->setMinimumSize(720, 220);
    sl->addWidget(sample_);
    layout->addWidget(sampleFrame_, 2, 0, 1, 2);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    connect(AddButton(buttons, "OK", "OK"), &QPushButton::clicked, this, [this] {
        if (controller_.Ok()) accept();
        ShowFields();
    });
    connect(AddButton(buttons, "View", "View"), &QPushButton::clicked, this, [this] {
        if (controller_.View()) view_->Show(controller_.viewText);
    });
    connect(AddButton(buttons, "Cancel", "Cancel"), &QPushButton::clicked, this, &QDialog::reject);
    layout->addLayout(buttons, 3, 0, 1, 2);
    view_ = new ViewWeatherScreen(this);
}

bool SelectWeatherScreen::Pick(const std::string& evaluationYear) {
    controller_.Open(evaluationYear);
    setWindowTitle(QString::fromStdString(controller_.fields().caption));
    ShowFields();
    return exec() == QDialog::Accepted;
}

void SelectWeatherScreen::ShowFields() {
    ScreenFields& f = controller_.fields();
    for (int i = 1; i <= 4; ++i) {
        if (auto* option = findChild<QRadioButton*>(QString("fileformat_%1").arg(i))) {
            const QSignalBlocker block(option);
            option->setAutoExclusive(false);
            option->setChecked(f.At("fileformat", i).value == 1);
            option->setAutoExclusive(true);
        }
    }
    name_->setText(QString::fromStdString(f.Text("Text1")));
    sampleFrame_->setTitle(QString::fromStdString(f.Text("fileform")));
    sample_->setPlainText(QString::fromStdString(controller_.sampleText));
    lists_->Refresh();
}

}  // namespace solvane
