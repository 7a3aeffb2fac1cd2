#include "ui/widgets/dependency_icons.h"

#include <QPainter>
#include <QPixmap>
#include <array>

namespace rakeyard::ui {

namespace {

constexpr int kSize = 16;
const QColor kWheels(40, 40, 40);

// A vehicle side on: a body of the colour on two wheels; a coach has a roof and windows.
void drawVehicle(QPainter& p, const QColor& body, bool coach) {
    p.setPen(QPen(body.darker(160), 1));
    p.setBrush(body);
    if (coach) {
        p.drawRoundedRect(QRectF(1.5, 3.5, 13, 8), 2, 2);
        p.setBrush(QColor(230, 240, 255));
        p.setPen(Qt::NoPen);
        for (int x : {3, 7, 11})
            p.drawRect(QRectF(x, 5, 2.5, 2.5));
    } else {
        p.drawRect(QRectF(2.5, 5.5, 11, 6));
    }
    p.setPen(Qt::NoPen);
    p.setBrush(kWheels);
    p.drawEllipse(QPointF(4.5, 13), 2, 2);
    p.drawEllipse(QPointF(11.5, 13), 2, 2);
}

// A red cross over the whole picture: the file is not there.
void drawMissingMark(QPainter& p) {
    p.setPen(QPen(QColor(210, 30, 30), 2.2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(3, 3), QPointF(13, 13));
    p.drawLine(QPointF(13, 3), QPointF(3, 13));
}

// Two rails on their sleepers, seen from above.
void drawTrack(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(130, 90, 50));
    for (int y : {2, 6, 10, 14})
        p.drawRect(QRectF(2, y - 0.75, 12, 1.5));
    p.setBrush(QColor(90, 90, 100));
    p.drawRect(QRectF(4.5, 0.5, 1.5, 15));
    p.drawRect(QRectF(10, 0.5, 1.5, 15));
}

void drawKind(QPainter& p, DependencyKind kind) {
    const QColor consist(40, 90, 170), loose(214, 130, 30), unit(60, 140, 70);
    switch (kind) {
        case DependencyKind::Route:
            drawTrack(p);
            break;
        case DependencyKind::ServiceConsist:
            drawVehicle(p, consist, true);
            break;
        case DependencyKind::LooseConsist:
            drawVehicle(p, loose, false);
            // Loose wagons are coupled to nothing: a gap and a hook at each end.
            p.setPen(QPen(loose.darker(160), 1));
            p.drawLine(QPointF(0, 9), QPointF(2, 9));
            p.drawLine(QPointF(14, 9), QPointF(16, 9));
            break;
        case DependencyKind::MissingUnit:
            drawVehicle(p, QColor(150, 150, 150), false);
            drawMissingMark(p);
            break;
        case DependencyKind::PresentUnit:
            drawVehicle(p, unit, false);
            break;
        case DependencyKind::MissingConsist:
            drawVehicle(p, consist.lighter(170), true);
            drawMissingMark(p);
            break;
        case DependencyKind::Root:
            break;
    }
}

QIcon paintIcon(DependencyKind kind) {
    QPixmap pixmap(kSize * 2, kSize * 2);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(2, 2);
    drawKind(p, kind);
    p.end();
    pixmap.setDevicePixelRatio(2);
    return QIcon(pixmap);
}

}  // namespace

QIcon dependencyIcon(DependencyKind kind) {
    if (kind == DependencyKind::Root) return {};
    // Painted once: the tree asks for a picture for every row it draws.
    static const std::array<QIcon, 7> icons = [] {
        std::array<QIcon, 7> made;
        for (int i = 1; i < 7; ++i)
            made[i] = paintIcon(static_cast<DependencyKind>(i));
        return made;
    }();
    return icons[static_cast<std::size_t>(kind)];
}

}  // namespace rakeyard::ui
