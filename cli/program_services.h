// The wiring of the libraries into the steps that call across them: start-up,
// the project file reader, the hub. Shared by the desktop and the command line.
#pragma once

#include "core/main_menu.h"
#include "core/startup.h"
#include "projectfile/project_file.h"
#include "weather/climate_database.h"

namespace solvane {

StartupHooks MakeStartupHooks(ClimateIndex& climateIndex);
ProjectFileHooks MakeProjectFileHooks();
HubServices MakeHubServices();

}  // namespace solvane
