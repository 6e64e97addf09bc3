// The in-memory project: named tables that every screen reads and writes.
//
// Values are held as the text they have in the project file and become
// numbers (through NumVal) when used; a blank text means "not set". Index 0
// of every table exists and stays empty unless stated, so counts start at 1.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace solvane {

using Flag = std::int16_t;

inline constexpr int kMaxZones = 100;
inline constexpr int kMaxSurfaces = 33;
inline constexpr int kMaxCatalog = 50;
inline constexpr int kCatalogWritten = 26;  // catalog entries 1..26 go to the file
inline constexpr int kZoneFields = 70;
inline constexpr int kProfileTypes = 7;
inline constexpr int kProfileGroups = 12;
inline constexpr int kDayTypes = 3;
inline constexpr int kBuildingTypes = 40;

template <std::size_t N>
using TextTable = std::array<std::string, N + 1>;  // indices 0..N
template <std::size_t N>
using FlagTable = std::array<Flag, N + 1>;

// Profile types, in their fixed order.
enum ProfileType : int {
    kOccupancy = 1,
    kHotWater = 2,
    kLights = 3,
    kReceptacles = 4,
    kFans = 5,
    kCoolStat = 6,
    kHeatStat = 7,
};

// Identity of the project, its files and its units.
struct ProjectSession {
    std::string InputFileName = "New_Project.inp";
    std::string PreviousInputFileName;
    std::string InputFileShortName;
    std::string RunInputFileName;
    std::string OutputFileName = "Output results not yet saved";
    std::string ProjectTitle;
    std::string WeatherSeed;
    std::int16_t InputFileVersion = 4;
    std::int16_t Units = 0;  // 1 I-P, 2 SI; anything else: not chosen yet
    std::int16_t UnitsIndex = -1;
    std::int16_t CodeNum = 0;  // 0 none, 1 90.1-2010, 2 90.1-2019, 3 189.1-2017
    std::string CodeName;
    std::string ClimateZone = "1";
    std::int16_t BuildingType = 0;
    int TodayYear = 0, TodayMonth = 0, TodayDay = 0;
    std::string TodayText;
};

// Location and climate.
struct ClimateState {
    std::string LocationCity, LocationState;
    std::string FileCity, FileState;
    float Latitude = 0, Longitude = 0;
    float HeatingDegreeDays = 0, CoolingDegreeDays = 0;
    std::string HDDText, CDDText;
    // The accepted station: its number, time-zone meridian and elevation.
    std::string WMONumber;
    float StandardMeridian = 0, Elevation = 0;
    TextTable<12> WeatherData;  // [1]..[3] whole lines, [4]..[11] monthly rows
    TextTable<3> DesTemps;
    Flag DesTempsPresent = 0;
    Flag RecordedWeatherSelected = 0;
    // The recorded weather file taken (copied to temp\ecalc$.tmy) and its
    // form: 1 EPW, 2 WYEC2, 3 IWEC, 4 custom; 0 before one is taken.
    std::string RecordedWeatherFile;
    std::int16_t WeatherFileFormat = 0;
};

struct EconomicsState {
    TextTable<11> EconomicsData;
    std::string DemandCharge;
    std::int16_t NumDemandRates = 0;
    TextTable<3> DemandRateLimit;
    TextTable<3> DemandRateCost;
};

// One profile type: its group number table and its profile table
// [group][day type], each profile 24 right-aligned four-character values.
struct ProfileTable {
    TextTable<kProfileGroups> GroupNum;
    std::array<TextTable<kDayTypes>, kProfileGroups + 1> Profile;
};

struct ProfileState {
    TextTable<kProfileTypes> ProfileTypeTitle;
    TextTable<kProfileGroups> ProfileGroupName;
    // [1] OccProfile/OccProfileNum ... [7] HeatStatProfile/HeatStatProfileNum.
    std::array<ProfileTable, kProfileTypes + 1> Types;
    FlagTable<kProfileTypes> ProfileTypeUsed{};
    FlagTable<kProfileTypes> ProfileTypeEdited{};
};

// Zone rows and per-zone columns.
struct ZoneState {
    int NumZones = 0;
    std::array<TextTable<kZoneFields>, kMaxZones + 1> ZoneData;
    TextTable<kMaxZones> ZoneNatVent, ZoneDaylight, ZoneEconCycle;
    TextTable<kMaxZones> ZoneNumber, ZoneName;
    std::array<float, kMaxZones + 1> ZoneFloorArea{};
    std::array<float, kMaxZones + 1> ZoneAreaPerPerson{};
    std::array<std::int16_t, kMaxZones + 1> ZoneSurfaceCount{};
    FlagTable<kMaxZones> ZoneExists{}, ZoneDescribed{}, ZoneVisited{};
    float DefaultAreaPerPerson = 0;
    // Per-zone working texts of the zone screens; cleared when a project is read.
    TextTable<kMaxZones> ZoneScratch;
    // HVAC type of the last zone read or of the building type defaults.
    std::int16_t LastHVACType = 0;
};

// The exterior surfaces of each zone, [zone 0..100][surface 0..33].
template <typename T>
using SurfaceTable = std::array<std::array<T, kMaxSurfaces + 1>, kMaxZones + 1>;

struct SurfaceState {
    SurfaceTable<std::int16_t> SurfWallId{};
    SurfaceTable<float> SurfArea{};
    SurfaceTable<std::int16_t> SurfOrient{};
    SurfaceTable<std::int16_t> SurfExposure{};
    SurfaceTable<std::string> SurfShade;
    SurfaceTable<std::int16_t> SurfWindowId{};
    SurfaceTable<float> SurfWindowArea{};
    SurfaceTable<float> SurfSlope{};
    SurfaceTable<std::string> SurfSWB;
    SurfaceTable<std::int16_t> SurfBlind{};
    SurfaceTable<float> SurfDiffTrans{};
    SurfaceTable<float> SurfSillHeight{};
    SurfaceTable<float> SurfWindowHeight{};
    SurfaceTable<float> SurfGroundRefl{};
};

// The project's wall and window catalogs, [0..50].
struct WallCatalog {
    FlagTable<kMaxCatalog> WallUsed{};
    TextTable<kMaxCatalog> WallId, WallDescription, WallUFactor, WallSolarAbs, WallTimeLag,
        WallDecrement, WallInsCost;
};

struct WindowCatalog {
    FlagTable<kMaxCatalog> WindowUsed{};
    TextTable<kMaxCatalog> WindowId, WindowDescription, WindowUFactor, WindowSHGC, WindowEmissivity,
        WindowDLTrans, WindowInsCost;
};

// The window sizer's tables by direction: 0 north, 1 east, 2 south, 3 west,
// 4 skylight.
struct WindowSizerState {
    std::array<float, 5> WindowPercent{};
    std::array<float, 6> WindowFraction{};
    std::array<float, 5> WindowPercentDefault{};
    std::array<float, 5> PFFirst{}, PFUpper{};          // saved overhang projection factors
    std::array<float, 5> PFFirstWork{}, PFUpperWork{};  // working copies
    // The factors copied to every row, [row 0..100][direction 0..5].
    std::array<std::array<float, 6>, kMaxZones + 1> OverhangFirst{}, OverhangUpper{};
    Flag WindowSizerApplied = 0;
};

// The building sketch: the cell matrix of the level on screen and the
// figures of every level. Levels count from 1; the level tables stop at 98.
inline constexpr int kSketchRows = 60;
inline constexpr int kSketchCols = 90;
inline constexpr int kLevelTable = 98;

struct SketchState {
    std::int16_t TopFloor = 0;      // number of levels in the drawing
    std::int16_t CurrentLevel = 0;  // level on the screen, 0 during entry
    float GridSize = 2.0f;          // length of one cell side, feet or metres
    float DrawingScale = 0.2f;      // GridSize per canvas unit
    float Rotation = 0;             // degrees, one value for the whole building
    std::string RotationText;       // the Rotation box when zones were derived
    float Stories = 0;              // sum of the floors of all levels
    std::array<float, kLevelTable + 1> LevelFloors{}, LevelCeilingHt{};
    std::array<double, kLevelTable + 1> LevelHeight{};  // floors x room height
    // Zone number of each cell, [row 1..60][column 1..90]; row 60 is the top.
    std::array<std::array<std::int16_t, kSketchCols + 1>, kSketchRows + 1> SketchGrid{};
    Flag FreshMatrix = 0;  // bld_mtx.all was just copied from the template
};

// The building type table, read once at start-up from \Codes\BType2020-Defaults.txt.
struct BuildingTypeTable {
    int TypeCount = 0;
    TextTable<50> BTypeName;
    // The 19 default columns of each type, [type][1..19].
    std::array<std::array<float, 20>, 51> BTypeColumn{};
    // The two values after the columns: skylight minimum percent and type number.
    std::array<float, 51> BTypeSkylightMin{}, BTypeRowNumber{};
    std::array<float, 51> BTypeEUILow{}, BTypeEUIHigh{};
    TextTable<50> BTypeSizerText;
    TextTable<50> BTypeSizerAlternate;  // the alternate sizer texts (types 26 and 34)
    std::array<std::int16_t, 51> BTypeProfileGroup{};
    // Outdoor air per unit floor area from the type's people and area rates.
    std::array<float, 51> BTypeOA{};
    // The window sizer table after the types, rows 1..9: a number, an integer, a number.
    std::array<float, 10> SizerTableA{}, SizerTableC{};
    std::array<std::int16_t, 10> SizerTableB{};
};

// One catalog of seven columns, as the envelope defaults and the catalog
// screens hold it, rows 0..50.
struct EnvelopeRows {
    TextTable<kMaxCatalog> id, Des, UF, Absp, lag, decr, cost;
};

// What the code, climate and building type pre-set.
struct PropertyDefaults {
    EnvelopeRows WallDefaults, WindowDefaults;
    std::string EconDefault;  // "Yes" or "No"
    TextTable<30> ZoneDefaults;
};

// One HVAC system row of the efficiency file.
struct HvacRow {
    std::string id, Des, Feature, BldApp;
    std::string stpresIn, stpresPa, seer, cop, tempF, tempC;
    std::string fcost, mcost, Heater, HTCOP;
};

struct HvacState {
    std::array<HvacRow, 16> HvacCatalog;  // systems 1..15
    std::int16_t HvacNoticeCount = 0;     // kept for the life of the program
    std::int16_t CurrentHvacSystem = 0;
};

// The schedule library, [type 1..7][group 1..12][day 1..3].
struct ScheduleLibraryState {
    std::array<std::array<TextTable<kDayTypes>, kProfileGroups + 1>, kProfileTypes + 1>
        LibraryProfile;
    std::array<
        std::array<std::array<std::array<std::int16_t, 26>, kDayTypes + 1>, kProfileGroups + 1>,
        kProfileTypes + 1>
        LibraryProfileValue{};
};

// The zone screen's change marks shared by the screens that fill zone fields.
struct ZoneEditState {
    std::array<FlagTable<kZoneFields>, kMaxZones + 1> ZoneFieldChanged{};
    TextTable<kZoneFields> PrevFieldText;
    int CurrentField = 0;
};

// How far the project has come.
struct ProgressFlags {
    // [1] project info, [2] weather, [3] economics, [4] sketch, [5] zones, [6] code.
    FlagTable<6> TaskDone{};
    Flag ProjectFromFile = 0;
    Flag ProjectInfoEdited = 0;
    Flag LocationKnown = 0;
    int SketchVisits = 0;
    Flag ReSketched = 0;
    Flag ZonesDescribed = 0;
    Flag ProjectTouched = 0;
    Flag InputSavedFlag = 0;
    Flag InputFileSaved = 0;
    Flag InputFileSavedOnce = 0;
    Flag OutputFileSaved = 0;
    Flag RunDone = 0;
    std::int16_t RunResultCode = 0;
    Flag OutputAvailable = 0;
    std::int16_t ViewRequest = 0;
    std::int16_t TableRequest = 0;  // the Table menu entry asked for, 1..8
    std::int16_t GraphRequest = 0;  // the graph menu entry asked for, 1..7
    Flag HourlyOutputFlag = 0;      // \temp holds the hourly files of the results
    Flag ViewedStoredOutput = 0;
    std::int16_t PendingAfterSave = 0;
    Flag DaylightingUsed = 0;
    Flag DefaultsApplied = 0;
    FlagTable<7> CatalogEdited{};
    Flag WallCatalogLoaded = 0;
    Flag WindowCatalogLoaded = 0;
    Flag WallsDerived = 0;
    Flag ZoneChangedAfterSketch = 0;
    Flag ExitAfterSave = 0;
    Flag SketchInfoChanged = 0;
    Flag ClimateZoneDefault = 0;
    Flag WindowSizerFresh = 0;
    FlagTable<2> CatalogReload{};
    Flag FreshSession = 0;
    FlagTable<15> ProjectScreenFlags{};
    FlagTable<15> ProjectScreenFlags2{};
    FlagTable<99> FirstVisit{};
    Flag NoPrinter = 0;
};

// The whole project model: the one in-memory project.
struct ProjectModel {
    ProjectSession session;
    TextTable<20> ProjectData;  // see the ProjectDataIndex names below
    float BuildingFloorArea = 0, BuildingFloorAreaEntered = 0;
    std::string BuildingOrientation;
    ClimateState climate;
    EconomicsState economics;
    ProfileState profiles;
    ZoneState zones;
    SurfaceState surfaces;
    WallCatalog walls;
    WindowCatalog windows;
    WindowSizerState sizer;
    BuildingTypeTable btypes;
    PropertyDefaults defaults;
    HvacState hvac;
    ScheduleLibraryState library;
    ZoneEditState zoneEdit;
    SketchState sketch;
    ProgressFlags flags;
    // Screen layout factors from the screen size.
    float ScreenFactorA = 0, ScreenFactorB = 0;
    int GridMajorStep = 60, GridMinorStep = 90;
    int WindowScale = 1;
};

// Entries of ProjectData.
enum ProjectDataIndex : int {
    kBldType = 0,
    kProjName = 1,
    kProjDesc = 2,
    kLocation = 3,
    kDesignStage = 4,
    kSchemeNum = 5,
    kConYear = 6,
    kOrientation = 7,
    kFloorArea = 8,
    kConCost = 9,
    kOccDays = 10,
    kHolidays = 11,
    kClimateZoneCopy = 12,
    kCodeNameCopy = 13,
};

// Fixed labels filled at start-up.
struct FixedLabels {
    TextTable<8> RegionName;
    TextTable<12> MonthName;
    TextTable<12> WeatherLabel;
    TextTable<76> SurfaceClassLabel;
    TextTable<76> GroundCoverLabel;
    TextTable<kDayTypes> DayTypeLabel;
    TextTable<2> UnitsLabel;
    TextTable<3> CodeTitle;
    std::array<std::uint32_t, 4> CodeColor{};
    std::string RuleLine;
};

// The fixed labels with their values.
FixedLabels MakeFixedLabels();

}  // namespace solvane
