#include "weather/recorded_weather.h"

#include <cctype>
#include <filesystem>

#include "core/item_reader.h"
#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace fs = std::filesystem;

namespace solvane {

const std::array<RecordedFormat, 5> kRecordedFormats = {{
    {"", "*.*", "", ""},
    {"TMY (EPW format)", "*.epw", "Example of TMY2 format", "\\Helpinfo\\tmy2.txt"},
    {"WYEC2", "WYEC2.txt", "Example of WYEC2 format", "\\Helpinfo\\wyec2.txt"},
    {"IWEC", "IWEC.txt", "Example of IWEC format", "\\Helpinfo\\iwec.txt"},
    {"Custom", "*.cus", "Example of Custom format", "\\Helpinfo\\custom.txt"},
}};

namespace {

constexpr const char* kTakenFile = "\\temp\\ecalc$.tmy";
constexpr const char* kStationFile = "\\temp\\tmy2lines.wth";
constexpr const char* kViewFile = "\\temp\\wethtemp.txt";
constexpr double kFeetPerMetre = 3.28;

std::vector<std::string> SplitCommas(const std::string& line) {
    std::vector<std::string> items(1);
    for (char c : line) {
        if (c == ',')
            items.emplace_back();
        else
            items.back() += c;
    }
    return items;
}

// An EPW design temperature (deg C) in deg F to 1 decimal; blank when the
// item is not a number (a file without design conditions).
std::string DesignF(const std::string& item) {
    if (!IsNumericText(item)) return {};
    return NumText(RoundOff(NumVal(item) * 1.8 + 32, 1));
}

std::string Joined(std::initializer_list<std::string> parts) {
    std::string out;
    for (const auto& p : parts) out += (out.empty() ? "" : ", ") + p;
    return out;
}

bool HasWildCard(const std::string& pattern) {
    return pattern.find_first_of("*?") != std::string::npos;
}

}  // namespace

long RecordedFileYear(const std::string& content) {
    const auto lines = SplitLines(content);
    if (lines.size() < 10) return -1;
    const std::string& line = lines[9];
    std::size_t i = 0;
    while (i < line.size() && !std::isdigit(static_cast<unsigned char>(line[i]))) ++i;
    if (i == line.size()) return -1;
    long year = 0;
    for (int n = 0; i < line.size() && std::isdigit(static_cast<unsigned char>(line[i])); ++i) {
        if (++n <= 9) year = year * 10 + (line[i] - '0');
    }
    return year;
}

bool SameYearDigits(long fileYear, long projectYear) {
    return fileYear >= 0 && fileYear % 100 == projectYear % 100;
}

std::string Tmy2LinesFromEpw(const std::string& content, RecordedStation* station) {
    const auto lines = SplitLines(content);
    const auto head = SplitCommas(lines.empty() ? std::string() : lines.front());
    auto field = [&](std::size_t i) { return i < head.size() ? head[i] : std::string(); };
    RecordedStation s;
    s.city = field(1);
    s.state = field(2);
    s.country = field(3);
    s.RecordedLatitude = RoundOff(NumVal(field(6)), 2);
    s.RecordedLongitude = RoundOff(NumVal(field(7)), 2);
    s.RecordedTimeZone = RoundOff(NumVal(field(8)), 2);
    s.RecordedElevation = RoundOff(NumVal(field(9)) * kFeetPerMetre, 1);
    if (station) *station = s;

    std::string place = s.city + ", " + s.state + ", " + s.country;
    place = place.substr(0, 36);
    LineWriter out;
    out.Line(Joined({place, NumText(s.RecordedLatitude), NumText(s.RecordedLongitude),
                     NumText(s.RecordedTimeZone), NumText(s.RecordedElevation)}));

    // The design conditions record: item 7 the heating design dry bulb,
    // items 24 and 25 the cooling design dry bulb and its wet bulb.
    const std::size_t start = content.find('\n');
    ItemReader items(start == std::string::npos ? std::string() : content.substr(start + 1),
                     "ecalc$.tmy");
    std::vector<std::string> item(1);
    while (item.size() <= 25 && !items.AtEnd()) item.push_back(items.NextText());
    item.resize(26);
    out.Line(Joined({DesignF(item[24]), DesignF(item[25]), DesignF(item[7])}));
    return out.Str();
}

SelectWeatherController::SelectWeatherController(Session& session, Prompt& prompt)
    : session_(session), prompt_(prompt) {}

void SelectWeatherController::Open(const std::string& evaluationYear) {
    evaluationYear_ = evaluationYear;
    fields_.caption = "Weather File Selection";
    WeatherFormatMissing = 0;
    const ClimateState& c = session_.model.climate;
    std::string folder = session_.paths.Resolve("\\weather").string();
    fields_["Text1"].text.clear();
    if (!c.RecordedWeatherFile.empty()) {
        const fs::path previous(c.RecordedWeatherFile);
        if (fs::is_directory(previous.parent_path())) folder = previous.parent_path().string();
        fields_["Text1"].text = previous.filename().string();
    }
    browser.ChangeFolder(folder);
    WeatherFileFormat = 0;
    for (int f = 1; f <= 4; ++f) fields_.At("fileformat", f).value = 0;
    fields_["fileform"] = {};
    sampleText.clear();
    if (c.WeatherFileFormat >= 1 && c.WeatherFileFormat <= 4) ChooseFormat(c.WeatherFileFormat);
    fields_["Dir1"].text = browser.Dir1Path;
}

void SelectWeatherController::ChooseFormat(int format) {
    if (format < 1 || format > 4) return;
    WeatherFileFormat = format;
    WeatherFormatMissing = 0;
    for (int f = 1; f <= 4; ++f) fields_.At("fileformat", f).value = f == format ? 1 : 0;
    const RecordedFormat& rf = kRecordedFormats[static_cast<std::size_t>(format)];
    const std::string folder = browser.Dir1Path;
    browser = FileBrowser(rf.pattern);
    browser.ChangeFolder(folder);

    fields_["fileform"].text = rf.sampleTitle;
    const auto text = ReadTextFile(session_.paths.Resolve(rf.sampleFile));
    sampleText = text ? *text : "File not found";
    // WYEC2 and IWEC years are delivered under one name each.
    const bool named = !HasWildCard(rf.pattern);
    if (!text || (named && !FileExists(fs::path(BuildDialogPath(folder, rf.pattern)))))
        prompt_.Ask("File not found", rf.choice, Buttons::Ok, Icon::Exclamation);
    if (named && fields_["Text1"].text.empty() &&
        FileExists(fs::path(BuildDialogPath(folder, rf.pattern))))
        fields_["Text1"].text = rf.pattern;
}

void SelectWeatherController::FolderChanged() {
    const std::string folder = browser.Dir1Path;
    browser = FileBrowser("*.*");
    browser.ChangeFolder(folder);
    fields_["Dir1"].text = browser.Dir1Path;
}

void SelectWeatherController::ChooseFile(int index) {
    if (index < 0 || index >= static_cast<int>(browser.File1.size())) return;
    const std::string name = browser.File1[static_cast<std::size_t>(index)];
    if (!FileExists(fs::path(BuildDialogPath(browser.Dir1Path, name)))) {
        prompt_.Ask("File does not exist.  Check your directory again.", "Error", Buttons::Ok,
                    Icon::Exclamation);
        browser.Refresh();
        return;
    }
    fields_["Text1"].text = name;
}

std::string SelectWeatherController::FullPath() const {
    return BuildDialogPath(browser.Dir1Path, fields_.Text("Text1"));
}

bool SelectWeatherController::Ok() {
    if (fields_.Text("Text1").empty()) {
        prompt_.Ask("Please enter the weather data file name.", "Weather Data File", Buttons::Ok,
                    Icon::Exclamation);
        return false;
    }
    if (WeatherFileFormat == 0) {
        prompt_.Ask("Please click the weather file format.", "Weather File Format", Buttons::Ok,
                    Icon::Exclamation);
        WeatherFormatMissing = 1;
        return false;
    }
    const std::string path = FullPath();
    prompt_.Ask("The weather data file taken is: " + path, "Weather Data File", Buttons::Ok,
                Icon::Information);
    const auto content = ReadTextFile(path);
    if (!content || fs::is_directory(path)) {
        prompt_.Ask("File does not exist.  Check your directory again.", "Error", Buttons::Ok,
                    Icon::Exclamation);
        return false;
    }

    const long fileYear = RecordedFileYear(*content);
    const long projectYear = static_cast<long>(NumVal(evaluationYear_));
    if (!SameYearDigits(fileYear, projectYear)) {
        prompt_.Beep();
        if (prompt_.Ask("The year of your weather data file is not the same as the project "
                        "evaluation year.  Do you want to continue?",
                        "Weather Year", Buttons::YesNo, Icon::Question) == Answer::No)
            return false;
    }

    std::string reason;
    const fs::path taken = session_.paths.Resolve(kTakenFile);
    if (!WriteFileAtomic(taken, *content, &reason)) {
        prompt_.Ask(WriteFailureText(taken, reason), "Weather Data File", Buttons::Ok,
                    Icon::Critical);
        return false;
    }
    ClimateState& c = session_.model.climate;
    c.RecordedWeatherSelected = 1;
    c.RecordedWeatherFile = path;
    c.WeatherFileFormat = static_cast<std::int16_t>(WeatherFileFormat);

    const fs::path stationFile = session_.paths.Resolve(kStationFile);
    if (WeatherFileFormat != 1) {
        std::error_code ec;
        fs::remove(stationFile, ec);  // a previous EPW file's station is not this file's
        return true;
    }
    const std::string lines = Tmy2LinesFromEpw(*content, &station);
    prompt_.Ask("Station: " + station.city + ", " + station.state + ", " + station.country +
                    std::string(CrLf) + "Latitude: " + NumText(station.RecordedLatitude) +
                    std::string(CrLf) + "Longitude: " + NumText(station.RecordedLongitude) +
                    std::string(CrLf) + "Time Zone: " + NumText(station.RecordedTimeZone) +
                    std::string(CrLf) + "Elevation (ft): " + NumText(station.RecordedElevation),
                "Read Check", Buttons::Ok, Icon::Information);
    if (!WriteFileAtomic(stationFile, lines, &reason))
        prompt_.Ask(WriteFailureText(stationFile, reason), "Read Check", Buttons::Ok,
                    Icon::Critical);
    return true;
}

bool SelectWeatherController::View() {
    if (fields_.Text("Text1").empty()) {
        prompt_.Ask("Please enter the weather file name.", "Weather File Name", Buttons::Ok,
                    Icon::Exclamation);
        return false;
    }
    const std::string path = FullPath();
    const auto content = ReadTextFile(path);
    if (!content || fs::is_directory(path)) {
        prompt_.Ask("File does not exist.  Check your directory again.", "Error", Buttons::Ok,
                    Icon::Exclamation);
        return false;
    }
    const ProjectModel& m = session_.model;
    const int code = m.session.CodeNum;
    LineWriter out;
    out.Line("Weather Selection:...  Energy Code = " +
             session_.labels.CodeTitle[code >= 0 && code <= 3 ? code : 0]);
    out.Line("                           THIS IS ONLY PART OF YOUR WEATHER FILE.");
    out.Line(
        "           PLEASE MAKE SURE THAT THIS IS THE RIGHT WEATHER FILE YOU ARE GOING TO USE.");
    out.Line(session_.labels.RuleLine);
    const auto lines = SplitLines(*content);
    for (std::size_t i = 0; i < lines.size() && i < kViewedWeatherLines; ++i) out.Line(lines[i]);
    viewText = out.Str();
    std::string reason;
    const fs::path view = session_.paths.Resolve(kViewFile);
    if (!WriteFileAtomic(view, viewText, &reason))
        prompt_.Ask(WriteFailureText(view, reason), "Weather File Name", Buttons::Ok,
                    Icon::Exclamation);
    return true;
}

}  // namespace solvane
