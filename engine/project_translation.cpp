#include "engine/project_translation.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <stdexcept>

#include "core/numeric_helpers.h"
#include "core/unit_factors.h"
#include "engine/assembly.h"
#include "engine/daylighting.h"

namespace solvane::engine {
namespace {

constexpr double kWPerBtuh = 1.0 / 3.412141;
constexpr double kFt2ToM2 = 0.09290304;
constexpr double kFtToM = 0.3048;
constexpr double kCfmToM3s = 0.00047194744;
constexpr double kGallonToM3 = 0.003785411784;

// Numbers of a text, split at blanks and at a minus sign that follows a digit.
std::vector<double> Numbers(const std::string& text) {
    std::vector<double> out;
    std::string cur;
    auto flush = [&] {
        if (!cur.empty()) out.push_back(NumVal(cur));
        cur.clear();
    };
    for (char c : text) {
        if (c == ' ' || c == ',' || c == '\t') {
            flush();
        } else if (c == '-' && !cur.empty()) {
            flush();
            cur = "-";
        } else {
            cur += c;
        }
    }
    flush();
    return out;
}

// One shading word: letter and number.
struct ShadeWord {
    char letter = 'N';
    double value = 0;
};
std::vector<ShadeWord> ShadeWords(const std::string& text) {
    std::vector<ShadeWord> words;
    std::size_t i = 0;
    while (i < text.size()) {
        while (i < text.size() && text[i] == ' ') ++i;
        if (i >= text.size()) break;
        ShadeWord w;
        w.letter = static_cast<char>(std::toupper(static_cast<unsigned char>(text[i])));
        ++i;
        std::string num;
        while (i < text.size() && text[i] != ' ' &&
               !std::isalpha(static_cast<unsigned char>(text[i])))
            num += text[i++];
        w.value = NumVal(num);
        words.push_back(w);
    }
    return words;
}

// Ground reflectance by the cover of exposure codes 1 to 5 (asphalt,
// concrete, grass, trees, water), ASHRAE Fundamentals (2017) ch. 14.
double CoverReflectance(int exposure) {
    switch (exposure) {
        case 1:
            return 0.10;
        case 2:
            return 0.30;
        case 3:
            return 0.20;
        case 4:
            return 0.15;
        case 5:
            return 0.07;
        default:
            return 0.20;
    }
}

WeekProfile ProfileOf(const ProfileTable& t, int group, double scale, double offset) {
    WeekProfile p;
    for (int day = 1; day <= 3; ++day) {
        const std::string& text =
            (group >= 1 && group <= kProfileGroups) ? t.Profile[group][day] : std::string();
        for (int h = 0; h < 24; ++h) {
            const std::size_t at = static_cast<std::size_t>(h) * 4;
            const double v = at < text.size() ? NumVal(text.substr(at, 4)) : 0.0;
            p.values[day - 1][h] = v * scale + offset;
        }
    }
    return p;
}

bool IsYes(const std::string& text) {
    const std::size_t p = text.find_first_not_of(' ');
    return p != std::string::npos && (text[p] == 'Y' || text[p] == 'y');
}

// Radiant share of each internal gain (the rest goes to the air).
// People and receptacles: ASHRAE Handbook of Fundamentals (2017) ch. 18
// Table 14, occupants in typical office conditions 0.6, office equipment
// without fans 0.3. Lights by lamp type (`Lite Type` 1 to 9): the space
// fraction times the radiative fraction of ch. 18 Table 3 (Fisher &
// Chantrasrisalai 2006), middle of each range; the share that would go to a
// ceiling plenum reaches the zone's air, the zone having no plenum of its
// own. High-intensity discharge lamps (1, 2, 3, 7) as non-in-ceiling
// luminaires (1.0 x 0.535); LED as a recessed troffer with a partial
// aperture diffuser (0.565 x 0.42); tubular fluorescent as a recessed
// luminaire without lens (0.69 x 0.58); compact fluorescent as a downlight
// (0.18 x 0.975); tungsten halogen and incandescent as incandescent
// downlights (0.75 x 0.975).
constexpr double kPeopleRadiant = 0.6;
constexpr double kReceptacleRadiant = 0.3;
double LightsRadiant(int lampType) {
    switch (lampType) {
        case 1:
        case 2:
        case 3:
        case 7:
            return 1.0 * 0.535;
        case 4:
            return 0.565 * 0.42;
        case 6:
            return 0.18 * 0.975;
        case 8:
        case 9:
            return 0.75 * 0.975;
        default:  // 5 and an unset type
            return 0.69 * 0.58;
    }
}

// The zone's fields that this run reads but does not simulate, named on one
// line with the zone when they are set: what they ask for is not in the
// engine yet, and the user must not take the result for having it.
void NoteUnsimulatedZoneFields(const ProjectModel& m, int z, std::vector<std::string>& notes) {
    const auto& f = m.zones.ZoneData[z];
    std::vector<std::string> names;
    const int hvac = static_cast<int>(NumVal(f[20]));
    if (hvac < 1 || hvac > 15)
        names.push_back("HVAC Type " + NumText(NumVal(f[20])) +
                        " (no such system: its cooling is counted unmet)");
    if (IsYes(m.zones.ZoneNatVent[z]) && NumVal(f[22]) <= 0)
        names.push_back("natural ventilation switched on with no rate (CFM/sqft.)");
    const SurfaceState& sf = m.surfaces;
    bool diffuse = false, swb = false;
    for (int s = 1; s <= m.zones.ZoneSurfaceCount[z]; ++s) {
        diffuse = diffuse || sf.SurfDiffTrans[z][s] > 0;
        swb = swb || sf.SurfSWB[z][s].find_first_not_of(' ') != std::string::npos;
    }
    if (diffuse) names.push_back("diffuse transmission (DiffTrans)");
    if (swb) names.push_back("S/W/B");
    if (names.empty()) return;
    std::string line = "Zone " + m.zones.ZoneNumber[z] + ": not simulated in this run: ";
    for (std::size_t i = 0; i < names.size(); ++i) line += (i ? ", " : "") + names[i];
    notes.push_back(line);
}

}  // namespace

std::vector<LevelHeight> ReadLevelHeights(const std::string& matrix) {
    std::vector<LevelHeight> levels;
    std::size_t at = 0;
    while (at < matrix.size()) {
        std::size_t end = matrix.find('\n', at);
        if (end == std::string::npos) end = matrix.size();
        std::string line = matrix.substr(at, end - at);
        at = end + 1;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        auto field = [&](std::size_t column, std::size_t width) {
            return line.size() >= column ? NumVal(line.substr(column - 1, width)) : 0.0;
        };
        if (line.rfind("Grid", 0) == 0 || line.rfind("grid", 0) == 0) {
            levels.emplace_back();
        } else if (levels.empty()) {
            continue;
        } else if (line.rfind("No. of Flrs", 0) == 0) {
            levels.back().floors = field(14, 8);
        } else if (line.rfind("Room Height", 0) == 0) {
            levels.back().roomHeight = field(14, 8);
        } else if ((line.rfind("Zone", 0) == 0 || line.rfind("zone", 0) == 0) &&
                   levels.back().roomHeight <= 0) {
            levels.back().roomHeight = field(49, 5);
        }
    }
    return levels;
}

std::array<double, 12> ClimateRow(const std::string& row) {
    std::array<double, 12> out{};
    const std::vector<double> v = Numbers(row);
    for (std::size_t i = 0; i < 12 && i < v.size(); ++i) out[i] = v[i];
    return out;
}

Site ClimateSite(const std::string& line2) {
    Site s;
    s.name = line2.substr(0, std::min<std::size_t>(line2.size(), 50));
    while (!s.name.empty() && s.name.back() == ' ') s.name.pop_back();
    // WMO number, latitude, longitude, standard meridian, elevation. The
    // station number is six characters and a latitude of six characters
    // touches it, so the figures are read behind it.
    const std::string tail = line2.size() > 50 ? line2.substr(50) : std::string();
    std::vector<double> v = Numbers(tail.size() > 6 ? tail.substr(6) : std::string());
    if (v.size() >= 4) {
        s.latitude = v[0];
        s.longitude = v[1];
        s.timeZone = std::abs(v[2]) > 14 ? v[2] / 15.0 : v[2];
        s.elevation = v[3] * kFtToM;
    }
    return s;
}

namespace {

// The daylit part of a zone (daylighting.h): DL Depth (ft) along the walls
// with windows, the whole floor when it has skylights; Target FC in
// foot-candles. A zone without windows or without a depth gets none.
ZoneDaylighting DaylightingOf(const Zone& zone, const Building& b, const TextTable<kZoneFields>& f,
                              double storey) {
    ZoneDaylighting d;
    const double depth = NumVal(f[24]) * kFtToM;
    d.targetLux = NumVal(f[25]) * 10.76391;
    double length = 0, side = 0, sideT = 0, roof = 0, roofT = 0;
    for (const Surface& s : zone.surfaces) {
        for (const Window& w : s.windows) {
            const double t = b.windowTypes.at(w.type).visibleTransmittance;
            if (s.tilt < 60) {
                roof += w.area, roofT += t * w.area;
            } else if (s.tilt <= 120) {
                side += w.area, sideT += t * w.area;
            }
        }
        bool windows = false;
        for (const Window& w : s.windows) windows |= w.area > 0;
        if (windows && s.tilt >= 60 && s.tilt <= 120) length += s.area / std::max(storey, 0.1);
    }
    if (zone.floorArea <= 0 || d.targetLux <= 0) return d;
    double floor = 0, surfaces = 0, df = 0;
    if (roof > 0) {  // skylights light the whole floor
        floor = zone.floorArea;
        const double perimeter = 4.0 * std::sqrt(floor);
        surfaces = 2.0 * floor + perimeter * storey;
        df = AverageDaylightFactor(roofT / roof, roof, 180.0, surfaces) +
             AverageDaylightFactor(side > 0 ? sideT / side : 0, side, 90.0, surfaces);
    } else if (side > 0 && depth > 0 && length > 0) {
        floor = std::min(zone.floorArea, depth * length);
        const double run = floor / depth;  // the daylit strip's length
        surfaces = 2.0 * floor + 2.0 * storey * (run + depth);
        df = AverageDaylightFactor(sideT / side, side, 90.0, surfaces);
    }
    d.share = floor / zone.floorArea;
    d.daylightFactor = df;
    return d;
}

}  // namespace

ProjectRunInputs TranslateProject(const ProjectModel& m, int runType,
                                  const std::string& buildingMatrix) {
    ProjectRunInputs out;
    // The engine's copy of a project in SI holds I-P values but for two
    // things the unit writer leaves as they are: the receptacle load (W per
    // sq.m.) and the building matrix (metres). The head line's word says so.
    const bool siProject = m.session.Units == 2;
    std::vector<LevelHeight> levels = ReadLevelHeights(buildingMatrix);
    if (siProject)
        for (LevelHeight& lv : levels) lv.roomHeight *= UnitFactor::LengthSiToIp;
    const double receptacleToIp = siProject ? UnitFactor::AreaIpToSi : 1.0;
    // The week follows the profiles' weekday, Saturday and Sunday rows.
    if (NumVal(m.ProjectData[kHolidays]) > 0)
        out.notes.push_back("Project: not simulated in this run: annual holidays (An Hldays)");
    Building& b = out.building;
    out.location = m.ProjectData[kLocation];
    DesignConditions design;
    if (DesignConditionsOf(m.climate.DesTemps[1], m.climate.DesTemps[2], m.climate.DesTemps[3],
                           design))
        out.design = design;
    const ClimateState& cl = m.climate;
    out.site = ClimateSite(cl.WeatherData[2]);
    if (out.site.latitude == 0 && cl.Latitude != 0) out.site.latitude = cl.Latitude;
    out.climate.dryBulbMean = ClimateRow(cl.WeatherData[4]);
    out.climate.dryBulbMeanSd = ClimateRow(cl.WeatherData[5]);
    out.climate.dryBulbMax = ClimateRow(cl.WeatherData[6]);
    out.climate.dryBulbMaxSd = ClimateRow(cl.WeatherData[7]);
    out.climate.dewPointMean = ClimateRow(cl.WeatherData[8]);
    out.climate.dewPointSd = ClimateRow(cl.WeatherData[9]);
    out.climate.solar = ClimateRow(cl.WeatherData[10]);
    out.climate.wind = ClimateRow(cl.WeatherData[11]);

    // Catalogs: index by catalog id.
    std::array<int, kMaxCatalog + 1> wallIndex{}, windowIndex{};
    wallIndex.fill(-1);
    windowIndex.fill(-1);
    for (int i = 1; i <= kMaxCatalog; ++i) {
        if (!m.walls.WallUsed[i]) continue;
        const double u = NumVal(m.walls.WallUFactor[i]) * UnitFactor::UFactorIpToSi;
        if (u <= 0) continue;
        const CatalogAssembly a =
            AssemblyFromCatalog(i, m.walls.WallDescription[i], u, NumVal(m.walls.WallTimeLag[i]),
                                NumVal(m.walls.WallDecrement[i]));
        if (a.farFromClass)
            out.notes.push_back("Wall ID " + std::to_string(i) + " (" + m.walls.WallDescription[i] +
                                "): time lag and decrement far from a " +
                                AssemblyClassName(a.namedClass) + "; simulated as a " +
                                AssemblyClassName(a.assemblyClass));
        Construction c = a.construction;
        const double abs = NumVal(m.walls.WallSolarAbs[i]);
        c.outsideAbsorptance = abs > 0 ? std::min(abs, 1.0) : 0.75;
        wallIndex[i] = static_cast<int>(b.constructions.size());
        b.constructions.push_back(c);
    }
    for (int i = 1; i <= kMaxCatalog; ++i) {
        if (!m.windows.WindowUsed[i]) continue;
        const double u = NumVal(m.windows.WindowUFactor[i]) * UnitFactor::UFactorIpToSi;
        const double shgc = NumVal(m.windows.WindowSHGC[i]);
        if (u <= 0 || shgc <= 0) continue;
        WindowType t;
        t.name = m.windows.WindowDescription[i];
        t.glazing = MatchGlazing(u, std::min(shgc, 0.9));
        t.visibleTransmittance = NumVal(m.windows.WindowDLTrans[i]);
        windowIndex[i] = static_cast<int>(b.windowTypes.size());
        b.windowTypes.push_back(t);
    }
    // Internal mass construction: concrete, thickness per zone (below).
    auto profileIndex = [&](int type, const std::string& groupText, double scale, double offset) {
        const int group = static_cast<int>(NumVal(groupText));
        if (group < 1 || group > kProfileGroups) return -1;
        b.profiles.push_back(ProfileOf(m.profiles.Types[type], group, scale, offset));
        return static_cast<int>(b.profiles.size()) - 1;
    };

    const bool passive = runType == 4;
    for (int z = 1; z <= m.zones.NumZones; ++z) {
        const auto& f = m.zones.ZoneData[z];
        if (m.zones.ZoneNumber[z].empty()) continue;
        Zone zone;
        zone.number = m.zones.ZoneNumber[z];
        zone.name = m.zones.ZoneName[z].empty() ? f[2] : m.zones.ZoneName[z];
        const double areaFt2 = NumVal(f[3]);
        zone.floorArea = areaFt2 * kFt2ToM2;
        // The storey: the room height of the zone's level in the building
        // matrix, its base the levels below (each its floors times its room
        // height).
        const int level = static_cast<int>(NumVal(zone.number.substr(0, zone.number.find('-'))));
        double storeyFt = 0, baseFt = 0;
        for (int l = 1; l <= static_cast<int>(levels.size()); ++l) {
            const LevelHeight& lv = levels[l - 1];
            if (l < level) baseFt += std::max(lv.floors, 1.0) * lv.roomHeight;
            if (l == level) storeyFt = lv.roomHeight;
        }
        if (storeyFt <= 0) {
            storeyFt = 10.0;
            out.notes.push_back("Zone " + zone.number +
                                ": no room height for its level in the building matrix; "
                                "a 10 ft storey taken");
        }
        const double storey = storeyFt * kFtToM, base = baseFt * kFtToM;
        zone.volume = zone.floorArea * storey;
        const double people = NumVal(f[5]);
        zone.gains.peopleSensible = people * 250.0 * kWPerBtuh;
        zone.gains.peopleLatent = people * 200.0 * kWPerBtuh;
        zone.gains.peopleRadiant = kPeopleRadiant;
        zone.gains.lightsRadiant = LightsRadiant(static_cast<int>(NumVal(f[11])));
        zone.gains.equipmentRadiant = kReceptacleRadiant;
        if (IsYes(m.zones.ZoneNatVent[z]))
            zone.naturalVentFlow = NumVal(f[22]) * areaFt2 * kCfmToM3s;
        NoteUnsimulatedZoneFields(m, z, out.notes);
        zone.gains.peopleProfile = profileIndex(kOccupancy, f[6], 0.01, 0);
        zone.gains.lights = NumVal(f[13]) * areaFt2;
        zone.gains.lightsProfile = profileIndex(kLights, f[14], 0.01, 0);
        zone.gains.equipment = NumVal(f[15]) * receptacleToIp * areaFt2;
        zone.gains.equipmentProfile = profileIndex(kReceptacles, f[16], 0.01, 0);
        zone.infiltrationAch = NumVal(f[23]);
        // Outdoor air by its prefix.
        const std::string oa = f[9];
        const std::size_t p = oa.find_first_not_of(' ');
        const std::string prefix = p == std::string::npos ? "" : oa.substr(p, 2);
        const double oaValue =
            NumVal(p == std::string::npos || p + 2 > oa.size() ? "" : oa.substr(p + 2));
        double cfm = 0;
        if (prefix == "CS")
            cfm = oaValue * areaFt2;
        else if (prefix == "PA")
            cfm = oaValue / 100.0 * areaFt2;
        else
            cfm = oaValue * people;
        zone.outdoorAirFlow = cfm * kCfmToM3s;
        zone.outdoorAirProfile = profileIndex(kFans, f[17], 0.01, 0);
        // The zone's plant: catalog type, heating type, its efficiencies and
        // fan static pressure; service hot water at HW/person gallons a day.
        ZoneSystem sys =
            SystemOfType(static_cast<int>(NumVal(f[20])), static_cast<int>(NumVal(f[21])),
                         NumVal(f[27]), NumVal(f[28]), NumVal(f[26]));
        sys.fanProfile = zone.outdoorAirProfile;
        sys.economizer = IsYes(m.zones.ZoneEconCycle[z]);
        sys.economizerHighLimit = EconomizerHighLimit(m.session.ClimateZone);
        sys.hotWaterPerDay = people * std::max(NumVal(f[7]), 0.0) * kGallonToM3;
        sys.hotWaterProfile = profileIndex(kHotWater, f[8], 0.01, 0);
        if (!passive) {
            zone.coolingSetpointProfile =
                runType == 1 ? -1 : profileIndex(kCoolStat, f[18], 1.0 / 1.8, -32.0 / 1.8);
            zone.heatingSetpointProfile = profileIndex(kHeatStat, f[19], 1.0 / 1.8, -32.0 / 1.8);
        }
        zone.conditioned = !passive;
        // Surfaces.
        auto note = [&](int s, const std::string& text) {
            out.notes.push_back("Zone " + zone.number + " surface " + std::to_string(s) + ": " +
                                text);
        };
        for (int s = 1; s <= m.zones.ZoneSurfaceCount[z]; ++s) {
            const SurfaceState& sf = m.surfaces;
            const int id = sf.SurfWallId[z][s];
            const double area = sf.SurfArea[z][s] * kFt2ToM2;
            if (area <= 0) continue;
            if (id < 1 || id > kMaxCatalog || wallIndex[id] < 0) {
                out.notes.push_back("Zone " + zone.number + " surface " + std::to_string(s) +
                                    ": wall ID " + std::to_string(id) +
                                    " is not in the catalog; surface left out");
                continue;
            }
            Surface surf;
            surf.name = "S" + std::to_string(s);
            surf.construction = wallIndex[id];
            surf.area = area;
            surf.azimuth = sf.SurfOrient[z][s];
            const int exp = sf.SurfExposure[z][s];
            const double slope = sf.SurfSlope[z][s];
            const double refl = sf.SurfGroundRefl[z][s];
            surf.groundReflectance = refl > 0 ? refl : CoverReflectance(exp);
            if (exp == 6) {
                // A roof; a slope past 90 degrees faces down: a floor over
                // outdoor air.
                surf.kind = slope > 90 ? SurfaceClass::Floor : SurfaceClass::Roof;
                surf.tilt = slope > 0 && slope <= 180 && slope != 90 ? slope : 0.0;
                surf.height = base + storey;
            } else if (exp == 7) {
                surf.kind = SurfaceClass::Floor;
                surf.tilt = 180;
                surf.boundary = Boundary::Ground;
                surf.groundResistance = 1.0;  // about 1 m of soil
            } else if (exp >= 71 && exp <= 76) {
                surf.kind = SurfaceClass::Floor;
                surf.tilt = 180;
                surf.boundary = Boundary::Ground;
                surf.groundResistance = 1.0 + 0.5 * (exp - 70);
                surf.groundTemperature = std::numeric_limits<double>::quiet_NaN();
            } else {
                if (exp < 1 || exp > 5)
                    note(s, "exposure code " + std::to_string(exp) +
                                " is not one of 1 to 7 or 71 to 76; taken as a wall");
                surf.kind = id == 11 ? SurfaceClass::Door : SurfaceClass::Wall;
                surf.tilt = slope > 0 ? slope : 90.0;
                surf.height = base + 0.5 * storey;
            }
            const int win = sf.SurfWindowId[z][s];
            const double winArea = sf.SurfWindowArea[z][s] * kFt2ToM2;
            if (winArea > 0 && surf.boundary == Boundary::Ground)
                note(s, "a window in a surface on the ground; window left out");
            if (winArea > area) note(s, "window larger than its surface; taken as the surface");
            const int blind = sf.SurfBlind[z][s];
            if (winArea > 0 && blind != 0 && blind != 1 && blind != 5)
                note(s, "Ven. Blnd " + std::to_string(blind) + " is not 0, 1 or 5; no blind");
            if (winArea > 0 && surf.boundary != Boundary::Ground) {
                if (win < 1 || win > kMaxCatalog || windowIndex[win] < 0) {
                    note(s, "window ID " + std::to_string(win) +
                                " is not in the catalog; window left out");
                } else {
                    Window w;
                    w.type = windowIndex[win];
                    w.area = std::min(winArea, area);
                    // `Window Ht` is the head's height above the floor (the
                    // door row's 4.5 and 7.4 ft): the window is the part
                    // above the sill. A figure at or below the sill is taken
                    // as the window's own height.
                    const double sill = std::max<double>(sf.SurfSillHeight[z][s], 0.0);
                    const double top = sf.SurfWindowHeight[z][s];
                    const double hFt = top > sill ? top - sill : top;
                    w.height = hFt > 0 ? hFt * kFtToM : 1.5;
                    // A projection factor is the overhang's depth over the
                    // height from the sill to its underside (ASHRAE 90.1);
                    // the overhang stands at the top of the storey (the
                    // slab or eave above), so its depth and its gap above
                    // the head follow from the sill, the window and the
                    // storey.
                    const double gapFt = hFt > 0 ? std::max(storeyFt - sill - hFt, 0.0) : 0.0;
                    const double gap = hFt > 0 ? gapFt / hFt : 0.0;
                    auto words = ShadeWords(sf.SurfShade[z][s]);
                    // Overhangs and fins stand at a wall's window; a
                    // skylight has none.
                    const bool skylight = surf.kind == SurfaceClass::Roof && surf.tilt < 60;
                    if (skylight && std::any_of(words.begin(), words.end(), [](const ShadeWord& w) {
                            return w.letter != 'N' && w.value > 0;
                        })) {
                        note(s, "overhang and fins of a skylight not simulated");
                        words.clear();
                    }
                    for (std::size_t k = 0; k < words.size(); ++k) {
                        const ShadeWord& sw = words[k];
                        if (sw.letter == 'R') w.shading.rightFinProjection = sw.value;
                        if (sw.letter == 'L') w.shading.leftFinProjection = sw.value;
                        if (sw.letter == 'F' || sw.letter == 'T') {
                            w.shading.overhangProjection = sw.value * (1.0 + gap);
                            w.shading.overhangGap = gap;
                        }
                        if (sw.letter == 'T') w.shading.overhangTransmittance = 0.5;
                    }
                    w.shading.blind = sf.SurfBlind[z][s];
                    surf.windows.push_back(w);
                }
            }
            zone.surfaces.push_back(surf);
        }
        // Internal mass: lb per sq.ft of floor of concrete, exposed on both
        // faces, so half its thickness behind each face.
        const double massLb = NumVal(f[4]);
        if (massLb > 0 && zone.floorArea > 0) {
            const double kgM2 = massLb * UnitFactor::MassPerAreaIpToSi;
            Construction mass;
            mass.name = "internal mass " + zone.number;
            Layer l;
            l.density = 2240;
            l.specificHeat = 840;
            l.conductivity = 1.4;
            l.thickness = kgM2 / l.density / 2;
            mass.layers = {l};
            b.constructions.push_back(mass);
            Surface sm;
            sm.name = "mass";
            sm.kind = SurfaceClass::InternalMass;
            sm.construction = static_cast<int>(b.constructions.size()) - 1;
            sm.area = 2 * zone.floorArea;
            sm.tilt = 90;
            sm.boundary = Boundary::Adiabatic;
            zone.surfaces.push_back(sm);
        }
        if (zone.surfaces.empty()) {
            out.notes.push_back("Zone " + zone.number + " has no surfaces; left out");
            continue;
        }
        if (IsYes(m.zones.ZoneDaylight[z])) zone.daylight = DaylightingOf(zone, b, f, storey);
        b.zones.push_back(zone);
        out.systems.push_back(sys);
    }
    return out;
}

}  // namespace solvane::engine
