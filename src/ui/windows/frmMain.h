#pragma once
#include <QMainWindow>
#include <QPointer>
#include <array>
#include <functional>
#include <string_view>

#include "core/app/app_state.h"
#include "core/platform/services.h"
#include "core/tools/random_consist.h"

class QAction;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QTimer;
class QToolBar;
class QToolButton;

namespace rakeyard::ui {

class SlotPicture;
class UnitListView;
class QtStartUpWindows;
class frmDesc;
class frmPreview;

// The main window: the two catalogue lists, the consist strip of six slots with its header
// boxes and totals, the menus and the toolbar.
//
// Object names: every control is named as the control it is (`locList`, `lblWeight`); an
// element of a control array carries its index after an underscore (`Text1_3`, `Picture1_0`,
// `mnuEmpty_1`). Menus are QMenu objects and menu entries QAction objects of the same name
// (`mnuConsists`, `mnuLoad`). Toolbar buttons are QActions named "tbr_" and the button's key
// (`tbr_save`, `tbr_3dview`); the filter drop-down is the QToolButton `tbr_filter`, whose menu
// items are named "tbr_filter_" and the item's key (`tbr_filter_steam`).
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    frmMain(AppState& state, Services& services, QWidget* parent = nullptr);
    ~frmMain() override;

    // Places the window from the settings record: left, top and height in twips, the width
    // always 10365 twips.
    void placeFromSettings();
    // Shows the state of the consist: slots, header boxes, totals, arrows, the recent entries.
    void refreshPics();
    // Both lists from the catalogues under the stored filters, with the filter menus checked.
    void showUnitLists();
    // Checks mnuShowPic when the settings record holds "on" for the description window.
    void showStoredOptions();
    // Shows or hides cmdStartErrors by whether Reports/StartErrors.txt exists.
    void showStartErrorsButton();
    // The blocking windows start-up may need, parented to this window.
    QtStartUpWindows& startUpWindows() { return *startUpWindows_; }
    // Loads consistToLoad as the command line asked (clears nothing first).
    void loadConsistFromCommandLine(const std::string& path);

    // Menus.
    QMenu *mnuConsists, *mnuUnits, *mnuEdit, *mnuTests, *mnuView, *mnuSelType, *mnuShowLoc,
        *mnuShowWag, *mnuMisc, *mnuOptions, *mnuHelp;
    QAction *mnuLoad, *mnuSave, *mnuSaveAs, *mnuNew, *mnuDummy1, *mnuExit, *mnuDummy3;
    QAction *mnuUndo, *mnuRedo;
    std::array<QAction*, 4> mnuEmpty{};  // mnuEmpty(1..4) at indices 0..3
    QAction *mnuRenumber, *mnuAdd, *mnuDummy2, *mnuInsert, *mnuDelete;
    QAction *mnuEditUnit, *mnuEditFile, *mnuLoose;
    QAction *mnuMissing, *mnuActivities, *mnuUnicode;
    QAction *mnuPreview, *mnu3D, *mnuPicture, *mnuConsUse, *mnuActsUse;
    QAction *mnuSteam, *mnuDiesel, *mnuElectric, *mnuLocAI, *mnuLocAll;
    QAction *mnuFreight, *mnuCarriages, *mnuTenders, *mnuWagAll;
    QAction *mnuAliasing, *mnuMaxvel, *mnuAllocated, *mnuBigones;
    QAction *mnuMSTSpath, *mnuEditor, *mnu3Dviewer, *mnuScreenshots, *mnuShowPic;
    QAction *mnuHelpFile, *mnuAbout;

    // Toolbar.
    QToolBar* Toolbar1;
    QToolButton* tbrFilter;

    // Catalogue lists, each with a search box above it.
    UnitListView* locList;
    UnitListView* wagList;
    QLineEdit* txtLocSearch;
    QLineEdit* txtWagSearch;
    QLabel* Label3;        // number of engines shown
    QLabel* Label4;        // number of wagons shown
    QLabel* lblLocFilter;  // the filter in force: "Diesel - 12 of 25"
    QLabel* lblWagFilter;
    QPushButton* Command1;
    QPushButton* Command2;
    QPushButton* Image3;  // edits the engine selected in locList
    QPushButton* Image4;  // edits the wagon selected in wagList

    // Consist strip.
    std::array<SlotPicture*, 6> Picture1{};
    std::array<QLineEdit*, 6> Text1{};
    std::array<QLabel*, 6> Label1{};
    QLabel* imgLeft;
    QLabel* imgRight;
    std::array<QPushButton*, 2> cmdShift{};
    std::array<QPushButton*, 2> cmdMove{};
    QPushButton* cmdHome;
    QPushButton* cmdEnd;
    QLabel* Label2;  // the blinking warning
    std::array<QLineEdit*, 5> Text2{};
    QLabel *lblLenght, *lblFeet, *lblWeight, *lblImpTon, *lblWagons;
    QPushButton* cmdStartErrors;
    QLabel* StatusBar1;  // the status bar's first panel
    QTimer *Timer1, *Timer2, *Timer3;

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Building (frmMain_menus.cpp, frmMain_layout.cpp).
    void buildMenus();
    void connectMenus();
    void buildToolbar();
    void useDesktopIcons();
    void buildLayout();
    QWidget* buildListsRow();
    QWidget* buildStrip();
    QWidget* buildHeaderRow();
    void connectHandlers();
    void enableBuiltEntries();

    // Menu and toolbar handlers.
    void mnuLoad_Click();
    void mnuSave_Click();
    void mnuUndo_Click();
    void mnuRedo_Click();
    // Runs an edit of the consist so that it can be undone, then draws the strip.
    void edit(std::string_view label, const std::function<void()>& action, bool merge = false);
    void showUndoEntries();
    void mnuSaveAs_Click();
    void mnuNew_Click();
    void mnuExit_Click();
    void mnuEmpty_Click(int index);
    void mnuRenumber_Click();
    void mnuAdd_Click();
    void mnuInsert_Click();
    void mnuDelete_Click();
    void mnuUnicode_Click();
    void mnuMissing_Click();
    void mnuActivities_Click();
    void mnu3D_Click();
    void editUnit(bool isEngine);
    void mnuAliasing_Click();
    // The tools' windows (frmMain_tools.cpp).
    void mnuMaxvel_Click();
    void tbrRandom_Click();
    void mnuBigones_Click();
    void mnuAllocated_Click();
    void mnuPicture_Click();
    void mnuPreview_Click();
    void mnuConsUse_Click();
    void mnuActsUse_Click();
    void mnuLoose_Click();
    void mnuEditUnit_Click();
    // Opens the description window (free) following the list named, "locList" or "wagList".
    void showDescription(const QString& list);
    // The description window, when it is open, follows a click in a catalogue list.
    void followInDescription(const QString& list);
    void mnuSteam_Click();
    void mnuDiesel_Click();
    void mnuElectric_Click();
    void mnuLocAI_Click();
    void mnuLocAll_Click();
    void mnuFreight_Click();
    void mnuCarriages_Click();
    void mnuTenders_Click();
    void mnuWagAll_Click();
    void mnuMSTSpath_Click();
    void mnuEditor_Click();
    void mnu3Dviewer_Click();
    void mnuScreenshots_Click();
    void mnuShowPic_Click();
    void mnuHelpFile_Click();
    void mnuAbout_Click();
    void tbrFilter_ButtonMenuClick(QAction* item);

    // Lists.
    void locList_Click();
    void wagList_Click();
    void locList_DblClick();
    void wagList_DblClick();
    void locList_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift,
                           const QString& line);
    void wagList_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift,
                           const QString& line);
    void locList_KeyDown(QKeyEvent* key);
    void wagList_KeyDown(QKeyEvent* key);
    void Command1_Click();
    void Command2_Click();

    // Strip and boxes.
    void Picture1_MouseDown(int index, SlotButton button, int shift);
    // The window's title from the consist's file and its unsaved changes.
    void showTitle();
    void Picture1_Click(int index);
    void Picture1_DblClick(int index);
    void Picture1_FocusStep(int index, int step);
    void Text1_Change(int index);
    void Text2_Change(int index);
    void cmdShift_Click(int index);
    void cmdMove_Click(int index);
    void cmdHome_Click();
    void cmdEnd_Click();
    void cmdStartErrors_Click();
    void cmdStartErrors_MouseDown();
    void Timer1_Timer();
    void Timer2_Timer();
    void Timer3_Timer();

    // Shared steps of the handlers.
    void setEngineFilter(const char* word);
    void setWagonFilter(const char* word);
    void showPendingWarning();
    void showTotals();
    void showRecentEntries();
    void showHeaderBoxes();
    void showListCounts();
    bool searchBoxKey(QLineEdit* box, UnitListView* list, QKeyEvent* key);
    void deleteUnitOfList(UnitListView* list, QKeyEvent* key, bool engines);
    void refreshCatalogue(bool engines);
    void showUnitInStatusBar(UnitListView* list, bool engines);
    void storeWindowPlace();

    AppState& state_;
    Services& services_;
    RandomSource random_;  // one sequence for the whole run of the program
    QPointer<frmDesc> desc_;
    QPointer<frmPreview> preview_;
    std::unique_ptr<QtStartUpWindows> startUpWindows_;
    bool updatingControls_ = false;  // set while the window writes its own boxes
    bool unloading_ = false;
    bool desktopIconsAsked_ = false;
    unsigned replacedSeen_ = 0;  // the consist's count of replacements the history knows of
};

}  // namespace rakeyard::ui
