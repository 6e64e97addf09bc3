// The catalog pages of the input report: the wall and window types of the
// project, the HVAC systems table of the code and the light shelves.
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "run/report_layout.h"

namespace solvane::report {

namespace {

// Lines the light shelf listing puts on one page below its head.
constexpr int kShelfLinesPerPage = 50;

std::string Figure(const std::string& text) {
    return NumText(RoundOff(NumVal(text), 4));
}

void Heading(LineWriter& out, const char* title) {
    out.Line();
    out.Column(5).Text(title).EndLine();
    out.Column(5).Text(std::string(std::string_view(title).size(), '-')).EndLine();
}

void MaterialCatalog(Page& p) {
    LineWriter& out = p.out;
    const WallCatalog& w = p.model.walls;
    Heading(out, "MATERIAL DESCRIPTIONS CATALOG:");
    out.Column(9).Text("MATL").Column(77).Text("U-").Column(87).Text("SOLAR");
    out.Column(98).Text("TIME").Column(107).Text("DECREMENT").Column(123).Text("COST").EndLine();
    out.Column(10).Text("ID").Column(17).Text("NAME").Column(75).Text("FACTOR");
    out.Column(84).Text("ABSORPTIVITY").Column(98).Text("LAG").Column(108).Text("FACTOR");
    out.Column(121).Text(p.si() ? "($/SQ.M.)" : "($/SQ.FT)").EndLine();
    for (int i = 1; i <= kMaxCatalog; ++i) {
        if (!w.WallUsed[i]) continue;
        out.Column(10).Text(w.WallId[i]).Column(17).Text(Cut(w.WallDescription[i], 56));
        out.Column(76).Text(Figure(w.WallUFactor[i])).Column(87).Text(Figure(w.WallSolarAbs[i]));
        out.Column(97).Text(Figure(w.WallTimeLag[i])).Column(109).Text(Figure(w.WallDecrement[i]));
        out.Column(123).Text(Figure(w.WallInsCost[i])).EndLine();
    }
}

void WindowCatalog(Page& p) {
    LineWriter& out = p.out;
    const auto& w = p.model.windows;
    Heading(out, "WINDOW DESCRIPTIONS CATALOG:");
    out.Column(9).Text("WINDOW").Column(77).Text("U-").Column(87).Text("SOLAR HT.");
    out.Column(107).Text("DAYLIGHT").Column(123).Text("COST").EndLine();
    out.Column(10).Text("ID").Column(17).Text("NAME").Column(75).Text("FACTOR");
    out.Column(84).Text("GN. COEF.").Column(98).Text("EMISSIVITY").Column(108).Text("TRANS.");
    out.Column(121).Text(p.si() ? "($/SQ.M.)" : "($/SQ.FT.)").EndLine();
    for (int i = 1; i <= kMaxCatalog; ++i) {
        if (!w.WindowUsed[i]) continue;
        out.Column(10).Text(w.WindowId[i]).Column(17).Text(Cut(w.WindowDescription[i], 56));
        out.Column(76).Text(Figure(w.WindowUFactor[i])).Column(87).Text(Figure(w.WindowSHGC[i]));
        out.Column(97).Text(Figure(w.WindowEmissivity[i]));
        out.Column(109).Text(Figure(w.WindowDLTrans[i]));
        out.Column(123).Text(Figure(w.WindowInsCost[i])).EndLine();
    }
}

// The code's short name: "90.1-2019" of "90.1-2019 (Latest Version)".
std::string StandardName(const std::string& codeName) {
    return codeName.substr(0, codeName.find(' '));
}

void HvacCatalog(Page& p, const ReportFiles& files) {
    LineWriter& out = p.out;
    NewPage(p);
    out.Line();
    out.Column(2)
        .Text("HVAC SYSTEMS CATALOG: Compliant with ASHRAE Standard " +
              StandardName(p.model.session.CodeName))
        .EndLine();
    out.Line();
    for (const auto& line : SplitLines(files.hvacSystems)) out.Line(line);
}

void LightShelves(Page& p, const ReportFiles& files) {
    const auto lines = SplitLines(files.lightShelves);
    if (lines.empty()) return;
    LineWriter& out = p.out;
    out.Line();
    int onPage = 0;
    for (const auto& line : lines) {
        if (onPage == kShelfLinesPerPage) {
            out.Column(55).Text("(Continued)").EndLine();
            NewPage(p);
            out.Line();
            onPage = 0;
        }
        out.Column(5).Text(line).EndLine();
        ++onPage;
    }
}

}  // namespace

void CatalogPages(Page& p, const ReportFiles& files) {
    NewPage(p);
    MaterialCatalog(p);
    WindowCatalog(p);
    HvacCatalog(p, files);
    LightShelves(p, files);
}

}  // namespace solvane::report
