// The location screen "Weather Data": region, state and city selection, the
// station's record in I-P or SI, its editing and storing back into the region
// file, and OK, which sets the project's location and climate block.
//
// A controller over named fields (ScreenFields), so that a toolkit binds its
// widgets by name:
//   Option1_0..7 (value 1 = checked), Text12_0..7, sttext, Combo1, citytext,
//   Combo3, Label1, CityNum, WMO, latitude, longitude, timezone, elev,
//   latlabel, longlabel, HDDV, CDDV, CLzoneV, dbave_1..12, avestd_1..12,
//   dbmax_1..12, mxstd_1..12, dpave_1..12, dpstd_1..12, solar_1..12,
//   wind_1..12, extdb_1..12, annext_1..12, unt_1..10, Picture1, Picture3
//   (text: the map's full path), status (the region summary), totals.
// The two lists are Combo1Items (states) and Combo3Items (cities).
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/program_paths.h"
#include "core/project_model.h"
#include "core/session.h"
#include "ui/prompt.h"
#include "ui/screen_fields.h"
#include "weather/climate_database.h"

namespace solvane {

class WeatherScreen {
  public:
    WeatherScreen(ProjectModel& model, const ProgramPaths& paths, Prompt& prompt,
                  ClimateIndex& index);

    // The monthly rows' field names, row 1..8.
    static const std::array<const char*, 9> kRowNames;

    // ---- actions ------------------------------------------------------------

    // Opening from the hub: the climate-change notice when a location has been
    // accepted before, then the activation.
    void OpenTask();
    // Activation: unit labels, region lines, lists, pictures and the record.
    void Activate();
    // A region option, map label or count line: region 1..8.
    void ChooseRegion(int region);
    // A state of the list (trailing blanks are trimmed).
    void ChooseState(const std::string& listText);
    // A city of the list.
    void ChooseCity(const std::string& listText);
    // A key typed in a field. Returns the key to insert (folded to upper case
    // in sttext), or 0 when it is dropped.
    int KeyPress(const std::string& field, int key);
    // A click on extdb(month) (annual = false) or annext(month) (annual =
    // true): derives the month's standard deviations from the extreme.
    void DeriveDeviations(bool annual, int month);
    Navigation Ok();
    Navigation Cancel();
    Navigation SaveAsNew();
    Navigation SaveAsUpdate();
    Navigation DeleteCity();

    // ---- the database routines acting on this screen -------------------------

    // Fills Combo3Items with the cities of the state in sttext.
    void ListStateCities();
    // Finds the city in citytext (first match in the region file) and shows
    // its record.
    void FindCityRecord();
    // Shows record `ordinal` (1 = first) of the region file's lines.
    void ShowCityRecord(const std::vector<std::string>& lines, int ordinal);
    // The ten lines of a record from the screen's fields, with firstLine as
    // line 1.
    std::string WriteCityRecord(const std::string& firstLine);
    // Adds (CityAddNew), deletes (CityDeleting) or updates the record at
    // CityOrdinal in the region file, then recounts.
    void RewriteRegionFile();

    // ---- state ----------------------------------------------------------------

    ScreenFields fields;
    std::vector<std::string> Combo1Items;  // states of the region, in file order
    std::vector<std::string> Combo3Items;  // cities of the state

    int CurrentRegion = 1;
    int CurrentGroup = 1;
    std::string CurrentState = "Alabama";
    std::string CurrentCity = "Albertville Muni AP";
    int CityOrdinal = 0;
    std::string CityMarker;
    // The current record's values as read from the file.
    std::string WMONumber;
    float Latitude = 0, Longitude = 0, StandardMeridian = 0, Elevation = 0;
    float HeatingDegreeDays = 0, CoolingDegreeDays = 0;
    std::string ClimateZone = "1";
    // The state part of the project's location line, as last loaded.
    std::string FileLocationState;

    Flag CityEdited = 0, CityAddNew = 0, CityDeleting = 0, CityListPending = 0;
    Flag StateListDropped = 0;
    Flag RegionChangeEnabled = 1;
    Flag WeatherScreenDone = 0;
    Flag ClimateNoticeArmed = 0;

    // Called by OK after the location is stored: the refreshes of the
    // project's climate-dependent defaults.
    std::function<void()> refreshClimateDefaults;
    // Called by OK with the new location text, for an open project
    // information screen.
    std::function<void(const std::string&)> locationChanged;

    const ProgramPaths& paths() const { return paths_; }

    // Whether the current region's file has a station of this city and state.
    bool StationListed(const std::string& city, const std::string& state) const;

  private:
    int Units() const { return model_.session.Units; }
    std::string& Cell(int row, int month);
    void LoadPictures();
    void FillStateList();
    void ShowRegionLines();
    void CheckRegionOption();
    // CurrentState and CurrentCity from the project's location line.
    void TakeProjectLocation();
    void LoadFieldsFromWeatherData();
    std::string LocationText() const;

    ProjectModel& model_;
    const ProgramPaths& paths_;
    Prompt& prompt_;
    ClimateIndex& index_;
};

// Whether a climate zone needs no overhang shades: zone number 4 or more,
// except "4 B" and "4 C".
bool OverhangExempt(const std::string& climateZone);

}  // namespace solvane
