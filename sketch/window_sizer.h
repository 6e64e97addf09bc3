// `WinAreaSel`, the window sizer: window areas by facade as a percentage of
// wall area, the skylight as a percentage of roof area and the overhang
// projection factors, held against the limits of the chosen energy code.
// Zone extraction takes the saved figures when the sizer is in force.
#pragma once

#include "core/session.h"
#include "ui/prompt.h"
#include "ui/screen_fields.h"

namespace solvane {

// Rows: 0 north, 1 east, 2 south, 3 west, 4 skylight.
inline constexpr int kSizerRows = 5;

// Fields: `ElevName_n` (row headings), `WinAr_n` (percent, n 0..4), `PF1_n`
// (overhang factor on level 1) and `PF2_n` (upper levels), n 0..3.
class WindowSizerController {
  public:
    WindowSizerController(Session& session, Prompt& prompt);

    // Fills the dialog. On the first visit (WindowSizerFresh) the starting
    // figures by code and hemisphere are set and taken as saved and default;
    // later visits show the saved figures, a factor of 0 as .5 or .25 unless
    // it is the row the hemisphere exempts.
    void Open();
    // `Apply`: corrects every figure beyond the code's limits, each with its
    // message, and tells whether anything was corrected.
    void Apply();
    // `SaveExit`: asks for confirmation (`drawingMode` while the sketch is
    // open); OK saves the figures, puts the factors in every overhang row and
    // puts the sizer in force. True when the dialog closes.
    bool SaveExit(bool drawingMode);
    // `Cancel`: the sizer is no longer in force; the saved figures stay.
    void Cancel();

    // Keys of the factor boxes: digits, "." and editing keys only.
    static bool FactorKeyAccepted(int keyCode);
    // Leaving a factor box stores it in the working copy of its row.
    void LeaveFactor(int row, bool upper);

    // Whether the last Apply corrected a value.
    bool ChangeMade() const { return changeMade_; }

    ScreenFields fields;

  private:
    bool Northern() const;
    void Correct(const std::string& text, const std::string& title);

    Session& session_;
    Prompt& prompt_;
    bool changeMade_ = false;
};

}  // namespace solvane
