// The help text viewer: a file of the Helpinfo folder under its title.
#pragma once

#include <QDialog>
#include <string>

#include "core/program_paths.h"

class QPlainTextEdit;

namespace solvane {

class HelpViewer : public QDialog {
    Q_OBJECT
  public:
    HelpViewer(const ProgramPaths& paths, QWidget* parent);
    // Shows `file` (a program path such as "\Helpinfo\CodeHelp.txt"); its first
    // line is the title.
    void ShowFile(const std::string& file);

  private:
    const ProgramPaths& paths_;
    QPlainTextEdit* text_;
};

// The help topics: the first line of each text file of Helpinfo, with its path.
std::vector<std::pair<std::string, std::string>> HelpTopics(const ProgramPaths& paths);

}  // namespace solvane
