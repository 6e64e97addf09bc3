// The benchmark screen `EUI`: the benchmark text, the building's site EUI and
// the picture of the survey's bars in the project's units.
#pragma once

#include <QDialog>

#include "results/eui_screen.h"

namespace solvane {

class EuiScreen : public QDialog {
    Q_OBJECT
  public:
    EuiScreen(EuiController& controller, QWidget* parent);
    // Fills and shows the screen; false, and nothing shown, when the
    // controller refused.
    bool Open();

  private:
    EuiController& controller_;
};

}  // namespace solvane
