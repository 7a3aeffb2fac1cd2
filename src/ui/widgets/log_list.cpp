#include "ui/widgets/log_list.h"

#include <QHeaderView>

namespace rakeyard::ui {

class LogList::Model : public QAbstractListModel {
public:
    Model(const std::vector<std::string>& rows, QObject* parent)
        : QAbstractListModel(parent), rows_(rows) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : shown_;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || !index.isValid() || index.row() >= shown_) return {};
        return QString::fromStdString(rows_[static_cast<std::size_t>(index.row())]);
    }
    // True when rows were added.
    bool sync() {
        const int now = static_cast<int>(rows_.size());
        if (now < shown_) {  // emptied, and maybe filled again since
            beginResetModel();
            shown_ = now;
            endResetModel();
            return now > 0;
        }
        if (now == shown_) return false;
        beginInsertRows({}, shown_, now - 1);
        shown_ = now;
        endInsertRows();
        return true;
    }

private:
    const std::vector<std::string>& rows_;
    int shown_ = 0;
};

LogList::LogList(const std::vector<std::string>& rows, QWidget* parent)
    : QTableView(parent), model_(new Model(rows, this)) {
    setModel(model_);
    horizontalHeader()->hide();
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height());
    setShowGrid(false);
    setWordWrap(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
}

void LogList::sync() {
    if (!model_->sync() || model_->rowCount() == 0) return;
    const QModelIndex newest = model_->index(model_->rowCount() - 1);
    setCurrentIndex(newest);
    scrollTo(newest);
}

int LogList::count() const {
    return model_->rowCount();
}

}  // namespace rakeyard::ui
