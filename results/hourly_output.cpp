#include "results/hourly_output.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace fs = std::filesystem;

namespace solvane {

namespace {

constexpr int kMonthStart[13] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};
constexpr const char* kMonthShort[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::vector<std::string> SplitCommas(const std::string& line) {
    std::vector<std::string> out(1);
    for (char c : line) {
        if (c == ',')
            out.emplace_back();
        else
            out.back() += c;
    }
    return out;
}

std::optional<double> Number(const std::string& field) {
    const char* b = field.data();
    const char* e = b + field.size();
    while (b < e && *b == ' ') ++b;
    while (e > b && e[-1] == ' ') --e;
    // The engine prints numbers as the program does: ".5", "-.25".
    std::string text(b, e);
    if (text.rfind('.', 0) == 0) text.insert(0, "0");
    if (text.rfind("-.", 0) == 0) text.insert(1, "0");
    double v = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    if (ec != std::errc() || end != text.data() + text.size() || text.empty()) return std::nullopt;
    return v;
}

// The unit in the last "(...)" of a header, "F" from "Zone 1-1 Lobby (F)".
std::string UnitOf(const std::string& head, const std::string& fallback) {
    const auto open = head.rfind('('), close = head.rfind(')');
    if (open == std::string::npos || close == std::string::npos || close < open) return fallback;
    std::string unit = head.substr(open + 1, close - open - 1);
    const auto comma = unit.find(',');
    return comma == std::string::npos ? unit : unit.substr(0, comma);
}

std::vector<double> Column(const HourlyTable& t, std::size_t c) {
    std::vector<double> v;
    v.reserve(t.rows.size());
    for (const auto& row : t.rows) v.push_back(row[c]);
    return v;
}

// A round step for an axis covering `span` in about `ticks` steps.
double NiceStep(double span, int ticks) {
    if (span <= 0) return 1;
    const double raw = span / ticks;
    const double p = std::pow(10.0, std::floor(std::log10(raw)));
    for (double m : {1.0, 2.0, 5.0, 10.0})
        if (raw <= m * p) return m * p;
    return 10 * p;
}

std::string AxisText(double v) {
    return NumText(static_cast<float>(std::round(v * 100) / 100));
}

struct Panel {
    int left, top, right, bottom;
    double lo, hi;
    int Y(double v) const {
        return bottom - static_cast<int>(std::lround((v - lo) / (hi - lo) * (bottom - top)));
    }
};

void DrawAxis(Canvas& c, const Panel& p, const std::string& unit) {
    c.Box(p.left, p.top, p.right, p.bottom, 0x808080);
    const double step = NiceStep(p.hi - p.lo, 5);
    for (double v = std::ceil(p.lo / step) * step; v <= p.hi + 1e-9; v += step) {
        const int y = p.Y(v);
        c.Line(p.left, y, p.right, y, 0xE0E0E0);
        c.Text(p.left - 48, y - 7, AxisText(v), 8, 0x000000);
    }
    c.Text(p.left - 60, p.top - 20, unit, 8, 0x000000);
}

void Series(Canvas& c, const Panel& p, const std::vector<double>& v, int first, int count,
            Color color) {
    const double dx = static_cast<double>(p.right - p.left) / count;
    for (int i = 1; i < count && first + i < static_cast<int>(v.size()); ++i) {
        const int x1 = p.left + static_cast<int>((i - 1) * dx);
        const int x2 = p.left + static_cast<int>(i * dx);
        c.Line(x1, p.Y(v[first + i - 1]), x2, p.Y(v[first + i]), color);
    }
}

std::string DateText(int day) {
    int m = 0;
    while (m < 11 && day >= kMonthStart[m + 1]) ++m;
    return std::string(kMonthShort[m]) + " " + std::to_string(day - kMonthStart[m] + 1);
}

// Blue through white to red.
Color Ramp(double t) {
    t = std::clamp(t, 0.0, 1.0);
    const auto mix = [](int a, int b, double f) { return static_cast<Color>(a + (b - a) * f); };
    if (t < 0.5) {
        const double f = t / 0.5;
        return (mix(0x20, 0xFF, f) << 16) | (mix(0x40, 0xFF, f) << 8) | mix(0xC0, 0xFF, f);
    }
    const double f = (t - 0.5) / 0.5;
    return (mix(0xFF, 0xC0, f) << 16) | (mix(0xFF, 0x20, f) << 8) | mix(0xFF, 0x20, f);
}

}  // namespace

std::optional<HourlyTable> ParseHourlyCsv(const std::string& text, const std::string& fileName,
                                          std::string& error) {
    const auto lines = SplitLines(text);
    if (lines.empty()) {
        error = fileName + " is empty.";
        return std::nullopt;
    }
    HourlyTable t;
    t.header = SplitCommas(lines[0]);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (lines[i].empty()) continue;
        const auto fields = SplitCommas(lines[i]);
        if (fields.size() != t.header.size()) {
            error = fileName + " line " + std::to_string(i + 1) + ": " +
                    std::to_string(fields.size()) + " fields where the header has " +
                    std::to_string(t.header.size()) + ".";
            return std::nullopt;
        }
        std::vector<double> row;
        for (const auto& f : fields) {
            const auto v = Number(f);
            if (!v) {
                error = fileName + " line " + std::to_string(i + 1) + ": \"" + f +
                        "\" is not a number.";
                return std::nullopt;
            }
            row.push_back(*v);
        }
        t.rows.push_back(std::move(row));
    }
    return t;
}

std::optional<HourlyData> ReadHourlyData(const ProgramPaths& paths, std::string& error) {
    std::optional<HourlyTable> tables[3];
    for (int i = 0; i < 3; ++i) {
        const fs::path path = paths.Resolve(std::string("\\temp\\") + HourlyFile(i + 1));
        const auto text = ReadTextFile(path);
        if (!text) {
            error = path.string() + " cannot be read: run the analysis with hourly output.";
            return std::nullopt;
        }
        tables[i] = ParseHourlyCsv(*text, path.string(), error);
        if (!tables[i]) return std::nullopt;
        if (tables[i]->rows.size() != kHourlyRows) {
            error = path.string() + " has " + std::to_string(tables[i]->rows.size()) +
                    " hours where a year has " + std::to_string(kHourlyRows) + ".";
            return std::nullopt;
        }
    }
    const HourlyTable &energy = *tables[0], &temperature = *tables[1], &weather = *tables[2];
    if (energy.header.size() < 6 || weather.header.size() < 2) {
        error = "The hourly files lack their load or weather columns.";
        return std::nullopt;
    }
    HourlyData d;
    d.heating = Column(energy, 4);
    d.cooling = Column(energy, 5);
    d.loadUnit = UnitOf(energy.header[4], "kBtuh");
    d.outdoor = Column(weather, 1);
    for (std::size_t c = 1; c < temperature.header.size(); ++c) {
        std::string name = temperature.header[c];
        d.temperatureUnit = UnitOf(name, d.temperatureUnit);
        if (const auto open = name.rfind(" ("); open != std::string::npos) name.resize(open);
        d.zoneNames.push_back(name);
        d.zoneTemperature.push_back(Column(temperature, c));
    }
    return d;
}

const char* HourlyFile(int choice) {
    static const char* const kFiles[] = {"ecalc$.hry", "etemp$.hry", "eweth$.hry"};
    return choice >= 1 && choice <= 3 ? kFiles[choice - 1] : nullptr;
}

// ---- Hourly ---------------------------------------------------------------------------

HourlyController::HourlyController(Session& session, Prompt& prompt,
                                   std::function<bool(const fs::path&)> open)
    : session_(session), prompt_(prompt), open_(std::move(open)) {}

void HourlyController::Open() {
    fields = ScreenFields{};
    fields.caption = "SOLVANE Hourly Data Output -- " + session_.model.ProjectData[kProjName];
    fields["HryDisplay"].value = 0;
    fields.At("HryDisplay", 1).text = "Abbreviated hourly weather and whole-building energy data.";
    fields.At("HryDisplay", 2).text =
        "Hourly outdoor and indoor temperatures and relative humidity by zones.";
    fields.At("HryDisplay", 3).text = "Hourly weather data only.";
    fields.At("Action", 0).text = "Display it Now";
    fields.At("Action", 1).text = "Return to Tabular Menu";
}

bool HourlyController::ShowHourly() {
    const int choice = fields["HryDisplay"].value;
    if (choice < 1 || choice > 3) {
        prompt_.Ask("You must first select a display option", "Display Option", Buttons::Ok,
                    Icon::Information);
        return false;
    }
    const fs::path file = session_.paths.Resolve(std::string("\\temp\\") + HourlyFile(choice));
    if (FileExists(file) && open_ && open_(file)) return true;
    const fs::path folder = session_.paths.Resolve("\\temp");
    prompt_.Ask(
        "This function cannot be performed.  Either Excel is not on the execute path or the "
        "previous run had a file creation Error.  You may still access these three files under "
        "the 'yourdirectoryname\\temp' sub-directory if you can start your EXCEL application by "
        "another method" +
            std::string("\r\n\r\nThe hourly files of this run are in ") + folder.string() +
            (FileExists(file) ? ": install a spreadsheet program (such as LibreOffice Calc) to "
                                "open them from here."
                              : ", but " + file.filename().string() + " is not among them."),
        "EXCEL Access Error", Buttons::Ok, Icon::Exclamation);
    return false;
}

Navigation HourlyController::Return() {
    return {Screen::Tabular, true, false};
}

// ---- the program's own plots ------------------------------------------------------------

void DrawHourlyWeek(const HourlyData& data, int zone, int week, Canvas& canvas,
                    ScreenFields& fields) {
    const int w = canvas.Width(), h = canvas.Height();
    canvas.Clear(0xFFFFFF);
    zone = std::clamp(zone, 0, std::max(0, static_cast<int>(data.zoneNames.size()) - 1));
    week = std::clamp(week, 1, 53);
    const int first = (week - 1) * 168;
    const int count = std::min(168, kHourlyRows - first);
    const auto& temperature =
        data.zoneTemperature.empty() ? data.outdoor : data.zoneTemperature[zone];

    double tlo = 1e9, thi = -1e9, lhi = 0;
    for (int i = first; i < first + count; ++i) {
        tlo = std::min({tlo, temperature[i], data.outdoor[i]});
        thi = std::max({thi, temperature[i], data.outdoor[i]});
        lhi = std::max({lhi, std::abs(data.heating[i]), std::abs(data.cooling[i])});
    }
    const double ts = NiceStep(thi - tlo, 5);
    Panel temp{80, 50, w - 30, h / 2 - 20, std::floor(tlo / ts) * ts, std::ceil(thi / ts) * ts};
    if (temp.hi <= temp.lo) temp.hi = temp.lo + ts;
    const double ls = NiceStep(std::max(lhi, 1e-3), 4);
    Panel load{80, h / 2 + 30, w - 30, h - 50, 0, std::max(ls, std::ceil(lhi / ls) * ls)};
    DrawAxis(canvas, temp, data.temperatureUnit);
    DrawAxis(canvas, load, data.loadUnit);

    // Day lines and dates.
    const double dx = static_cast<double>(temp.right - temp.left) / count;
    for (int d = 0; d * 24 < count; ++d) {
        const int x = temp.left + static_cast<int>(d * 24 * dx);
        canvas.Line(x, temp.top, x, temp.bottom, 0xE0E0E0);
        canvas.Line(x, load.top, x, load.bottom, 0xE0E0E0);
        canvas.Text(x + 4, load.bottom + 8, DateText(first / 24 + d), 8, 0x000000);
    }
    Series(canvas, temp, data.outdoor, first, count, 0x808080);
    Series(canvas, temp, temperature, first, count, 0x008000);
    Series(canvas, load, data.heating, first, count, 0xC00000);
    Series(canvas, load, data.cooling, first, count, 0x0000C0);

    const std::string zoneName =
        data.zoneNames.empty() ? std::string("no zone") : data.zoneNames[zone];
    canvas.Text(temp.left, 12, zoneName + " and outdoor air", 10, 0x000000);
    canvas.Text(load.left, load.top - 22, "Building heating and cooling loads", 10, 0x000000);
    canvas.FillBox(w - 330, 14, w - 310, 24, 0x008000);
    canvas.Text(w - 305, 10, "Zone", 8, 0x000000);
    canvas.FillBox(w - 250, 14, w - 230, 24, 0x808080);
    canvas.Text(w - 225, 10, "Outdoor", 8, 0x000000);
    canvas.FillBox(w - 330, load.top - 18, w - 310, load.top - 8, 0xC00000);
    canvas.Text(w - 305, load.top - 22, "Heating", 8, 0x000000);
    canvas.FillBox(w - 250, load.top - 18, w - 230, load.top - 8, 0x0000C0);
    canvas.Text(w - 225, load.top - 22, "Cooling", 8, 0x000000);

    fields.caption = "Hourly Results -- " + zoneName + ", week " + std::to_string(week) + " (" +
                     DateText(first / 24) + " to " + DateText((first + count - 1) / 24) + ")";
    fields["legend"].text = "Zone and outdoor temperature in " + data.temperatureUnit +
                            "; building loads in " + data.loadUnit + ".";
}

void DrawHourlyYear(const HourlyData& data, HourlySeries series, int zone, Canvas& canvas,
                    ScreenFields& fields) {
    const int w = canvas.Width(), h = canvas.Height();
    canvas.Clear(0xFFFFFF);
    zone = std::clamp(zone, 0, std::max(0, static_cast<int>(data.zoneNames.size()) - 1));
    const std::vector<double>* values = &data.outdoor;
    std::string name = "Outdoor dry bulb", unit = data.temperatureUnit;
    if (series == HourlySeries::ZoneTemperature && !data.zoneTemperature.empty()) {
        values = &data.zoneTemperature[zone];
        name = data.zoneNames[zone] + " temperature";
    } else if (series == HourlySeries::Heating) {
        values = &data.heating;
        name = "Building heating load";
        unit = data.loadUnit;
    } else if (series == HourlySeries::Cooling) {
        values = &data.cooling;
        name = "Building cooling load";
        unit = data.loadUnit;
    }
    const auto [mn, mx] = std::minmax_element(values->begin(), values->end());
    const double lo = *mn, hi = *mx > *mn ? *mx : *mn + 1;

    const int left = 70, top = 50, right = w - 110, bottom = h - 50;
    const double cw = static_cast<double>(right - left) / 365, ch = (bottom - top) / 24.0;
    for (int d = 0; d < 365; ++d)
        for (int hr = 0; hr < 24; ++hr) {
            const double v = (*values)[d * 24 + hr];
            canvas.FillBox(left + static_cast<int>(d * cw), top + static_cast<int>(hr * ch),
                           left + static_cast<int>((d + 1) * cw),
                           top + static_cast<int>((hr + 1) * ch), Ramp((v - lo) / (hi - lo)));
        }
    canvas.Box(left, top, right, bottom, 0x808080);
    for (int m = 0; m < 12; ++m) {
        const int x = left + static_cast<int>(kMonthStart[m] * cw);
        canvas.Line(x, bottom, x, bottom + 6, 0x000000);
        canvas.Text(x + 4, bottom + 8, kMonthShort[m], 8, 0x000000);
    }
    for (int hr = 0; hr <= 24; hr += 6) {
        const int y = top + static_cast<int>(hr * ch);
        canvas.Line(left - 6, y, left, y, 0x000000);
        canvas.Text(left - 50, y - 7, std::to_string(hr) + ":00", 8, 0x000000);
    }
    // The colour key.
    const int kx = right + 30;
    for (int y = top; y < bottom; ++y)
        canvas.Line(kx, y, kx + 20, y, Ramp(1.0 - static_cast<double>(y - top) / (bottom - top)));
    canvas.Box(kx, top, kx + 20, bottom, 0x808080);
    canvas.Text(kx - 4, top - 20, unit, 8, 0x000000);
    canvas.Text(kx + 24, top - 6, AxisText(hi), 8, 0x000000);
    canvas.Text(kx + 24, bottom - 10, AxisText(lo), 8, 0x000000);
    canvas.Text(left, 12, name + ", each day of the year by hour", 10, 0x000000);

    fields.caption = "Hourly Results -- " + name + " over the year";
    fields["legend"].text = name + " from " + AxisText(lo) + " to " + AxisText(hi) + " " + unit +
                            "; days run left to right, hours of the day top to bottom.";
}

}  // namespace solvane
