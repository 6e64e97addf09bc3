// The stored results dialogs: `saveoutform` stores the results of \temp
// under a ".ot<n>" name, `selectview` picks a stored set to view again. Both
// are Qt's file dialog with the name field under the spec'd field names.
#pragma once

#include "app/file_forms.h"
#include "results/stored_results.h"

class QPushButton;

namespace solvane {

class SaveOutFormScreen : public ProjectFileDialog {
    Q_OBJECT
  public:
    SaveOutFormScreen(SaveOutFormController& controller, Navigate navigate,
                      const ProjectFolders& folders, QWidget* parent);
    void Open(const std::string& folder, const std::optional<ResultsName>& suggestion = {});

  private:
    SaveOutFormController& controller_;
    Navigate navigate_;
    QPushButton* nosave_;
};

class SelectViewScreen : public ProjectFileDialog {
    Q_OBJECT
  public:
    SelectViewScreen(SelectViewController& controller, Navigate navigate,
                     const ProjectFolders& folders, QWidget* parent);
    void Open(const std::string& folder);

  private:
    SelectViewController& controller_;
    Navigate navigate_;
};

}  // namespace solvane
