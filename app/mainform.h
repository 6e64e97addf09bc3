// The start-up screen: units and "Begin >>".
#pragma once

#include <QWidget>
#include <functional>

#include "core/main_form.h"

namespace solvane {

class MainFormScreen : public QWidget {
    Q_OBJECT
  public:
    MainFormScreen(Session& session, MainFormController& controller,
                   std::function<void(const Navigation&)> navigate);
    void Refresh();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    Session& session_;
    MainFormController& controller_;
    std::function<void(const Navigation&)> navigate_;
};

}  // namespace solvane
