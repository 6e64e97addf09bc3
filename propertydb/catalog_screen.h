// The `catalog` screen: the wall or window catalog as a whole, 20 rows at a
// time, with Reload from the climate file, OK into the project's catalog and
// Cancel.
#pragma once

#include <string>
#include <utility>

#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

// Boxes `id_i`, `Des_i`, `UF_i`, `Absp_i`, `lag_i`, `decr_i`, `cost_i` for the
// shown rows i = 1..20 (row `scrollTop` + i of the catalog), headings `Btype`,
// `Cat`, `code`, `CZone`, column captions `caption_1` .. `caption_6`.
class CatalogController {
  public:
    CatalogController(Session& session, Prompt& prompt);

    // kind 1 walls, 2 windows (`CatalogKind`). False, after the prompt, when
    // code, building type or climate is missing: the hub comes back.
    bool Open(int kind);
    // A box typed in; `row` counts the shown rows from 1.
    void Edit(const std::string& column, int row, const std::string& text);
    // `envscroll`: the first catalog row shown is `top` + 1.
    void Scroll(int top);
    // Reload: the warning, then the rows again from the climate file; false on Cancel.
    bool ReloadEnvelopeDefaults();
    Navigation Ok();
    Navigation Cancel();
    // The help file and its title.
    std::pair<std::string, std::string> Help() const;

    int Kind() const { return kind_; }
    // All rows of the screen, 1..50; the boxes show a window of 20 of them.
    EnvelopeRows rows;
    ScreenFields fields;

  private:
    void Fill();
    void ShowRows();
    void ToCatalog(int lastRow);
    Session& session_;
    Prompt& prompt_;
    int kind_ = 1;
    int scrollTop_ = 0;
};

}  // namespace solvane
