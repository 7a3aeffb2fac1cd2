#pragma once
#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <functional>
#include <string_view>

#include "core/platform/desktop.h"
#include "core/platform/dialogs.h"
#include "core/platform/progress.h"
#include "ui/windows/frmDebug.h"

class QLabel;
class QProgressBar;
class QWidget;

namespace rakeyard::ui {

// The program's name as message boxes and the About window show it.
inline constexpr const char* kAppTitle = "Rakeyard";

// UTF-8 std::string to QString and back.
inline QString qs(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
std::string stdString(const QString& text);

// Message boxes: the icon and buttons the core asks for, the title it gives or the program's.
class QtDialogs : public Dialogs {
public:
    // parentOf returns the window a box belongs to (may return nullptr).
    explicit QtDialogs(std::function<QWidget*()> parentOf = {}) : parentOf_(std::move(parentOf)) {}
    void report(std::string_view text, Icon icon, std::string_view title = {}) override;
    Answer ask(std::string_view text, Buttons buttons, Icon icon, Answer safeAnswer,
               std::string_view title = {}) override;

private:
    QWidget* parent() const;
    std::function<QWidget*()> parentOf_;
};

// Long work's progress on whichever bar and label are attached (frmSplash's, frmWait's), and
// the three labels of frmDebug when the core asks for them. step() lets pending events run.
class QtProgress : public Progress {
public:
    void start(std::string_view label, int maximum) override;
    void step() override;
    void showDebug(bool visible) override;
    void debugText(int label, std::string_view text) override;

    // Where start() and step() show themselves; either may be null.
    void attach(QProgressBar* bar, QLabel* label);
    void detach() { attach(nullptr, nullptr); }
    // frmDebug is made on the first showDebug(true) and kept until closed.
    frmDebug* debugWindow() const { return debug_; }

private:
    void pumpEvents(bool force);
    QPointer<QProgressBar> bar_;
    QPointer<QLabel> label_;
    QPointer<frmDebug> debug_;
    QElapsedTimer sincePump_;
    int value_ = 0;
};

// The recycle bin, outside programs and the browser through Qt.
class QtDesktop : public Desktop {
public:
    bool moveToTrash(const std::string& path) override;
    bool startProgram(const std::string& program,
                      const std::vector<std::string>& arguments) override;
    void openUrl(std::string_view url) override;
};

}  // namespace rakeyard::ui
