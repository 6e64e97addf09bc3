// The way into the zone description: the re-derivation of the zones after a
// re-sketch, and the `zonename` list from which a zone is opened.
#pragma once

#include <string>

#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

// The zone description entry after the hub's checks and defaults: after a
// re-sketch the project takes the sketch's area and orientation, the
// building type's schedules and each zone's people and surfaces from its
// staging file. False, after the "Zone data access Error" prompt, when there
// are no zones or a zone file cannot be read; the hub then stays.
bool ReDeriveZones(Session& session, Prompt& prompt);

// The catalog rows that the catalog screens never numbered take their row
// number as their ID, as those screens would, so that the surfaces can name
// them and the project file holds them.
void NumberCatalogRows(ProjectModel& model);

// `zonename`: boxes `ZoneNumber_r`, `ZoneName_r`, `ZoneSeq_r` for the rows
// r = 1 .. 100 (the grid's three columns), labels `builname`, `builloc`.
class ZoneListController {
  public:
    ZoneListController(Session& session, Prompt& prompt);

    // The grid and captions from the zone tables.
    void Fill();
    // The row of a zone picked for OK; false (and the prompt) on an empty row.
    bool Pick(int row);
    // `back`: true when the hub comes back, false when the user stays.
    bool Back();

    ScreenFields fields;
    int PickedZone = 0;
    int PickedLevel = 0;

  private:
    Session& session_;
    Prompt& prompt_;
};

}  // namespace solvane
