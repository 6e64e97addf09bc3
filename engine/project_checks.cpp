#include "engine/project_checks.h"

#include <array>
#include <cmath>
#include <map>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "engine/project_translation.h"

namespace solvane::engine {
namespace {

constexpr int kHvacTypes = 15;      // the systems of the HVAC catalog
constexpr int kZoneHeadLines = 32;  // labelled lines of a zone before its surfaces
constexpr int kSurfaceLines = 14;
constexpr int kLevelLines = 91;  // a level block of the building matrix

// Where the blocks of the file stand (line numbers from 1), found by walking
// the file as the project reader takes it.
struct FileMap {
    int weather = 0;                  // "WEATHER   CLzone=..."
    std::map<int, int> wall, window;  // catalog id -> its "ID. #" line
    std::array<std::array<int, kProfileGroups + 1>, kProfileTypes + 1> profile{};  // group line
    std::array<int, kMaxZones + 1> zone{};  // "Zone No." line
    int matrix = 0;                         // "BUILDING MATRIX"
};

std::string Trim(const std::string& s) {
    const std::size_t a = s.find_first_not_of(' ');
    if (a == std::string::npos) return {};
    return s.substr(a, s.find_last_not_of(' ') - a + 1);
}

// Numbers of a climate row, split at blanks and at a minus sign that
// follows a digit (columns may touch: "-10.5-12.3").
std::vector<std::string> Words(const std::string& text) {
    std::vector<std::string> out;
    std::string cur;
    for (const char c : text) {
        if (c == ' ' || c == '\t' || (c == '-' && !cur.empty())) {
            if (!cur.empty()) out.push_back(cur);
            cur = c == '-' ? "-" : "";
        } else {
            cur += c;
        }
    }
    if (!cur.empty()) out.push_back(cur);
    return out;
}

FileMap MapFile(const ProjectModel& m, const std::vector<std::string>& lines) {
    FileMap map;
    const std::size_t n = lines.size();
    std::size_t i = 0;
    auto find = [&](std::string_view prefix) {
        while (i < n && lines[i].rfind(prefix, 0) != 0) ++i;
        return i < n;
    };
    if (find("WEATHER")) map.weather = static_cast<int>(i) + 1;
    // Catalog blocks: seven lines an entry, at most 20, closed by "9999".
    auto catalog = [&](std::map<int, int>& into) {
        ++i;
        for (int k = 0; k < 20 && i < n && lines[i] != "9999"; ++k, i += 7) {
            // The reader took only ids of the catalog's range; the walk may
            // meet anything in a file it read out of step.
            const double id = NumVal(cuts::Value(lines[i]));
            if (id >= 0 && id <= kMaxCatalog) into[static_cast<int>(id)] = static_cast<int>(i) + 1;
        }
    };
    if (find("WALL AND ROOF PROPERTIES")) catalog(map.wall);
    if (find("WINDOW PROPERTIES")) catalog(map.window);
    if (find("PROFILES")) {
        ++i;
        for (int type = 1; type <= kProfileTypes && i < n; ++type) {
            ++i;  // the type's title
            for (int g = 1; g <= kProfileGroups && i < n; ++g) {
                const std::string& line = lines[i];
                const int group = static_cast<int>(NumVal(cuts::Left(line, 2)));
                if (group == 99 || line == "ZONES") break;
                if (group >= 1 && group <= kProfileGroups)
                    map.profile[type][group] = static_cast<int>(i) + 1;
                i += 1 + kDayTypes;
            }
            if (i < n && lines[i] == "ZONES") break;
            ++i;  // "99"
        }
    }
    while (i < n && lines[i] != "ZONES") ++i;
    ++i;
    for (int z = 1; z <= m.zones.NumZones && i < n; ++z) {
        map.zone[z] = static_cast<int>(i) + 1;
        i += kZoneHeadLines + kSurfaceLines * m.zones.ZoneSurfaceCount[z] + 1;
    }
    if (i < n && lines[i] == "BUILDING MATRIX") map.matrix = static_cast<int>(i) + 1;
    return map;
}

// Line of a zone field within the zone's 32 labelled lines (field 10 has no
// line; the fields after 25 follow the economiser line).
int ZoneFieldOffset(int field) {
    if (field < 10) return field - 1;
    if (field <= 21) return field - 2;
    if (field <= 23) return field - 1;
    if (field <= 25) return field;
    return field + 1;
}

class Checker {
  public:
    Checker(const ProjectModel& m, const std::vector<std::string>& lines, std::string fileName)
        : m_(m), lines_(lines), file_(std::move(fileName)), map_(MapFile(m, lines)) {}

    std::vector<std::string> Run() {
        Climate();
        Catalogs();
        for (int z = 1; z <= m_.zones.NumZones; ++z)
            if (!m_.zones.ZoneNumber[z].empty()) Zone(z);
        Matrix();
        return notes_;
    }

  private:
    [[noreturn]] void Refuse(int line, const std::string& what) const {
        throw ReadError(file_, line, what);
    }

    // The value of a labelled line as the file has it.
    std::string ValueAt(int line) const {
        return line >= 1 && line <= static_cast<int>(lines_.size())
                   ? Trim(cuts::Value(lines_[static_cast<std::size_t>(line - 1)]))
                   : std::string();
    }

    // A number within [lo, hi]; blank reads as 0 when `blankIsZero`.
    double Number(int line, const std::string& field, const std::string& text, double lo, double hi,
                  bool blankIsZero = true) const {
        const std::string t = Trim(text);
        if (t.empty() && blankIsZero && lo <= 0 && 0 <= hi) return 0;
        if (t.empty() || !IsNumericText(t)) Refuse(line, field + " \"" + t + "\" is not a number");
        const double v = NumVal(t);
        if (!(v >= lo && v <= hi))
            Refuse(line, field + " " + t + " is out of range (" + NumText(lo) + " to " +
                             NumText(hi) + ")");
        return v;
    }

    int Whole(int line, const std::string& field, const std::string& text, int lo, int hi) const {
        const double v = Number(line, field, text, lo, hi);
        if (v != std::floor(v)) Refuse(line, field + " " + Trim(text) + " is not a whole number");
        return static_cast<int>(v);
    }

    void Climate() {
        static constexpr std::array<const char*, 8> kRows = {
            "DB Ave", "Ave Std", "DB Max", "Max Std", "DP Ave", "DP Std", "Solar", "Wind"};
        static constexpr std::array<double, 8> kLow = {-100, 0, -100, 0, -120, 0, 0, 0};
        static constexpr std::array<double, 8> kHigh = {150, 100, 160, 100, 100, 100, 5000, 200};
        for (int r = 0; r < 8; ++r) {
            const int line = map_.weather ? map_.weather + 4 + r : 0;
            const std::string& row = m_.climate.WeatherData[4 + r];
            std::size_t count = 0;
            for (const std::string& word : Words(row)) {
                ++count;
                Number(line, std::string("climate row ") + kRows[r], word, kLow[r], kHigh[r]);
            }
            if (count < 12)
                Refuse(line, std::string("climate row ") + kRows[r] + " holds " +
                                 std::to_string(count) + " of its 12 monthly values");
        }
        const Site site = ClimateSite(m_.climate.WeatherData[2]);
        if (!(std::abs(site.latitude) <= 90 && std::abs(site.longitude) <= 180 &&
              std::isfinite(site.elevation) && std::abs(site.elevation) < 10000))
            Refuse(map_.weather ? map_.weather + 2 : 0,
                   "station latitude, longitude or elevation out of range");
    }

    void Catalogs() {
        for (int i = 1; i <= kMaxCatalog; ++i) {
            if (m_.walls.WallUsed[i]) {
                const int at = Line(map_.wall, i);
                const std::string id = "wall " + std::to_string(i) + ", ";
                Number(at + 2, id + "U-Factor", m_.walls.WallUFactor[i], 1e-4, 10, false);
                Number(at + 3, id + "Solar Abs", m_.walls.WallSolarAbs[i], 0, 1);
                Number(at + 4, id + "Time Lag", m_.walls.WallTimeLag[i], 0, 100);
                Number(at + 5, id + "Dec. Fact", m_.walls.WallDecrement[i], 0, 1);
            }
            if (m_.windows.WindowUsed[i]) {
                const int at = Line(map_.window, i);
                const std::string id = "window " + std::to_string(i) + ", ";
                Number(at + 2, id + "U-Factor", m_.windows.WindowUFactor[i], 1e-4, 10, false);
                Number(at + 3, id + "S.H.G.C.", m_.windows.WindowSHGC[i], 1e-4, 1, false);
                Number(at + 5, id + "DL. Trans", m_.windows.WindowDLTrans[i], 0, 1);
            }
        }
    }

    static int Line(const std::map<int, int>& at, int id) {
        const auto it = at.find(id);
        return it == at.end() ? 0 : it->second;
    }

    // A profile field of a zone: blank or 0 for none, else a group the
    // project holds, whose 72 hourly values are then checked.
    void Profile(int z, int field, const char* label, int type) {
        const int line = map_.zone[z] + ZoneFieldOffset(field);
        const std::string where = "zone " + m_.zones.ZoneNumber[z] + ", " + label;
        const int g = Whole(line, where, m_.zones.ZoneData[z][field], 0, kProfileGroups);
        if (g == 0) return;
        const ProfileTable& t = m_.profiles.Types[type];
        if (t.GroupNum[g].empty())
            Refuse(line, where + " " + std::to_string(g) + ": the project holds no such profile");
        const bool thermostat = type == kCoolStat || type == kHeatStat;
        for (int day = 1; day <= kDayTypes; ++day) {
            const std::string& text = t.Profile[g][day];
            const int at = map_.profile[type][g] ? map_.profile[type][g] + day : 0;
            for (std::size_t h = 0; h < 24 && h * 4 < text.size(); ++h)
                Number(at, "profile " + std::to_string(g) + ", hour " + std::to_string(h + 1),
                       text.substr(h * 4, 4), thermostat ? -40 : 0, thermostat ? 150 : 100);
        }
    }

    void Zone(int z) {
        const auto& f = m_.zones.ZoneData[z];
        const std::string& number = m_.zones.ZoneNumber[z];
        const int first = map_.zone[z];
        const auto at = [&](int field) { return first + ZoneFieldOffset(field); };
        const std::string zone = "zone " + number + ", ";
        const std::size_t hyphen = number.find('-');
        const auto digits = [](const std::string& s) {
            return !s.empty() && s.find_first_not_of("0123456789") == std::string::npos;
        };
        if (hyphen == std::string::npos || !digits(number.substr(0, hyphen)) ||
            !digits(number.substr(hyphen + 1)))
            Refuse(first, "Zone No. \"" + ValueAt(first) + "\" is not a level and zone number");
        Number(at(3), zone + "Flr. Area", f[3], 1e-3, 1e7, false);
        Number(at(4), zone + "Int. Mass", f[4], 0, 1000);
        Number(at(5), zone + "No.People", f[5], 0, 1e6);
        Number(at(13), zone + "Watt/sqft", f[13], 0, 1000);
        Number(at(15), zone + "Receptacle", f[15], 0, 1000);
        Number(at(23), zone + "Inf. Rate", f[23], 0, 100);
        Number(at(27), zone + "Cool SEER", f[27], 0, 1000);
        Number(at(28), zone + "Heat COP", f[28], 0, 1000);
        if (!Trim(f[20]).empty()) Whole(at(20), zone + "HVAC Type", f[20], 1, kHvacTypes);
        // Outdoor air: CP per person, CS per unit floor area, PA percent.
        const std::string oa = Trim(f[9]);
        const std::string prefix = oa.substr(0, std::min<std::size_t>(2, oa.size()));
        if (prefix != "CP" && prefix != "CS" && prefix != "PA")
            Refuse(at(9), zone + "OA CFM \"" + oa + "\" must begin with CP, CS or PA");
        Number(at(9), zone + "OA CFM", oa.substr(2), 0, prefix == "PA" ? 100 : 1e4);
        Profile(z, 6, "Occ. Prof", kOccupancy);
        Profile(z, 14, "Lite Prof", kLights);
        Profile(z, 16, "Recep.Prof", kReceptacles);
        Profile(z, 17, "Fan Prof", kFans);
        Profile(z, 18, "Clg. Stat", kCoolStat);
        Profile(z, 19, "Htg. Stat", kHeatStat);
        for (int s = 1; s <= m_.zones.ZoneSurfaceCount[z]; ++s) Surface(z, s, first);
    }

    void Surface(int z, int s, int zoneLine) {
        const int base = zoneLine + kZoneHeadLines + (s - 1) * kSurfaceLines;
        const std::string where =
            "zone " + m_.zones.ZoneNumber[z] + ", surface " + std::to_string(s) + ", ";
        const auto value = [&](int k) { return ValueAt(base + k); };
        const int id = Whole(base, where + "Wall ID.", value(0), 0, kMaxCatalog);
        const double area = Number(base + 1, where + "Wall Area", value(1), 0, 1e7);
        Number(base + 2, where + "WallOrien", value(2), 0, 360);
        const int exposure = Whole(base + 3, where + "Surf Exp.", value(3), 0, 9999);
        if (exposure < 1 || (exposure > 7 && exposure < 71) || exposure > 76)
            notes_.push_back(file_ + ", line " + std::to_string(base + 3) + ": " + where +
                             "Surf Exp. " + std::to_string(exposure) +
                             " is no exposure code (1 to 7, 71 to 76); the run takes the surface "
                             "as a wall to outdoor air");
        if (area > 0 && !m_.walls.WallUsed[id])
            Refuse(base, where + "Wall ID. " + std::to_string(id) + " is not in the wall catalog");
        const int window = Whole(base + 5, where + "Window ID", value(5), 0, kMaxCatalog);
        const double windowArea = Number(base + 6, where + "Win. Area", value(6), 0, 1e7);
        if (windowArea > 0 && exposure <= 6 && !m_.windows.WindowUsed[window])
            Refuse(base + 5,
                   where + "Window ID " + std::to_string(window) + " is not in the window catalog");
        if (windowArea > area && exposure <= 6)
            notes_.push_back(file_ + ", line " + std::to_string(base + 6) + ": " + where +
                             "window area " + value(6) + " exceeds the wall's " + value(1) +
                             "; the run takes the wall's area");
        Number(base + 7, where + "Rf/Wl Slp", value(7), 0, 180);
        Number(base + 12, where + "Window Ht", value(12), 0, 1000);
        Number(base + 13, where + "Grnd Refl", value(13), 0, 1);
    }

    // The engine does not use the drawing; a cut one is told, not refused.
    void Matrix() {
        if (map_.matrix == 0) return;
        int level = 0, levelLines = 0;
        const auto close = [&] {
            if (level > 0 && levelLines < kLevelLines)
                notes_.push_back(file_ + ": the building matrix of level " + std::to_string(level) +
                                 " ends after " + std::to_string(levelLines) + " of its " +
                                 std::to_string(kLevelLines) +
                                 " lines; the run goes on from the zones, which hold all it uses");
        };
        for (std::size_t i = static_cast<std::size_t>(map_.matrix); i < lines_.size(); ++i) {
            const std::string& line = lines_[i];
            if (line.rfind("Grid", 0) == 0 || line.rfind("grid", 0) == 0) {
                close();
                ++level;
                levelLines = 0;
            }
            ++levelLines;
        }
        if (level == 0)
            notes_.push_back(file_ +
                             ": the building matrix holds no level; the run goes on from "
                             "the zones, which hold all it uses");
        close();
    }

    const ProjectModel& m_;
    const std::vector<std::string>& lines_;
    std::string file_;
    FileMap map_;
    std::vector<std::string> notes_;
};

}  // namespace

std::vector<std::string> CheckProject(const ProjectModel& model,
                                      const std::vector<std::string>& lines,
                                      const std::string& fileName) {
    return Checker(model, lines, fileName).Run();
}

}  // namespace solvane::engine
