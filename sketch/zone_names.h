// The `zonename` screen: the list of the zones the sketch produced, from
// which a zone is picked and opened, and the return to the hub.
#pragma once

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

}  // namespace solvane
