#pragma once
#include <QString>

#include "ui/widgets/path_chooser.h"

class QLabel;

namespace rakeyard::ui {

// The frame of the three windows that choose a file for a folder alias: the folder and file
// boxes opened on Trainset, lblPath with the reference as the alias will write it, Label3 with
// the full path, OK and "&Cancel". OK keeps the chosen path for chosen(); Cancel empties it.
class AliasFileWindow : public PathWindow {
    Q_OBJECT
public:
    QLabel* lblPath;
    QLabel* Label3;
    // The file chosen with OK; empty after Cancel.
    const QString& chosen() const { return chosen_; }

protected:
    AliasFileWindow(const PathWindowLook& look, AppState& state, Services& services,
                    QWidget* parent);

private:
    void showPath();
    void Command1_Click() override;
    void Command2_Click() override;
    QString chosen_;
};

// The look shared by the three windows; each gives its name, caption, prompt and pattern.
PathWindowLook aliasFileLook(const QString& objectName, const QString& title, const QString& prompt,
                             const QString& note, const QString& pattern);

}  // namespace rakeyard::ui
