// The menu tree and the toolbar of the main window.
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStyle>
#include <QToolBar>
#include <QTimer>
#include <QToolButton>

#include "ui/widgets/toolbar_icons.h"
#include "ui/windows/frmMain.h"

namespace rakeyard::ui {

namespace {

QMenu* addMenu(QWidget* owner, QMenu* parentMenu, QMenuBar* bar, const char* name,
               const QString& caption) {
    auto* menu = new QMenu(caption, owner);
    menu->setObjectName(name);
    menu->menuAction()->setObjectName(QString(name) + "_entry");
    if (parentMenu) parentMenu->addMenu(menu);
    if (bar) bar->addMenu(menu);
    return menu;
}

QAction* addEntry(QMenu* menu, const char* name, const QString& caption) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    return action;
}

QAction* addSeparator(QMenu* menu, const char* name) {
    QAction* action = menu->addSeparator();
    action->setObjectName(name);
    return action;
}

QAction* addCheckEntry(QMenu* menu, const char* name, const QString& caption) {
    QAction* action = addEntry(menu, name, caption);
    action->setCheckable(true);
    return action;
}

}  // namespace

void frmMain::buildMenus() {
    QMenuBar* bar = menuBar();
    mnuConsists = addMenu(this, nullptr, bar, "mnuConsists", "&Consists");
    mnuLoad = addEntry(mnuConsists, "mnuLoad", "&Load");
    mnuSave = addEntry(mnuConsists, "mnuSave", "&Save");
    mnuSaveAs = addEntry(mnuConsists, "mnuSaveAs", "Save &as...");
    mnuNew = addEntry(mnuConsists, "mnuNew", "&New");
    mnuDummy1 = addSeparator(mnuConsists, "mnuDummy1");
    mnuExit = addEntry(mnuConsists, "mnuExit", "&Exit");
    mnuDummy3 = addSeparator(mnuConsists, "mnuDummy3");
    mnuDummy3->setVisible(false);
    for (int i = 0; i < 4; ++i) {
        mnuEmpty[i] = addEntry(mnuConsists, "", QString());
        mnuEmpty[i]->setObjectName(QString("mnuEmpty_%1").arg(i + 1));
        mnuEmpty[i]->setVisible(false);
    }
    mnuLoad->setShortcut(QKeySequence::Open);
    mnuSave->setShortcut(QKeySequence::Save);
    mnuSaveAs->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    mnuNew->setShortcut(QKeySequence::New);

    mnuUnits = addMenu(this, nullptr, bar, "mnuUnits", "&Units");
    mnuRenumber = addEntry(mnuUnits, "mnuRenumber", "&Renumber units");
    mnuAdd = addEntry(mnuUnits, "mnuAdd", "&Add several of same type");
    mnuDummy2 = addSeparator(mnuUnits, "mnuDummy2");
    mnuInsert = addEntry(mnuUnits, "mnuInsert", "&Insert selected");
    mnuDelete = addEntry(mnuUnits, "mnuDelete", "&Delete selected");

    mnuEdit = addMenu(this, nullptr, bar, "mnuEdit", "&Edit");
    mnuUndo = addEntry(mnuEdit, "mnuUndo", "&Undo");
    mnuRedo = addEntry(mnuEdit, "mnuRedo", "&Redo");
    mnuUndo->setShortcut(QKeySequence::Undo);
    mnuRedo->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    mnuUndo->setEnabled(false);
    mnuRedo->setEnabled(false);
    addSeparator(mnuEdit, "mnuDummyUndo");
    mnuEditUnit = addEntry(mnuEdit, "mnuEditUnit", "&Edit this unit");
    mnuEditFile = addEntry(mnuEdit, "mnuEditFile", "Edit eng/wag &file");
    mnuLoose = addEntry(mnuEdit, "mnuLoose", "&Loose consists");

    mnuTests = addMenu(this, nullptr, bar, "mnuTests", "&Tests");
    mnuMissing = addEntry(mnuTests, "mnuMissing", "&Missing files");
    mnuActivities = addEntry(mnuTests, "mnuActivities", "&Activities");
    mnuUnicode = addEntry(mnuTests, "mnuUnicode", "&Check for non-Unicode files");

    mnuView = addMenu(this, nullptr, bar, "mnuView", "&View");
    mnuPreview = addEntry(mnuView, "mnuPreview", "Preview consist");
    mnu3D = addEntry(mnuView, "mnu3D", "&3D view");
    mnuPicture = addEntry(mnuView, "mnuPicture", "&Picture && description");
    mnuConsUse = addEntry(mnuView, "mnuConsUse", "&Consists using...");
    mnuActsUse = addEntry(mnuView, "mnuActsUse", "&Dependencies");
    mnuSelType = addMenu(this, mnuView, nullptr, "mnuSelType", "&Select type to view");
    mnuShowLoc = addMenu(this, mnuSelType, nullptr, "mnuShowLoc", "Show &locomotive types");
    mnuSteam = addCheckEntry(mnuShowLoc, "mnuSteam", "&Steam");
    mnuDiesel = addCheckEntry(mnuShowLoc, "mnuDiesel", "&Diesel");
    mnuElectric = addCheckEntry(mnuShowLoc, "mnuElectric", "&Electric");
    mnuLocAI = addCheckEntry(mnuShowLoc, "mnuLocAI", "AI engines");
    mnuLocAll = addCheckEntry(mnuShowLoc, "mnuLocAll", "&All");
    mnuShowWag = addMenu(this, mnuSelType, nullptr, "mnuShowWag", "Show &wagon types");
    mnuFreight = addCheckEntry(mnuShowWag, "mnuFreight", "&Freight");
    mnuCarriages = addCheckEntry(mnuShowWag, "mnuCarriages", "&Carriages");
    mnuTenders = addCheckEntry(mnuShowWag, "mnuTenders", "&Tenders");
    mnuWagAll = addCheckEntry(mnuShowWag, "mnuWagAll", "&All");

    mnuMisc = addMenu(this, nullptr, bar, "mnuMisc", "&Misc");
    mnuAliasing = addEntry(mnuMisc, "mnuAliasing", "&Aliasing");
    mnuMaxvel = addEntry(mnuMisc, "mnuMaxvel", "&Maxvelocity editor");
    mnuAllocated = addEntry(mnuMisc, "mnuAllocated", "Allocated &space");
    mnuBigones = addEntry(mnuMisc, "mnuBigones", "&Big ones");

    mnuOptions = addMenu(this, nullptr, bar, "mnuOptions", "&Options");
    mnuMSTSpath = addEntry(mnuOptions, "mnuMSTSpath", "&MSTS path");
    mnuEditor = addEntry(mnuOptions, "mnuEditor", "Select &editor");
    mnu3Dviewer = addEntry(mnuOptions, "mnu3Dviewer", "Select &3D viewer");
    mnuScreenshots = addEntry(mnuOptions, "mnuScreenshots", "&Folder for screenshots");
    mnuShowPic = addCheckEntry(mnuOptions, "mnuShowPic", "&Always show picture");

    mnuHelp = addMenu(this, nullptr, bar, "mnuHelp", "&Help");
    mnuHelpFile = addEntry(mnuHelp, "mnuHelpFile", "&Help");
    mnuHelpFile->setShortcut(QKeySequence::HelpContents);
    mnuAbout = addEntry(mnuHelp, "mnuAbout", "&About Rakeyard");
}

void frmMain::buildToolbar() {
    Toolbar1 = addToolBar("Toolbar");
    Toolbar1->setObjectName("Toolbar1");
    Toolbar1->setMovable(false);
    Toolbar1->setIconSize(QSize(22, 22));
    struct Button {
        const char* key;
        const char* toolTip;
    };
    static constexpr Button kButtons[] = {
        {"exit", "Exit program"},
        {"new", "New consist"},
        {"open", "Open consist file"},
        {"save", "Save consist file"},
        {"test", "Searches for missing files"},
        {"activity", "Consists making part of activities"},
        {"alias", "Create aliases for engines"},
        {"filter", "Filter for locomotives and wagons"},
        {"reorder", "Number all units in a sequence"},
        {"paste", "Paste selected units (Ctrl-click image to select)"},
        {"delete", "Delete selected units (Shift-click to select)"},
        {"multiple", "Adds a number of the same unit"},
        {"random", "Creates a random consist"},
        {"3dview", "3D view"},
        {"activitydependencies", "Shows units that are used by actvities"},
        {"dependencies", "Shows which consists include this unit"},
        {"loose", "Loose consist editor"},
    };
    for (const Button& button : kButtons) {
        const QString key = button.key;
        if (key == "filter") {
            tbrFilter = new QToolButton(Toolbar1);
            tbrFilter->setObjectName("tbr_filter");
            tbrFilter->setToolTip(button.toolTip);
            tbrFilter->setIcon(rakeyard::ui::toolbarIcon(key));
            tbrFilter->setPopupMode(QToolButton::InstantPopup);
            auto* menu = new QMenu(tbrFilter);
            menu->setObjectName("tbr_filter_menu");
            static constexpr const char* kItems[][2] = {{"steam", "Steam"},
                                                        {"diesel", "Diesel"},
                                                        {"electric", "Electric"},
                                                        {"AIengines", "AI engines"},
                                                        {"allengines", "All engines"},
                                                        {"freight", "Freight"},
                                                        {"carriages", "Carriages"},
                                                        {"tenders", "Tenders"},
                                                        {"allwagons", "All wagons"}};
            for (const auto& item : kItems) {
                QAction* action = menu->addAction(item[1]);
                action->setObjectName(QString("tbr_filter_") + item[0]);
                action->setData(QString(item[0]));
                if (QString(item[0]) == "allengines") menu->addSeparator();
            }
            tbrFilter->setMenu(menu);
            Toolbar1->addWidget(tbrFilter);
            continue;
        }
        QAction* action = Toolbar1->addAction(rakeyard::ui::toolbarIcon(key), button.toolTip);
        action->setObjectName("tbr_" + key);
        action->setToolTip(button.toolTip);
        if (key == "save" || key == "alias" || key == "random" || key == "loose")
            Toolbar1->addSeparator();
    }
}

// The toolbar's icons, the small buttons' and the search boxes' clear buttons come from the
// desktop's theme.
void frmMain::useDesktopIcons() {
    for (QAction* action : Toolbar1->actions()) {
        const QString name = action->objectName();
        if (!name.startsWith("tbr_")) continue;
        if (const QIcon icon = desktopToolbarIcon(name.mid(4)); !icon.isNull())
            action->setIcon(icon);
    }
    const QIcon refresh = style()->standardIcon(QStyle::SP_BrowserReload);
    Command1->setIcon(refresh);
    Command2->setIcon(refresh);
    const QIcon edit = style()->standardIcon(QStyle::SP_FileDialogDetailedView);
    Image3->setIcon(edit);
    Image4->setIcon(edit);
    cmdStartErrors->setIcon(style()->standardIcon(QStyle::SP_MessageBoxWarning));
    txtLocSearch->setClearButtonEnabled(true);
    txtWagSearch->setClearButtonEnabled(true);
}

// The desktop's icons come once the window stands, so that looking them up does not hold the
// window back at start.
void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (desktopIconsAsked_) return;
    desktopIconsAsked_ = true;
    QTimer::singleShot(0, this, &frmMain::useDesktopIcons);
}

}  // namespace rakeyard::ui
