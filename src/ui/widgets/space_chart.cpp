#include "ui/widgets/space_chart.h"

#include <QPainter>
#include <algorithm>

#include "core/tools/allocated_space.h"

namespace rakeyard::ui {

SpaceChart::SpaceChart(QWidget* parent) : QWidget(parent) {
    setMinimumSize(320, 150);
}

void SpaceChart::setBars(std::vector<Bar> bars) {
    bars_ = std::move(bars);
    update();
}

void SpaceChart::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().base());
    if (bars_.empty()) return;
    const QFontMetrics metrics = painter.fontMetrics();
    int nameWidth = 0;
    for (const Bar& bar : bars_)
        nameWidth = std::max(nameWidth, metrics.horizontalAdvance(bar.name));
    const int valueWidth = metrics.horizontalAdvance("000,000.00 MB") + 8;
    const std::uint64_t largest =
        std::max_element(bars_.begin(), bars_.end(), [](const Bar& a, const Bar& b) {
            return a.bytes < b.bytes;
        })->bytes;
    const int margin = 8;
    const int rowHeight = (height() - 2 * margin) / static_cast<int>(bars_.size());
    const int barLeft = margin + nameWidth + 8;
    const int barSpan = std::max(10, width() - barLeft - valueWidth - margin);
    for (std::size_t i = 0; i < bars_.size(); ++i) {
        const Bar& bar = bars_[i];
        const int top = margin + static_cast<int>(i) * rowHeight;
        painter.setPen(palette().text().color());
        painter.drawText(QRect(margin, top, nameWidth, rowHeight), Qt::AlignVCenter | Qt::AlignLeft,
                         bar.name);
        const int length =
            largest == 0 ? 0 : static_cast<int>(double(bar.bytes) / double(largest) * barSpan);
        const QRect barRect(barLeft, top + rowHeight / 5, std::max(length, 1), rowHeight * 3 / 5);
        painter.fillRect(barRect, bar.colour);
        painter.drawText(QRect(barLeft + length + 6, top, valueWidth, rowHeight),
                         Qt::AlignVCenter | Qt::AlignLeft,
                         QString::fromStdString(megabytesText(bar.bytes)) + " MB");
    }
}

}  // namespace rakeyard::ui
