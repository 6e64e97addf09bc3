// The hub screen: numbered tasks with icons, the menus, the code banner and
// the units line.
#pragma once

#include <QMainWindow>
#include <functional>

#include "core/main_menu.h"

class QLabel;
class QTimer;

namespace solvane {

class AboutBox;
class HelpViewer;

class MainMenuScreen : public QMainWindow {
    Q_OBJECT
  public:
    MainMenuScreen(Session& session, MainMenuController& controller,
                   std::function<void(const Navigation&)> navigate);
    // Refreshes the controller's state and shows it.
    void Activate();
    void ShowFields();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void BuildMenus();
    void BuildTasks();
    void Go(const Navigation& nav) { navigate_(nav); }

    Session& session_;
    MainMenuController& controller_;
    std::function<void(const Navigation&)> navigate_;
    QLabel* globe_ = nullptr;
    HelpViewer* help_ = nullptr;
    AboutBox* about_ = nullptr;
    QTimer* timer_ = nullptr;
};

}  // namespace solvane
