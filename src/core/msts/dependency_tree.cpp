#include "core/msts/dependency_tree.h"

namespace rakeyard {

std::string_view kindName(DependencyKind kind) {
    switch (kind) {
        case DependencyKind::Root:
            return "root";
        case DependencyKind::Route:
            return "route";
        case DependencyKind::ServiceConsist:
            return "consist";
        case DependencyKind::LooseConsist:
            return "loose";
        case DependencyKind::MissingUnit:
            return "missingUnit";
        case DependencyKind::PresentUnit:
            return "unit";
        case DependencyKind::MissingConsist:
            return "missingConsist";
    }
    return "";
}

void DependencyTree::clear() {
    nodes_.clear();
    keys_.clear();
}

void DependencyTree::addRoot(std::string key, std::string text) {
    clear();
    keys_.emplace(key, 0);
    nodes_.push_back(
        DependencyNode{DependencyKind::Root, std::move(text), std::move(key), 0, {}, false});
}

std::size_t DependencyTree::add(std::string_view parentKey, std::string key, DependencyKind kind,
                                std::string text) {
    const auto parent = keys_.find(std::string(parentKey));
    if (parent == keys_.end()) return kRefused;
    const std::size_t index = nodes_.size();
    if (!key.empty() && !keys_.emplace(key, index).second) return kRefused;
    nodes_.push_back(
        DependencyNode{kind, std::move(text), std::move(key), parent->second, {}, false});
    nodes_[parent->second].children.push_back(index);
    return index;
}

void DependencyTree::reveal(std::size_t node) {
    if (node < nodes_.size()) nodes_[node].revealed = true;
}

namespace {

void addLines(const DependencyTree& tree, std::size_t node, std::size_t depth,
              std::vector<std::string>& lines) {
    const DependencyNode& n = tree[node];
    std::string line(2 * depth, ' ');
    line += n.text;
    if (n.kind == DependencyKind::MissingUnit || n.kind == DependencyKind::MissingConsist)
        line += "  [missing]";
    if (n.kind == DependencyKind::LooseConsist) line += "  [loose consist]";
    lines.push_back(std::move(line));
    for (std::size_t child : n.children)
        addLines(tree, child, depth + 1, lines);
}

}  // namespace

std::vector<std::string> indentedLines(const DependencyTree& tree) {
    std::vector<std::string> lines;
    if (!tree.empty()) addLines(tree, 0, 0, lines);
    return lines;
}

}  // namespace rakeyard
