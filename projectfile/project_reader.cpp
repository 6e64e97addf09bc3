// The reader of the project file. It takes lines in the file's fixed order
// and never looks at a label; only a few section words are tested, and those
// are also its only tolerance for older files. Errors are those of the
// runtime the format was made for (past the end of the file, a bad integer,
// an index out of range), each naming the file and line.

#include <cmath>
#include <stdexcept>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "core/text_file.h"
#include "core/unit_factors.h"
#include "projectfile/project_file.h"

namespace solvane {

namespace {

// Run-time error texts the reader raises.
constexpr const char* kTypeMismatch = "Type mismatch";
constexpr const char* kOverflow = "Overflow";
constexpr const char* kSubscript = "Subscript out of range";
constexpr const char* kBadCall = "Invalid procedure call or argument";
constexpr const char* kBadFileName = "Bad file name or number";
constexpr const char* kPathError = "Path/File access error";
constexpr const char* kDivision = "Division by zero";

std::int16_t Int16(double v, const ItemReader& r) {
    try {
        return ToInt16(v);
    } catch (const std::overflow_error&) {
        r.Fail(kOverflow);
    }
}

// An index into a table [0..bound].
int Index(double v, int bound, const ItemReader& r) {
    const int i = Int16(v, r);
    if (i < 0 || i > bound) r.Fail(kSubscript);
    return i;
}

// Characters a staging file name cannot hold.
bool BadFileNamePart(const std::string& s) {
    for (const char c : s)
        if (static_cast<unsigned char>(c) < 32 ||
            std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos)
            return true;
    return s.empty() || s == "." || s == "..";
}

class Reader {
  public:
    Reader(Session& session, Prompt& prompt, std::string_view content, const std::string& fileName,
           const ProjectFileHooks& hooks)
        : s_(session),
          m_(session.model),
          prompt_(prompt),
          r_(std::string(content), fileName),
          hooks_(hooks) {}

    void Read();

  private:
    std::string Line() { return r_.NextLine(); }
    // A value the file holds in its place but that cannot stand: the line
    // named is the value's own, not the one the reader has reached.
    [[noreturn]] void Refuse(int line, const std::string& what) const {
        throw ReadError(r_.FileName(), line, what);
    }
    std::string Value() { return cuts::Value(r_.NextLine()); }

    void ResetFlags();
    void ReadProjectBlock();
    void ReadClimateAndEconomics();
    void ReadCatalogs();
    bool ReadProfiles();
    void ReadZones();
    void StageSurfaces(int z, int floorOfZone);
    void ReadStagedSurfaces(int z, int floorOfZone, const std::filesystem::path& path);

    Session& s_;
    ProjectModel& m_;
    Prompt& prompt_;
    ItemReader r_;
    const ProjectFileHooks& hooks_;
};

void Reader::ResetFlags() {
    ProgressFlags& f = m_.flags;
    f.WindowSizerFresh = 0;
    f.CatalogReload[1] = f.CatalogReload[2] = 0;
    f.FreshSession = 0;

    for (int i = 1; i <= 6; ++i) f.TaskDone[i] = 1;
    f.TaskDone[5] = 0;
    f.DefaultsApplied = 1;
    for (int t = 1; t <= kProfileTypes; ++t) {
        m_.profiles.ProfileTypeUsed[t] = m_.profiles.ProfileTypeEdited[t] = 1;
        for (int g = 1; g <= kProfileGroups; ++g) m_.profiles.Types[t].GroupNum[g].clear();
    }
    for (int z = 1; z <= kMaxZones; ++z) m_.zones.ZoneScratch[z].clear();

    f.OutputAvailable = f.ReSketched = f.ProjectInfoEdited = 0;
    f.PendingAfterSave = 0;
    f.InputFileSaved = f.DaylightingUsed = f.WallCatalogLoaded = f.WindowCatalogLoaded = 0;
    m_.climate.RecordedWeatherSelected = m_.climate.DesTempsPresent = 0;
    m_.climate.RecordedWeatherFile.clear();
    m_.climate.WeatherFileFormat = 0;
    f.ZonesDescribed = f.ProjectFromFile = f.LocationKnown = f.WallsDerived = 1;
    f.DefaultsApplied = 1;
    for (int i = 1; i <= 3; ++i) m_.climate.DesTemps[i].clear();
}

void Reader::ReadProjectBlock() {
    ProjectSession& ps = m_.session;
    const std::string head = Line();
    ps.WeatherSeed = cuts::Mid(head, 11, 10);
    ps.InputFileVersion = 4;  // whatever the file says
    const std::string unitsWord = cuts::Right(cuts::TrimRight(head), 2);
    if (unitsWord != "IP" && unitsWord != "SI")
        Refuse(1, "the units word \"" + unitsWord + "\" at the end of the line must be IP or SI");
    ps.Units = cuts::Right(head, 2) == "SI" ? 2 : 1;
    ps.UnitsIndex = static_cast<std::int16_t>(ps.Units - 1);

    auto& pd = m_.ProjectData;
    for (int i = 0; i <= 2; ++i) pd[i] = Value();
    // The location is two list items, city then state, though the names
    // they are kept under say the other way round.
    std::string& fileState = m_.climate.FileState;
    std::string& fileCity = m_.climate.FileCity;
    fileState = cuts::Mid(r_.NextText(), 11);
    fileCity = r_.NextText();
    pd[kLocation] = fileState + ", " + fileCity;
    for (int i = 4; i <= 11; ++i) pd[i] = Value();

    pd[kBldType] = cuts::TrimRight(pd[kBldType]);
    const std::string typeText = cuts::Right(pd[kBldType], 2);
    if (!IsNumericText(typeText)) r_.Fail(kTypeMismatch);
    // The building type stands on the line after the head line.
    const double type = NumVal(typeText);
    if (!(type >= 1 && type <= kBuildingTypes))
        Refuse(2, "Bld. Type \"" + pd[kBldType] + "\": the building type " + typeText +
                      " is not one of 1 to " + std::to_string(kBuildingTypes));
    ps.BuildingType = Int16(type, r_);

    ps.ProjectTitle = cuts::Left(pd[kProjName], 25) + ", " + cuts::Left(fileState, 15) + ", " +
                      cuts::Left(fileCity, 15);

    const int codeLine = r_.LineNumber();
    const std::string codeText = cuts::Mid(Line(), 11);
    const double code = NumVal(codeText);
    if (!(code >= 0 && code <= 3))
        Refuse(codeLine, "Code Num \"" + cuts::TrimLeft(cuts::TrimRight(codeText)) +
                             "\": the energy code must be 0 to 3");
    ps.CodeNum = Int16(code, r_);
    ps.BuildingType = Int16(NumVal(cuts::Right(pd[kBldType], 2)), r_);
    m_.BuildingOrientation = pd[kOrientation];
    m_.BuildingFloorArea = m_.BuildingFloorAreaEntered = static_cast<float>(NumVal(pd[kFloorArea]));
    if (ps.CodeNum < 0 || ps.CodeNum > 3) r_.Fail(kSubscript);
    ps.CodeName = pd[kCodeNameCopy] = s_.labels.CodeTitle[ps.CodeNum];
    // The code read is frozen: its banner shows, the code icons go.
    if (hooks_.showCodeBanner) hooks_.showCodeBanner(s_);

    // The default area per person of the building type.
    if (hooks_.buildingTypeOccupancy) {
        const double density = hooks_.buildingTypeOccupancy(s_, ps.BuildingType);
        if (density == 0) r_.Fail(kDivision);
        float area = RoundOff(1000.0 / density, 0);
        if (ps.Units == 2) area = RoundOff(area * UnitFactor::DefaultsAreaIpToSi, 0);
        m_.zones.DefaultAreaPerPerson = static_cast<float>(MaxOf(area, 1.0));
    }
}

void Reader::ReadClimateAndEconomics() {
    ClimateState& c = m_.climate;
    // Only the number of the climate zone is kept; a letter after it is lost.
    // The envelope files of zones 1 to 8 are all there are.
    const int climateLine = r_.LineNumber();
    const std::string zoneText = cuts::Right(Line(), 3);
    const double zone = NumVal(zoneText);
    // 0 or a blank names no zone: the project opens and asks for its location
    // again. Any other figure outside 1 to 8 is a damaged file.
    if (zone != 0 && !(zone >= 1 && zone < 9))
        Refuse(climateLine, "CLzone= \"" + cuts::TrimLeft(cuts::TrimRight(zoneText)) +
                                "\": the climate zone must be 1 to 8");
    m_.session.ClimateZone = NumText(zone);
    m_.ProjectData[kClimateZoneCopy] = m_.session.ClimateZone;

    for (int i = 1; i <= 3; ++i) c.WeatherData[i] = Line();
    for (int i = 4; i <= 11; ++i) c.WeatherData[i] = Value();
    c.HeatingDegreeDays = static_cast<float>(NumVal(cuts::Mid(c.WeatherData[1], 17, 12)));
    c.CoolingDegreeDays = static_cast<float>(NumVal(cuts::Mid(c.WeatherData[1], 35, 12)));
    c.HDDText = NumText(c.HeatingDegreeDays);
    c.CDDText = NumText(c.CoolingDegreeDays);
    c.Latitude = static_cast<float>(NumVal(cuts::Mid(c.WeatherData[2], 57, 7)));

    // Older files have no design temperature line.
    const int desTempsLine = r_.LineNumber();
    std::string line = Line();
    if (cuts::Left(line, 8) == "DesTemps") {
        const auto tokens = cuts::Tokens(cuts::Mid(line, 10), 3);
        for (const std::string& t : tokens)
            if (!IsNumericText(t) || std::abs(NumVal(t)) > 200)
                Refuse(desTempsLine, "DesTemps: \"" + t + "\" is not a design temperature");
        for (std::size_t i = 0; i < tokens.size(); ++i) c.DesTemps[i + 1] = tokens[i];
        Line();  // "ECONOMICS"
    }
    c.DesTempsPresent = cuts::IsBlankText(c.DesTemps[1]) ? 0 : 1;

    EconomicsState& e = m_.economics;
    for (int i = 0; i <= 11; ++i) e.EconomicsData[i] = Value();
    e.DemandCharge = cuts::Right(e.EconomicsData[11], 2);

    line = Line();
    if (cuts::Left(line, 10) == "DemChgRate") {
        const auto tokens = cuts::Tokens(cuts::Mid(line, 12));
        const int rates = static_cast<int>(tokens.size() / 2);
        if (rates > 3) r_.Fail(kSubscript);
        e.NumDemandRates = static_cast<std::int16_t>(rates);
        for (int i = 1; i <= rates; ++i) {
            e.DemandRateLimit[i] = tokens[2 * i - 2];
            e.DemandRateCost[i] = tokens[2 * i - 1];
        }
        Line();  // the wall block's title
    }
}

// A catalog entry is placed at the index its id names, so a read catalog may
// have gaps. At most 20 entries are read from a block.
void Reader::ReadCatalogs() {
    // The defaults are those of the climate zone; a file that names none has
    // only its own entries (the opener tells the user).
    if (hooks_.loadEnvelopeDefaults && NamesClimateZone(m_.session.ClimateZone))
        hooks_.loadEnvelopeDefaults(s_, prompt_);
    WallCatalog& w = m_.walls;
    WindowCatalog& g = m_.windows;
    for (int i = 1; i <= 20; ++i) w.WallUsed[i] = g.WindowUsed[i] = 0;

    for (int n = 1; n <= 20; ++n) {
        const std::string line = Line();
        if (line == "9999") break;
        const double id = NumVal(cuts::Value(line));
        const int i = Index(id, kMaxCatalog, r_);
        w.WallUsed[i] = 1;
        w.WallId[i] = NumText(id);
        w.WallDescription[i] = Value();
        w.WallUFactor[i] = Value();
        w.WallSolarAbs[i] = Value();
        w.WallTimeLag[i] = Value();
        w.WallDecrement[i] = Value();
        w.WallInsCost[i] = Value();
    }
    Line();  // "WINDOW PROPERTIES"
    for (int n = 1; n <= 20; ++n) {
        const std::string line = Line();
        if (line == "9999") break;
        const double id = NumVal(cuts::Value(line));
        const int i = Index(id, kMaxCatalog, r_);
        g.WindowUsed[i] = 1;
        g.WindowId[i] = NumText(id);
        g.WindowDescription[i] = Value();
        g.WindowUFactor[i] = Value();
        g.WindowSHGC[i] = Value();
        g.WindowEmissivity[i] = Value();
        g.WindowDLTrans[i] = Value();
        g.WindowInsCost[i] = Value();
    }
}

// Returns true when the "ZONES" line has been met inside the block.
bool Reader::ReadProfiles() {
    Line();  // the profile header
    for (int type = 1; type <= kProfileTypes; ++type) {
        Line();  // the type's title; the schedule library supplies it
        ProfileTable& table = m_.profiles.Types[type];
        for (int g = 1; g <= kProfileGroups; ++g) {
            const std::string line = Line();
            const int n = Int16(NumVal(cuts::Left(line, 2)), r_);
            if (n == 99) break;
            if (line == "ZONES") return true;
            if (n < 0 || n > kProfileGroups) r_.Fail(kSubscript);
            table.GroupNum[n] = NumText(n);
            for (int k = 1; k <= kDayTypes; ++k) table.Profile[n][k] = Value();
        }
    }
    return false;
}

void Reader::ReadZones() {
    ZoneState& zs = m_.zones;
    int z = 1;
    for (; z <= 99; ++z) {
        const std::string first = Line();
        if (first == "BUILDING MATRIX") break;
        auto& d = zs.ZoneData[z];
        zs.ZoneExists[z] = zs.ZoneDescribed[z] = 1;
        d[1] = cuts::Value(first);
        const int floorOfZone = Int16(NumVal(d[1]), r_);
        for (int f = 2; f <= 21; ++f)
            if (f != 10) d[f] = Value();

        // Zone numbers without a hyphen get one before the number in the floor.
        if (d[1].find('-') == std::string::npos) {
            const std::size_t len = d[1].size();
            if (len == 0) r_.Fail(kBadCall);
            const std::size_t cut = len > 2 ? len - 2 : len - 1;
            d[1] = d[1].substr(0, cut) + "-" + d[1].substr(cut);
        }
        zs.ZoneNumber[z] = d[1];
        zs.ZoneName[z] = d[2];
        zs.ZoneFloorArea[z] = static_cast<float>(NumVal(d[3]));
        const double people = NumVal(d[5]);
        zs.ZoneAreaPerPerson[z] =
            people > 0 ? static_cast<float>(NumVal(d[3]) / people) : zs.DefaultAreaPerPerson;

        zs.ZoneNatVent[z] = Value();
        d[22] = Value();
        d[23] = Value();
        zs.ZoneDaylight[z] = Value();
        d[24] = Value();
        d[25] = Value();
        zs.ZoneEconCycle[z] = Value();
        for (int f = 26; f <= 30; ++f) d[f] = Value();
        if (!cuts::IsBlankText(d[20])) zs.LastHVACType = Int16(NumVal(d[20]), r_);

        StageSurfaces(z, floorOfZone);
    }
    zs.NumZones = z - 1;
}

// The zone's surfaces go into its staging file \temp\temp<zone>.zon, one
// value a line, closed by "end"; the tables are then read from that file.
void Reader::StageSurfaces(int z, int floorOfZone) {
    const std::string& number = m_.zones.ZoneNumber[z];
    if (BadFileNamePart(number)) r_.Fail(kBadFileName);
    const auto path = s_.paths.Resolve("\\temp\\temp" + number + ".zon");

    LineWriter staged;
    int count = 0;
    for (int s = 1; s <= kMaxSurfaces; ++s) {
        const std::string line = Line();
        if (line == "9999") break;
        count = s;
        staged.Line(cuts::Value(line));
        for (int k = 0; k < 13; ++k) staged.Line(Value());
        if (s == kMaxSurfaces) Line();  // the "9999" after the last surface
    }
    m_.zones.ZoneSurfaceCount[z] = static_cast<std::int16_t>(count);
    staged.Line("end");
    std::string why;
    if (!WriteFileAtomic(path, staged.Str(), &why))
        throw std::runtime_error(WriteFailureText(path, why));
    ReadStagedSurfaces(z, floorOfZone, path);
}

void Reader::ReadStagedSurfaces(int z, int floorOfZone, const std::filesystem::path& path) {
    const auto text = ReadTextFile(path);
    if (!text) r_.Fail(kPathError);
    ItemReader in(*text, path.string());
    SurfaceState& sf = m_.surfaces;
    WindowSizerState& sizer = m_.sizer;
    const auto int16 = [&] { return Int16(in.NextNumber(), in); };
    const auto real = [&] { return static_cast<float>(in.NextNumber()); };
    for (int s = 1; s <= m_.zones.ZoneSurfaceCount[z]; ++s) {
        sf.SurfWallId[z][s] = int16();
        sf.SurfArea[z][s] = real();
        sf.SurfOrient[z][s] = int16();
        sf.SurfExposure[z][s] = int16();
        sf.SurfShade[z][s] = in.NextText();
        sf.SurfWindowId[z][s] = int16();
        sf.SurfWindowArea[z][s] = real();
        sf.SurfSlope[z][s] = real();
        sf.SurfSWB[z][s] = in.NextText();
        sf.SurfBlind[z][s] = int16();
        sf.SurfDiffTrans[z][s] = real();
        sf.SurfSillHeight[z][s] = real();
        sf.SurfWindowHeight[z][s] = real();
        sf.SurfGroundRefl[z][s] = real();

        // The window sizer takes its ratios and overhangs from the surfaces
        // of the building: 0 north, 1 east, 2 south, 3 west, 4 roof.
        const int exposure = sf.SurfExposure[z][s];
        if (exposure > 6) continue;
        const int orient = sf.SurfOrient[z][s];
        int dir;
        if (exposure == 6)
            dir = 4;
        else if (orient >= 315)
            dir = 0;
        else
            dir = static_cast<int>(std::trunc((orient + 45) / 90.0));
        if (dir < 0 || dir > 4) in.Fail(kSubscript);
        // A surface of no area has no window ratio.
        const float area = sf.SurfArea[z][s];
        const float ratio = area != 0 ? RoundOff(sf.SurfWindowArea[z][s] / area, 2) : 0.0f;
        sizer.WindowFraction[dir] = ratio;
        sizer.WindowPercent[dir] = 100 * ratio;
        if (dir > 3) continue;
        const std::string& shade = sf.SurfShade[z][s];
        const std::size_t t = shade.find('T');
        if (t == std::string::npos) continue;
        const float figure = static_cast<float>(NumVal(shade.substr(t + 1)));
        if (floorOfZone == 1)
            sizer.PFFirst[dir] = sizer.PFFirstWork[dir] = figure;
        else
            sizer.PFUpper[dir] = sizer.PFUpperWork[dir] = figure;
    }
}

void Reader::Read() {
    ResetFlags();
    ReadProjectBlock();
    ReadClimateAndEconomics();
    ReadCatalogs();
    if (!ReadProfiles()) {
        while (Line() != "ZONES") {
        }
    }
    ReadZones();

    // Everything after the zones is the building matrix.
    LineWriter matrix;
    while (!r_.AtEnd()) matrix.Line(r_.NextLine());
    const auto matrixPath = s_.paths.Resolve("\\sketch\\bld_mtx.all");
    std::string why;
    if (!WriteFileAtomic(matrixPath, matrix.Str(), &why))
        throw std::runtime_error(WriteFailureText(matrixPath, why));

    // The sizer's figures now come from the project's surfaces.
    m_.sizer.WindowSizerApplied = 1;

    const std::string& last = m_.zones.ZoneNumber[m_.zones.NumZones];
    m_.sketch.TopFloor = Int16(NumVal(cuts::Left(last, last.find('-'))), r_);

    for (int z = 1; z <= kMaxZones; ++z) m_.zones.ZoneScratch[z].clear();
    if (hooks_.loadScheduleLibrary) hooks_.loadScheduleLibrary(s_, prompt_);
    for (int z = 1; z <= kMaxZones; ++z) m_.zones.ZoneScratch[z].clear();
    const int units = m_.session.Units;
    s_.mainmenu["Label13"].text =
        "Project Units = " + (units == 1 || units == 2 ? s_.labels.UnitsLabel[units] : "");
}

}  // namespace

bool NamesClimateZone(const std::string& climateZone) {
    const double zone = NumVal(climateZone);
    return zone >= 1 && zone <= 8;
}

std::string SurpriseText(const std::string& errorText) {
    return errorText + std::string(CrLf) + "Error in Retrieval of Input";
}

ReadStatus ReadProjectFile(Session& session, Prompt& prompt, std::string_view content,
                           const std::string& fileName, const ProjectFileHooks& hooks) {
    try {
        Reader(session, prompt, content, fileName, hooks).Read();
        return ReadStatus::Read;
    } catch (const std::exception& e) {
        prompt.Ask(SurpriseText(e.what()), "Surprise", Buttons::Ok, Icon::Exclamation);
        return ReadStatus::Damaged;
    }
}

bool ReadHeadLine(ProjectModel& model) {
    const auto text = ReadTextFile(model.session.InputFileName);
    if (!text) return false;
    const auto lines = SplitLines(*text);
    const std::string head = lines.empty() ? std::string() : lines.front();
    model.session.WeatherSeed = cuts::Mid(head, 11, 10);
    try {
        model.session.InputFileVersion = ToInt16(NumVal(cuts::Mid(head, 21, 3)));
    } catch (const std::overflow_error&) {
        return false;
    }
    return true;
}

}  // namespace solvane
