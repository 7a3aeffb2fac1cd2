#pragma once
// The tree of what a route's activities and services need: plain data that the window shows and
// the CLI prints.
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace rakeyard {

// The six kinds of node below the root, in the order of the legend's pictures.
enum class DependencyKind {
    Root,
    Route,
    ServiceConsist,  // "Normal consist related with a service"
    LooseConsist,    // "Loose consist inside an activity"
    MissingUnit,     // "Missing engine or wagon"
    PresentUnit,     // "Engine or wagon used on a consist"
    MissingConsist,  // "Missing consist"
};

// The kind's word in the CLI's JSON: "root", "route", "consist", "loose", "missingUnit",
// "unit", "missingConsist".
[[nodiscard]] std::string_view kindName(DependencyKind kind);

struct DependencyNode {
    DependencyKind kind = DependencyKind::Root;
    std::string text;
    std::string key;         // empty for a unit
    std::size_t parent = 0;  // the root is its own parent
    std::vector<std::size_t> children;
    bool revealed = false;  // made visible: every node above it is to be open
};

// Nodes in the order they were added; node 0 is the root. A node may hold a key, by which later
// nodes name it as their parent; no two nodes hold one key.
class DependencyTree {
public:
    static constexpr std::size_t kRefused = static_cast<std::size_t>(-1);

    void clear();
    // Adds the root, holding key, replacing whatever the tree held.
    void addRoot(std::string key, std::string text);
    // Adds a node under the node holding parentKey; it holds key unless key is empty. Refused
    // (kRefused) when another node holds key already, or none holds parentKey.
    std::size_t add(std::string_view parentKey, std::string key, DependencyKind kind,
                    std::string text);
    // Marks the node visible; nothing for kRefused.
    void reveal(std::size_t node);

    [[nodiscard]] const std::vector<DependencyNode>& nodes() const { return nodes_; }
    [[nodiscard]] bool empty() const { return nodes_.empty(); }
    [[nodiscard]] std::size_t size() const { return nodes_.size(); }
    [[nodiscard]] const DependencyNode& operator[](std::size_t i) const { return nodes_[i]; }

private:
    std::vector<DependencyNode> nodes_;
    std::unordered_map<std::string, std::size_t> keys_;
};

// The tree as text, a node a line below its parent, indented by two blanks a level; a missing
// unit or consist is marked "  [missing]", a loose consist "  [loose consist]".
[[nodiscard]] std::vector<std::string> indentedLines(const DependencyTree& tree);

}  // namespace rakeyard
