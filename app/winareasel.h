// The window sizer dialog, opened from the sketch: window percentages by
// facade and for skylights, and the overhang factors, checked by Apply and
// kept by SaveExit.
#pragma once

#include <QDialog>

#include "sketch/window_sizer.h"

namespace solvane {

class WinAreaSelScreen : public QDialog {
    Q_OBJECT
  public:
    WinAreaSelScreen(WindowSizerController& controller, QWidget* parent);
    void Open();
    void ShowFields();

  protected:
    // Escape and the close box are Cancel.
    void reject() override;

  private:
    WindowSizerController& controller_;
};

}  // namespace solvane
