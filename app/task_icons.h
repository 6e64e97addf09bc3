// The program's pictures: SVG icons from the images folder and the turning
// globe of the hub, drawn here.
#pragma once

#include <QPixmap>
#include <QString>

#include "core/program_paths.h"

namespace solvane {

// Renders images/<name>.svg at the given size; an empty pixmap when missing.
QPixmap SvgPixmap(const ProgramPaths& paths, const QString& name, int width, int height);

// One of the 21 frames of the turning globe.
QPixmap GlobeFrame(int frame, int size);

}  // namespace solvane
