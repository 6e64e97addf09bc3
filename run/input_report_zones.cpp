// Sections I and II of the input report: the building's data and, zone by
// zone, its loads, systems, profiles and surfaces, each closed by the code
// compliance figures.
#include "core/numeric_helpers.h"
#include "run/report_layout.h"

namespace solvane::report {

namespace {

std::string Trimmed(std::string_view text) {
    const std::size_t a = text.find_first_not_of(' ');
    if (a == std::string_view::npos) return {};
    return std::string(text.substr(a, text.find_last_not_of(' ') - a + 1));
}

bool IsYes(std::string_view text) {
    return Trimmed(text).rfind("Y", 0) == 0 || Trimmed(text).rfind("y", 0) == 0;
}

// The floor of a zone number "3-12".
int FloorOf(const std::string& zoneNumber) {
    return static_cast<int>(NumVal(zoneNumber.substr(0, zoneNumber.find('-'))));
}

// The zone's outdoor air as the profile line prints it: number and unit of
// its prefix.
std::string OutdoorAirText(const std::string& field, bool si) {
    const std::string t = Trimmed(field);
    const std::string prefix = t.substr(0, 2);
    const bool prefixed = prefix == "CP" || prefix == "CS" || prefix == "PA";
    const std::string number = NumText(RoundOff(NumVal(prefixed ? t.substr(2) : t), 3));
    if (prefix == "CS") return number + (si ? " L/S.SQ.M." : " CFM/SQ.FT.");
    if (prefix == "PA") return number + " % O.A.";
    return number + (si ? " L/S.PERSON" : " CFM/PERSON");
}

void BuildingData(Page& p, const ReportFiles& files) {
    LineWriter& out = p.out;
    const auto& d = p.model.ProjectData;
    const bool si = p.si();
    out.Column(5).Text("BUILDING DATA .....").EndLine();
    out.Column(9).Text("FLOOR AREA").Column(22).Text("CONST. COST").Column(36).Text("OCC. DAYS");
    out.Column(48).Text("ANNUAL").Column(62).Text("EXTERIOR LIGHTING KW and HRS PER DAY..");
    out.Column(108).Text("NO. OF").EndLine();
    out.Column(10)
        .Text(si ? "(SQ.M.)" : "(SQ.FT.)")
        .Column(23)
        .Text(si ? "($/SQ.M.)" : "($/SQ.FT.)");
    out.Column(36).Text("PER WEEK").Column(48).Text("HOLIDAYS");
    out.Column(62).Text("KW1--Hrs/Day    KW2--Hrs/Day    KW3--Hrs/Day");
    out.Column(108).Text("FLOORS").EndLine();
    out.Column(9).Text(MaskedText(d[kFloorArea], 0, 10));
    out.Column(22).Text(MaskedText(d[kConCost], 2, 11));
    out.Column(36).Text(MaskedText(d[kOccDays], 0, 8));
    out.Column(48).Text(MaskedText(d[kHolidays], 0, 8));
    out.Column(59).Text("    0.0    0.0      0.0    0.0      0.0   0.0");
    out.Column(110).Text(NumText(files.floors)).EndLine();
}

void ZoneHead(Page& p, int z, const ReportFiles& files) {
    LineWriter& out = p.out;
    const ProjectModel& m = p.model;
    const auto& f = m.zones.ZoneData[z];
    const bool si = p.si();
    const double area = NumVal(f[3]);
    out.Column(5).Text("ZONE").Column(11).Text(m.zones.ZoneNumber[z]);
    out.Column(15).Text(Cut(m.zones.ZoneName[z], 23)).Column(39).Text("NATURAL VENT.= ");
    if (IsYes(m.zones.ZoneNatVent[z]))
        out.Text(NumText(RoundOff(NumVal(f[22]) * area, 0)) + (si ? " L/S" : " CFM"));
    else
        out.Text("No");
    const int floor = FloorOf(m.zones.ZoneNumber[z]);
    const float height = floor >= 1 && floor < static_cast<int>(files.roomHeight.size())
                             ? files.roomHeight[static_cast<std::size_t>(floor)]
                             : 0.0f;
    out.Column(70).Text("CEIL.HT.= " + NumText(RoundOff(height, 1)) + (si ? " M." : " FT"));
    out.Column(90).Text("INF.RATE= " + NumText(RoundOff(NumVal(f[23]), 2)) + " AC/HR");
    out.Column(114).Text("DAYLIGHTING= " +
                         std::string(IsYes(m.zones.ZoneDaylight[z]) ? "Yes" : "No"));
    out.EndLine().Line();
}

void ZoneSystems(Page& p, int z, const ReportFiles& files) {
    LineWriter& out = p.out;
    const ProjectModel& m = p.model;
    const auto& f = m.zones.ZoneData[z];
    const bool si = p.si();
    out.Column(8)
        .Text("FLOOR AREA")
        .Column(21)
        .Text("INT. MASS")
        .Column(33)
        .Text("HVAC SYSTEM TYPE");
    out.Column(55).Text("ECONO-").Column(64).Text("SYSTEM COST").Column(80).Text("H.W. FUEL");
    out.Column(93).Text("SPACE HEAT").Column(107).Text("LIGHTING SYSTEM & COST").EndLine();
    out.Column(9)
        .Text(si ? "(SQ.M.)" : "(SQ.FT.)")
        .Column(20)
        .Text(si ? "(KG/SQ.M.)" : "(LB/SQ.FT.)");
    out.Column(33).Text(si ? "(COP & FAN S.P.)" : "(SEER & FAN S.P.)").Column(55).Text("MIZER");
    out.Column(66).Text("($/TON)").Column(80).Text("(C.O.P.)").Column(94).Text("(C.O.P.)");
    out.Column(107).Text("TYPE").Column(123).Text(si ? "($/SQ.M.)" : "($/SQ.FT.)").EndLine();
    PrintRule(out, 1);

    const int heating = static_cast<int>(NumVal(f[21]));
    const bool fuelKnown = heating >= 1 && heating <= 3;
    // The fuel's name without its qualifier: "Gas" of "Gas / fossil".
    std::string fuel = fuelKnown ? files.fuelName[static_cast<std::size_t>(heating)] : "";
    fuel = fuel.substr(0, fuel.find(" /"));
    out.Column(6).Text(MaskedText(f[3], 0, 10)).Column(21).Text(MaskedText(f[4], 1, 8));
    out.Column(31).Text(Cut(HvacTypeName(static_cast<int>(NumVal(f[20]))), 24));
    out.Column(56).Text(IsYes(m.zones.ZoneEconCycle[z]) ? "Yes" : "No");
    out.Column(64).Text("1st COST = " + MaskedText(f[29], 0, 5));
    out.Column(82).Text(Cut(fuel, 12)).Column(95).Text(Cut(fuel, 11));
    out.Column(107).Text(Cut(LightTypeName(static_cast<int>(NumVal(f[11]))), 19));
    out.Column(127).Text(MaskedText(f[12], 2, 5)).EndLine();

    out.Column(30).Text(std::string(si ? "(COP = " : "(SEER= ") +
                        NumText(RoundOff(NumVal(f[27]), 2)) + ", " +
                        "S.P.=" + NumText(RoundOff(NumVal(f[26]), 2)) + "w.g.)");
    out.Column(64).Text("Ann.Maint= " + MaskedText(f[30], 0, 5));
    const std::string hw =
        fuelKnown ? Trimmed(files.fuelEfficiency[static_cast<std::size_t>(heating)]) : "";
    out.Column(84).Text("(" + (hw.empty() ? NumText(RoundOff(NumVal(f[28]), 2)) : hw) + ")");
    out.Column(97).Text("(" + NumText(RoundOff(NumVal(f[28]), 2)) + ")").EndLine();
}

// Title of each profile type as the zone page prints it, and the zone field
// that selects its group.
struct ProfileKind {
    const char* title;
    int field;
};
constexpr ProfileKind kProfileKinds[] = {
    {"OCCUPANCY", 6},           {"HOT WATER", 8},    {"LIGHTING", 14},
    {"RECEPTACLES", 16},        {"VENTILATION", 17}, {"COOLING THERMOSTAT", 18},
    {"HEATING THERMOSTAT", 19},
};

// The profile's figures as numbers.
std::vector<double> ProfileFigures(const std::string& profile) {
    std::vector<double> v;
    for (std::size_t at = 0; at + 4 <= profile.size() && v.size() < 24; at += 4)
        v.push_back(NumVal(profile.substr(at, 4)));
    return v;
}

// What the zone asks of the profile type, with its unit.
std::string ProfileValue(const ProjectModel& m, int z, int type, const std::string& weekday) {
    const auto& f = m.zones.ZoneData[z];
    const bool si = m.session.Units == 2;
    const auto number = [&](int field, int digits) {
        return NumText(RoundOff(NumVal(f[field]), digits));
    };
    switch (type) {
        case kOccupancy:
            return number(5, 0) + " PEOPLE";
        case kHotWater:
            return number(7, 2) + (si ? " LIT/PERSON" : " GAL/PERSON");
        case kLights:
            return number(13, 2) + (si ? " W/SQ.M." : " W/SQ.FT.");
        case kReceptacles:
            return number(15, 2) + (si ? " W/SQ.M." : " W/SQ.FT.");
        case kFans:
            return OutdoorAirText(f[9], si);
        default:
            break;
    }
    // A thermostat: its occupied set point on weekdays.
    const std::vector<double> v = ProfileFigures(weekday);
    if (v.empty()) return "";
    const double setPoint = type == kCoolStat ? *std::min_element(v.begin(), v.end())
                                              : *std::max_element(v.begin(), v.end());
    return NumText(RoundOff(setPoint, 1)) + (si ? " DEG.C" : " DEG.F");
}

void ZoneProfiles(Page& p, int z) {
    LineWriter& out = p.out;
    const ProjectModel& m = p.model;
    static const std::string kHours =
        "1a  2a  3a  4a  5a  6a  7a  8a  9a 10a 11a 12N  1p  2p  3p  4p  5p  6p  7p  8p  9p 10p "
        "11p 12M";
    std::string dashes = kHours;
    for (char& c : dashes)
        if (c != ' ') c = '-';
    out.Line();
    out.Column(5).Text("** 24 HOUR ZONE PROFILES:").Column(36).Text(kHours).EndLine();
    out.Column(36).Text(dashes).EndLine();
    static const FixedLabels labels = MakeFixedLabels();
    for (int type = 1; type <= kProfileTypes; ++type) {
        const ProfileKind& kind = kProfileKinds[type - 1];
        const auto& table = m.profiles.Types[static_cast<std::size_t>(type)];
        const int group = static_cast<int>(NumVal(m.zones.ZoneData[z][kind.field]));
        const bool set = group >= 1 && group <= kProfileGroups &&
                         !Trimmed(table.GroupNum[static_cast<std::size_t>(group)]).empty();
        if (!set) {
            out.Column(5).Text(std::string(kind.title) + " profile missing!").EndLine();
            p.warnings.push_back(std::string(kind.title) + " has not been clicked in zone " +
                                 m.zones.ZoneNumber[z] +
                                 ".  Return to zone description and check profiles.");
            continue;
        }
        const auto& days = table.Profile[static_cast<std::size_t>(group)];
        out.Column(5).Text(
            Cut(std::string(kind.title) + " = " + ProfileValue(m, z, type, days[1]), 39));
        out.Column(45).Text("Profiles are for " +
                            Cut(m.profiles.ProfileGroupName[static_cast<std::size_t>(group)], 30) +
                            ": weekdays, Saturday, Sunday");
        out.EndLine();
        for (int day = 1; day <= kDayTypes; ++day) {
            std::string label = labels.DayTypeLabel[static_cast<std::size_t>(day)];
            label.erase(std::remove(label.begin(), label.end(), '"'), label.end());
            out.Column(26).Text(label).Column(33).Text(days[static_cast<std::size_t>(day)]);
            out.EndLine();
        }
    }
}

// "H" for an overhang (a shading figure after "T"), "L" for a light shelf
// named in the surface's S/W/B text.
std::string OverhangSymbol(const SurfaceState& s, int z, int i) {
    std::string symbol;
    const std::string& shade = s.SurfShade[z][i];
    const std::size_t t = shade.find_first_of("Tt");
    if (t != std::string::npos && NumVal(shade.substr(t + 1)) > 0) symbol += "H";
    if (s.SurfSWB[z][i].find_first_of("Ll") != std::string::npos) symbol += "L";
    return symbol;
}

// The kind of a surface by its exposure: wall, roof, slab edge or floor,
// below grade.
const char* SurfaceKind(int exposure) {
    if (exposure >= 1 && exposure <= 5) return "W";
    if (exposure == 6) return "R";
    if (exposure == 7) return "F";
    return exposure >= 71 ? "B" : " ";
}

void ZoneSurfaces(Page& p, int z) {
    LineWriter& out = p.out;
    const ProjectModel& m = p.model;
    const SurfaceState& s = m.surfaces;
    static const FixedLabels labels = MakeFixedLabels();
    out.Line();
    out.Column(9).Text("MATERIAL DATA:").Column(36).Text("OPAQUE").EndLine();
    out.Column(6).Text("I.D.   NAME");
    out.Column(37).Text(
        "AREA    ORIENT  GROUND   SHADES    WINDOW I.D., Name & Overhang Symbol.    Area");
    out.Column(122).Text("SLOPE").EndLine();
    const int count = m.zones.ZoneSurfaceCount[z];
    if (count <= 0) {
        out.Column(9).Text("INTERNAL ZONE - NO EXTERNAL WALL DATA.").EndLine();
    }
    for (int i = 1; i <= count; ++i) {
        const int wall = s.SurfWallId[z][i];
        const int exposure = s.SurfExposure[z][i];
        out.Column(5).Text(SurfaceKind(exposure)).Column(7).Text(FormatField(NumText(wall), "@@"));
        out.Column(10).Text(
            Cut(wall >= 1 && wall <= kMaxCatalog ? m.walls.WallDescription[wall] : "", 24));
        out.Column(35).Text(Masked(s.SurfArea[z][i], 0, 8));
        out.Column(45).Text(FormatField(NumText(s.SurfOrient[z][i]), "@@@@"));
        out.Column(51).Text(exposure >= 0 && exposure <= 76
                                ? labels.GroundCoverLabel[static_cast<std::size_t>(exposure)]
                                : "");
        out.Column(60).Text(Cut(Trimmed(s.SurfShade[z][i]), 13));
        const int window = s.SurfWindowId[z][i];
        if (window > 0 && s.SurfWindowArea[z][i] > 0) {
            const std::string name =
                window <= kMaxCatalog ? m.windows.WindowDescription[window] : "";
            out.Column(74).Text(FormatField(NumText(window), "@@@@"));
            out.Column(79).Text(Cut(name, 29) + " " + OverhangSymbol(s, z, i));
            out.Column(112).Text(Masked(s.SurfWindowArea[z][i], 0, 8));
        }
        out.Column(122).Text(Masked(s.SurfSlope[z][i], 0, 5)).EndLine();
    }
    out.Line();
    out.Column(82).Text("SYMBOL NOTE:  H=Overhang,  L=Lightshelf").EndLine();
}

}  // namespace

void BuildingSection(Page& p, const ReportFiles& files) {
    LineWriter& out = p.out;
    NewPage(p);
    out.Line();
    out.Line("I.  P R O J E C T   A N D   B U I L D I N G   D A T A");
    out.Line("    -------------------------------------------------");
    out.Line();
    BuildingData(p, files);
    ComplianceBlock(p, BuildingCompliance(p.model), true);
}

void ZoneSection(Page& p, const ReportFiles& files) {
    LineWriter& out = p.out;
    const ProjectModel& m = p.model;
    bool first = true;
    for (int z = 1; z <= m.zones.NumZones; ++z) {
        if (m.zones.ZoneNumber[z].empty()) continue;
        NewPage(p);
        out.Line();
        if (first) {
            out.Line("II.  Z O N E - B Y - Z O N E   P R O P E R T I E S");
            out.Line("     ---------------------------------------------");
            out.Line();
            first = false;
        }
        ZoneHead(p, z, files);
        ZoneSystems(p, z, files);
        ZoneProfiles(p, z);
        ZoneSurfaces(p, z);
        ComplianceBlock(p, ZoneCompliance(m, z), false);
    }
}

}  // namespace solvane::report
