#include "app/canvas_view.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <cmath>

namespace solvane {

int ScreenPixelsPerUnit() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double ratio = screen ? screen->devicePixelRatio() : 1.0;
    return std::max(1, static_cast<int>(std::ceil(ratio - 0.01)));
}

CanvasView::CanvasView(ImageCanvas& canvas, QWidget* parent) : QWidget(parent), canvas_(canvas) {
    setMouseTracking(true);
    setMinimumSize(canvas.Width() / 2, canvas.Height() / 2);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize CanvasView::sizeHint() const {
    return {canvas_.Width(), canvas_.Height()};
}

QRectF CanvasView::Target() const {
    const double s = std::min(width() / static_cast<double>(canvas_.Width()),
                              height() / static_cast<double>(canvas_.Height()));
    const double w = canvas_.Width() * s, h = canvas_.Height() * s;
    return {(width() - w) / 2, (height() - h) / 2, w, h};
}

QPointF CanvasView::ToCanvas(const QPointF& p) const {
    const QRectF t = Target();
    return {(p.x() - t.x()) * canvas_.Width() / t.width(),
            (p.y() - t.y()) * canvas_.Height() / t.height()};
}

QPointF CanvasView::ToWidget(const QPointF& c) const {
    const QRectF t = Target();
    return {t.x() + c.x() * t.width() / canvas_.Width(),
            t.y() + c.y() * t.height() / canvas_.Height()};
}

void CanvasView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().window());
    const QRectF t = Target();
    // Shrinking is smoothed; at its own size or larger the picture is shown
    // pixel for pixel so the cells stay crisp.
    p.setRenderHint(QPainter::SmoothPixmapTransform, t.width() < canvas_.Width());
    p.drawImage(t, canvas_.image());
    if (overlay_) {
        p.translate(t.topLeft());
        p.scale(t.width() / canvas_.Width(), t.height() / canvas_.Height());
        overlay_(p);
    }
}

void CanvasView::mousePressEvent(QMouseEvent* e) {
    emit pressed(ToCanvas(e->position()), e->button());
}

void CanvasView::mouseMoveEvent(QMouseEvent* e) {
    emit moved(ToCanvas(e->position()), e->buttons());
}

void CanvasView::mouseReleaseEvent(QMouseEvent* e) {
    emit released(ToCanvas(e->position()), e->button());
}

void CanvasView::leaveEvent(QEvent* e) {
    emit left();
    QWidget::leaveEvent(e);
}

}  // namespace solvane
