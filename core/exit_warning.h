// The `warning` screen that stands in front of exit: save and leave, leave
// without saving, or go back.
#pragma once

#include <functional>
#include <optional>

#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

struct ExitServices {
    // Writes the project file under its current name; false on failure.
    std::function<bool(Session&, Prompt&)> writeProjectFile;
    // Deletes the zone staging files when the project has anything they stand for.
    std::function<void(Session&, Prompt&)> clearStagedZones;
};

class ExitWarningController {
  public:
    ExitWarningController(Session& session, Prompt& prompt, ExitServices services = {});

    Navigation Okey();      // save, then end
    Navigation Command1();  // end without saving
    Navigation Cancel();    // back to the hub

  private:
    void ClearStagingFiles();
    // Unsaved results of a run are offered for storing before the end: the
    // results dialog, which then ends the program.
    std::optional<Navigation> OfferUnsavedResults();

    Session& session_;
    Prompt& prompt_;
    ExitServices services_;
};

}  // namespace solvane
