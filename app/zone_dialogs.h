// The dialogs of the zone screen: `occupprof` with a 24-hour bar chart beside
// each profile, `temperature`, `VentilationRate`, `copytozone` and `wallwin`.
#pragma once

#include <QDialog>
#include <QWidget>
#include <functional>
#include <string>

#include "zones/catalog_picker.h"
#include "zones/copy_zones.h"
#include "zones/profile_screen.h"

class QListWidget;

namespace solvane {

// A profile drawn as 24 hourly bars: users read a schedule faster as a shape.
class ProfileBars : public QWidget {
    Q_OBJECT
  public:
    explicit ProfileBars(QWidget* parent = nullptr);
    // `scaleTop` is the value of a full bar; 0 scales to the profile's own range.
    void SetProfile(const std::string& text, double scaleTop);
    const std::vector<double>& Values() const { return values_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::vector<double> values_;
    double top_ = 100;
};

class ProfileDialog : public QDialog {
    Q_OBJECT
  public:
    ProfileDialog(ProfileScreenController& controller, std::function<void()> done, QWidget* parent);
    void Open();
    void ShowFields();

  private:
    ProfileScreenController& c_;
    std::function<void()> done_;
};

class TemperatureDialog : public QDialog {
    Q_OBJECT
  public:
    TemperatureDialog(TemperatureController& controller, std::function<void()> done,
                      QWidget* parent);
    void Open(int group);

  private:
    TemperatureController& c_;
    std::function<void()> done_;
};

class VentilationDialog : public QDialog {
    Q_OBJECT
  public:
    VentilationDialog(VentilationRateController& controller, QWidget* parent);
    // Modal: returns once OK or Cancel closed it.
    void Open();

  private:
    VentilationRateController& c_;
};

class CopyToZoneDialog : public QDialog {
    Q_OBJECT
  public:
    CopyToZoneDialog(CopyToZonesController& controller, QWidget* parent);
    void Open();

  private:
    CopyToZonesController& c_;
    QListWidget* list_;
};

class WallWinDialog : public QDialog {
    Q_OBJECT
  public:
    WallWinDialog(CatalogPickerController& controller, std::function<void()> done, QWidget* parent);
    void Open();

  private:
    CatalogPickerController& c_;
    std::function<void()> done_;
};

}  // namespace solvane
