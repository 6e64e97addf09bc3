// The recorded weather screen (`selectweth`) and the view of a file's head
// (`viewweather`), opened from the run screen's recorded weather choice.
#pragma once

#include <QDialog>

#include "weather/recorded_weather.h"

class QLineEdit;
class QGroupBox;
class QPlainTextEdit;

namespace solvane {

class FileLists;

class ViewWeatherScreen : public QDialog {
    Q_OBJECT
  public:
    explicit ViewWeatherScreen(QWidget* parent);
    void Show(const std::string& text);

  private:
    QPlainTextEdit* text_;
};

class SelectWeatherScreen : public QDialog {
    Q_OBJECT
  public:
    SelectWeatherScreen(SelectWeatherController& controller, QWidget* parent);
    // Opens the screen for the run's year; true when a file was taken.
    bool Pick(const std::string& evaluationYear);

  private:
    void ShowFields();

    SelectWeatherController& controller_;
    FileLists* lists_;
    QLineEdit* name_;
    QGroupBox* sampleFrame_;
    QPlainTextEdit* sample_;
    ViewWeatherScreen* view_;
};

}  // namespace solvane
