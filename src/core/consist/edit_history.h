#pragma once
#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "core/consist/consist_state.h"

namespace rakeyard {

// Undo and redo of the edits of the consist under edit. An edit is wrapped in begin and commit:
// begin keeps the consist as it stands, commit files it under its label when the units or the
// header changed (a selection or a page turn is no edit). Loading, New and the like clear it.
class EditHistory {
public:
    static constexpr std::size_t kSteps = 100;

    void begin(std::string_view label, const ConsistState& state);
    // With merge, an edit of the same label as the last one joins it (typing into one box).
    void commit(const ConsistState& state, bool merge = false);
    void clear();

    [[nodiscard]] bool canUndo() const { return !undo_.empty(); }
    [[nodiscard]] bool canRedo() const { return !redo_.empty(); }
    // "Delete units": what undo or redo would take back or do again; "" when nothing.
    [[nodiscard]] std::string undoLabel() const;
    [[nodiscard]] std::string redoLabel() const;

    // Puts the consist back as it was before the last edit (or after the last undone one). The
    // selection is dropped and the strip must be drawn again; false when there is nothing.
    [[nodiscard]] bool undo(ConsistState& state);
    [[nodiscard]] bool redo(ConsistState& state);

    // The parts of the consist an edit changes, with the units unselected.
    struct Snapshot {
        std::vector<ConsistSlot> slots;
        ConsistHeader header;
        ConsistTotals totals;
        std::string calculatedMaxVelocity;
        int currentPage = 0;
        bool consistChanged = false;
    };

private:
    struct Step {
        std::string label;
        Snapshot before;
    };

    std::deque<Step> undo_;
    std::deque<Step> redo_;
    Step pending_;
    bool open_ = false;
};

}  // namespace rakeyard
