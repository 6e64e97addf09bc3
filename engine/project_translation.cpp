#include "engine/project_translation.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <stdexcept>

#include "core/numeric_helpers.h"
#include "core/unit_factors.h"

namespace solvane::engine {
namespace {

constexpr double kWPerBtuh = 1.0 / 3.412141;
constexpr double kFt2ToM2 = 0.09290304;
constexpr double kFtToM = 0.3048;
constexpr double kCfmToM3s = 0.00047194744;

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

}  // namespace

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

ProjectRunInputs TranslateProject(const ProjectModel& m, int runType) {
    ProjectRunInputs out;
    Building& b = out.building;
    out.location = m.ProjectData[kLocation];
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
        Construction c =
            FitConstruction(u, NumVal(m.walls.WallTimeLag[i]), NumVal(m.walls.WallDecrement[i]));
        c.name = m.walls.WallDescription[i];
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
        // Height from the walls: the tallest wall's area over its floor share
        // is not known, so the volume takes a 10 ft storey.
        zone.volume = zone.floorArea * 10.0 * kFtToM;
        const double people = NumVal(f[5]);
        zone.gains.peopleSensible = people * 250.0 * kWPerBtuh;
        zone.gains.peopleLatent = people * 200.0 * kWPerBtuh;
        zone.gains.peopleProfile = profileIndex(kOccupancy, f[6], 0.01, 0);
        zone.gains.lights = NumVal(f[13]) * areaFt2;
        zone.gains.lightsProfile = profileIndex(kLights, f[14], 0.01, 0);
        zone.gains.equipment = NumVal(f[15]) * areaFt2;
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
        if (!passive) {
            zone.coolingSetpointProfile =
                runType == 1 ? -1 : profileIndex(kCoolStat, f[18], 1.0 / 1.8, -32.0 / 1.8);
            zone.heatingSetpointProfile = profileIndex(kHeatStat, f[19], 1.0 / 1.8, -32.0 / 1.8);
        }
        zone.conditioned = !passive;
        // Surfaces.
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
                surf.height = 10 * kFtToM;
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
                surf.kind = id == 11 ? SurfaceClass::Door : SurfaceClass::Wall;
                surf.tilt = slope > 0 ? slope : 90.0;
                surf.height = 5 * kFtToM;
            }
            const int win = sf.SurfWindowId[z][s];
            const double winArea = sf.SurfWindowArea[z][s] * kFt2ToM2;
            if (winArea > 0 && exp <= 6) {
                if (win < 1 || win > kMaxCatalog || windowIndex[win] < 0) {
                    out.notes.push_back("Zone " + zone.number + " surface " + std::to_string(s) +
                                        ": window ID " + std::to_string(win) +
                                        " is not in the catalog; window left out");
                } else {
                    Window w;
                    w.type = windowIndex[win];
                    w.area = std::min(winArea, area);
                    const double h = sf.SurfWindowHeight[z][s];
                    w.height = h > 0 ? h * kFtToM : 1.5;
                    const auto words = ShadeWords(sf.SurfShade[z][s]);
                    for (std::size_t k = 0; k < words.size(); ++k) {
                        const ShadeWord& sw = words[k];
                        if (sw.letter == 'R') w.shading.rightFinProjection = sw.value;
                        if (sw.letter == 'L') w.shading.leftFinProjection = sw.value;
                        if (sw.letter == 'F') w.shading.overhangProjection = sw.value;
                        if (sw.letter == 'T') {
                            w.shading.overhangProjection = sw.value;
                            w.shading.overhangTransmittance = 0.5;
                        }
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
        b.zones.push_back(zone);
    }
    return out;
}

}  // namespace solvane::engine
