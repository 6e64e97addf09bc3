// The `zonename` screen: the list of the zones the sketch produced, from
// which a zone is picked and opened, and the return to the hub. After a new
// sketch it also hands the zones over: their rows keep their loads by
// sequence number, and their surfaces are read again from the zone files.
#pragma once

#include <functional>

#include "core/session.h"
#include "ui/prompt.h"
#include "ui/screen_fields.h"

namespace solvane {

// The list `MSFlexGrid1`: 3 columns (zone number, name, sequence), rows 0..100.
inline constexpr int kZoneListRows = 101;
inline constexpr int kZoneListColumns = 3;

// The cell of the list at (row, column): field "MSFlexGrid1_<row>_<column>".
FieldState& ZoneListCell(ScreenFields& fields, int row, int column);
// Empties the list's rows from `firstRow` to 99.
void ClearZoneList(ScreenFields& fields, int firstRow);

// Work of the zone description that the hand-over starts.
struct ZoneHandOverServices {
    // Sets the seven profile slots up again for the building type.
    std::function<void(Session&)> resetProfiles;
    // Reads a zone's \temp\temp<zone>.zon into the surface tables, keeping
    // the described choices where the sketch didn't change them; false when
    // the file cannot be read.
    std::function<bool(Session&, Prompt&, int zone)> readZoneSurfaces;
    // Brings the picked zone onto the zone screen.
    std::function<void(Session&, Prompt&, int zone)> showZone;
};

class ZoneNameController {
  public:
    ZoneNameController(Session& session, Prompt& prompt, ZoneHandOverServices services = {});

    // Runs when the hub's zone description command opens the list (after its
    // own checks and the envelope defaults): fills the list and the zones'
    // fields 1 to 3; after a new sketch, hands the zones over (floor area and
    // orientation to the project, people from each zone's area per person,
    // the surfaces from the zone files). False when a zone file could not be
    // read; the hub then stays.
    bool Enter();
    // `OK` on the picked row: a row without a zone beeps and is refused.
    Navigation Ok(int row);
    // `back`: warns about zones of a new sketch that were never opened, then
    // returns to the hub; `fromZoneScreen` when the zone screen's own return
    // brought the user here.
    Navigation Back(bool fromZoneScreen = false);

    int PickedZone = 0;
    int PickedLevel = 0;
    ScreenFields fields;

  private:
    void FillList();

    Session& session_;
    Prompt& prompt_;
    ZoneHandOverServices services_;
};

}  // namespace solvane
