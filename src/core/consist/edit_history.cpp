#include "core/consist/edit_history.h"

#include "core/consist/image_keys.h"

namespace rakeyard {

namespace {

using Snapshot = EditHistory::Snapshot;

Snapshot snapshotOf(const ConsistState& state) {
    Snapshot snapshot;
    snapshot.slots.assign(state.slots.begin(), state.slots.begin() + kUsedSlots);
    // Marks stay: a unit marked for deletion has lost its own picture key ("DEL"), and an undone
    // delete brings it back as it stood, marked.
    for (ConsistSlot& slot : snapshot.slots)
        slot.imageKey = unselectedKey(slot.imageKey);
    snapshot.header = state.header;
    snapshot.totals = state.totals;
    snapshot.calculatedMaxVelocity = state.calculatedMaxVelocity;
    snapshot.currentPage = state.currentPage;
    snapshot.consistChanged = state.consistChanged;
    return snapshot;
}

// The same units in the same order with the same fields, whatever is selected or marked: a
// mark is no edit of its own.
bool sameConsist(const Snapshot& a, const Snapshot& b) {
    if (!(a.header == b.header)) return false;
    for (std::size_t i = 0; i < a.slots.size(); ++i) {
        const ConsistSlot& x = a.slots[i];
        const ConsistSlot& y = b.slots[i];
        if (x.fileName != y.fileName || x.folderPath != y.folderPath ||
            x.displayName != y.displayName || x.uid != y.uid || x.flipped != y.flipped ||
            x.position != y.position ||
            (x.imageKey != y.imageKey && x.imageKey != "DEL" && y.imageKey != "DEL"))
            return false;
    }
    return true;
}

void restore(ConsistState& state, const Snapshot& snapshot) {
    std::copy(snapshot.slots.begin(), snapshot.slots.end(), state.slots.begin());
    state.header = snapshot.header;
    state.totals = snapshot.totals;
    state.calculatedMaxVelocity = snapshot.calculatedMaxVelocity;
    state.currentPage = snapshot.currentPage;
    state.savedPage = snapshot.currentPage;
    state.consistChanged = snapshot.consistChanged;
    state.selectionActive = false;
    state.selectionBuffer.assign(1, ConsistSlot{});
    state.pendingWarning.clear();
}

}  // namespace

void EditHistory::begin(std::string_view label, const ConsistState& state) {
    pending_ = {std::string(label), snapshotOf(state)};
    open_ = true;
}

void EditHistory::commit(const ConsistState& state, bool merge) {
    if (!open_) return;
    open_ = false;
    if (sameConsist(pending_.before, snapshotOf(state))) return;
    redo_.clear();
    if (merge && !undo_.empty() && undo_.back().label == pending_.label) return;
    undo_.push_back(std::move(pending_));
    if (undo_.size() > kSteps) undo_.pop_front();
}

void EditHistory::clear() {
    undo_.clear();
    redo_.clear();
    open_ = false;
}

std::string EditHistory::undoLabel() const {
    return undo_.empty() ? std::string() : undo_.back().label;
}

std::string EditHistory::redoLabel() const {
    return redo_.empty() ? std::string() : redo_.back().label;
}

bool EditHistory::undo(ConsistState& state) {
    if (undo_.empty()) return false;
    redo_.push_back({undo_.back().label, snapshotOf(state)});
    restore(state, undo_.back().before);
    undo_.pop_back();
    return true;
}

bool EditHistory::redo(ConsistState& state) {
    if (redo_.empty()) return false;
    undo_.push_back({redo_.back().label, snapshotOf(state)});
    restore(state, redo_.back().before);
    redo_.pop_back();
    return true;
}

}  // namespace rakeyard
