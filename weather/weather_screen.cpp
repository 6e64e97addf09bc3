#include "weather/weather_screen.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "core/item_reader.h"
#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "core/text_file.h"
#include "core/unit_factors.h"

namespace solvane {

const std::array<const char*, 9> WeatherScreen::kRowNames = {
    "", "dbave", "avestd", "dbmax", "mxstd", "dpave", "dpstd", "solar", "wind"};

namespace {

constexpr Color kHighlight = 0x00FFFF;  // colour 11 of the sixteen basic colours
constexpr Color kPlain = 0xFFFFFF;

// A value rounded to `digits` and right-aligned under the mask.
std::string Masked(double value, int digits, std::string_view mask) {
    return FormatField(NumText(RoundOff(value, digits)), mask);
}

std::string ReadRegionFile(const ProgramPaths& paths, int region) {
    const auto path = paths.Resolve(RegionFilePath(region));
    auto content = ReadTextFile(path);
    if (!content) throw ReadError(path.string(), 0, "File not found");
    return std::move(*content);
}

bool IsNumberField(const std::string& field) {
    if (field == "latitude" || field == "longitude" || field == "timezone" || field == "elev")
        return true;
    const std::size_t bar = field.rfind('_');
    if (bar == std::string::npos) return false;
    const std::string base = field.substr(0, bar);
    if (base == "extdb" || base == "annext") return true;
    for (int r = 1; r <= 8; ++r)
        if (base == WeatherScreen::kRowNames[r]) return true;
    return false;
}

}  // namespace

bool OverhangExempt(const std::string& climateZone) {
    return NumVal(climateZone) >= 4 && climateZone != "4 B" && climateZone != "4 C";
}

WeatherScreen::WeatherScreen(ProjectModel& model, const ProgramPaths& paths, Prompt& prompt,
                             ClimateIndex& index)
    : model_(model), paths_(paths), prompt_(prompt), index_(index) {
    fields.caption = "Weather Data";
    for (int r = 1; r <= kRegions; ++r)
        fields.At("Option1", r - 1).text = std::string(kRegionCaptions[r]);
    for (int m = 1; m <= 12; ++m) {
        fields.At("extdb", m).text = "0.0";
        fields.At("annext", m).text = "0.0";
    }
    fields["savenew"].text = "Save As New";
    fields["saveupdate"].text = "Save As Update";
    fields["CityDelete"].text = "Delete this City";
}

std::string& WeatherScreen::Cell(int row, int month) {
    return fields.At(kRowNames[static_cast<std::size_t>(row)], month).text;
}

// ---- opening ------------------------------------------------------------------

void WeatherScreen::OpenTask() {
    if (ClimateNoticeArmed == 1) {
        const auto noticePath = paths_.Resolve("/temp/wthChange.txt");
        const auto content = ReadTextFile(noticePath);
        if (content && NumVal(*content) == 1) {
            const std::string text =
                "If you're planning to change the weather site, you'll be in a different climate "
                "zone, which will cause the code requirements to change as to the building's "
                "envelope thermal properties.  If you intended this change, be aware that new "
                "requirements will take place.  You should check the new envelope properties by "
                "clicking the Mat'l/Systems Database pop-down in the Main Menu and    by clicking "
                "the Envelope Properties pop-down in the Zone Description form." +
                std::string(CrLf) + std::string(CrLf) + "Click OK to continue." +
                std::string(CrLf) + std::string(CrLf) +
                "Click Cancel to prevent this message from appearing in the future.";
            const Answer a =
                prompt_.Ask(text, "Selecting a new climate zone will change code requirements.",
                            Buttons::OkCancel, Icon::None);
            LineWriter out;
            out.Line(a == Answer::Ok ? "1" : "0");
            WriteFileAtomic(noticePath, out.Str());
        }
    }
    Activate();
}

void WeatherScreen::ShowRegionLines() {
    for (int r = 1; r <= kRegions; ++r) {
        FieldState& line = fields.At("Text12", r - 1);
        line.text = RegionCountLine(index_, r);
        line.color = r == CurrentRegion ? kHighlight : kPlain;
    }
    fields["totals"].text = TotalsLine(index_);
}

void WeatherScreen::CheckRegionOption() {
    RegionChangeEnabled = 0;
    for (int r = 1; r <= kRegions; ++r) fields.At("Option1", r - 1).value = r == CurrentRegion;
    RegionChangeEnabled = 1;
}

void WeatherScreen::LoadPictures() {
    std::string map;
    if (CurrentRegion == 1) {
        map = "\\weather\\Region1\\USA.jpg";
    } else if (CurrentRegion == 2) {
        map = "\\weather\\Region2\\Canada.jpg";
    } else {
        map = "\\weather\\Region" + std::to_string(CurrentRegion) + "\\" + CurrentState + ".jpg";
    }
    const std::string path = paths_.Resolve(map).string();
    fields["Picture1"].text = path;
    fields["Picture3"].text = path;
}

void WeatherScreen::FillStateList() {
    Combo1Items.clear();
    for (int i = 1; i <= index_.RegionStateCount[CurrentRegion]; ++i)
        Combo1Items.push_back(index_.StateName[CurrentRegion][i]);
}

void WeatherScreen::Activate() {
    if (WeatherScreenDone == 1) {
        WeatherScreenDone = 0;
        return;
    }
    const bool si = Units() == 2;
    for (int i = 1; i <= 10; ++i) fields.At("unt", i).text = si ? "Deg. C" : "Deg. F";
    fields.At("unt", 7).text = si ? "kJ/sq.m." : "Btu/sq.ft.";
    fields.At("unt", 8).text = si ? "m/sec." : "Miles/hr.";
    if (index_.RegionSummary[1].empty()) FillRegionSummaries(index_);
    ShowRegionLines();

    // A project with a location opens the screen on its own state and city.
    TakeProjectLocation();
    fields["sttext"].text = CurrentState;
    fields["citytext"].text = CurrentCity;
    fields["Combo3"].text = CurrentCity;
    bool found = false;
    for (int r = 1; r <= kRegions && !found; ++r) {
        for (int i = 1; i <= index_.RegionStateCount[r] && !found; ++i)
            found = index_.StateName[r][i] == CurrentState;
        if (found) CurrentRegion = r;
    }
    CheckRegionOption();
    // Only a state that is in no region falls back to the region's first one;
    // a known state stays, so that OK keeps the project's location whole.
    if (!found && CurrentRegion == 1) CurrentState = "Alabama";
    if (!found && CurrentRegion == 2) CurrentState = "Alberta";
    fields["Combo1"].text = fields["sttext"].text;
    LoadPictures();

    FillStateList();
    ListStateCities();
    LoadFieldsFromWeatherData();
    FindCityRecord();
}

void WeatherScreen::TakeProjectLocation() {
    const std::string line = cuts::TrimRight(cuts::Left(model_.climate.WeatherData[2], 50));
    const std::size_t comma = line.find(", ");
    if (comma == std::string::npos) return;
    // The state is followed by the station's marker: the longest state name
    // of any region that the text after the comma begins with.
    const std::string rest = line.substr(comma + 2);
    std::string state;
    for (int r = 1; r <= kRegions; ++r) {
        for (int i = 1; i <= index_.RegionStateCount[r]; ++i) {
            const std::string& name = index_.StateName[r][i];
            const bool starts =
                rest.compare(0, name.size(), name) == 0 &&
                (rest.size() == name.size() ||
                 std::string_view(" #!*@").find(rest[name.size()]) != std::string_view::npos);
            if (starts && name.size() > state.size()) state = name;
        }
    }
    if (state.empty()) return;
    CurrentState = state;
    CurrentCity = line.substr(0, comma);
}

void WeatherScreen::LoadFieldsFromWeatherData() {
    const TextTable<12>& wd = model_.climate.WeatherData;
    // A project without a location has no block to show.
    if (cuts::TrimRight(wd[2]).empty()) return;
    const std::string& line = wd[2];
    const std::size_t comma = line.find(',');
    fields["citytext"].text = line.substr(0, comma);
    FileLocationState =
        comma == std::string::npos ? std::string() : cuts::Mid(line, comma + 3, 1000);
    fields["WMO"].text = cuts::Mid(line, 41, 6);
    fields["latitude"].text = Masked(NumVal(cuts::Mid(line, 48, 6)), 1, "@@@@@");
    fields["longitude"].text = Masked(NumVal(cuts::Mid(line, 54, 6)), 1, "@@@@@");
    fields["timezone"].text = Masked(NumVal(cuts::Mid(line, 61, 6)), 1, "@@@@@");
    fields["elev"].text = Masked(NumVal(cuts::Mid(line, 67, 6)), 1, "@@@@@@");
    for (int row = 1; row <= 8; ++row) {
        const std::string& data = wd[static_cast<std::size_t>(row + 3)];
        for (int m = 1; m <= 12; ++m) {
            const double v = NumVal(cuts::Mid(data, static_cast<std::size_t>(6 * (m - 1) + 1), 6));
            Cell(row, m) = Masked(v, row == kSolar ? 0 : 1, "@@@@@@");
        }
    }
}

// ---- selection ------------------------------------------------------------------

void WeatherScreen::ChooseRegion(int region) {
    if (!RegionChangeEnabled || region < 1 || region > kRegions) return;
    CurrentRegion = region;
    ShowRegionLines();
    StateListDropped = 1;
    CurrentState = index_.StateName[region][1];
    fields["sttext"].text = CurrentState;
    if (region == 1) CurrentCity = "Albertville Muni AP";
    if (region == 2) CurrentCity = "Abee AgDM";
    fields["citytext"].text = CurrentCity;
    fields["Combo3"].text = CurrentCity;
    if (index_.RegionSummary[region].empty()) FillRegionSummaries(index_);
    fields["status"].text = index_.RegionSummary[region];
    CheckRegionOption();
    FillStateList();
    LoadPictures();
    // The new state's list opens on its first city, as a state choice does.
    CityListPending = 1;
    ListStateCities();
    FindCityRecord();
}

void WeatherScreen::ChooseState(const std::string& listText) {
    StateListDropped = 0;
    fields["sttext"].text = cuts::TrimRight(listText);
    CurrentState = fields["sttext"].text;
    fields["Combo1"].text = CurrentState;
    LoadPictures();
    CityListPending = 1;
    ListStateCities();
    FindCityRecord();
}

void WeatherScreen::ChooseCity(const std::string& listText) {
    fields["citytext"].text = listText;
    fields["Combo3"].text = listText;
    CurrentCity = listText;
    FindCityRecord();
}

// ---- editing --------------------------------------------------------------------

int WeatherScreen::KeyPress(const std::string& field, int key) {
    if (field == "citytext" || field == "WMO") {
        CityEdited = 1;
        return key;
    }
    if (field == "sttext") {
        CityEdited = 1;
        return key >= 97 && key <= 122 ? key - 32 : key;
    }
    if (!IsNumberField(field)) return key;
    const bool valid =
        (key >= '0' && key <= '9') || key == 8 || key == 9 || key == 13 || key == 45 || key == 46;
    if (!valid) {
        prompt_.Ask("Please use numerical values.", "Error", Buttons::Ok, Icon::None);
        return 0;
    }
    CityEdited = 1;
    return key;
}

void WeatherScreen::DeriveDeviations(bool annual, int month) {
    if (month < 1 || month > 12) return;
    const double extreme = NumVal(fields.At(annual ? "annext" : "extdb", month).text);
    const double dbmax = NumVal(Cell(kDbMax, month));
    const double k = annual ? 2.11 : 3.1;
    // Whole tenths by adding a half and taking the integer part (floor).
    const double maxStd = std::floor(((extreme - dbmax) / k) * 10 + 0.5) / 10;
    const double aveStd = std::floor(maxStd * 0.87 * 10 + 0.5) / 10;
    Cell(kMaxStd, month) = NumText(maxStd);
    Cell(kAveStd, month) = NumText(aveStd);
    Cell(kDpStd, month) = Cell(kAveStd, month);
}

// ---- database routines --------------------------------------------------------------

void WeatherScreen::ListStateCities() {
    const int region = CurrentRegion;
    const std::string& st = fields["sttext"].text;
    for (int i = 1; i <= kMaxStates; ++i) {
        if (index_.StateName[region][i] == st) {
            CurrentGroup = i;
            break;
        }
    }
    const double count = index_.StateCityCount[region][CurrentGroup];
    fields["Label1"].text = CurrentState + "  (" + NumText(count) +
                            (count < 2 ? " Weather data site)" : " Weather data sites)");

    const std::vector<std::string> lines = SplitLines(ReadRegionFile(paths_, region));
    const int first = index_.StateFirstRecord[region][CurrentGroup];
    const int last = first + static_cast<int>(count) - 1;
    LineWriter diagnostics;
    diagnostics.Line("Missing or corrupt city names (if any) are listed here:");
    Combo3Items.clear();
    for (int rec = std::max(first, 1); rec <= last; ++rec) {
        if (region == 6 && rec > kRegion6Records) break;
        const std::size_t at = static_cast<std::size_t>(rec - 1) * kRecordLines;
        if (at + 1 >= lines.size()) break;
        const std::string city = CityOfNameField(ParseNameLine(lines[at + 1]).name);
        Combo3Items.push_back(city);
        if (CityListPending == 1 && Combo3Items.size() == 1) {
            fields["citytext"].text = city;
            fields["Combo3"].text = city;
        }
        if (region == 6) {
            diagnostics.Line(lines[at]);
            diagnostics.Line(lines[at + 1]);
        }
    }
    WriteFileAtomic(paths_.Resolve("tempTest.out"), diagnostics.Str());
}

void WeatherScreen::ShowCityRecord(const std::vector<std::string>& lines, int ordinal) {
    const int region = CurrentRegion;
    const int i = ordinal;
    const std::size_t at = static_cast<std::size_t>(i - 1) * kRecordLines;
    if (i < 1 || at + 1 >= lines.size()) return;
    const std::vector<std::string> key = SplitKeyLine(lines[at]);
    const ClimateHeader header =
        ParseClimateHeader(key.size() > 2 ? key[2] : std::string(), Units());
    HeatingDegreeDays = header.HeatingDegreeDays;
    CoolingDegreeDays = header.CoolingDegreeDays;
    ClimateZone = header.ClimateZone;
    const NameLine name = ParseNameLine(lines[at + 1]);
    fields["CityNum"].text =
        "City # " + std::to_string(i) + " of " + std::to_string(index_.RegionCityCount[region]);
    WMONumber = name.wmo;
    Latitude = static_cast<float>(name.latitude);
    Longitude = static_cast<float>(name.longitude);
    StandardMeridian = static_cast<float>(name.standardMeridian);
    Elevation = static_cast<float>(name.elevation);
    fields["WMO"].text = WMONumber;
    fields["latitude"].text = Masked(Latitude, 1, "@@@@@");
    fields["longitude"].text = Masked(Longitude, 1, "@@@@@");
    fields["timezone"].text = Masked(StandardMeridian, 1, "@@@@@");
    fields["latlabel"].text = Latitude <= 0 ? "S. Latitude" : "N. Latitude";
    fields["longlabel"].text = Longitude <= 0 ? "W. Long." : "E. Long.";
    if (Units() == 2) {
        Elevation =
            static_cast<float>(std::floor(Elevation * 10 * UnitFactor::LengthIpToSi + 0.5) / 10);
    }
    fields["elev"].text = NumText(Elevation);
    fields["HDDV"].text = NumText(HeatingDegreeDays);
    fields["CDDV"].text = NumText(CoolingDegreeDays);
    fields["CLzoneV"].text = ClimateZone;
    for (int row = 1; row <= 8; ++row) {
        const std::size_t lineAt = at + 1 + static_cast<std::size_t>(row);
        const std::array<double, 13> values =
            lineAt < lines.size() ? ParseMonthlyRow(lines[lineAt]) : std::array<double, 13>{};
        for (int m = 1; m <= 12; ++m) {
            Cell(row, m) =
                Masked(MonthlyToScreen(row, values[m], Units()), row == kSolar ? 0 : 1, "@@@@@");
        }
    }
    CityOrdinal = i;
    CityMarker = MarkerOfNameField(name.name, CityMarker);
}

void WeatherScreen::FindCityRecord() {
    const int region = CurrentRegion;
    const std::vector<std::string> lines = SplitLines(ReadRegionFile(paths_, region));
    const int count = index_.RegionCityCount[region];
    const std::string wanted = fields["citytext"].text;
    std::string lastName;
    for (int i = 1; i <= count; ++i) {
        const std::size_t at = static_cast<std::size_t>(i - 1) * kRecordLines;
        if (at + 1 >= lines.size()) break;
        const std::vector<std::string> key = SplitKeyLine(lines[at]);
        const ClimateHeader header =
            ParseClimateHeader(key.size() > 2 ? key[2] : std::string(), Units());
        HeatingDegreeDays = header.HeatingDegreeDays;
        CoolingDegreeDays = header.CoolingDegreeDays;
        ClimateZone = header.ClimateZone;
        const NameLine name = ParseNameLine(lines[at + 1]);
        lastName = CityOfNameField(name.name);
        if (lastName != wanted) continue;

        ShowCityRecord(lines, i);
        break;
    }
    fields["citytext"].text = lastName;
    for (int m = 1; m <= 12; ++m) {
        fields.At("extdb", m).text = "0.0";
        fields.At("annext", m).text = "0.0";
    }
}

std::string WeatherScreen::WriteCityRecord(const std::string& firstLine) {
    LineWriter out;
    out.Line(firstLine);
    const std::string name = fields["citytext"].text + ", " + fields["sttext"].text;
    WriteNameLineStart(out, name, fields["WMO"].text, NumVal(fields["latitude"].text),
                       NumVal(fields["longitude"].text), NumVal(fields["timezone"].text));
    const double elevation = NumVal(fields["elev"].text);
    if (Units() == 2) {
        out.Num(RoundOff(elevation * 3.2808, 0));
    } else {
        out.Num(elevation);
    }
    out.EndLine();
    for (int row = 1; row <= 8; ++row) {
        std::array<double, 13> values{};
        for (int m = 1; m <= 12; ++m) values[m] = MonthlyToFile(row, NumVal(Cell(row, m)), Units());
        WriteMonthlyRow(out, values, row == kSolar);
    }
    return out.Str();
}

void WeatherScreen::RewriteRegionFile() {
    if (CityEdited == 0) {
        prompt_.Ask(
            "No new data have been entered.  Current data will not be saved into the database.",
            "Message", Buttons::Ok, Icon::Exclamation);
        return;
    }
    const auto regionPath = paths_.Resolve(RegionFilePath(CurrentRegion));
    const std::vector<std::string> lines = SplitLines(ReadRegionFile(paths_, CurrentRegion));
    // Records kept ahead of the written one: behind the current record when
    // adding, up to the one before it when updating or deleting.
    const int n = CityAddNew == 1 ? CityOrdinal : CityOrdinal - 1;
    const std::size_t kept =
        std::min(lines.size(), static_cast<std::size_t>(std::max(n, 0)) * kRecordLines);
    LineWriter out;
    std::string rememberedFirstLine;
    for (std::size_t i = 0; i < kept; ++i) {
        out.Line(lines[i]);
        if (i % kRecordLines == 0) rememberedFirstLine = lines[i];
    }
    std::string content = out.Str();
    if (CityDeleting == 0) content += WriteCityRecord(rememberedFirstLine);
    std::size_t rest = kept;
    if (CityAddNew == 0) rest = std::min(lines.size(), kept + kRecordLines);
    LineWriter tail;
    for (std::size_t i = rest; i < lines.size(); ++i) tail.Line(lines[i]);
    content += tail.Str();
    if (!WriteFileAtomic(regionPath, content))
        throw ReadError(regionPath.string(), 0, "The region file could not be written");
    CityEdited = CityAddNew = CityDeleting = 0;
    CountCityRecords(paths_, index_);
}

// ---- buttons ------------------------------------------------------------------------

std::string WeatherScreen::LocationText() const {
    const std::string city = fields.Text("citytext");
    const std::string state = fields.Text("sttext");
    return city + ", " + state + " " + CityMarker;
}

Navigation WeatherScreen::Ok() {
    const Navigation close{Screen::MainMenu, true, false};
    if (fields["sttext"].text.empty()) {
        WeatherScreenDone = 1;
        return close;
    }
    CurrentState = fields["sttext"].text;
    CurrentCity = fields["citytext"].text;
    // The list's own text, when it holds one, is what is kept.
    if (!fields["Combo3"].text.empty()) CurrentCity = fields["Combo3"].text;
    prompt_.Ask(
        "Did you just select a new Climate Zone?  If so, Click on the Mat'l / Systems Database "
        "after you've entered your building type and update the envelope properties for your "
        "project.",
        "Climate Data change?", Buttons::Ok, Icon::None);
    if (CityEdited == 1) {
        const Answer a = prompt_.Ask(
            "You have edited some values of the weather data.  Click 'Save As New' to save the "
            "data into a new record, or 'Save As Update' to update the weather file.  Save new "
            "data now?",
            "Save Weather Data", Buttons::YesNo, Icon::Exclamation);
        if (a == Answer::Yes) return Navigation{};
        CityEdited = 0;
    }
    const std::string location = LocationText();

    ClimateState& c = model_.climate;
    ClimateZone = fields["CLzoneV"].text;
    c.HDDText = fields["HDDV"].text;
    c.HeatingDegreeDays = static_cast<float>(NumVal(c.HDDText));
    c.CDDText = fields["CDDV"].text;
    c.CoolingDegreeDays = static_cast<float>(NumVal(c.CDDText));
    c.WMONumber = fields["WMO"].text;
    c.Latitude = static_cast<float>(NumVal(fields["latitude"].text));
    c.Longitude = static_cast<float>(NumVal(fields["longitude"].text));
    c.StandardMeridian = static_cast<float>(NumVal(fields["timezone"].text));
    c.Elevation = static_cast<float>(NumVal(fields["elev"].text));
    c.LocationCity = fields["citytext"].text;
    c.LocationState = fields["sttext"].text;

    auto leftIn12 = [](std::string s) {
        s.resize(12, ' ');
        return s;
    };
    c.WeatherData[1] = "          HDD = " + leftIn12(c.HDDText) + "CDD = " + leftIn12(c.CDDText) +
                       "    WMO#   Lat.  Long.  STM.  Elev";

    if (OverhangExempt(ClimateZone)) {
        prompt_.Ask(
            "Your selected climate zone will not require overhang shades over windows, though "
            "you may choose later to include overhangs.",
            "Overhang shade requirement is exempt.", Buttons::Ok, Icon::None);
    } else {
        prompt_.Ask(
            "Buildings in this climate zone will be required to have overhang shades over the "
            "windows. Specify this later in the sketch routine.",
            "Overhang shade requirement.", Buttons::Ok, Icon::None);
    }

    // Overhang defaults north, east, south, west: the equator side gets them.
    WindowSizerState& s = model_.sizer;
    if (c.Latitude <= 0) {
        s.PFFirst = {0.5f, 0.5f, 0.0f, 0.5f, s.PFFirst[4]};
        s.PFUpper = {0.25f, 0.25f, 0.0f, 0.25f, s.PFUpper[4]};
    } else {
        s.PFFirst = {0.0f, 0.5f, 0.5f, 0.5f, s.PFFirst[4]};
        s.PFUpper = {0.0f, 0.25f, 0.25f, 0.25f, s.PFUpper[4]};
    }
    for (int d = 0; d < 4; ++d) {
        s.PFFirstWork[d] = s.PFFirst[d];
        s.PFUpperWork[d] = s.PFUpper[d];
    }

    std::string line2 = location;
    if (line2.size() < 50) line2.resize(50, ' ');
    line2 += fields["WMO"].text;
    for (const char* f : {"latitude", "longitude", "timezone", "elev"})
        line2 += FormatField(fields[f].text, "@@@@@@");
    c.WeatherData[2] = line2;
    c.WeatherData[3] =
        "             Jan   Feb   Mar   Apr   May   Jun   Jul   Aug   Sep   Oct   Nov   Dec";
    for (int row = 1; row <= 8; ++row) {
        std::string data;
        for (int m = 1; m <= 12; ++m)
            data += FormatField(NumText(RoundOff(Cell(row, m), 1, prompt_)), "@@@@@@");
        c.WeatherData[static_cast<std::size_t>(row + 3)] = data;
    }

    StateListDropped = 0;
    CityListPending = 0;
    model_.flags.TaskDone[2] = 1;
    model_.flags.LocationKnown = 1;
    ClimateNoticeArmed = 1;
    model_.session.ClimateZone = ClimateZone;
    model_.ProjectData[kClimateZoneCopy] = ClimateZone;
    model_.ProjectData[kLocation] = location;
    if (refreshClimateDefaults) refreshClimateDefaults();
    if (locationChanged) locationChanged(location);

    WeatherScreenDone = 1;
    return close;
}

Navigation WeatherScreen::Cancel() {
    return Navigation{Screen::MainMenu, true, false};
}

namespace {

bool SameLetters(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](unsigned char x, unsigned char y) {
               return std::toupper(x) == std::toupper(y);
           });
}

}  // namespace

// Letter case aside, as the state field folds what is typed to capitals.
bool WeatherScreen::StationListed(const std::string& city, const std::string& state) const {
    const std::vector<std::string> lines = SplitLines(ReadRegionFile(paths_, CurrentRegion));
    for (std::size_t at = 1; at < lines.size(); at += kRecordLines) {
        const std::string name = cuts::TrimRight(ParseNameLine(lines[at]).name);
        const std::size_t comma = name.find(", ");
        if (comma == std::string::npos || !SameLetters(name.substr(0, comma), city)) continue;
        const std::string rest = name.substr(comma + 2);
        if (rest.size() >= state.size() &&
            SameLetters(std::string_view(rest).substr(0, state.size()), state) &&
            (rest.size() == state.size() ||
             std::string_view(" #!*@").find(rest[state.size()]) != std::string_view::npos))
            return true;
    }
    return false;
}

Navigation WeatherScreen::SaveAsNew() {
    if (CityEdited == 0) {
        RewriteRegionFile();  // tells the user that nothing was entered
        return Navigation{};
    }
    const std::string city = cuts::TrimRight(fields["citytext"].text);
    const std::string state = cuts::TrimRight(fields["sttext"].text);
    if (StationListed(city, state)) {
        prompt_.Ask("A station named \"" + city + "\" is already listed for " + state +
                        ".  Please give the new station another name.",
                    "Save As New", Buttons::Ok, Icon::Exclamation);
        return Navigation{};
    }
    CityAddNew = 1;
    RewriteRegionFile();
    CountCityRecords(paths_, index_);
    prompt_.Ask("City File has been added to database", "City added confirmation.", Buttons::Ok,
                Icon::None);
    return Navigation{Screen::MainMenu, true, false};
}

Navigation WeatherScreen::SaveAsUpdate() {
    CityAddNew = 0;
    RewriteRegionFile();
    return Navigation{};
}

Navigation WeatherScreen::DeleteCity() {
    const Answer a =
        prompt_.Ask("Are you sure you want to delete this city?",
                    "Caution: City data will be removed.", Buttons::YesNoCancel, Icon::None);
    if (a != Answer::Yes) return Navigation{};
    CityAddNew = 0;
    CityDeleting = 1;
    CityEdited = 1;
    RewriteRegionFile();
    prompt_.Ask("City File has been deleted", "City delete confirmation.", Buttons::Ok, Icon::None);
    return Navigation{Screen::MainMenu, true, false};
}

}  // namespace solvane
