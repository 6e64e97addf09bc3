#include "results/report_tables.h"

#include "core/text_cuts.h"

namespace solvane {

namespace {

bool Begins(const std::string& line, const std::string& prefix) {
    return line.compare(0, prefix.size(), prefix) == 0;
}

// Later sections, in the report's order: a cut whose own end heading is
// missing ends at the next of these that the report has.
const SectionCut kCuts[kTableViews] = {
    {"", {"II.", "III."}, "tabproj.txt"},
    {"II.", {"III."}, "tabzone.txt"},
    {"III.", {"IV. ", "V. ", "VII.", "VIII", "IX."}, "tabsum.txt"},
    {"IV. ", {"V. ", "VII.", "VIII", "IX."}, "tabhvac.txt"},
    {"V. ", {"VII.", "VIII", "IX."}, "tabprof.txt"},
    {"VII.", {"VIII", "IX."}, "tabcost.txt"},
    {"VIII.", {"IX."}, "tabweat.txt"},
    {"IX.", {}, nullptr},
};

const char* const kTitles[kTableViews] = {
    "Project Data",         "Zone Data",     "Monthly Summaries", "Design Data for HVAC Zones",
    "Peak Demand Profiles", "Cost Analysis", "Weather Summary",   "Space Comfort Conditions",
};

// Splits `lines` before each line that `starts` a page.
template <typename Starts>
std::vector<std::vector<std::string>> SplitPages(const std::vector<std::string>& lines,
                                                 Starts starts) {
    std::vector<std::vector<std::string>> pages;
    std::vector<std::string> head;
    for (const std::string& line : lines) {
        if (starts(line, pages.size())) pages.emplace_back();
        (pages.empty() ? head : pages.back()).push_back(line);
    }
    if (!pages.empty()) pages.front().insert(pages.front().begin(), head.begin(), head.end());
    return pages;
}

}  // namespace

const char* TableTitle(TableView view) {
    return kTitles[static_cast<int>(view) - 1];
}

const SectionCut& CutOf(TableView view) {
    return kCuts[static_cast<int>(view) - 1];
}

std::optional<std::vector<std::string>> CutSection(const std::vector<std::string>& report,
                                                   const SectionCut& cut,
                                                   const std::string& ruleText) {
    std::size_t first = 0;
    if (!cut.start.empty()) {
        while (first < report.size() && !Begins(report[first], cut.start)) ++first;
        if (first == report.size()) return std::nullopt;
    }
    std::size_t last = report.size();
    if (!cut.ends.empty()) {
        // The view's own end heading first, then the later ones.
        bool found = false;
        for (const std::string& end : cut.ends) {
            for (std::size_t i = first + 1; i < report.size() && !found; ++i)
                if (Begins(report[i], end)) last = i, found = true;
            if (found) break;
        }
        if (!found) return std::nullopt;
    }
    std::vector<std::string> out;
    for (std::size_t i = first; i < last; ++i) {
        // Page heads stay apart where the form feeds are dropped.
        const std::string& line = report[i];
        if (line == "\f") continue;
        out.push_back(line);
        if (cuts::Mid(line, 5, 6) == "SCHEME") out.push_back(ruleText);
    }
    return out;
}

std::vector<std::string> CompleteLocation(const std::vector<std::string>& lines,
                                          const LocationText& where) {
    std::vector<std::string> out;
    for (const std::string& line : lines) {
        if (Begins(line, "   LOCATION:")) {
            out.push_back("   LOCATION: " + cuts::Left(where.location, 36) + "  " + where.latitude +
                          " Deg.Lat.    " + where.longitude + " Deg.Long.    " + where.timeZone +
                          " Deg.Time.Zone    " + where.elevation + " Above Sea level.");
            continue;
        }
        if (cuts::Mid(line, 75, 14) == "LOCATION:     ") {
            out.push_back(cuts::Left(line, 88) + where.location);
            continue;
        }
        out.push_back(line);
        if (Begins(line, " ANALYSIS FOR:")) out.push_back(std::string(15, ' ') + where.location);
    }
    return out;
}

std::vector<std::vector<std::string>> SplitZonePages(const std::vector<std::string>& lines) {
    return SplitPages(lines, [](const std::string& line, std::size_t) {
        return cuts::Mid(line, 5, 4) == "ZONE";
    });
}

std::vector<std::vector<std::string>> SplitComfortPages(const std::vector<std::string>& lines) {
    return SplitPages(
        lines, [](const std::string& line, std::size_t) { return Begins(line, "*** PROJECT:"); });
}

std::vector<std::vector<std::string>> SplitWeatherPages(const std::vector<std::string>& lines) {
    // Two pages: the monthly summary, then from the first "DAILY" line on.
    auto pages = SplitPages(lines, [](const std::string& line, std::size_t count) {
        return count == 0 || (count == 1 && cuts::Mid(line, 2, 5) == "DAILY");
    });
    return pages;
}

std::string PageFileName(TableView view, int n) {
    const std::string number = std::to_string(n);
    if (view == TableView::SpaceComfort) return number + ".flt";
    if (view == TableView::WeatherSummary) return number + "wth.txt";
    return number + ".txt";
}

}  // namespace solvane
