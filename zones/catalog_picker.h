// `wallwin`: the wall or window catalog opened from a surface row of the zone
// screen, to pick the row's construction and, if need be, edit a catalog row.
#pragma once

#include <array>

#include "core/session.h"
#include "ui/prompt.h"
#include "zones/zone_form.h"

namespace solvane {

inline constexpr int kPickerRows = 20;

// Boxes `id_i`, `Des_i`, `UF_i`, `Absp_i`, `lag_i`, `decr_i`, `cost_i`
// (i = 1..20), headings `Btype`, `Cat`, `CZone`, `code`, captions
// `caption_1` .. `caption_6`, the line `status`.
class CatalogPickerController {
  public:
    CatalogPickerController(Session& session, Prompt& prompt, ZoneFormController& form);

    // Double-click on `wallid` (kind 1) or `windowid` (kind 2) of shown row
    // `box`. False, after the prompt, without code, building type or climate.
    bool Open(int kind, int box);
    // A click on `id_i`: the surface row takes that catalog row.
    void Pick(int row);
    void Edit(const std::string& column, int row, const std::string& text);
    // OK: the catalog takes the screen's rows and the zone screen comes back.
    void Ok();
    void Undo();

    ScreenFields fields;
    EnvelopeRows rows;
    int PickerKind = 1, PickerRow = 0, PickerSelected = 0;

  private:
    void Load();
    void Show(int row);
    std::string IdOf(int row) const;

    Session& session_;
    Prompt& prompt_;
    ZoneFormController& form_;
    std::array<bool, kPickerRows + 1> edited_{};
};

}  // namespace solvane
