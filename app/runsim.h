// The run choice (`RunOptions`) and the run screen (`runsim`). The engine is
// watched from a timer, so the window keeps painting and Cancel can end it.
#pragma once

#include <QDialog>
#include <functional>

#include "run/run_sim.h"

class QTimer;

namespace solvane {

class SelectWeatherController;
class SelectWeatherScreen;

class RunOptionsScreen : public QDialog {
    Q_OBJECT
  public:
    // `runEnergy` is the hub's run entry, given 3 or 4.
    RunOptionsScreen(std::function<void(int)> runEnergy, QWidget* parent);
};

class RunSimScreen : public QDialog {
    Q_OBJECT
  public:
    // `showResults` opens the energy breakdown after "Review Results".
    RunSimScreen(RunSimController& controller, std::function<void(const Navigation&)> navigate,
                 std::function<void()> showResults, QWidget* parent);
    void Open();
    // The recorded weather screen the "Recorded Weather:" choice opens.
    void SetRecordedWeather(SelectWeatherController& controller);
    SelectWeatherScreen* recordedWeather() { return select_; }
    // The engine's watch; public for the tests.
    void Poll();

  signals:
    void runFinished();

  protected:
    void reject() override;

  private:
    void ShowFields();
    void Execute();
    void PickRecordedWeather();

    RunSimController& controller_;
    std::function<void(const Navigation&)> navigate_;
    std::function<void()> showResults_;
    QTimer* timer_;
    SelectWeatherScreen* select_ = nullptr;
};

}  // namespace solvane
