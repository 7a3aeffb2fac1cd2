#include "ui/widgets/slot_pictures.h"

#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QString>

namespace rakeyard::ui {

namespace {

enum class Kind { Steam, Diesel, Electric, Carriage, Freight, Tender, Empty, NotFound, Delete };

struct PictureKind {
    Kind kind = Kind::Empty;
    bool flipped = false;
    bool selected = false;
};

constexpr int kWidth = 96;
constexpr int kHeight = 48;
constexpr int kRailY = 44;

PictureKind kindOf(std::string_view key) {
    PictureKind result;
    if (key == "NOTFOUND") return {Kind::NotFound, false, false};
    if (key == "DEL") return {Kind::Delete, false, false};
    std::string_view stem = key.substr(0, 3);
    if (stem == "ENG") result.kind = Kind::Steam;
    if (stem == "DSL") result.kind = Kind::Diesel;
    if (stem == "ELE") result.kind = Kind::Electric;
    if (stem == "CAR") result.kind = Kind::Carriage;
    if (stem == "WAG") result.kind = Kind::Freight;
    if (stem == "TEN") result.kind = Kind::Tender;
    std::string_view rest = key.size() > 3 ? key.substr(3) : std::string_view();
    result.flipped = rest.starts_with("INV");
    result.selected = rest.ends_with("SEL");
    return result;
}

void drawTrack(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(150, 120, 90));
    for (int x = 2; x < kWidth; x += 9)
        p.drawRect(x, kRailY + 1, 5, 3);
    p.setBrush(QColor(90, 90, 96));
    p.drawRect(0, kRailY, kWidth, 2);
}

void drawWheel(QPainter& p, int cx, int cy, int r) {
    p.setPen(QPen(QColor(20, 20, 20), 1));
    p.setBrush(QColor(70, 70, 70));
    p.drawEllipse(QPoint(cx, cy), r, r);
    p.setBrush(QColor(170, 170, 170));
    p.drawEllipse(QPoint(cx, cy), 1, 1);
}

void drawBogie(QPainter& p, int centreX) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(40, 40, 40));
    p.drawRect(centreX - 11, 35, 22, 4);
    drawWheel(p, centreX - 6, 40, 4);
    drawWheel(p, centreX + 6, 40, 4);
}

// A small arrow over the front end, so that a flipped unit is told from a plain one even when
// its body is symmetric.
void drawFrontArrow(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(200, 30, 30));
    const QPoint arrow[] = {QPoint(2, 5), QPoint(9, 1), QPoint(9, 9)};
    p.drawPolygon(arrow, 3);
}

void drawSteam(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(190, 30, 30));
    p.drawRect(3, 29, 6, 6);  // buffer beam
    p.setBrush(QColor(25, 25, 25));
    p.drawRect(5, 32, 84, 3);  // footplate
    p.setBrush(QColor(45, 45, 50));
    p.drawRoundedRect(9, 15, 56, 17, 4, 4);  // boiler
    p.setBrush(QColor(20, 20, 22));
    p.drawRect(9, 15, 10, 17);  // smokebox
    p.drawRect(12, 6, 6, 10);   // chimney
    p.setBrush(QColor(150, 120, 40));
    p.drawRoundedRect(36, 10, 9, 7, 3, 3);  // dome
    p.setBrush(QColor(45, 45, 50));
    p.drawRect(64, 9, 24, 24);  // cab
    p.setBrush(QColor(20, 20, 22));
    p.drawRect(62, 6, 28, 4);  // cab roof
    p.setBrush(QColor(235, 220, 150));
    p.drawRect(70, 13, 11, 8);  // cab window
    drawWheel(p, 14, 40, 4);    // leading wheel
    for (int cx : {31, 47, 63})
        drawWheel(p, cx, 37, 7);
    p.setPen(QPen(QColor(200, 200, 200), 2));
    p.drawLine(31, 38, 63, 38);  // coupling rod
    drawWheel(p, 82, 40, 4);     // trailing wheel
}

void drawDiesel(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(30, 30, 30));
    p.drawRect(3, 30, 90, 4);  // frame
    p.setBrush(QColor(232, 130, 30));
    p.drawRect(8, 19, 14, 11);   // short hood
    p.drawRect(22, 9, 18, 21);   // cab
    p.drawRect(40, 14, 48, 16);  // long hood
    p.setBrush(QColor(60, 60, 60));
    p.drawRect(21, 7, 20, 3);  // cab roof
    p.drawRect(56, 11, 4, 3);  // exhaust
    p.setBrush(QColor(200, 230, 250));
    p.drawRect(25, 12, 11, 7);  // cab window
    p.setBrush(QColor(255, 240, 120));
    p.drawEllipse(QPoint(10, 23), 2, 2);  // headlight
    p.setPen(QPen(QColor(150, 70, 10), 1));
    for (int x = 46; x < 86; x += 5)
        p.drawLine(x, 17, x, 27);  // grilles
    p.setPen(QPen(QColor(250, 220, 40), 2));
    p.drawLine(4, 32, 92, 32);  // walkway stripe
    drawBogie(p, 20);
    drawBogie(p, 76);
}

void drawElectric(QPainter& p) {
    p.setPen(QPen(QColor(60, 60, 60), 1));
    p.drawLine(33, 3, 55, 3);  // pantograph collector
    p.drawLine(38, 13, 48, 7);
    p.drawLine(48, 7, 42, 3);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(120, 120, 120));
    p.drawRect(34, 12, 10, 2);  // pantograph base
    QPainterPath body;
    body.moveTo(10, 14);
    body.lineTo(90, 14);
    body.lineTo(90, 33);
    body.lineTo(5, 33);
    body.lineTo(5, 22);
    body.closeSubpath();  // slanted nose at the front
    p.setBrush(QColor(40, 120, 75));
    p.drawPath(body);
    p.setBrush(QColor(200, 230, 250));
    p.drawRect(9, 17, 9, 6);  // cab window
    for (int x = 30; x < 84; x += 12)
        p.drawRect(x, 18, 8, 6);
    p.setBrush(QColor(240, 240, 240));
    p.drawRect(5, 27, 85, 2);  // body stripe
    drawBogie(p, 20);
    drawBogie(p, 76);
}

void drawCarriage(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(120, 25, 35));
    p.drawRoundedRect(4, 12, 88, 22, 3, 3);
    p.setBrush(QColor(150, 150, 150));
    p.drawRoundedRect(5, 9, 86, 5, 3, 3);  // roof
    p.setBrush(QColor(40, 20, 20));
    p.drawRect(8, 15, 7, 17);  // door at the front end
    p.setBrush(QColor(230, 220, 170));
    for (int x = 20; x < 88; x += 10)
        p.drawRect(x, 16, 7, 7);
    p.setBrush(QColor(220, 190, 90));
    p.drawRect(4, 26, 88, 2);  // lining
    drawBogie(p, 20);
    drawBogie(p, 76);
}

void drawFreight(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(135, 75, 40));
    p.drawRect(6, 11, 84, 23);
    p.setPen(QPen(QColor(95, 50, 25), 1));
    for (int x = 12; x < 90; x += 6)
        p.drawLine(x, 12, x, 33);  // planks
    p.setPen(QPen(QColor(60, 35, 20), 2));
    p.drawRect(38, 13, 20, 19);  // sliding door
    p.drawLine(38, 13, 58, 32);
    p.drawLine(58, 13, 38, 32);
    p.setPen(QPen(QColor(30, 30, 30), 1));
    p.drawLine(9, 11, 9, 33);  // ladder at the front end
    p.drawLine(13, 11, 13, 33);
    for (int y = 14; y < 33; y += 4)
        p.drawLine(9, y, 13, y);
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPoint(11, 6), 3, 3);  // brake wheel
    p.drawLine(11, 9, 11, 11);
    drawBogie(p, 20);
    drawBogie(p, 76);
}

void drawTender(QPainter& p) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(30, 30, 30));
    QPainterPath coal;
    coal.moveTo(10, 20);
    coal.quadTo(28, 6, 52, 14);
    coal.lineTo(60, 20);
    coal.closeSubpath();  // coal heaped at the front
    p.drawPath(coal);
    p.setBrush(QColor(50, 50, 55));
    p.drawRect(8, 19, 80, 15);
    p.setBrush(QColor(90, 90, 95));
    p.drawRect(70, 15, 10, 4);  // water filler at the rear
    p.setBrush(QColor(190, 30, 30));
    p.drawRect(86, 28, 5, 6);  // rear buffer beam
    p.setPen(QPen(QColor(160, 140, 60), 1));
    p.drawLine(8, 24, 88, 24);
    for (int cx : {24, 46, 68})
        drawWheel(p, cx, 39, 5);
}

void drawUnit(QPainter& p, Kind kind) {
    switch (kind) {
        case Kind::Steam:
            drawSteam(p);
            break;
        case Kind::Diesel:
            drawDiesel(p);
            break;
        case Kind::Electric:
            drawElectric(p);
            break;
        case Kind::Carriage:
            drawCarriage(p);
            break;
        case Kind::Freight:
            drawFreight(p);
            break;
        case Kind::Tender:
            drawTender(p);
            break;
        default:
            return;
    }
    drawFrontArrow(p);
}

void drawGhostUnit(QPainter& p, const QColor& colour) {
    p.setPen(QPen(colour, 1, Qt::DashLine));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(6, 12, 84, 22, 3, 3);
    p.drawEllipse(QPoint(20, 39), 4, 4);
    p.drawEllipse(QPoint(76, 39), 4, 4);
}

void drawNotFound(QPainter& p) {
    p.fillRect(0, 0, kWidth, kHeight, QColor(255, 240, 170));
    drawTrack(p);
    drawGhostUnit(p, QColor(120, 110, 80));
    QFont font = p.font();
    font.setBold(true);
    font.setPixelSize(28);
    p.setFont(font);
    p.setPen(QColor(200, 30, 30));
    p.drawText(QRect(0, 4, kWidth, 36), Qt::AlignCenter, "?");
    font.setPixelSize(8);
    p.setFont(font);
    p.setPen(QColor(90, 60, 0));
    p.drawText(QRect(0, 0, kWidth, 11), Qt::AlignCenter, "NOT FOUND");
    p.setPen(QPen(QColor(210, 160, 0), 2));
    p.setBrush(Qt::NoBrush);
    p.drawRect(1, 1, kWidth - 2, kHeight - 2);
}

void drawDelete(QPainter& p) {
    p.fillRect(0, 0, kWidth, kHeight, QColor(255, 205, 205));
    drawTrack(p);
    drawGhostUnit(p, QColor(150, 90, 90));
    p.setPen(QPen(QColor(210, 0, 0), 5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(30, 6, 66, 40);
    p.drawLine(66, 6, 30, 40);
    p.setPen(QPen(QColor(210, 0, 0), 3));
    p.setBrush(Qt::NoBrush);
    p.drawRect(1, 1, kWidth - 3, kHeight - 3);
}

void drawPicture(QPainter& p, const PictureKind& what) {
    if (what.kind == Kind::NotFound) return drawNotFound(p);
    if (what.kind == Kind::Delete) return drawDelete(p);
    p.fillRect(0, 0, kWidth, kHeight,
               what.selected ? QColor(190, 215, 255) : QColor(246, 246, 240));
    drawTrack(p);
    p.save();
    if (what.flipped) {
        p.translate(kWidth, 0);
        p.scale(-1, 1);
    }
    drawUnit(p, what.kind);
    p.restore();
    p.setBrush(Qt::NoBrush);
    if (what.selected) {
        p.setPen(QPen(QColor(20, 90, 210), 3));
        p.drawRect(1, 1, kWidth - 3, kHeight - 3);
    } else {
        p.setPen(QPen(QColor(190, 190, 180), 1));
        p.drawRect(0, 0, kWidth - 1, kHeight - 1);
    }
}

QPixmap renderPicture(std::string_view key) {
    // Drawn at twice the size so that the strip stays sharp when it scales the pictures.
    constexpr int scale = 3;
    QImage image(kWidth * scale, kHeight * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    drawPicture(painter, kindOf(key));
    painter.end();
    image.setDevicePixelRatio(scale);
    return QPixmap::fromImage(image);
}

bool isKnownKey(std::string_view key) {
    for (const char* known : kSlotPictureKeys)
        if (key == known) return true;
    return false;
}

}  // namespace

QPixmap slotPicture(std::string_view key) {
    static QHash<QString, QPixmap> drawn;
    if (!isKnownKey(key)) key = "EMP";
    const QString name = QString::fromLatin1(key.data(), static_cast<qsizetype>(key.size()));
    auto found = drawn.constFind(name);
    if (found != drawn.constEnd()) return *found;
    QPixmap picture = renderPicture(key);
    drawn.insert(name, picture);
    return picture;
}

}  // namespace rakeyard::ui
