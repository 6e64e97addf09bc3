// The zone list after the sketch: the zones with their numbers, names and
// sequence, from which one is opened; back returns to the hub.
#pragma once

#include <QDialog>
#include <functional>

#include "sketch/zone_names.h"

class QLabel;
class QTableWidget;

namespace solvane {

class ZoneNameScreen : public QDialog {
    Q_OBJECT
  public:
    ZoneNameScreen(ZoneNameController& controller, std::function<void(const Navigation&)> navigate,
                   QWidget* parent);
    // Fills the list (handing a new sketch's zones over) and shows it; false
    // when the hand-over failed and the hub stays.
    bool Open();
    void ShowFields();

  protected:
    // Escape and the close box are back.
    void reject() override;

  private:
    void Act(const Navigation& nav);

    ZoneNameController& controller_;
    std::function<void(const Navigation&)> navigate_;
    QTableWidget* list_ = nullptr;
};

}  // namespace solvane
