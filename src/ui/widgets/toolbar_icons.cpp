#include "ui/widgets/toolbar_icons.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <optional>

#include "ui/widgets/slot_pictures.h"

namespace rakeyard::ui {

namespace {

constexpr int kSize = 24;

struct Glyph {
    const char* key;
    const char* text;
    QRgb colour;
};

// Every button shows a short sign on a coloured tile until the desktop's icons are looked up.
constexpr Glyph kGlyphs[] = {
    {"exit", "EX", 0xff7b241c},
    {"new", "NEW", 0xff1e8449},
    {"open", "OP", 0xff9a7d0a},
    {"save", "SV", 0xff1a5276},
    {"test", "?!", 0xffc0392b},
    {"activity", "ACT", 0xff2c7a3f},
    {"alias", "AL", 0xff6c3483},
    {"filter", "Y", 0xff34495e},
    {"reorder", "123", 0xff1f618d},
    {"paste", "+", 0xff117a65},
    {"delete", "X", 0xffb03a2e},
    {"multiple", "xN", 0xff7d6608},
    {"random", "RND", 0xff873600},
    {"3dview", "3D", 0xff283747},
    {"activitydependencies", "DEP", 0xff4a235a},
    {"dependencies", "CON", 0xff1b4f72},
    {"loose", "LSE", 0xff6e2c00},
};

QIcon glyphIcon(const Glyph& glyph) {
    QPixmap pixmap(kSize * 2, kSize * 2);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(2, 2);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor::fromRgb(glyph.colour));
    p.drawRoundedRect(1, 1, kSize - 2, kSize - 2, 4, 4);
    QFont font = p.font();
    font.setBold(true);
    font.setPixelSize(std::strlen(glyph.text) > 2 ? 8 : 12);
    p.setFont(font);
    p.setPen(Qt::white);
    p.drawText(QRect(0, 0, kSize, kSize), Qt::AlignCenter, glyph.text);
    p.end();
    pixmap.setDevicePixelRatio(2);
    return QIcon(pixmap);
}

}  // namespace

QIcon toolbarIcon(const QString& key) {
    for (const Glyph& glyph : kGlyphs)
        if (key == glyph.key) return glyphIcon(glyph);
    return QIcon(slotPicture("ENG"));
}

QIcon drawnButtonIcon(const QString& key) {
    constexpr int kSide = 16;
    QPixmap pixmap(kSide * 2, kSide * 2);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(2, 2);
    const QColor ink = QApplication::palette().color(QPalette::ButtonText);
    if (key == "refresh") {
        p.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap));
        p.drawArc(QRectF(3, 3, 10, 10), 100 * 16, 290 * 16);  // open at the top right
        p.setPen(Qt::NoPen);
        p.setBrush(ink);
        p.drawPolygon(QPolygonF({QPointF(8.5, 0.5), QPointF(12.5, 3), QPointF(8.5, 5.5)}));
    } else if (key == "edit") {
        p.translate(8, 8);
        p.rotate(45);
        p.setPen(QPen(ink, 1.2));
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRectF(-1.8, -7, 3.6, 10));  // the pencil's body
        p.setBrush(ink);
        p.drawPolygon(QPolygonF({QPointF(-1.8, 3), QPointF(1.8, 3), QPointF(0, 6.5)}));
    }
    p.end();
    pixmap.setDevicePixelRatio(2);
    return QIcon(pixmap);
}

QIcon desktopToolbarIcon(const QString& key) {
    struct Themed {
        const char* key;
        const char* themeName;
        std::optional<QStyle::StandardPixmap> fallback;  // else the drawn icon
    };
    static const Themed kThemed[] = {
        {"exit", "application-exit", QStyle::SP_DialogCloseButton},
        {"new", "document-new", QStyle::SP_FileIcon},
        {"open", "document-open", QStyle::SP_DialogOpenButton},
        {"save", "document-save", QStyle::SP_DialogSaveButton},
        {"paste", "edit-paste", std::nullopt},
        {"delete", "edit-delete", std::nullopt},
    };
    for (const Themed& themed : kThemed) {
        if (key != themed.key) continue;
        if (QIcon icon = QIcon::fromTheme(themed.themeName); !icon.isNull()) return icon;
        return themed.fallback ? QApplication::style()->standardIcon(*themed.fallback) : QIcon();
    }
    return {};
}

}  // namespace rakeyard::ui
