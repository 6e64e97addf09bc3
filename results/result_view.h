// The controller behind the three chart screens and their chooser
// (`ViewOutput`): reads the results file for the chart asked for, draws it,
// and asks about saving when the user leaves unsaved results.
#pragma once

#include <string>

#include "core/session.h"
#include "results/eui_screen.h"
#include "results/result_charts.h"
#include "ui/prompt.h"

namespace solvane {

enum class ChartKind { Source, Monthly, Peak };

class ResultViewController {
  public:
    ResultViewController(Session& session, Prompt& prompt);

    ScreenFields fields;
    // The benchmark screen `EUI`, opened from the energy breakdown.
    EuiController eui;
    ChartKind kind() const { return kind_; }

    // Draws a chart from temp\ecalc$.out. False, with the user told and the
    // screen left empty, when the file lacks what the chart needs.
    bool Show(ChartKind kind, Canvas& canvas);
    // Another view of the current screen: a LoadView on `peak`, 0 energy or
    // 1 costs on `monthly`.
    bool ShowView(int view, Canvas& canvas);
    // Leaving a chart screen for the hub: unsaved results are offered for
    // saving first.
    Navigation Leave();

  private:
    bool Draw(Canvas& canvas);

    Session& session_;
    Prompt& prompt_;
    ChartKind kind_ = ChartKind::Source;
    int view_ = 0;
};

}  // namespace solvane
