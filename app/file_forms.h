// The project file dialogs: open (`oldfileform`), samples (`SampleFileForm`)
// and save (`saveinputform`). Open and save are Qt's own file dialog, with the
// name field (`retrievefile`, `inputname`), `OK` and `Cancel` under the
// names of the fields they stand for; the save dialog adds the unit choice.
#pragma once

#include <QDialog>
#include <QFileDialog>
#include <functional>

#include "projectfile/file_dialogs.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;

namespace solvane {

using Navigate = std::function<void(const Navigation&)>;

// Where the project dialogs start and what they offer among their places.
struct ProjectFolders {
    QString projects;  // the user's projects folder, made on first use
    QString samples;   // the program's sample projects
};

// Qt's file dialog on "*.inp", hidden folders left out, with the projects and
// sample folders among its places. Accepting hands the chosen path to
// `chosen`; Escape, the close box and Cancel go to `cancelled`.
class ProjectFileDialog : public QFileDialog {
    Q_OBJECT
  public:
    ProjectFileDialog(const ProjectFolders& folders, QWidget* parent);
    void OpenIn(const QString& folder);

    std::function<void(const QString& path)> chosen;
    std::function<void()> cancelled;

  public slots:
    void accept() override;
    void reject() override;

  protected:
    void SetMode(QFileDialog::AcceptMode mode);
    QLineEdit* name_ = nullptr;  // the file name field
};

class OldFileFormScreen : public ProjectFileDialog {
    Q_OBJECT
  public:
    OldFileFormScreen(OldFileFormController& controller, Navigate navigate,
                      const ProjectFolders& folders, QWidget* parent);
    void Open(const std::string& folder);

  private:
    OldFileFormController& controller_;
    Navigate navigate_;
};

class SampleFileFormScreen : public QDialog {
    Q_OBJECT
  public:
    SampleFileFormScreen(SampleFileFormController& controller, Navigate navigate, QWidget* parent);
    void Open();

  private:
    SampleFileFormController& controller_;
    Navigate navigate_;
    QListWidget* files_;
    QLabel* description_;  // the selected sample's project description
};

class SaveInputFormScreen : public ProjectFileDialog {
    Q_OBJECT
  public:
    SaveInputFormScreen(Session& session, SaveInputFormController& controller, Navigate navigate,
                        const ProjectFolders& folders, QWidget* parent);
    void Open(const std::string& folder);
    // Told the path of each project file written.
    std::function<void(const QString& path)> saved;

  private:
    Session& session_;
    SaveInputFormController& controller_;
    Navigate navigate_;
    QRadioButton* ownUnits_;
    QRadioButton* otherUnits_;
};

}  // namespace solvane
