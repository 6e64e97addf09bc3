// What the desktop's MIME database knows: whether some program of this
// desktop opens a kind of file.
#pragma once

#include <QString>

namespace solvane {

// True when an application of the desktop (a .desktop entry in the XDG
// applications folders, or an association in a mimeapps.list) opens files of
// `mimeType`, such as "text/csv".
bool DesktopOpens(const QString& mimeType);

}  // namespace solvane
