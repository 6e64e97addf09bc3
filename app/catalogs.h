// The property database screens: the wall or window catalog, and the HVAC
// system types.
#pragma once

#include <QDialog>
#include <functional>

#include "propertydb/catalog_screen.h"
#include "propertydb/hvac_catalog.h"

namespace solvane {

class HelpViewer;

class CatalogScreen : public QDialog {
    Q_OBJECT
  public:
    CatalogScreen(CatalogController& controller, const ProgramPaths& paths,
                  std::function<void(const Navigation&)> navigate, QWidget* parent);
    // Opens the catalog of `kind`; the hub stays when the project is not ready.
    void Open(int kind);
    void ShowFields();

  private:
    void Act(Navigation nav);
    CatalogController& controller_;
    const ProgramPaths& paths_;
    HelpViewer* help_;
    std::function<void(const Navigation&)> navigate_;
};

class HvacScreen : public QDialog {
    Q_OBJECT
  public:
    HvacScreen(HvacController& controller, std::function<void(const Navigation&)> navigate,
               QWidget* parent);
    void Open();
    void ShowFields();

  private:
    void Act(Navigation nav);
    HvacController& controller_;
    std::function<void(const Navigation&)> navigate_;
};

}  // namespace solvane
