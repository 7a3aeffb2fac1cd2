#pragma once
#include <QWidget>

#include "core/app/start_up.h"

namespace rakeyard::ui {

// The windows start-up shows, blocking, in front of the main window (once it is shown).
class QtStartUpWindows : public StartUpWindows {
public:
    QtStartUpWindows(QWidget& main, AppState& state, Services& services)
        : main_(main), state_(state), services_(services) {}
    bool showPathWindow() override;
    void showDefaultEditorWindow() override;
    void showViewerOptionWindow() override;
    void showScreenshotsWindow() override;
    void setViewerButton(bool enabled, std::string_view toolTip) override;

private:
    QWidget& main_;
    AppState& state_;
    Services& services_;
};

}  // namespace rakeyard::ui
