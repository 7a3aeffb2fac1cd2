#pragma once
#include <string_view>

namespace rakeyard {

// Long work calls step() once per file or folder. The window program lets pending events run
// there, so a Stop press may change the caller's state before step() returns.
class Progress {
public:
    virtual ~Progress() = default;
    virtual void start(std::string_view label, int maximum) = 0;
    virtual void step() = 0;
    // The debug window: shown or hidden, and its three value labels (1 file, 2 folder, 3 pass).
    virtual void showDebug(bool /*visible*/) {}
    virtual void debugText(int /*label*/, std::string_view /*text*/) {}
};

// Progress that shows nothing.
class NoProgress : public Progress {
public:
    void start(std::string_view, int) override {}
    void step() override {}
};

}  // namespace rakeyard
