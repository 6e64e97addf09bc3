// The location screen "Weather Data".
#pragma once

#include <QDialog>
#include <functional>

#include "weather/weather_screen.h"

class QComboBox;
class QLabel;

namespace solvane {

class HelpViewer;

// The weather screen's help text, under the heading "WEATHER DATA".
inline constexpr const char* kWeatherHelpFile = "\\Helpinfo\\Help20-5.txt";

class FieldEdits;

class WeatherDataScreen : public QDialog {
    Q_OBJECT
  public:
    WeatherDataScreen(WeatherScreen& controller, std::function<void(const Navigation&)> navigate,
                      QWidget* parent);
    // Opens from the hub: the notice, then the screen.
    void OpenTask();
    void ShowFields();

  private:
    void Act(Navigation nav);

    WeatherScreen& controller_;
    std::function<void(const Navigation&)> navigate_;
    FieldEdits* edits_;
    QComboBox* states_;
    QComboBox* cities_;
    QLabel* map_;
    QString mapPath_;
    HelpViewer* help_ = nullptr;
};

}  // namespace solvane
