// The zone description screens: the `zonename` list, the `zoneform` zone
// screen and the dialogs it opens (schedules, thermostats, ventilation rate,
// copy to zones, catalog picker). ZoneScreens owns their controllers.
#pragma once

#include <QDialog>
#include <functional>
#include <map>
#include <memory>

#include "core/session.h"
#include "ui/prompt.h"
#include "zones/catalog_picker.h"
#include "zones/copy_zones.h"
#include "zones/profile_screen.h"
#include "zones/zone_form.h"
#include "zones/zone_list.h"

class QMenuBar;
class QTableWidget;

namespace solvane {

class ZoneFormScreen;
class ProfileDialog;
class TemperatureDialog;
class VentilationDialog;
class CopyToZoneDialog;
class WallWinDialog;

// Paints and colours the named fields of a screen, edit boxes included.
void ShowScreenFields(QWidget* screen, const ScreenFields& fields);
// Return in a box ends the box's edit; it presses no button of the screen.
void NoDefaultButtons(QWidget* screen);

class ZoneNameScreen : public QDialog {
    Q_OBJECT
  public:
    ZoneNameScreen(ZoneListController& list, std::function<void(int)> open,
                   std::function<void()> back, QWidget* parent);
    void Refresh();
    QTableWidget* grid() { return grid_; }

  protected:
    void reject() override;

  private:
    ZoneListController& list_;
    std::function<void(int)> open_;
    std::function<void()> back_;
    QTableWidget* grid_;
};

class ZoneScreens {
  public:
    ZoneScreens(Session& session, Prompt& prompt, std::function<void(const Navigation&)> navigate,
                QWidget* hub);
    ~ZoneScreens();

    // The hub's zone task: the list comes up.
    void Open();

    ZoneNameScreen* list() { return list_.get(); }
    ZoneFormScreen* form() { return form_.get(); }
    ZoneFormController& formController() { return formController_; }

  private:
    ZoneListController listController_;
    ZoneFormController formController_;
    CopyToZonesController copyController_;
    ProfileScreenController profileController_;
    TemperatureController temperatureController_;
    VentilationRateController ventilationController_;
    CatalogPickerController pickerController_;
    std::unique_ptr<ZoneNameScreen> list_;
    std::unique_ptr<ZoneFormScreen> form_;
};

class ZoneFormScreen : public QDialog {
    Q_OBJECT
  public:
    ZoneFormScreen(Session& session, ZoneFormController& form, CopyToZonesController& copy,
                   ProfileScreenController& profile, TemperatureController& temperature,
                   VentilationRateController& ventilation, CatalogPickerController& picker,
                   std::function<void()> backToList, QWidget* parent);
    bool ShowZone(int zone);
    void ShowFields();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void reject() override;  // Escape and the close box: Cancel

  private:
    QWidget* BuildRecord();
    QWidget* BuildSurfaces();
    QWidget* BuildElevations();
    void BuildMenus(QMenuBar* bar);
    void OpenProfile(int type);
    void OpenPicker(int kind, int box);

    Session& session_;
    ZoneFormController& form_;
    CopyToZonesController& copy_;
    ProfileScreenController& profile_;
    TemperatureController& temperature_;
    VentilationRateController& ventilation_;
    CatalogPickerController& picker_;
    std::function<void()> backToList_;
    ProfileDialog* profileDialog_;
    TemperatureDialog* temperatureDialog_;
    VentilationDialog* ventilationDialog_;
    CopyToZoneDialog* copyDialog_;
    WallWinDialog* pickerDialog_;
    std::map<QWidget*, QWidget*> captions_;  // a record box and its caption
    int exposureBox_ = 1;
    bool busy_ = false;
};

}  // namespace solvane
