#include "app/help_viewer.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <filesystem>

#include "core/text_file.h"

namespace solvane {

HelpViewer::HelpViewer(const ProgramPaths& paths, QWidget* parent)
    : QDialog(parent), paths_(paths) {
    setObjectName("help");
    auto* layout = new QVBoxLayout(this);
    text_ = new QPlainTextEdit;
    text_->setObjectName("Text1");
    text_->setReadOnly(true);
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text_->setMinimumSize(640, 420);
    layout->addWidget(text_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::hide);
    layout->addWidget(buttons);
}

void HelpViewer::ShowFile(const std::string& file) {
    const auto path = paths_.Resolve(file);
    const auto text = ReadTextFile(path);
    const auto lines = text ? SplitLines(*text) : std::vector<std::string>{};
    setWindowTitle(lines.empty() ? "Help" : QString::fromStdString(lines.front()));
    text_->setPlainText(
        text ? QString::fromStdString(*text)
             : QString::fromStdString("The help file " + path.string() + " was not found."));
    show();
    raise();
}

std::vector<std::pair<std::string, std::string>> HelpTopics(const ProgramPaths& paths) {
    std::vector<std::pair<std::string, std::string>> topics;
    std::error_code ec;
    for (std::filesystem::directory_iterator it(paths.Resolve("Helpinfo"), ec), end;
         !ec && it != end; it.increment(ec)) {
        if (it->path().extension() != ".txt") continue;
        const auto text = ReadTextFile(it->path());
        const auto lines = text ? SplitLines(*text) : std::vector<std::string>{};
        if (lines.empty()) continue;
        topics.emplace_back(lines.front(), "\\Helpinfo\\" + it->path().filename().string());
    }
    std::sort(topics.begin(), topics.end());
    return topics;
}

}  // namespace solvane
