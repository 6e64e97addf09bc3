// The engine's checks of a project before it is simulated: every value the
// translation uses is looked at for its form and range, and one it cannot use
// stops the run with the file, the line and the field named. What the run
// takes in place of a doubtful value is returned as notes for Monitor.txt.
#pragma once

#include <string>
#include <vector>

#include "core/project_model.h"

namespace solvane::engine {

// `lines` are the lines of the project file the model was read from (the
// engine's input), `fileName` its name in messages. Throws ReadError.
std::vector<std::string> CheckProject(const ProjectModel& model,
                                      const std::vector<std::string>& lines,
                                      const std::string& fileName);

}  // namespace solvane::engine
