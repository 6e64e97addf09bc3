// The hub's About box: the program's name and version, and the sources of
// its delivered data with their terms (\Helpinfo\Sources.txt).
#pragma once

#include <QDialog>

#include "core/program_paths.h"

namespace solvane {

// The file the About box shows under the version.
inline constexpr const char* kSourcesFile = "\\Helpinfo\\Sources.txt";

class AboutBox : public QDialog {
    Q_OBJECT
  public:
    AboutBox(const ProgramPaths& paths, QWidget* parent);
};

}  // namespace solvane
