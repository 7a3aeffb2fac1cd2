#pragma once
#include <QAbstractListModel>
#include <QTableView>
#include <string>
#include <vector>

namespace rakeyard::ui {

// A list view over a growing list of texts that the core keeps (the tester's logs hold hundreds
// of thousands of rows): sync() shows the rows added since the last call in one batch, with the
// newest row selected and in sight. No widget item is made per row. A one-column table of fixed
// row height: rows added cost no layout of the rows before them, as they would in a list view.
class LogList : public QTableView {
    Q_OBJECT
public:
    LogList(const std::vector<std::string>& rows, QWidget* parent = nullptr);
    void sync();
    int count() const;

private:
    class Model;
    Model* model_;
};

}  // namespace rakeyard::ui
