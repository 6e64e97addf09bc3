// Shows an ImageCanvas in a widget, scaled to fit with its proportions kept,
// and reports the mouse in canvas units. An overlay (the rubber band of a
// stroke) is drawn over the picture without touching the canvas.
#pragma once

#include <QWidget>
#include <functional>

#include "app/image_canvas.h"

namespace solvane {

class CanvasView : public QWidget {
    Q_OBJECT
  public:
    CanvasView(ImageCanvas& canvas, QWidget* parent = nullptr);

    // Draws over the picture, in canvas units; called on every repaint.
    void SetOverlay(std::function<void(QPainter&)> overlay) { overlay_ = std::move(overlay); }
    // The canvas point under a widget position, and back.
    QPointF ToCanvas(const QPointF& widgetPos) const;
    QPointF ToWidget(const QPointF& canvasPos) const;
    QSize sizeHint() const override;

  signals:
    void pressed(QPointF at, Qt::MouseButton button);
    void moved(QPointF at, Qt::MouseButtons buttons);
    void released(QPointF at, Qt::MouseButton button);
    void left();

  protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void leaveEvent(QEvent* e) override;

  private:
    QRectF Target() const;
    ImageCanvas& canvas_;
    std::function<void(QPainter&)> overlay_;
};

// Pixels per canvas unit for a sharp picture on this screen.
int ScreenPixelsPerUnit();

}  // namespace solvane
