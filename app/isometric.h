// The 3D view screen: the picture, the corner buttons, the view angle, the
// frame switch, the picture's position and zoom, save and print.
#pragma once

#include <QDialog>
#include <memory>

class QSlider;

#include "app/image_canvas.h"
#include "sketch/isometric.h"

namespace solvane {

class CanvasView;

class IsometricScreen : public QDialog {
    Q_OBJECT
  public:
    IsometricScreen(Prompt& prompt, QString folder, QWidget* parent);
    ~IsometricScreen() override;
    // View3D: shows the scene.
    void Open(IsoScene scene, const QString& projectName);
    IsometricController& controller() { return *controller_; }
    const ImageCanvas& canvas() const { return canvas_; }

  private:
    void ShowFields();
    void Adjust();

    Prompt& prompt_;
    QString folder_;
    QString projectName_;
    ImageCanvas canvas_;
    std::unique_ptr<IsometricController> controller_;
    CanvasView* view_ = nullptr;
    QSlider* scrollX_ = nullptr;
    QSlider* scrollY_ = nullptr;
    QSlider* zoom_ = nullptr;
};

}  // namespace solvane
