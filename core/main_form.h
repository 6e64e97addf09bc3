// The start-up screen `mainform`: the units choice and "Begin >>".
#pragma once

#include <functional>

#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

class MainFormController {
  public:
    // `loadScheduleLibrary` reads the schedule library for the current units.
    MainFormController(Session& session, Prompt& prompt,
                       std::function<void(Session&, Prompt&)> loadScheduleLibrary = {});

    // The user picks `unitnum` 1 (I-P) or 2 (SI).
    void ChooseUnits(int units);
    // "Begin >>": opens the hub when the units are chosen.
    Navigation Begin();
    // The window's close box.
    Navigation Close();

  private:
    void RefreshUnitsLine();

    Session& session_;
    Prompt& prompt_;
    std::function<void(Session&, Prompt&)> loadScheduleLibrary_;
};

}  // namespace solvane
