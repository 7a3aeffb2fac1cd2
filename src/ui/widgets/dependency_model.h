#pragma once
#include <QAbstractItemModel>
#include <vector>

#include "core/msts/dependency_tree.h"

namespace rakeyard::ui {

// The dependency tree as a tree view shows it: one column, the node's text and its picture.
// The model reads the tree it is given and copies nothing, so that thousands of nodes are shown
// at once; setTree is called again whenever the tree has changed.
class DependencyModel : public QAbstractItemModel {
    Q_OBJECT
public:
    using QAbstractItemModel::QAbstractItemModel;

    // Shows tree, which must outlive the model or the next setTree; nullptr shows nothing.
    void setTree(const DependencyTree* tree);
    // The node an index stands for; DependencyTree::kRefused for none.
    std::size_t nodeOf(const QModelIndex& index) const;
    QModelIndex indexOf(std::size_t node) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const DependencyTree* tree_ = nullptr;
    std::vector<int> rows_;  // each node's row under its parent
};

}  // namespace rakeyard::ui
