// The hub screen `mainmenu`: the numbered tasks, the menus, the code banner
// and the units line. Every return to it refreshes which tasks are live from
// the project's progress flags.
#pragma once

#include <functional>

#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

// Work of other libraries that the hub's entries start.
struct HubServices {
    // Loads the envelope defaults before the zone screen opens.
    std::function<void(Session&, Prompt&)> loadEnvelopeDefaults;
    // Takes the sketch's zones into the zone tables; false keeps the hub.
    std::function<bool(Session&, Prompt&)> describeZones;
    // Writes \temp\ecalc$.inp for the engine; false when it could not be written.
    std::function<bool(Session&, Prompt&)> writeEngineInput;
    // Reads the head line of the project file before a run.
    std::function<void(Session&)> readHeadLine;
    // The code icons: 0 for 90.1, 1 for 189.1.
    std::function<void(Session&, Prompt&, int)> selectCode;
    // The click on the code task's label.
    std::function<void(Prompt&)> showCodeStatus;
};

// The task captions, in their numbered order.
inline constexpr const char* kTaskCaptions[] = {
    "1. Energy code selection.",
    "2. Weather Data Selection                (>10,470-Int'l City Database)",
    "3. Project Information",
    "4. Economic Parameters",
    "5. Building Sketch Routine",
    "6. Zone Description Parameters",
    "7. Execute Energy Analysis",
};

class MainMenuController {
  public:
    MainMenuController(Session& session, Prompt& prompt, HubServices services = {});

    // Sets every field of the hub to its state for a project that has just begun.
    void InitFields();
    // Runs each time the hub becomes active.
    void Refresh();
    // One tick of the hub's timer: blinking, the next-task arrow, the turning picture.
    void TimerTick();

    Navigation CodeIcon(int index);   // Image8
    Navigation CodeStatus();          // CodeStatus
    Navigation NewProject();          // newitem
    Navigation OpenProject();         // retrieveitem
    Navigation OpenSample();          // Picture1
    Navigation SaveProject();         // saveinput
    Navigation ProjectInformation();  // projectinformation
    Navigation Weather();             // weatherdata
    Navigation Economics();           // economicsdata
    Navigation Database(int entry);   // dbase: 1 walls, 2 windows, 3 HVAC systems
    Navigation Sketch();              // buildingsketch
    Navigation ZoneDescription();     // zonedescription
    Navigation ExecuteRun();          // executerun
    Navigation RunEnergy(int index);  // runenergy
    Navigation Exit();                // exititem
    Navigation Close();               // the window's close box

  private:
    void DisableTasksButCodeAndWeather();
    void ShowProgress();
    void SetTask(const char* label, const char* icon, bool enabled);
    bool Open(Screen s) const { return session_.Available(s); }
    void BuildCaption();

    Session& session_;
    Prompt& prompt_;
    HubServices services_;
};

// The short display form of a project file name.
std::string ShortFileName(const std::string& fileName);

}  // namespace solvane
