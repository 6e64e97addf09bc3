#include "app/about_box.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "core/text_file.h"

namespace solvane {

AboutBox::AboutBox(const ProgramPaths& paths, QWidget* parent) : QDialog(parent) {
    setObjectName("about");
    setWindowTitle("About SOLVANE 2020");
    auto* layout = new QVBoxLayout(this);
    auto* name = new QLabel("<h2>SOLVANE 2020</h2>");
    name->setObjectName("programname");
    layout->addWidget(name);
    auto* version = new QLabel(QString("Version %1").arg(SOLVANE_VERSION));
    version->setObjectName("version");
    layout->addWidget(version);
    layout->addWidget(new QLabel(
        "Whole-building energy analysis and energy-code compliance at the design stage."));
    auto* sources = new QPlainTextEdit;
    sources->setObjectName("sources");
    sources->setReadOnly(true);
    sources->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    sources->setMinimumSize(700, 360);
    const auto path = paths.Resolve(kSourcesFile);
    const auto text = ReadTextFile(path);
    sources->setPlainText(
        text ? QString::fromStdString(*text)
             : QString::fromStdString("The file " + path.string() + " was not found."));
    layout->addWidget(sources);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

}  // namespace solvane
