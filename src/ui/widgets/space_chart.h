#pragma once
#include <QString>
#include <QWidget>
#include <cstdint>
#include <vector>

namespace rakeyard::ui {

// A painted bar chart of disk space by kind of file, each bar with its name and megabytes.
class SpaceChart : public QWidget {
    Q_OBJECT
public:
    struct Bar {
        QString name;
        std::uint64_t bytes = 0;
        QColor colour;
    };
    explicit SpaceChart(QWidget* parent = nullptr);
    void setBars(std::vector<Bar> bars);
    const std::vector<Bar>& bars() const { return bars_; }
    QSize sizeHint() const override { return {420, 190}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<Bar> bars_;
};

}  // namespace rakeyard::ui
