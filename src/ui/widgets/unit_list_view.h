#pragma once
#include <QTreeView>
#include <span>
#include <vector>

#include "core/msts/unit_list.h"

namespace rakeyard::ui {

class UnitListModel;
class UnitListProxy;

// The engine or wagon list: a unit a row, in columns (name, couplers, power or type, file,
// folder), sorted as the list lines sort until a click on a column's header sorts by that
// column, and narrowed by a search. Each row keeps its list line, which the handlers and the
// core take as they always did; rows are counted as shown.
class UnitListView : public QTreeView {
    Q_OBJECT
public:
    UnitListView(UnitClass which, QWidget* parent = nullptr);

    // Shows rows (from unitListRows) of records; the texts are copied, the records not kept.
    void setRows(std::span<const UnitRecord> records, const std::vector<UnitListRow>& rows);
    // Shows only the rows whose unit matches the words of text (UnitSearch).
    void setSearch(const QString& text);

    int count() const;       // rows shown
    int totalCount() const;  // rows under the filter, whatever the search
    QString lineOfRow(int row) const;
    QString currentLine() const;
    QString lineAt(const QPoint& viewportPoint) const;
    void setCurrentRow(int row);
    QRect visualRowRect(int row) const;
    // Goes back to the list lines' order, as before any click on a header.
    void sortAsLines();

Q_SIGNALS:
    void currentLineChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitNameColumn();
    bool columnsFitted_ = false;
    bool nameWidthChosen_ = false;
    UnitClass which_;
    UnitListModel* model_;
    UnitListProxy* proxy_;
};

}  // namespace rakeyard::ui
