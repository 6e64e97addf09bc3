// The screen in front of exit: save, leave without saving, or go back.
#pragma once

#include <QDialog>
#include <functional>

#include "core/exit_warning.h"

namespace solvane {

class WarningScreen : public QDialog {
    Q_OBJECT
  public:
    WarningScreen(Session& session, ExitWarningController& controller,
                  std::function<void(const Navigation&)> navigate, QWidget* parent = nullptr);
    void Refresh();

  private:
    Session& session_;
    ExitWarningController& controller_;
    std::function<void(const Navigation&)> navigate_;
};

}  // namespace solvane
