#pragma once
#include <QString>
#include <QTreeView>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/msts/unit_list.h"

namespace rakeyard::ui {

class UnitListModel;
class UnitListProxy;

// One row of a unit list: its columns' texts as the record holds them (name, couplers, power or
// type, file, folder) and its list line. The view makes its display texts of them as rows are
// drawn, so that thousands of rows are not all converted at once.
struct UnitListEntry {
    static constexpr int kColumns = 5;
    std::string columns[kColumns];
    std::string line;
};

// The rows of a catalogue under its filter (unitListRows), made ready to show. Only texts are
// made, so it runs on any thread.
[[nodiscard]] std::vector<UnitListEntry> unitListEntries(std::span<const UnitRecord> records,
                                                         UnitClass which,
                                                         std::string_view filter);

// The engine or wagon list: a unit a row, in columns (name, couplers, power or type, file,
// folder), sorted as the list lines sort until a click on a column's header sorts by that
// column, and narrowed by a search. Each row keeps its list line, which the handlers and the
// core take as they always did; rows are counted as shown.
class UnitListView : public QTreeView {
    Q_OBJECT
public:
    UnitListView(UnitClass which, QWidget* parent = nullptr);

    // Shows the rows given (from unitListEntries).
    void setEntries(std::vector<UnitListEntry> entries);
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

// Fills the engine and the wagon list with the catalogues under their filters, the two lists'
// rows made side by side.
void showCatalogueLists(UnitListView& engineList, UnitListView& wagonList,
                        const UnitCatalogue& catalogue, const PathGlobals& paths);

}  // namespace rakeyard::ui
