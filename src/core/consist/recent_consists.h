#pragma once
#include <array>
#include <string>

namespace rakeyard {

// The four recent-consist menu entries: a ring that replaces the oldest name. It lives for one
// run and is not stored.
struct RecentConsists {
    std::array<std::string, 4> names;  // mnuEmpty(1..4); "" is a hidden entry
    int nextSlot = 1;                  // 1..4
    bool full = false;
    bool separatorVisible = false;  // mnuDummy3
};

// Adds the file name of consistToLoad (the part behind its last "\" or "/") unless it is there.
void addToLastMenu(RecentConsists& recent, const std::string& consistToLoad);

}  // namespace rakeyard
