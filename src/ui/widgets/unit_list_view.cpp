#include "ui/widgets/unit_list_view.h"

#include <QCollator>
#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <future>
#include <system_error>

#include "core/msts/unit_search.h"

namespace rakeyard::ui {

namespace {

enum Column { kName, kCouplers, kKind, kFile, kFolder, kColumnCount };
static_assert(kColumnCount == UnitListEntry::kColumns);
constexpr int kLineRole = Qt::UserRole + 1;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

}  // namespace

class UnitListModel : public QAbstractTableModel {
public:
    using Row = UnitListEntry;

    UnitListModel(UnitClass which, QObject* parent) : QAbstractTableModel(parent), which_(which) {}

    void setRows(std::vector<Row> rows) {
        beginResetModel();
        rows_ = std::move(rows);
        endResetModel();
    }
    const Row& row(int index) const { return rows_[static_cast<std::size_t>(index)]; }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : kColumnCount;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid()) return {};
        const Row& r = row(index.row());
        if (role == Qt::DisplayRole) return text(r.columns[index.column()]);
        if (role == kLineRole) return text(r.line);
        if (role == Qt::ToolTipRole)
            return text(r.columns[kName] + "\n" + r.columns[kFolder] + "/" + r.columns[kFile]);
        return {};
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
        switch (section) {
            case kName: return "Name";
            case kCouplers: return "Couplers";
            case kKind: return which_ == UnitClass::Engine ? "Power" : "Type";
            case kFile: return "File";
            case kFolder: return "Folder";
            default: return {};
        }
    }

private:
    UnitClass which_;
    std::vector<Row> rows_;
};

// Narrows the rows to a search, and sorts a column by its text as a person reads it: letter
// case aside, numbers by their value ("900kW" before "2000kW").
class UnitListProxy : public QSortFilterProxyModel {
public:
    explicit UnitListProxy(QObject* parent) : QSortFilterProxyModel(parent) {
        collator_.setNumericMode(true);
        collator_.setCaseSensitivity(Qt::CaseInsensitive);
    }
    void setSearch(UnitSearch search) {
        search_ = std::move(search);
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex&) const override {
        if (search_.empty()) return true;
        const auto& row = static_cast<const UnitListModel*>(sourceModel())->row(sourceRow);
        return search_.matches(row.columns[kName], row.columns[kFile], row.columns[kFolder]);
    }
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override {
        const int order = collator_.compare(left.data().toString(), right.data().toString());
        // Equal texts keep the list lines' order.
        return order != 0 ? order < 0 : left.row() < right.row();
    }

private:
    UnitSearch search_;
    QCollator collator_;
};

UnitListView::UnitListView(UnitClass which, QWidget* parent)
    : QTreeView(parent),
      which_(which),
      model_(new UnitListModel(which, this)),
      proxy_(new UnitListProxy(this)) {
    proxy_->setSourceModel(model_);
    setModel(proxy_);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setExpandsOnDoubleClick(false);
    setSortingEnabled(true);
    sortAsLines();
    header()->setStretchLastSection(true);
    header()->setSectionResizeMode(QHeaderView::Interactive);
    header()->setSortIndicatorClearable(true);
    // Columns fit the first rows: measuring thousands of texts would hold the start back.
    header()->setResizeContentsPrecision(200);
    setMinimumHeight(60);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            &UnitListView::currentLineChanged);
    connect(header(), &QHeaderView::sectionResized, this, [this](int section) {
        if (section == kName) nameWidthChosen_ = true;
    });
}

std::vector<UnitListEntry> unitListEntries(std::span<const UnitRecord> records,
                                           UnitClass which, std::string_view filter) {
    const bool isEngine = which == UnitClass::Engine;
    std::vector<UnitListRow> rows = unitListRows(records, which, filter);
    std::vector<UnitListEntry> entries(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const UnitRecord& unit = records[rows[i].record];
        UnitListEntry& entry = entries[i];
        entry.columns[kName] = unit.displayName;
        entry.columns[kCouplers] = unit.couplerFront + unit.couplerRear;
        entry.columns[kKind] = isEngine ? unit.maxPower : unit.unitType;
        entry.columns[kFile] = unit.fileName;
        entry.columns[kFolder] = unit.folderName;
        entry.line = std::move(rows[i].line);
    }
    return entries;
}

void showCatalogueLists(UnitListView& engineList, UnitListView& wagonList,
                        const UnitCatalogue& catalogue, const PathGlobals& paths) {
    const auto engines = usedRecords(catalogue, UnitClass::Engine);
    const auto wagons = usedRecords(catalogue, UnitClass::Wagon);
    const auto engineEntries = [&] {
        return unitListEntries(engines, UnitClass::Engine, paths.engineFilter);
    };
    std::future<std::vector<UnitListEntry>> engineRows;
    try {
        engineRows = std::async(std::launch::async, engineEntries);
    } catch (const std::system_error&) {
        // No thread to spare: the engine rows are made after the wagon rows.
    }
    std::vector<UnitListEntry> wagonRows =
        unitListEntries(wagons, UnitClass::Wagon, paths.wagonFilter);
    engineList.setEntries(engineRows.valid() ? engineRows.get() : engineEntries());
    wagonList.setEntries(std::move(wagonRows));
}

void UnitListView::setEntries(std::vector<UnitListEntry> entries) {
    const bool any = !entries.empty();
    model_->setRows(std::move(entries));
    if (!columnsFitted_ && any) {
        columnsFitted_ = true;
        for (int column = kCouplers; column < kColumnCount; ++column)
            resizeColumnToContents(column);
        fitNameColumn();
    }
}

// Until the user sets its width, the name column takes half the list's width: names are what
// a user reads first, the file and folder stand beyond them.
void UnitListView::fitNameColumn() {
    if (nameWidthChosen_) return;
    const QSignalBlocker quiet(header());
    setColumnWidth(kName, std::max(140, viewport()->width() / 2));
}

void UnitListView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    fitNameColumn();
}

void UnitListView::setSearch(const QString& text) {
    proxy_->setSearch(UnitSearch(text.toStdString()));
}

int UnitListView::count() const {
    return proxy_->rowCount();
}

int UnitListView::totalCount() const {
    return model_->rowCount();
}

QString UnitListView::lineOfRow(int row) const {
    return proxy_->index(row, 0).data(kLineRole).toString();
}

QString UnitListView::currentLine() const {
    const QModelIndex current = currentIndex();
    if (!current.isValid() || !selectionModel()->isRowSelected(current.row(), current.parent()))
        return {};
    return current.siblingAtColumn(0).data(kLineRole).toString();
}

QString UnitListView::lineAt(const QPoint& viewportPoint) const {
    return indexAt(viewportPoint).siblingAtColumn(0).data(kLineRole).toString();
}

void UnitListView::setCurrentRow(int row) {
    setCurrentIndex(proxy_->index(row, 0));
}

QRect UnitListView::visualRowRect(int row) const {
    return visualRect(proxy_->index(row, 0));
}

void UnitListView::sortAsLines() {
    header()->setSortIndicator(-1, Qt::AscendingOrder);
    proxy_->sort(-1);
}

}  // namespace rakeyard::ui
