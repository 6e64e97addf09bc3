// The schedule screens of the zone screen: `occupprof`, where a zone's
// profile group is picked and its three day profiles edited, and
// `temperature`, the summer and winter thermostat profiles of one group.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/session.h"
#include "ui/prompt.h"
#include "zones/zone_form.h"

namespace solvane {

inline constexpr Color kMarkYellow = 0xFFFF00;
inline constexpr Color kFocusMagenta = 0xFF00FF;
inline constexpr Color kPlainWhite = 0xFFFFFF;
inline constexpr Color kNumberRed = 0xFF0000;

// The hourly values of a profile text, as many as it holds.
std::vector<double> ProfileValues(const std::string& text);
// The profile check of OK: only blanks, digits and points, and exactly 24 values.
bool ProfileTextValid(const std::string& text);

// `occupprof`. Rows k = 1..12: `Pnum_k` (" 1."; its colour is the back
// colour, its value the number's colour), `SchedType_k` (group name; colour
// is the back colour), `DayType_i` and `ProfVal_i` for boxes i = 1..36, box i
// being day ((i + 2) mod 3) + 1 of group (i + 2) / 3. `ProfileName`,
// `TimeOfDay`.
class ProfileScreenController {
  public:
    ProfileScreenController(Session& session, Prompt& prompt, ZoneFormController& form);

    // A zone's profile field took focus: the screen for `type` on the group
    // its field holds.
    void Open(int type);
    void Refresh();

    void ClickRow(int group);  // Pnum_k
    // A key in box i: false drops it (after the prompt).
    bool Key(int box, char key);
    // The text of box i after an accepted key: the project's entry follows.
    void Edit(int box, const std::string& text);
    void Focus(int box) { LastBox = box; }

    // Editmenu on the selection [start, start + length) of box `LastBox`.
    void Copy(int start, int length);
    void Cut(int start, int length);
    void Paste(int start, int length);

    void Undo();
    // OK: true when the zone screen comes back.
    bool Ok();

    bool Marked(int group) const { return marked_[group]; }

    ScreenFields fields;
    int ProfileType = 0;
    int SelectedGroup = 0, OriginalGroup = 0, PreviousGroup = 0;
    bool GroupUntouched = true;
    std::array<Flag, 51> BoxEdited{};
    std::array<Flag, 31> ProfileRowEdited{};
    std::string ClipText;
    int LastBox = 0;

  private:
    void ShowLook(int group);
    ProfileTable& Table();

    Session& session_;
    Prompt& prompt_;
    ZoneFormController& form_;
    std::array<bool, kProfileGroups + 1> marked_{}, markedAtOpen_{};
};

// `temperature`: the thermostat profiles of one group, boxes `temp_d`
// (summer, days 1..3) and `Text1_d` (winter).
class TemperatureController {
  public:
    TemperatureController(Session& session, Prompt& prompt, ZoneFormController& form);

    void Open(int group);
    // `type` 6 (summer, `temp`) or 7 (winter, `Text1`).
    bool Key(int type, int day, char key);
    void Edit(int type, int day, const std::string& text);
    void Undo();
    void Ok();

    ScreenFields fields;
    int Group() const { return group_; }

  private:
    Session& session_;
    Prompt& prompt_;
    ZoneFormController& form_;
    int group_ = 1;
    std::array<std::array<bool, 4>, 2> ProfileUsedWarned{};
    std::array<std::array<std::string, 4>, 2> opened_;
};

// `VentilationRate`: boxes `ven_0` ("CP"), `ven_1` ("CS"), `ven_2` ("PA") for
// the outdoor air of zone field 9.
class VentilationRateController {
  public:
    VentilationRateController(Session& session, Prompt& prompt, ZoneFormController& form);

    void Open();
    // Command1: true when the value went to the zone screen and the screen closes.
    bool Ok();

    ScreenFields fields;

  private:
    Session& session_;
    Prompt& prompt_;
    ZoneFormController& form_;
};

}  // namespace solvane
