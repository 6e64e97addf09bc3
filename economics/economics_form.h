// The economics task: the default prices a new project starts from, the
// `Economicsform` screen with its eleven figures and the demand charge
// switch, and the `Demandcharge` screen that holds the demand charge steps.
#pragma once

#include <string>
#include <string_view>

#include "core/program_paths.h"
#include "core/project_model.h"
#include "core/session.h"
#include "ui/prompt.h"

namespace solvane {

inline constexpr const char* kEconomicsFile = "\\codes\\Economics.txt";
inline constexpr int kDemandSteps = 3;  // rows of the demand charge tables

// Reads the defaults into `EconomicsData` [0..11]: the first eight characters
// of each of the twelve lines after the heading. In SI the gas and water
// prices are converted. `DemandCharge` takes the first two characters of [11].
// Throws ReadError when the file is missing or short.
void LoadDefaultEconomics(ProjectModel& model, const ProgramPaths& paths);

// "Y", " Y" and "Yes" mean a demand charge schedule is in force.
bool DemandFlagMeansYes(std::string_view flag);

// Key codes a cell takes: number cells digits, backspace, tab, return and the
// point; the demand cell (11) only Y, N, y and n.
bool EconomicsKeyAccepted(int cell, int keyCode);

// `Economicsform`: cells `economics_0` .. `economics_11`, `demand` (the flag),
// price unit labels `gasunit` and `waterunit`.
class EconomicsController {
  public:
    EconomicsController(Session& session, Prompt& prompt);

    void Open();
    // A key typed in cell i; false when it is refused.
    bool KeyPress(int cell, int keyCode);
    // The `demand` click: switches the flag. True when it became yes, and the
    // `Demandcharge` screen is to be shown over this one.
    bool ClickDemand();
    Navigation Ok();      // okey
    void Undo();          // puts the stored values back
    Navigation Cancel();  // the same, and back to the hub

    ScreenFields fields;

  private:
    void ShowStored();
    Session& session_;
    Prompt& prompt_;
};

// `Demandcharge`: rows `demandtext_i` (kW increment) and `charge_i` (cost),
// i from 1 to kDemandSteps.
class DemandChargeController {
  public:
    DemandChargeController(Session& session, Prompt& prompt);

    void Open();
    // Reads a schedule text of "increment, cost" lines into the rows; a text
    // that is not such a schedule gives the wrong-format prompt and changes
    // nothing.
    bool LoadSchedule(std::string_view content);
    // `back`: filled rows go to the project up to the first empty increment;
    // the screen then closes over `Economicsform`.
    void Back();

    ScreenFields fields;

  private:
    Session& session_;
    Prompt& prompt_;
};

}  // namespace solvane
