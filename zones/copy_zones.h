// Copy to zones: what was just entered in the zone on the screen goes to
// other zones, either the window fractions of the elevations (window mode) or
// the fields changed by hand (field mode). `copytozone` picks the target
// zones; `copyall` takes every other zone at once.
#pragma once

#include <array>
#include <string>

#include "core/session.h"
#include "ui/prompt.h"
#include "zones/zone_form.h"

namespace solvane {

enum CopyMode : int { kCopyWindows = 1, kCopyFields = 2 };

// `copytozone`: rows `CopyZone_r` (r = 1 .. NumZones) showing zone number and
// name, ticked through their value; `CopyScroll` moves a window of ten rows.
class CopyToZonesController {
  public:
    CopyToZonesController(Session& session, Prompt& prompt, ZoneFormController& form);

    // `copyzone`: the target list for the mode; false (after the prompt) when
    // the zone on the screen has no new data.
    bool Open(int mode);
    void Tick(int row, bool on);
    // OK: copies to the ticked zones; false keeps the list open.
    bool Ok();
    // `copyall`: copies to every other zone of the project.
    bool CopyAll(int mode);

    ScreenFields fields;
    int Mode() const { return mode_; }

  private:
    bool HasNewData();
    bool Copy(const std::array<bool, kMaxZones + 1>& targets, bool fromList);
    bool CopyWindows(const std::array<bool, kMaxZones + 1>& targets, bool fromList);
    void CopyFields(const std::array<bool, kMaxZones + 1>& targets);

    Session& session_;
    Prompt& prompt_;
    ZoneFormController& form_;
    int mode_ = kCopyWindows;
};

}  // namespace solvane
