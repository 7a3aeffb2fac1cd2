#include "core/consist/recent_consists.h"

#include "core/platform/paths.h"

namespace rakeyard {

void addToLastMenu(RecentConsists& recent, const std::string& consistToLoad) {
    const std::string name = lastPathPart(consistToLoad);
    for (const std::string& shown : recent.names) {
        if (shown == name) return;
    }
    if (!recent.full) {
        for (std::size_t i = 0; i < recent.names.size(); ++i) {
            if (!recent.names[i].empty()) continue;
            if (i == 0) recent.separatorVisible = true;
            recent.names[i] = name;
            break;
        }
        if (!recent.names[3].empty()) {
            // The add below makes it 1: the next name replaces the oldest.
            recent.full = true;
            recent.nextSlot = 0;
        }
    } else {
        if (recent.nextSlot > 4) recent.nextSlot = 1;
        recent.names[static_cast<std::size_t>(recent.nextSlot - 1)] = name;
    }
    ++recent.nextSlot;
}

}  // namespace rakeyard
