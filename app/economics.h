// The economics screen and, over it, the demand charge schedule.
#pragma once

#include <QDialog>
#include <functional>

#include "economics/economics_form.h"

namespace solvane {

class DemandChargeScreen : public QDialog {
    Q_OBJECT
  public:
    DemandChargeScreen(DemandChargeController& controller, QWidget* parent);
    void Open();

  private:
    DemandChargeController& controller_;
};

class EconomicsScreen : public QDialog {
    Q_OBJECT
  public:
    EconomicsScreen(EconomicsController& controller, DemandChargeController& demand,
                    std::function<void(const Navigation&)> navigate, QWidget* parent);
    void Open();
    void ShowFields();
    DemandChargeScreen* demandScreen() { return demand_; }

  private:
    void Act(Navigation nav);
    EconomicsController& controller_;
    DemandChargeScreen* demand_;
    std::function<void(const Navigation&)> navigate_;
};

}  // namespace solvane
