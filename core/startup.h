// From program start to the start-up screen, and the reset behind New.
#pragma once

#include <functional>

#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

// What the desktop (or the command line) tells start-up about the machine.
struct StartupEnvironment {
    bool spreadsheetFound = true;  // a program that opens hourly spreadsheets
    int printerCount = 1;          // printers, the PDF writer included
    int screenWidth = 1920;        // screen size in pixels
    int screenHeight = 1080;
    int year = 2026, month = 1, day = 1;  // today
};

// Start-up reads data that other libraries own; the caller wires them in.
struct StartupHooks {
    // Reads the climate index and returns the number of stations.
    std::function<long(Session&)> loadClimateIndex;
    // Reads the building type table.
    std::function<void(Session&)> loadBuildingTypes;
    // Reads the schedule library for the current units.
    std::function<void(Session&, Prompt&)> loadScheduleLibrary;
};

// Runs the start-up steps and fills the start-up screen's fields.
void StartUp(Session& session, Prompt& prompt, const StartupEnvironment& env,
             const StartupHooks& hooks);

// The count line of the start-up screen.
std::string CityCountLine(long count);

// Clears what a new project must not inherit.
void ResetProject(Session& session);

}  // namespace solvane
