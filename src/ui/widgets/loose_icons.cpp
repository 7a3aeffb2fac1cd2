#include "ui/widgets/loose_icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <array>

namespace rakeyard::ui {

namespace {

constexpr int kSize = 16;

void drawWheels(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(40, 40, 40));
    p.drawEllipse(QPointF(4.5, 13), 2, 2);
    p.drawEllipse(QPointF(11.5, 13), 2, 2);
}

// An engine side on: a long bonnet, a cab at one end and a lamp.
void drawEngine(QPainter& p, const QColor& body) {
    p.setPen(QPen(body.darker(170), 1));
    p.setBrush(body);
    p.drawRect(QRectF(1.5, 6.5, 13, 5));
    p.drawRect(QRectF(9.5, 2.5, 5, 4));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(230, 240, 255));
    p.drawRect(QRectF(11, 3.5, 2.5, 2));
    p.setBrush(QColor(250, 220, 80));
    p.drawEllipse(QPointF(2.5, 8.5), 1, 1);
    drawWheels(p);
}

// A wagon side on: an open box with its planks.
void drawWagon(QPainter& p, const QColor& body) {
    p.setPen(QPen(body.darker(170), 1));
    p.setBrush(body);
    p.drawRect(QRectF(1.5, 4.5, 13, 7));
    p.setPen(QPen(body.darker(130), 0.8));
    p.drawLine(QPointF(2, 7), QPointF(14, 7));
    p.drawLine(QPointF(2, 9.3), QPointF(14, 9.3));
    drawWheels(p);
}

// A question mark in a corner: the catalogue doesn't hold this unit.
void drawUnknownMark(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(200, 30, 30));
    p.drawEllipse(QPointF(11.5, 4.5), 4.3, 4.3);
    QFont font;
    font.setPixelSize(8);
    font.setBold(true);
    p.setFont(font);
    p.setPen(Qt::white);
    p.drawText(QRectF(7.2, 0.2, 8.6, 8.6), Qt::AlignCenter, "?");
}

void drawImage(QPainter& p, LooseImage image) {
    const QColor engine(40, 90, 170), wagon(150, 95, 45), grey(150, 150, 150);
    switch (image) {
        case LooseImage::Activity: {
            // A page of the activity with a flag on it.
            p.setPen(QPen(QColor(110, 110, 120), 1));
            p.setBrush(QColor(250, 250, 244));
            p.drawRect(QRectF(2.5, 1.5, 11, 13));
            p.setPen(QPen(QColor(70, 70, 70), 1));
            p.drawLine(QPointF(5.5, 4), QPointF(5.5, 12.5));
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(30, 150, 60));
            QPainterPath flag;
            flag.moveTo(6, 4);
            flag.lineTo(11.5, 5.75);
            flag.lineTo(6, 7.5);
            p.drawPath(flag);
            break;
        }
        case LooseImage::Consist:
            // Two wagons standing apart: coupled to no engine.
            p.setPen(QPen(wagon.darker(170), 1));
            p.setBrush(wagon.lighter(130));
            p.drawRect(QRectF(0.5, 5.5, 6.5, 6));
            p.drawRect(QRectF(9, 5.5, 6.5, 6));
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(40, 40, 40));
            for (double x : {2.3, 5.2, 10.8, 13.7})
                p.drawEllipse(QPointF(x, 13), 1.5, 1.5);
            break;
        case LooseImage::Engine:
            drawEngine(p, engine);
            break;
        case LooseImage::Wagon:
            drawWagon(p, wagon);
            break;
        case LooseImage::MissingEngine:
            drawEngine(p, grey);
            drawUnknownMark(p);
            break;
        case LooseImage::MissingWagon:
            drawWagon(p, grey);
            drawUnknownMark(p);
            break;
    }
}

QIcon paintIcon(LooseImage image) {
    QIcon icon;
    // Sharp at the tree's size and at the size of a box of the picture strip.
    for (int scale : {2, 8}) {
        QPixmap pixmap(kSize * scale, kSize * scale);
        pixmap.fill(Qt::transparent);
        QPainter p(&pixmap);
        p.setRenderHint(QPainter::Antialiasing);
        p.scale(scale, scale);
        drawImage(p, image);
        p.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace

QIcon looseIcon(LooseImage image) {
    // Painted once: the tree asks for a picture for every row it draws.
    static const std::array<QIcon, 7> icons = [] {
        std::array<QIcon, 7> made;
        for (int i = 1; i < 7; ++i)
            made[i] = paintIcon(static_cast<LooseImage>(i));
        return made;
    }();
    return icons[static_cast<std::size_t>(image)];
}

}  // namespace rakeyard::ui
