#include "ui/windows/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <QToolBar>
#include <QScreen>
#include <QShortcut>
#include <QToolButton>

#include "core/app/consist_flows.h"
#include "core/app/start_up.h"
#include "core/consist/consist_model.h"
#include "core/consist/consist_writer.h"
#include "core/consist/editing.h"
#include "core/consist/slot_view.h"
#include "core/msts/catalogue_reader.h"
#include "core/platform/paths.h"
#include "core/settings/shell_helpers.h"
#include "ui/support/handler_guard.h"
#include "ui/support/twips.h"
#include "ui/widgets/slot_strip.h"
#include "ui/widgets/unit_list_view.h"
#include "ui/windows/qt_services.h"
#include "ui/windows/startup_windows.h"

namespace rakeyard::ui {

namespace {

// Small enough for a netbook's screen, large enough for two lists and the strip.
constexpr QSize kMainMinimumSize{600, 400};

// The size of a first run, within the screen.
QSize firstSize() {
    QSize size(twipsToPixels(kMainWidthTwips), twipsToPixels(kMainHeightTwips));
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        size = size.boundedTo(screen->availableSize());
    return size.expandedTo(kMainMinimumSize);
}

}  // namespace

frmMain::frmMain(AppState& state, Services& services, QWidget* parent)
    : QMainWindow(parent), state_(state), services_(services) {
    setObjectName("frmMain");
    setWindowTitle("Rake Yard");
    buildMenus();
    buildToolbar();
    buildLayout();
    Timer1 = new QTimer(this);
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(2000);
    Timer2 = new QTimer(this);
    Timer2->setObjectName("Timer2");
    Timer2->setInterval(250);
    Timer3 = new QTimer(this);
    Timer3->setObjectName("Timer3");
    Timer3->setInterval(500);
    startUpWindows_ = std::make_unique<rakeyard::ui::QtStartUpWindows>(*this, state_, services_);
    connectHandlers();
    enableBuiltEntries();
    setMinimumSize(kMainMinimumSize);
    resize(firstSize());
    refreshPics();
}

frmMain::~frmMain() = default;

void frmMain::placeFromSettings() {
    const SettingsRecord& record = state_.settings;
    move(rakeyard::ui::twipsToPixels(record.mainLeft), rakeyard::ui::twipsToPixels(record.mainTop));
    // A size never stored (0 on a first run) is the first size; one below the minimum is
    // raised to it by the minimum itself.
    const QSize first = firstSize();
    resize(record.mainWidth > 0 ? twipsToPixels(record.mainWidth) : first.width(),
           record.mainHeight > 0 ? twipsToPixels(record.mainHeight) : first.height());
}

// The list and strip handlers are connected here; the menus' in connectMenus.
void frmMain::connectHandlers() {
    connectMenus();
    connect(locList, &UnitListView::currentLineChanged, this, &frmMain::locList_Click);
    connect(wagList, &UnitListView::currentLineChanged, this, &frmMain::wagList_Click);
    connect(locList, &UnitListView::doubleClicked, this, &frmMain::locList_DblClick);
    connect(wagList, &UnitListView::doubleClicked, this, &frmMain::wagList_DblClick);
    for (UnitListView* list : {locList, wagList}) {
        list->viewport()->installEventFilter(this);
        list->installEventFilter(this);
    }
    for (auto [box, list] : {std::pair{txtLocSearch, locList}, std::pair{txtWagSearch, wagList}}) {
        connect(box, &QLineEdit::textChanged, this, [this, list](const QString& text) {
            list->setSearch(text);
            list->scrollTo(list->currentIndex());
            showListCounts();
        });
        box->installEventFilter(this);
    }
    auto focusSearch = [this](const QKeySequence& keys, QLineEdit* box) {
        connect(new QShortcut(keys, this), &QShortcut::activated, box, [box] {
            box->setFocus(Qt::ShortcutFocusReason);
            box->selectAll();
        });
    };
    focusSearch(QKeySequence::Find, txtLocSearch);
    focusSearch(QKeySequence("Ctrl+Shift+F"), txtWagSearch);
    connect(Command1, &QPushButton::clicked, this, &frmMain::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &frmMain::Command2_Click);
    for (int i = 0; i < 6; ++i) {
        Picture1[i]->onMouseDown = [this](int index, SlotButton button, int shift) {
            Picture1_MouseDown(index, button, shift);
        };
        Picture1[i]->onClick = [this](int index) { Picture1_Click(index); };
        Picture1[i]->onDoubleClick = [this](int index) { Picture1_DblClick(index); };
        Picture1[i]->onFocusStep = [this](int index, int step) { Picture1_FocusStep(index, step); };
        connect(Text1[i], &QLineEdit::textEdited, this, [this, i] { Text1_Change(i); });
        Text1[i]->installEventFilter(this);
    }
    for (int i = 0; i < 5; ++i)
        connect(Text2[i], &QLineEdit::textEdited, this, [this, i] { Text2_Change(i); });
    for (int i = 0; i < 2; ++i) {
        connect(cmdShift[i], &QPushButton::clicked, this, [this, i] { cmdShift_Click(i); });
        connect(cmdMove[i], &QPushButton::clicked, this, [this, i] { cmdMove_Click(i); });
    }
    connect(cmdHome, &QPushButton::clicked, this, &frmMain::cmdHome_Click);
    connect(cmdEnd, &QPushButton::clicked, this, &frmMain::cmdEnd_Click);
    connect(cmdStartErrors, &QPushButton::clicked, this, &frmMain::cmdStartErrors_Click);
    connect(cmdStartErrors, &QPushButton::customContextMenuRequested, this,
            &frmMain::cmdStartErrors_MouseDown);
    connect(Timer1, &QTimer::timeout, this, &frmMain::Timer1_Timer);
    connect(Timer2, &QTimer::timeout, this, &frmMain::Timer2_Timer);
    connect(Timer3, &QTimer::timeout, this, &frmMain::Timer3_Timer);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        const QPoint at = mouse->position().toPoint();
        if (watched == locList->viewport())
            locList_MouseDown(mouse->button(), mouse->modifiers(), locList->lineAt(at));
        if (watched == wagList->viewport())
            wagList_MouseDown(mouse->button(), mouse->modifiers(), wagList->lineAt(at));
    }
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (watched == txtLocSearch && searchBoxKey(txtLocSearch, locList, key)) return true;
        if (watched == txtWagSearch && searchBoxKey(txtWagSearch, wagList, key)) return true;
        // Enter on a list line adds the unit, as a double click does.
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (watched == locList) enter ? locList_DblClick() : locList_KeyDown(key);
        if (watched == wagList) enter ? wagList_DblClick() : wagList_KeyDown(key);
    }
    if (event->type() == QEvent::FocusIn) {
        for (QLineEdit* box : Text1)
            if (watched == box) QTimer::singleShot(0, box, &QLineEdit::selectAll);
    }
    return QMainWindow::eventFilter(watched, event);
}

// ---- The consist on screen ----

void frmMain::refreshPics() {
    const ConsistState& consist = state_.consist;
    showTitle();
    showUndoEntries();
    updatingControls_ = true;
    for (int i = 0; i < 6; ++i) {
        const SlotView& slot = consist.view[i];
        Picture1[i]->setPictureKey(qs(slot.pictureKey));
        Picture1[i]->setToolTip(qs(slot.toolTip));
        if (Text1[i]->text() != qs(slot.uidText)) Text1[i]->setText(qs(slot.uidText));
        Label1[i]->setText(qs(slot.name));
        Label1[i]->setToolTip(qs(slot.name));
    }
    imgLeft->setVisible(consist.leftArrowVisible);
    imgRight->setVisible(consist.rightArrowVisible);
    updatingControls_ = false;
    showHeaderBoxes();
    showTotals();
    showRecentEntries();
    showPendingWarning();
}

void frmMain::showHeaderBoxes() {
    updatingControls_ = true;
    for (int i = 0; i < 5; ++i) {
        const QString text = qs(state_.consist.header.box(i));
        if (Text2[i]->text() != text) Text2[i]->setText(text);
    }
    updatingControls_ = false;
}

void frmMain::showTotals() {
    const ConsistTotals& totals = state_.consist.totals;
    auto show = [](QLabel* label, const std::string& text, int pointSize) {
        label->setText(qs(text));
        QFont font = label->font();
        font.setPointSize(pointSize);
        label->setFont(font);
    };
    show(lblLenght, totals.length, 10);
    show(lblFeet, totals.feet, totals.feetFontSize);
    show(lblWeight, totals.mass, totals.massFontSize);
    show(lblImpTon, totals.impTons, totals.impTonsFontSize);
    show(lblWagons, totals.wagons, 10);
}

void frmMain::showRecentEntries() {
    const RecentConsists& recent = state_.consist.recent;
    for (int i = 0; i < 4; ++i) {
        mnuEmpty[i]->setText(qs(recent.names[i]));
        mnuEmpty[i]->setVisible(!recent.names[i].empty());
    }
    mnuDummy3->setVisible(recent.separatorVisible);
}

// A warning the core left for Label2 blinks for two seconds.
void frmMain::showPendingWarning() {
    std::string& warning = state_.consist.pendingWarning;
    if (warning.empty()) return;
    Label2->setText(qs(warning));
    warning.clear();
    Label2->setVisible(true);
    Timer1->start();
    Timer2->start();
}

void frmMain::Timer1_Timer() {
    Label2->setVisible(false);
    Timer1->stop();
    Timer2->stop();
}

void frmMain::Timer2_Timer() {
    Label2->setVisible(!Label2->isVisible());
}

// Screenshots of the shape viewer are collected only while the viewer is running, which this
// program does not start yet; the timer has nothing to wait for.
void frmMain::Timer3_Timer() {}

// ---- Strip ----

void frmMain::Picture1_MouseDown(int index, SlotButton button, int shift) {
    edit("Flip unit", [&] { rakeyard::pressSlot(state_.consist, index, button, shift); });
}

void frmMain::Picture1_Click(int index) {
    runGuarded(services_.dialogs, [&] {
        rakeyard::clickSlot(state_.consist, index);
        refreshPics();
    });
}

void frmMain::Picture1_DblClick(int index) {
    edit("Remove unit", [&] { rakeyard::removeUnitAtSlot(state_.consist, index); });
}

void frmMain::Picture1_FocusStep(int index, int step) {
    const int next = index + step;
    if (next >= 0 && next < 6) Picture1[next]->setFocus(Qt::TabFocusReason);
}

void frmMain::Text1_Change(int index) {
    if (updatingControls_) return;
    // Typing into one box is one step; another box starts another.
    const int unit = state_.consist.currentPage * 6 + index + 1;
    state_.history.begin("Change UiD of unit " + std::to_string(unit), state_.consist);
    runGuarded(services_.dialogs, [&] {
        rakeyard::markConsistChanged(state_.consist);
        rakeyard::setUnitUid(state_.consist, services_.dialogs, index,
                             stdString(Text1[index]->text()));
    });
    state_.history.commit(state_.consist, true);
    showTitle();
    showUndoEntries();
}

void frmMain::Text2_Change(int index) {
    if (updatingControls_) return;
    static constexpr const char* kBoxes[] = {"file name", "consist name", "max velocity",
                                             "durability", "serial"};
    state_.history.begin(std::string("Edit ") + kBoxes[index], state_.consist);
    rakeyard::markConsistChanged(state_.consist);
    state_.consist.header.box(index) = stdString(Text2[index]->text());
    state_.history.commit(state_.consist, true);
    showTitle();
    showUndoEntries();
}

void frmMain::showTitle() {
    setWindowTitle(qs(rakeyard::consistWindowTitle(state_.consist)));
}

void frmMain::cmdShift_Click(int index) {
    edit("Shift units", [&] { rakeyard::shiftUnits(state_.consist, index); });
}

void frmMain::cmdMove_Click(int index) {
    runGuarded(services_.dialogs, [&] {
        rakeyard::turnPage(state_.consist, index);
        refreshPics();
    });
}

void frmMain::cmdHome_Click() {
    runGuarded(services_.dialogs, [&] {
        rakeyard::showFirstPage(state_.consist);
        refreshPics();
    });
}

void frmMain::cmdEnd_Click() {
    runGuarded(services_.dialogs, [&] {
        rakeyard::showLastUnitPage(state_.consist);
        refreshPics();
    });
}

// ---- Start-up errors ----

void frmMain::showStartErrorsButton() {
    const std::string path = startErrorsFile(state_.paths);
    cmdStartErrors->setVisible(services_.fs.isFile(path));
}

void frmMain::cmdStartErrors_Click() {
    runGuarded(services_.dialogs, [&] {
        const std::string path = startErrorsFile(state_.paths);
        if (!services_.fs.isFile(path)) return;
        if (startTextEditor(state_.paths, path, services_) == EditorStart::Failed)
            services_.dialogs.report(
                "An error ocurred while trying to open the editor!\rPlease check if the given "
                "path is correct.",
                Icon::Stop);
    });
}

void frmMain::cmdStartErrors_MouseDown() {
    runGuarded(services_.dialogs, [&] {
        (void)services_.desktop.moveToTrash(startErrorsFile(state_.paths));
        cmdStartErrors->setVisible(false);
    });
}

// ---- Closing ----

void frmMain::mnuExit_Click() {
    bool goOn = false;
    runGuarded(services_.dialogs, [&] { goOn = confirmExit(state_, services_); });
    refreshPics();
    if (goOn) close();
}

void frmMain::closeEvent(QCloseEvent* event) {
    bool goOn = true;
    runGuarded(services_.dialogs, [&] { goOn = offerSaveOnUnload(state_, services_); });
    if (!goOn) {
        event->ignore();  // the consist could not be saved: the window stays with it
        refreshPics();
        return;
    }
    runGuarded(services_.dialogs, [&] { storeWindowPlace(); });
    event->accept();
    QApplication::closeAllWindows();
}

void frmMain::storeWindowPlace() {
    if (state_.paths.programFolder.empty()) return;
    const QRect frame = frameGeometry();
    WindowPlace place;
    place.left = rakeyard::ui::pixelsToTwips(frame.left());
    place.top = rakeyard::ui::pixelsToTwips(frame.top());
    place.height = rakeyard::ui::pixelsToTwips(height());
    place.width = rakeyard::ui::pixelsToTwips(width());
    storeMainWindowPlace(state_, services_, place);
}

}  // namespace rakeyard::ui
