#include "ui/widgets/dependency_model.h"

#include "ui/widgets/dependency_icons.h"

namespace rakeyard::ui {

void DependencyModel::setTree(const DependencyTree* tree) {
    beginResetModel();
    tree_ = tree && !tree->empty() ? tree : nullptr;
    rows_.assign(tree_ ? tree_->size() : 0, 0);
    if (tree_)
        for (const DependencyNode& node : tree_->nodes())
            for (std::size_t i = 0; i < node.children.size(); ++i)
                rows_[node.children[i]] = static_cast<int>(i);
    endResetModel();
}

std::size_t DependencyModel::nodeOf(const QModelIndex& index) const {
    if (!tree_ || !index.isValid()) return DependencyTree::kRefused;
    return static_cast<std::size_t>(index.internalId());
}

QModelIndex DependencyModel::indexOf(std::size_t node) const {
    if (!tree_ || node >= tree_->size()) return {};
    return createIndex(rows_[node], 0, static_cast<quintptr>(node));
}

QModelIndex DependencyModel::index(int row, int column, const QModelIndex& parent) const {
    if (!tree_ || column != 0 || row < 0) return {};
    if (!parent.isValid()) return row == 0 ? createIndex(0, 0, quintptr{0}) : QModelIndex();
    const DependencyNode& node = (*tree_)[nodeOf(parent)];
    if (static_cast<std::size_t>(row) >= node.children.size()) return {};
    return createIndex(row, 0, static_cast<quintptr>(node.children[static_cast<std::size_t>(row)]));
}

QModelIndex DependencyModel::parent(const QModelIndex& child) const {
    const std::size_t node = nodeOf(child);
    if (node == DependencyTree::kRefused || node == 0) return {};
    return indexOf((*tree_)[node].parent);
}

int DependencyModel::rowCount(const QModelIndex& parent) const {
    if (!tree_) return 0;
    if (!parent.isValid()) return 1;
    return static_cast<int>((*tree_)[nodeOf(parent)].children.size());
}

int DependencyModel::columnCount(const QModelIndex&) const {
    return 1;
}

QVariant DependencyModel::data(const QModelIndex& index, int role) const {
    const std::size_t node = nodeOf(index);
    if (node == DependencyTree::kRefused) return {};
    const DependencyNode& n = (*tree_)[node];
    if (role == Qt::DisplayRole) return QString::fromStdString(n.text);
    if (role == Qt::DecorationRole) return dependencyIcon(n.kind);
    return {};
}

}  // namespace rakeyard::ui
