// The report's cost parts: the cost columns of the monthly table of III.
// and section VII. (cost analysis).
//
// Monthly table columns (from 1): peak electric demand kW 63-70, water
// drawn 71-78 (1000 gal, or m3 in SI), then in whole dollars gas 80-87,
// water 89-96, demand charge 97-104 (part of the electric cost), electric
// 105-113 and total 114-122. Under the "=" rule, the energy totals line
// leaves the dollar columns blank; the line after it ("COST") holds the
// period's dollars in the same columns.
#pragma once

#include "core/line_writer.h"
#include "engine/costs.h"
#include "engine/report.h"

namespace solvane::engine {

// The two heading lines' part over the cost columns (units, then names).
void CostColumnUnits(LineWriter& out, bool si);
void CostColumnNames(LineWriter& out);
// One month's figures from column 63.
void CostColumns(LineWriter& out, const MonthlyBill& bill, bool si);
// The period's demand peak and water on the energy totals line.
void CostTotalsOnEnergyLine(LineWriter& out, const MonthlyBill& period, bool si);
// The "COST" line under the energy totals.
void CostTotalsLine(LineWriter& out, const MonthlyBill& period);

// VII.: prices and demand schedule, the bills by month, the zones' HVAC
// costs and the life-cycle cost.
void CostSection(LineWriter& out, const CostResults& c, const ReportContext& ctx);

}  // namespace solvane::engine
