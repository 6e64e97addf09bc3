#include "app/task_icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>

#include <cmath>

namespace solvane {

QPixmap SvgPixmap(const ProgramPaths& paths, const QString& name, int width, int height) {
    const auto file = paths.Resolve(("images/" + name + ".svg").toStdString());
    QSvgRenderer renderer(QString::fromStdString(file.string()));
    if (!renderer.isValid()) return {};
    QPixmap pixmap(width, height);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

// A sphere with meridians that advance one step a frame.
QPixmap GlobeFrame(int frame, int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF disc(2, 2, size - 4, size - 4);
    p.setBrush(QColor(0x1e, 0x88, 0xe5));
    p.setPen(QPen(QColor(0x0d, 0x47, 0xa1), 1.5));
    p.drawEllipse(disc);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(0xbb, 0xde, 0xfb), 1));
    const double r = disc.width() / 2, cx = disc.center().x();
    for (int k = 0; k < 6; ++k) {
        const double phase = (k + frame / 21.0) * M_PI / 6.0;
        const double half = std::fabs(std::cos(phase)) * r;
        p.drawEllipse(QRectF(cx - half, disc.top(), 2 * half, disc.height()));
    }
    for (int k = 1; k < 4; ++k) {
        const double y = disc.top() + disc.height() * k / 4.0;
        const double dy = y - disc.center().y();
        const double half = std::sqrt(std::max(r * r - dy * dy, 0.0));
        p.drawLine(QPointF(cx - half, y), QPointF(cx + half, y));
    }
    return pixmap;
}

}  // namespace solvane
