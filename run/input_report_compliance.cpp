#include "run/input_report_compliance.h"

#include "core/numeric_helpers.h"
#include "run/report_layout.h"

namespace solvane {

namespace {

double WallU(const ProjectModel& m, int id) {
    return id >= 1 && id <= kMaxCatalog ? NumVal(m.walls.WallUFactor[id]) : 0;
}
double WindowU(const ProjectModel& m, int id) {
    return id >= 1 && id <= kMaxCatalog ? NumVal(m.windows.WindowUFactor[id]) : 0;
}

}  // namespace

ComplianceFigures& ComplianceFigures::operator+=(const ComplianceFigures& o) {
    roofUA += o.roofUA;
    roofArea += o.roofArea;
    skylightArea += o.skylightArea;
    wallUA += o.wallUA;
    wallArea += o.wallArea;
    windowArea += o.windowArea;
    watts += o.watts;
    floorArea += o.floorArea;
    outdoorAir += o.outdoorAir;
    people += o.people;
    return *this;
}

double ZoneOutdoorAir(const ProjectModel& m, int z) {
    const auto& f = m.zones.ZoneData[z];
    const std::string& oa = f[9];
    const std::size_t p = oa.find_first_not_of(' ');
    const std::string prefix = p == std::string::npos ? "" : oa.substr(p, 2);
    const bool prefixed = prefix == "CP" || prefix == "CS" || prefix == "PA";
    const double value = NumVal(prefixed ? oa.substr(p + 2) : oa);
    const double area = NumVal(f[3]);
    if (prefix == "CS") return value * area;
    if (prefix == "PA") return value / 100 * area * (m.session.Units == 2 ? 5.0799972 : 1.0);
    return value * NumVal(f[5]);
}

ComplianceFigures ZoneCompliance(const ProjectModel& m, int z) {
    ComplianceFigures c;
    const auto& s = m.surfaces;
    for (int i = 1; i <= m.zones.ZoneSurfaceCount[z]; ++i) {
        const int exposure = s.SurfExposure[z][i];
        if (exposure < 1 || exposure > 6) continue;  // floors, slab edges, below grade
        const double area = s.SurfArea[z][i];
        const double glass = std::min<double>(s.SurfWindowArea[z][i], area);
        const double ua = WallU(m, s.SurfWallId[z][i]) * (area - glass) +
                          WindowU(m, s.SurfWindowId[z][i]) * glass;
        if (exposure == 6) {
            c.roofUA += ua;
            c.roofArea += area;
            c.skylightArea += glass;
        } else {
            c.wallUA += ua;
            c.wallArea += area;
            c.windowArea += glass;
        }
    }
    const auto& f = m.zones.ZoneData[z];
    c.floorArea = NumVal(f[3]);
    c.watts = NumVal(f[13]) * c.floorArea;
    c.people = NumVal(f[5]);
    c.outdoorAir = ZoneOutdoorAir(m, z);
    return c;
}

ComplianceFigures BuildingCompliance(const ProjectModel& m) {
    ComplianceFigures total;
    for (int z = 1; z <= m.zones.NumZones; ++z)
        if (!m.zones.ZoneNumber[z].empty()) total += ZoneCompliance(m, z);
    return total;
}

namespace report {

namespace {

// One figure: its label at `column`, the value right-aligned behind it in
// `width` columns.
void Figure(LineWriter& out, int column, const char* label, double value, int digits,
            int width = 10) {
    out.Column(column).Text(label).Text(Masked(value, digits, width));
}

}  // namespace

// The compliance block; `building` chooses the lighting labels.
void ComplianceBlock(Page& p, const ComplianceFigures& c, bool building) {
    LineWriter& out = p.out;
    const bool si = p.si();
    out.Line();
    out.Column(5).Text("CODE COMPLIANCE CHECKING INFORMATION:").EndLine();
    out.Column(10).Text(si ? "UA(Watts/deg.K)" : "UA(Btu/hr/deg.F)");
    out.Column(30).Text(si ? "Area(sq.m.)" : "Area(sq.ft.)");
    out.Column(50).Text(si ? "U-ave(Watts/sq.m./deg.K)" : "U-ave(Btu/hr/sq.ft./deg.F)").EndLine();
    out.Column(10).Text(std::string(si ? 15 : 16, '-'));
    out.Column(30).Text(std::string(si ? 11 : 12, '-'));
    out.Column(50).Text(std::string(si ? 24 : 26, '-')).EndLine();
    out.Column(7).Text("Total Envelope:").EndLine();
    // UA, area and average U of a part of the envelope, then its glass.
    const auto part = [&out](const char* ua, const char* area, const char* u, double uaValue,
                             double areaValue, const double* glass, double percent) {
        Figure(out, 10, ua, uaValue, 1);
        Figure(out, 30, area, areaValue, 0);
        Figure(out, 50, u, areaValue > 0 ? uaValue / areaValue : 0, 4);
        out.EndLine();
        if (!glass) return;
        Figure(out, 30, "Glass A=", *glass, 0);
        Figure(out, 50, "% Glass=", percent, 1);
        out.EndLine();
    };
    part("Roof UA=", "Roof A=", "Ur=", c.roofUA, c.roofArea, &c.skylightArea, c.SkylightPercent());
    part("Wall UA=", "Wall A=", "Uw=", c.wallUA, c.wallArea, &c.windowArea, c.WindowPercent());
    part("Env  UA=", "Env  A=", "Uo=", c.EnvelopeUA(), c.EnvelopeArea(), nullptr, 0);
    out.Column(7).Text("Lighting:").EndLine();
    Figure(out, 9, building ? "Total Bldg Watts =" : "Total Zone Watts =", c.watts, 0, 12);
    out.EndLine();
    Figure(out, 9, building ? "Bldg Floor Area  =" : "Zone Floor Area  =", c.floorArea, 0, 12);
    out.Text(si ? " Sq.m." : " Sq.Ft.").EndLine();
    Figure(out, 9, "LPD (LtgPwrDens) =", c.LightingPowerDensity(), 2, 12);
    out.Text(si ? " W/sq.m." : " W/sq.ft.").EndLine();
    out.Column(7).Text("Ventilation Rate:").EndLine();
    Figure(out, 9, "Total Design Cap.=", c.outdoorAir, 0, 12);
    out.Text(si ? " L/s" : " CFM").EndLine();
    Figure(out, 9, "Total Occupancy  =", c.people, 0, 12);
    out.Text(" people").EndLine();
    Figure(out, 9, "Rate per person  =", c.AirPerPerson(), 1, 12);
    out.Text(si ? " L/s/person" : " CFM/person").EndLine();
    Figure(out, 9, "Rate per FlrArea =", c.AirPerArea(), 3, 12);
    out.Text(si ? " L/s/sq.m." : " CFM/sq.ft.").EndLine();
}

}  // namespace report

}  // namespace solvane
