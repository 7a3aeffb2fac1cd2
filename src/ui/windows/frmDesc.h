#pragma once
#include <QDialog>
#include <array>
#include <string>

#include "core/app/app_state.h"
#include "core/platform/services.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QSlider;

namespace rakeyard::ui {

class UnitListView;

// "Description of this unit": the picture, description and figures of the unit selected in the
// engine or wagon list of the main window. Opens free, beside the main window.
class frmDesc : public QDialog {
    Q_OBJECT
public:
    frmDesc(AppState& state, Services& services, UnitListView* locList, UnitListView* wagList,
            QWidget* parent = nullptr);

    // Which list the window follows: "locList" or "wagList".
    void setActiveList(const QString& name) { activeList_ = name; }
    const QString& activeList() const { return activeList_; }
    // Shows the unit of the active list's selected row; nothing when no row is selected.
    void showPicOnScreen();

    QPlainTextEdit* Text1;
    QLabel* Image1;  // the unit's picture
    QLabel* Image2;  // shown instead when the unit has none
    QSlider* sliderV;
    QSlider* SliderH;
    std::array<QPushButton*, 2> Command1{};  // up, down

protected:
    void done(int result) override;

private:
    void Command1_Click(int index);
    void sizePicture();
    UnitListView* list() const;

    AppState& state_;
    Services& services_;
    UnitListView* locList_;
    UnitListView* wagList_;
    QString activeList_ = "locList";
    QPixmap picture_;
};

}  // namespace rakeyard::ui
