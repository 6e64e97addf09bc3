// The `Hourly` screen, which hands an hourly file to the desktop's
// spreadsheet, and the program's own hourly plot: a zone's week or a year as
// a heat map.
#pragma once

#include <QDialog>
#include <QImage>
#include <functional>
#include <optional>

#include "results/hourly_output.h"

class QComboBox;
class QLabel;
class QSpinBox;

namespace solvane {

// Opens a file in the desktop's default program for its kind; false when
// the desktop has none for CSV files or it could not be started.
bool OpenInSpreadsheet(const std::filesystem::path& file);

class HourlyPlotScreen : public QDialog {
    Q_OBJECT
  public:
    HourlyPlotScreen(Session& session, Prompt& prompt, QWidget* parent);
    // Reads the hourly files of \temp; false, after telling the user, when
    // they cannot be read.
    bool Open();
    const QImage& image() const { return image_; }

  private:
    void Redraw();

    Session& session_;
    Prompt& prompt_;
    std::optional<HourlyData> data_;
    QComboBox* zone_;
    QComboBox* mode_;
    QSpinBox* week_;
    QLabel* picture_;
    QLabel* legend_;
    QImage image_;
};

class HourlyScreen : public QDialog {
    Q_OBJECT
  public:
    HourlyScreen(HourlyController& controller, Session& session, Prompt& prompt,
                 std::function<void(const Navigation&)> navigate, QWidget* parent);
    void Open();
    HourlyPlotScreen* plot() { return plot_; }

  protected:
    void reject() override;

  private:
    HourlyController& controller_;
    std::function<void(const Navigation&)> navigate_;
    HourlyPlotScreen* plot_;
};

}  // namespace solvane
