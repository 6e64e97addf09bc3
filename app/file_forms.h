// The project file dialogs: open (`oldfileform`), samples (`SampleFileForm`)
// and save (`saveinputform`).
#pragma once

#include <QDialog>
#include <functional>

#include "projectfile/file_dialogs.h"

class QLineEdit;
class QListWidget;
class QRadioButton;

namespace solvane {

class FileLists;
using Navigate = std::function<void(const Navigation&)>;

class OldFileFormScreen : public QDialog {
    Q_OBJECT
  public:
    OldFileFormScreen(OldFileFormController& controller, Navigate navigate, QWidget* parent);
    void Open(const std::string& folder);

  private:
    OldFileFormController& controller_;
    Navigate navigate_;
    FileLists* lists_;
    QLineEdit* name_;
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
};

class SaveInputFormScreen : public QDialog {
    Q_OBJECT
  public:
    SaveInputFormScreen(Session& session, SaveInputFormController& controller, Navigate navigate,
                        QWidget* parent);
    void Open(const std::string& folder);
    // Told the path of each project file written.
    std::function<void(const QString& path)> saved;

  private:
    Session& session_;
    SaveInputFormController& controller_;
    Navigate navigate_;
    FileLists* lists_;
    QLineEdit* name_;
    QRadioButton* ownUnits_;
    QRadioButton* otherUnits_;
};

}  // namespace solvane
