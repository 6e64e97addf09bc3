// Page furniture shared by the pieces of the input report: the page head,
// form feeds and the masked number fields of the line-printer layout.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/line_writer.h"
#include "core/project_model.h"
#include "run/input_report.h"
#include "run/input_report_compliance.h"

namespace solvane::report {

// Where the pieces write, with what they share.
struct Page {
    LineWriter& out;
    const ProjectModel& model;
    const ReportStamp& stamp;
    int& number;  // the report's page counter
    std::vector<std::string>& warnings;
    bool si() const { return model.session.Units == 2; }
};

// The character 12 as a line of its own.
void FormFeed(LineWriter& out);
// Page number line and the four lines of project identity.
void PageHead(Page& p);
// Form feed, then a new head.
void NewPage(Page& p);

// A number rounded to `digits` decimals, right-aligned in a field of `width`.
std::string Masked(double value, int digits, int width);
// The number of a text field, the same way.
std::string MaskedText(std::string_view text, int digits, int width);
// At most `width` characters of a text.
std::string Cut(std::string_view text, std::size_t width);

// Names the report prints for the numbered choices of a zone.
std::string HvacTypeName(int type);
std::string LightTypeName(int type);

// The pieces, in the order the report prints them.
void EconomicsPage(Page& p);
void CatalogPages(Page& p, const ReportFiles& files);
void BuildingSection(Page& p, const ReportFiles& files);
void ZoneSection(Page& p, const ReportFiles& files);
void ComplianceBlock(Page& p, const ComplianceFigures& c, bool building);

}  // namespace solvane::report
