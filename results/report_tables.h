// The printed report cut into its sections for the `tabular` screen: each
// view copies its lines out of \temp\ecalc$.out between two section headings
// into a file of its own under \temp, and the paged views split that file
// further into one page a zone (or two weather pages).
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session.h"

namespace solvane {

// The views, numbered as the hub's Table menu.
enum class TableView {
    ProjectData = 1,
    ZoneData,
    MonthlySummaries,
    HvacDesign,
    PeakProfiles,
    CostAnalysis,
    WeatherSummary,
    SpaceComfort,
};
inline constexpr int kTableViews = 8;

// The view's title, as the window shows it after " -- ".
const char* TableTitle(TableView view);

// The section cut of a view: from the first line that begins with `start`
// (empty: the file's start) up to, not including, the first later line that
// begins with one of `ends` (none: the end of the file). The first end is the
// view's own; the others stand for a report that leaves out an optional
// section (the cost analysis of a project without economics).
struct SectionCut {
    std::string start;
    std::vector<std::string> ends;
    const char* file;  // under \temp; none for the comfort section, kept by zone only
};
const SectionCut& CutOf(TableView view);

// The lines of a cut, with the page heads kept apart: a line with "SCHEME" at
// columns 5-10 is followed by `ruleText`. Nothing when the start heading, or
// every end heading, is missing.
std::optional<std::vector<std::string>> CutSection(const std::vector<std::string>& report,
                                                   const SectionCut& cut,
                                                   const std::string& ruleText);

// What the project data page prints about the location.
struct LocationText {
    std::string location;  // ProjectData(3)
    std::string latitude, longitude, timeZone, elevation;
};
// Rewrites the location lines of a project data or zone cut so that the
// location reads whole.
std::vector<std::string> CompleteLocation(const std::vector<std::string>& lines,
                                          const LocationText& where);

// The pages of a paged view: the zone data split at the lines with "ZONE" at
// columns 5-8; the comfort section at its "*** PROJECT:" page heads; the
// weather summary at its first "DAILY" line (columns 2-6). Lines before the
// first split stay at the head of the first page.
std::vector<std::vector<std::string>> SplitZonePages(const std::vector<std::string>& lines);
std::vector<std::vector<std::string>> SplitComfortPages(const std::vector<std::string>& lines);
std::vector<std::vector<std::string>> SplitWeatherPages(const std::vector<std::string>& lines);

// The file of page `n` (from 1) of a paged view: "<n>.txt", "<n>.flt" or
// "<n>wth.txt".
std::string PageFileName(TableView view, int n);

}  // namespace solvane
