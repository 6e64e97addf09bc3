// The `projectinfo` screen: the thirteen project fields and the building type
// menu, whose choice pre-sets the default zone record, every zone, the
// economics and the window sizer's starting values.
#pragma once

#include <array>
#include <string>

#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

// Fields: `projectid_0` (building type, not typed in) .. `projectid_13` (the
// code, not typed in), the menu entries `building_1` .. `building_40`, the
// unit labels `areaunit` and `costunit`.
class ProjectInfoController {
  public:
    ProjectInfoController(Session& session, Prompt& prompt);

    // Shows the project's values; freezes the code when the weather step is
    // done. Keeps what it showed for Undo and Cancel.
    void Open();
    // `Timer1`: the climate zone and code lines follow the model.
    void TimerTick();

    // The `building` menu entry i (1..40).
    void SelectBuildingType(int type);
    Navigation AcceptProject();  // OK
    Navigation CancelProject();  // Cancel: back to the hub, the fields as opened
    void UndoProject();          // undobutton: the fields as opened
    Navigation GetWeather();     // getweather

    // A key in field i: false when the field takes no typing (0 and 13).
    bool KeyPress(int field);
    // The text of field i changed.
    void Change(int field, const std::string& text);

    ScreenFields fields;

  private:
    void ApplyZoneDefaults();
    void ConvertDefaultsToSI();
    void SetSizerStart();
    Session& session_;
    Prompt& prompt_;
    std::array<std::string, 14> opened_;
};

// Heating type of the default zone record for an HVAC type: "2" for 1, 3, 5
// and 14, "3" for 6, 8, 9 and 13, else "1".
std::string DefaultHeatingType(int hvacType);

}  // namespace solvane
