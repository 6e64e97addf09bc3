// The project information screen with its building type menu.
#pragma once

#include <QDialog>
#include <functional>

#include "code/project_info.h"

namespace solvane {

class ProjectInfoScreen : public QDialog {
    Q_OBJECT
  public:
    ProjectInfoScreen(ProjectInfoController& controller,
                      std::function<void(const Navigation&)> navigate, QWidget* parent);
    void Open();
    void ShowFields();

  private:
    void Act(Navigation nav);
    ProjectInfoController& controller_;
    std::function<void(const Navigation&)> navigate_;
};

}  // namespace solvane
