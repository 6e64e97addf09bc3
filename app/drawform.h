// The sketch screen: the sheet with the mouse, the zone legend, the 25 zone
// name boxes, the level and building fields, the tools and the file menu.
#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>

#include "app/image_canvas.h"
#include "sketch/draw_form.h"
#include "sketch/window_sizer.h"

class QLabel;

namespace solvane {

class CanvasView;
class FieldEdits;
class HelpViewer;
class IsometricScreen;
class WinAreaSelScreen;

class DrawFormScreen : public QMainWindow {
    Q_OBJECT
  public:
    // `makeController` builds the controller over the screen's canvas.
    DrawFormScreen(Session& session, Prompt& prompt,
                   std::function<std::unique_ptr<DrawFormController>(Canvas&)> makeController,
                   std::function<void(const Navigation&)> navigate);
    ~DrawFormScreen() override;

    // Loads the drawing and shows the screen.
    void Open();
    void ShowFields();
    DrawFormController& controller() { return *controller_; }
    ImageCanvas& canvas() { return canvas_; }
    CanvasView* view() { return view_; }
    IsometricScreen* isometric() { return isometric_; }
    WinAreaSelScreen* windowSizer() { return sizer_; }

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void BuildMenus();
    QWidget* BuildTools();
    QWidget* BuildSidePanel();
    QWidget* BuildNames();
    void ConnectCanvas();
    void Act(const Navigation& nav);
    void Do(const std::function<void()>& action);
    void ShowPointer();
    void PaintBand(QPainter& p) const;
    void SaveItem();
    void LoadItem();
    void OpenView3D();

    Session& session_;
    Prompt& prompt_;
    std::function<void(const Navigation&)> navigate_;
    ImageCanvas canvas_;
    std::unique_ptr<DrawFormController> controller_;
    CanvasView* view_ = nullptr;
    FieldEdits* edits_ = nullptr;
    QLabel* cellInfo_ = nullptr;
    IsometricScreen* isometric_ = nullptr;
    std::unique_ptr<WindowSizerController> sizerController_;
    WinAreaSelScreen* sizer_ = nullptr;
    HelpViewer* help_ = nullptr;
};

}  // namespace solvane
