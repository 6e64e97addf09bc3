// The `zoneform` screen: one zone's record (boxes `zone_1` .. `zone_30`), its
// surfaces (kept by SurfaceRows), the elevation boxes
// `ElevArea_0..4` and `ElevPF_0..4`, and the switches `natvent`, `dayt`,
// `Econcycle`. Leaving a box stores it at once; OK checks and stores the
// surfaces and marks the zone described.
#pragma once

#include <array>
#include <string>

#include "core/session.h"
#include "ui/prompt.h"
#include "zones/surface_rows.h"

namespace solvane {

// The elevation boxes' values of every zone, [zone][direction 0..5].
struct ElevationTables {
    std::array<std::array<float, 6>, kMaxZones + 1> ElevWinFraction{}, ElevPFLower{}, ElevPFUpper{};
    TextTable<5> ElevFractionText;
};

class ZoneFormController {
  public:
    ZoneFormController(Session& session, Prompt& prompt);

    // ShowZone: the zone of list row `zone` comes to the screen. False, after
    // the prompt, when the row holds no zone.
    bool ShowZone(int zone);

    // Focus enters box `field`: its text is kept for Undo and change marks.
    // Returns the profile type (1..7) the schedule screen is to show for a
    // profile field, 0 otherwise.
    int EnterField(int field);
    // A key typed in box `field`; false when it is dropped (the menu-only fields).
    bool FieldKey(int field);
    // A box typed in (the text stands on the screen until the box is left).
    void EditField(int field, const std::string& text);
    // Focus leaves box `field`: the leave rules.
    void LeaveField(int field);

    // Menus.
    int ChooseProfile(int entry);  // `profile` 1..7: the profile type to show
    void ChooseLighting(int type);
    void ChooseSystem(int system, bool showNotice = true);  // `ac` / `hvac`
    void ChooseHeating(int entry);                          // `heat` 1..3

    // Switches.
    void ToggleNatVent();
    void ToggleEconomiser();
    void ToggleDaylight();
    void DaylightingHelp();

    // Elevation boxes, after a change.
    bool ElevationFraction(int direction, const std::string& text);
    bool ElevationPF(int direction, const std::string& text);

    // A surface box.
    void EditSurface(const std::string& column, int box, const std::string& text);
    bool SurfaceKey(const std::string& column, char& key);
    bool LeaveSurface(const std::string& column, int box);
    void ScrollSurfaces(int top) { surfaces.Scroll(top); }

    // OK: true when the zone was stored and the list comes back.
    bool Ok();
    void Undo();
    // Cancel: the screen again from the tables; the list comes back.
    void Cancel();

    int CurrentZone() const { return currentZone_; }
    int CurrentFloor() const { return currentFloor_; }
    // Zone fields shown again from the record and the switches from the
    // columns (after the schedule and thermostat screens).
    void ShowRecord();
    void ShowSwitches();
    // The boxes that hang on the switches, shown as the switches now read.
    void EnableSwitchFields();

    ScreenFields fields;
    SurfaceRows surfaces;
    ElevationTables elevation;
    bool PFAlertsOff = false;  // kept for the life of the program
    std::array<Flag, kMaxZones + 1> DaylightTouched{}, EconTouched{};

  private:
    std::string& Box(int field) { return fields.At("zone", field).text; }
    void SetCaptions();
    void ApplyHvacToAllZones();
    bool SaveZoneFromScreen();
    void MarkIfChanged(int field);
    bool ApplyPF(int direction, float pf);

    Session& session_;
    ProjectModel& model_;
    Prompt& prompt_;
    int currentZone_ = 0;
    int currentFloor_ = 0;
    int changeCount_ = 0;
    std::array<bool, kMaxZones + 1> windowAlertAnswered_{};
};

}  // namespace solvane
