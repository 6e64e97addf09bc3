#include "sketch/zone_names.h"

#include <string>

namespace solvane {

FieldState& ZoneListCell(ScreenFields& fields, int row, int column) {
    return fields.At("MSFlexGrid1_" + std::to_string(row), column);
}

void ClearZoneList(ScreenFields& fields, int firstRow) {
    for (int row = firstRow; row <= 99; ++row)
        for (int c = 0; c < kZoneListColumns; ++c) ZoneListCell(fields, row, c).text.clear();
}

}  // namespace solvane
