// The place, folder and file lists of a file dialog (`Drive1`, `Dir1`,
// `File1`), shown from a FileBrowser.
#pragma once

#include <QWidget>
#include <functional>

#include "projectfile/file_dialogs.h"

class QComboBox;
class QLabel;
class QListWidget;

namespace solvane {

class FileLists : public QWidget {
    Q_OBJECT
  public:
    FileLists(FileBrowser& browser, QWidget* parent = nullptr);
    // Shows the browser's lists again.
    void Refresh();

  signals:
    // A file of `File1` was clicked (index) or double-clicked.
    void fileChosen(int index);
    void fileActivated(int index);
    // Another place or folder was opened (before the lists are shown again).
    void folderChanged();

  private:
    FileBrowser& browser_;
    QComboBox* drives_;
    QLabel* folder_;
    QListWidget* folders_;
    QListWidget* files_;
};

}  // namespace solvane
