#include "ui/windows/frmLoose.h"

#include <QActionGroup>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QStyle>
#include <QTabWidget>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include "core/msts/loose_replace.h"
#include "core/msts/unit_list.h"
#include "core/platform/text_utf.h"
#include "core/settings/settings_file.h"
#include "ui/support/handler_guard.h"
#include "ui/support/twips.h"
#include "ui/support/window_helpers.h"
#include "ui/widgets/loose_icons.h"
#include "ui/widgets/unit_list_view.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

constexpr int kNodeRole = Qt::UserRole + 1;
constexpr int kImageRole = Qt::UserRole + 2;  // the picture an item shows, as a LooseImage
constexpr QSize kBox(120, 72);

// Drops every key press of the control it watches: the route is chosen with the mouse only.
class KeyDropper : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) return true;
        return QObject::eventFilter(watched, event);
    }
};

// The stored filter word of a 10-character field: trimmed, "All" when it starts with NUL.
std::string filterWord(const std::string& field) {
    if (field.empty() || field.front() == '\0') return "All";
    return trimBlanks(field.substr(0, field.find('\0')));
}

class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
};

}  // namespace

frmLoose::frmLoose(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent),
      state_(state),
      services_(services),
      context_{state.paths, state.routes, state.catalogue, state.looseUnits, services},
      model_(new QStandardItemModel(this)) {
    setObjectName("frmLoose");
    setWindowTitle("Loose consist editor");
    Combo1 = named(new QComboBox(this), "Combo1");
    Combo1->setPlaceholderText("Please select a route...");
    Combo1->installEventFilter(new KeyDropper(Combo1));
    Label9 = named(new QLabel(this), "Label9");
    ListView1 = named(new QListWidget(this), "ListView1");
    ListView1->setToolTip("Activities for the selected route");
    ListView1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    TreeView = named(new QTreeView(this), "TreeView");
    TreeView->setModel(model_);
    TreeView->setHeaderHidden(true);
    TreeView->setUniformRowHeights(true);  // thousands of units are laid out at once
    TreeView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    TreeView->setToolTip("Right-click");
    TreeView->setContextMenuPolicy(Qt::CustomContextMenu);
    locList = named(new UnitListView(UnitClass::Engine, this), "locList");
    locList->setToolTip("Available engines for replacement  (right-click to set filter)");
    wagList = named(new UnitListView(UnitClass::Wagon, this), "wagList");
    wagList->setToolTip("Available wagons for replacement (right-click to set filter)");
    for (UnitListView* list : {locList, wagList})
        list->setContextMenuPolicy(Qt::CustomContextMenu);
    Command1 = button("Command1", "&Wagons", this);
    Command1->setToolTip("Show engines/wagons alternatively");
    Command2 = button("Command2", "&Replace", this);
    Command2->setToolTip("Replace selected unit");
    Command6 = button("Command6", "&Cancel", this);
    Command6->setToolTip("Restore all changes made to this activity");
    Command3 = button("Command3", "Instructions", this);
    Command5 = button("Command5", "E&xit", this);
    Label3 = named(new QLabel("Consist length:", this), "Label3");
    lblLenght = named(new QLabel("0", this), "lblLenght");
    Label1 = named(new QLabel("meters", this), "Label1");
    lblFeet = named(new QLabel("0", this), "lblFeet");
    Label2 = named(new QLabel("feet", this), "Label2");
    imgErrors = named(new QLabel(this), "imgErrors");
    imgErrors->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(20, 20));
    Label8 = named(new QLabel("Length exceeded", this), "Label8");
    Label8->setStyleSheet("color: #b00000; font-weight: bold");
    StatusBar1 = named(new QStatusBar(this), "StatusBar1");
    StatusBar1->setSizeGripEnabled(false);
    Timer1 = named(new QTimer(this), "Timer1");
    Timer1->setInterval(5000);
    makeMenus();

    auto* left = new QVBoxLayout();
    left->addWidget(new QLabel("Activities", this));
    left->addWidget(ListView1, 1);
    left->addWidget(new QLabel("Loose consists", this));
    left->addWidget(TreeView, 2);
    auto* right = new QVBoxLayout();
    auto* listHead = new QHBoxLayout();
    listHead->addWidget(new QLabel("Available engines and wagons", this), 1);
    listHead->addWidget(Command1);
    right->addLayout(listHead);
    right->addWidget(locList, 1);
    right->addWidget(wagList, 1);
    auto* lists = new QHBoxLayout();
    lists->addLayout(left, 2);
    lists->addLayout(right, 3);
    auto* top = new QHBoxLayout();
    top->addWidget(Combo1, 1);
    top->addWidget(Label9, 2);
    auto* length = new QHBoxLayout();
    for (QWidget* widget : {static_cast<QWidget*>(Label3), static_cast<QWidget*>(lblLenght),
                            static_cast<QWidget*>(Label1), static_cast<QWidget*>(lblFeet),
                            static_cast<QWidget*>(Label2), static_cast<QWidget*>(imgErrors),
                            static_cast<QWidget*>(Label8)})
        length->addWidget(widget);
    length->addStretch(1);
    for (QPushButton* b : {Command2, Command6, Command3, Command5})
        length->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(lists, 1);
    layout->addWidget(makeStrip());
    layout->addLayout(length);
    layout->addWidget(StatusBar1);
    Frame1 = makeInstructions();
    resize(980, 700);

    connect(Combo1, &QComboBox::activated, this, &frmLoose::Combo1_Click);
    connect(ListView1, &QListWidget::itemDoubleClicked, this, &frmLoose::ListView1_DblClick);
    // What the event of one argument was meant to stop isn't known: the list's lines can't be
    // edited here, and Enter opens the activity as a double click does.
    connect(ListView1, &QListWidget::itemActivated, this, &frmLoose::ListView1_DblClick);
    connect(TreeView, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        TreeView_Click(index.data(kNodeRole).toULongLong());
    });
    connect(TreeView, &QTreeView::customContextMenuRequested, this,
            [this](const QPoint& at) { mnuReplace->popup(TreeView->viewport()->mapToGlobal(at)); });
    connect(Command1, &QPushButton::clicked, this, &frmLoose::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &frmLoose::Command2_Click);
    connect(Command6, &QPushButton::clicked, this, &frmLoose::Command6_Click);
    connect(Command3, &QPushButton::clicked, this, [this] {
        Frame1->setGeometry(
            rect().adjusted(width() / 5, height() / 5, -width() / 5, -height() / 5));
        Frame1->show();
        Frame1->raise();
    });
    connect(Command4, &QPushButton::clicked, Frame1, &QWidget::hide);
    connect(Command5, &QPushButton::clicked, this, &QDialog::accept);
    connect(mnuRep, &QAction::triggered, this, &frmLoose::mnuRep_Click);
    connect(Timer1, &QTimer::timeout, this, &frmLoose::hideLengthWarning);
    for (UnitListView* list : {locList, wagList}) {
        connect(list, &QTreeView::clicked, this, &frmLoose::hideLengthWarning);
        connect(list, &QTreeView::customContextMenuRequested, this, [this, list](const QPoint& at) {
            (list == locList ? mnuEngines : mnuWagons)->exec(list->viewport()->mapToGlobal(at));
            // The popup closed: the lists follow the filters as they now stand.
            WaitCursor wait;
            fillLists();
        });
    }
    Timer1->start();
    Form_Load();
}

frmLoose::~frmLoose() = default;

// Sixty boxes, six to a page; pages past the first show only when a consist reaches them.
QWidget* frmLoose::makeStrip() {
    SSTab1 = named(new QTabWidget(this), "SSTab1");
    for (std::size_t page = 0; page < LooseEditor::kBoxes / 6; ++page) {
        auto* sheet = new QWidget(SSTab1);
        auto* row = new QHBoxLayout(sheet);
        for (std::size_t i = page * 6; i < page * 6 + 6; ++i) {
            QLabel* box = named(new QLabel(sheet), "Picture1_" + QString::number(i + 1));
            box->setFixedSize(kBox);
            box->setAlignment(Qt::AlignCenter);
            box->setFrameShape(QFrame::NoFrame);
            row->addWidget(box);
            Picture1[i] = box;
        }
        row->addStretch(1);
        SSTab1->addTab(sheet, QString("%1 - %2").arg(page * 6 + 1).arg(page * 6 + 6));
    }
    SSTab1->setFixedHeight(kBox.height() + 56);
    return SSTab1;
}

QGroupBox* frmLoose::makeInstructions() {
    auto* frame = named(new QGroupBox(" Instructions ", this), "Frame1");
    frame->setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(frame);
    for (const char* line :
         {"1 - Select a route.", "2 - Double-click on any activity in the Activities list.",
          "3 - Select what kind of unit: Engines or Wagons by clicking on the button.",
          "4 - Select from the list of available engines/wagons the unit you wish to replace.",
          "5 - Select from the list of loose consists the unit to be replaced.",
          "6 - Click on the button \"Replace\""})
        layout->addWidget(new QLabel(line, frame));
    layout->addWidget(textLabel(
        "Label4",
        "WARNING: As a general rule, never exceed the original length of the consist you are "
        "editing. If the changed length is greater than the original then the activity will "
        "cause errors and it will not work.",
        frame));
    Command4 = button("Command4", "&OK", frame);
    layout->addWidget(Command4, 0, Qt::AlignRight);
    frame->hide();
    return frame;
}

void frmLoose::makeMenus() {
    const auto menu = [this](const char* name, const char* title) {
        return named(new QMenu(title, this), name);
    };
    const auto entry = [](QMenu* owner, QActionGroup* group, const char* name, const char* text) {
        QAction* action = owner->addAction(text);
        action->setObjectName(name);
        action->setCheckable(true);
        group->addAction(action);
        return action;
    };
    mnuEngines = menu("mnuEngines", "Engines");
    auto* engines = new QActionGroup(this);
    mnuSteam = entry(mnuEngines, engines, "mnuSteam", "Steam");
    mnuElectric = entry(mnuEngines, engines, "mnuElectric", "Electric");
    mnuDiesel = entry(mnuEngines, engines, "mnuDiesel", "Diesel");
    mnuLocAI = entry(mnuEngines, engines, "mnuLocAI", "AI engines");
    mnuLocAll = entry(mnuEngines, engines, "mnuLocAll", "All engines");
    mnuWagons = menu("mnuWagons", "Wagons");
    auto* wagons = new QActionGroup(this);
    mnuFreight = entry(mnuWagons, wagons, "mnuFreight", "Freight");
    mnuCarriages = entry(mnuWagons, wagons, "mnuCarriages", "Carriages");
    mnuTenders = entry(mnuWagons, wagons, "mnuTenders", "Tenders");
    mnuWagAll = entry(mnuWagons, wagons, "mnuWagAll", "All wagons");
    for (auto [action, word] : {std::pair{mnuSteam, "Steam"},
                                {mnuElectric, "Electric"},
                                {mnuDiesel, "Diesel"},
                                {mnuLocAI, "AI"},
                                {mnuLocAll, "All"}})
        connect(action, &QAction::triggered, this, [this, word] { chooseFilter(true, word); });
    for (auto [action, word] : {std::pair{mnuFreight, "Freight"},
                                {mnuCarriages, "Carriage"},
                                {mnuTenders, "Tender"},
                                {mnuWagAll, "All"}})
        connect(action, &QAction::triggered, this, [this, word] { chooseFilter(false, word); });
    mnuReplace = menu("mnuReplace", "replace");
    mnuRep = mnuReplace->addAction("Replace all occurrences of this wagon");
    mnuRep->setObjectName("mnuRep");
}

void frmLoose::Form_Load() {
    WaitCursor wait;
    runGuarded(services_.dialogs, [&] {
        const SettingsRecord record = readSettings(services_.fs, state_.paths.programFolder);
        if (record.looseLeft || record.looseTop)
            move(twipsToPixels(record.looseLeft), twipsToPixels(record.looseTop));
        fillLists();
        wagList->hide();
        Command1->setIcon(looseIcon(LooseImage::Wagon));
        readRoutes(context_, editor_);
        for (const std::string& name : editor_.routeNames)
            Combo1->addItem(qs(name));
        Combo1->setCurrentIndex(-1);
        tickFilters();
    });
    showEditor();
}

// The lists show what the main window's lists show: the catalogues under its filters.
void frmLoose::fillLists() {
    showCatalogueLists(*locList, *wagList, state_.catalogue, state_.paths);
}

void frmLoose::tickFilters() {
    const SettingsRecord record = readSettings(services_.fs, state_.paths.programFolder);
    tickFilterEntries({mnuSteam, mnuDiesel, mnuElectric, mnuLocAI, mnuLocAll, mnuFreight,
                       mnuCarriages, mnuTenders, mnuWagAll},
                      filterWord(record.showLocoType), filterWord(record.showWagonType));
}

void frmLoose::chooseFilter(bool engines, const char* word) {
    (engines ? state_.paths.engineFilter : state_.paths.wagonFilter) = word;
    if (engines) {
        Q_EMIT engineFilterChosen(word);
    } else {
        Q_EMIT wagonFilterChosen(word);
    }
}

void frmLoose::Combo1_Click() {
    WaitCursor wait;
    ListView1->clear();
    model_->clear();
    items_.clear();
    editor_.nodes.clear();  // with the tree gone, Replace and Cancel have nothing to work on
    editor_.selected = LooseEditor::kNoNode;
    runGuarded(services_.dialogs, [&] {
        SearchActsForLoose(context_, editor_, stdString(Combo1->currentText()));
        for (const std::string& line : editor_.activityLines)
            ListView1->addItem(qs(line));
    });
}

void frmLoose::ListView1_DblClick(QListWidgetItem* item) {
    if (!item) return;
    WaitCursor wait;
    TreeView->hide();
    runGuarded(services_.dialogs,
               [&] { (void)openLooseActivity(context_, editor_, stdString(item->text())); });
    showTree();
    showEditor();
}

// The tree rebuilt from the editor's nodes while hidden, every consist open.
void frmLoose::showTree() {
    TreeView->hide();
    model_->clear();
    items_.assign(editor_.nodes.size(), nullptr);
    for (std::size_t i = 0; i < editor_.nodes.size(); ++i) {
        const LooseNode& node = editor_.nodes[i];
        auto* item = new QStandardItem(looseIcon(node.image), qs(node.text));
        item->setData(static_cast<qulonglong>(i), kNodeRole);
        item->setData(static_cast<int>(node.image), kImageRole);
        items_[i] = item;
        if (i == 0) {
            model_->appendRow(item);
        } else {
            items_[node.parent]->appendRow(item);
        }
    }
    TreeView->expandAll();
    TreeView->show();
    if (!items_.empty()) TreeView->setCurrentIndex(items_.front()->index());
}

// Labels, strip, warning and status bar as the editor's state has them; tree items follow the
// nodes' texts and pictures.
void frmLoose::showEditor() {
    Label9->setText(qs(editor_.nowEditing));
    lblLenght->setText(qs(editor_.lengthText));
    lblFeet->setText(qs(editor_.feetText));
    imgErrors->setVisible(editor_.lengthExceeded);
    Label8->setVisible(editor_.lengthExceeded);
    StatusBar1->showMessage(qs(editor_.statusText));
    for (std::size_t i = 0; i < LooseEditor::kBoxes; ++i) {
        const LoosePicture& picture = editor_.pictures[i];
        QPixmap pixmap;
        if (picture.shows == LoosePicture::Shows::FirstImage)
            pixmap = looseIcon(LooseImage::Activity).pixmap(kBox.height() - 8);
        else if (picture.shows == LoosePicture::Shows::File)
            pixmap = QPixmap(qs(services_.fs.resolve(picture.path)))
                         .scaled(kBox - QSize(6, 6), Qt::KeepAspectRatio, Qt::SmoothTransformation);
        Picture1[i]->setPixmap(pixmap);  // a picture that can't be drawn leaves the box empty
        const bool bordered = static_cast<int>(i) + 1 == editor_.borderedBox;
        Picture1[i]->setFrameShape(bordered ? QFrame::Box : QFrame::NoFrame);
        Picture1[i]->setLineWidth(bordered ? 2 : 0);
    }
    for (int page = 0; page < SSTab1->count(); ++page)
        SSTab1->setTabVisible(page, page < editor_.pagesShown);
    if (editor_.currentPage < editor_.pagesShown) SSTab1->setCurrentIndex(editor_.currentPage);
    for (std::size_t i = 0; i < items_.size() && i < editor_.nodes.size(); ++i) {
        const LooseNode& node = editor_.nodes[i];
        if (items_[i]->text() != qs(node.text)) items_[i]->setText(qs(node.text));
        if (items_[i]->data(kImageRole).toInt() != static_cast<int>(node.image)) {
            items_[i]->setIcon(looseIcon(node.image));
            items_[i]->setData(static_cast<int>(node.image), kImageRole);
        }
    }
}

void frmLoose::TreeView_Click(std::size_t node) {
    runGuarded(services_.dialogs, [&] { selectLooseNode(context_, editor_, node); });
    showEditor();
}

void frmLoose::Command1_Click() {
    const bool engines = !locList->isHidden();
    Command1->setIcon(looseIcon(engines ? LooseImage::Engine : LooseImage::Wagon));
    Command1->setText(engines ? "&Engines" : "&Wagons");
    locList->setVisible(!engines);
    wagList->setVisible(engines);
}

std::string frmLoose::newUnitFile() const {
    const UnitListView* list = listKind() == UnitClass::Engine ? locList : wagList;
    return keyOfLine(stdString(list->currentLine()));
}

UnitClass frmLoose::listKind() const {
    return wagList->isHidden() ? UnitClass::Engine : UnitClass::Wagon;
}

void frmLoose::Command2_Click() {
    WaitCursor wait;
    runGuarded(services_.dialogs,
               [&] { (void)replaceLooseUnit(context_, editor_, newUnitFile(), listKind()); });
    showEditor();
}

void frmLoose::mnuRep_Click() {
    WaitCursor wait;
    runGuarded(services_.dialogs,
               [&] { (void)replaceAllOccurrences(context_, editor_, newUnitFile(), listKind()); });
    showEditor();
}

void frmLoose::Command6_Click() {
    WaitCursor wait;
    bool restored = false;
    runGuarded(services_.dialogs, [&] { restored = restoreOpenedActivity(context_, editor_); });
    if (restored) showTree();
    showEditor();
}

void frmLoose::hideLengthWarning() {
    editor_.lengthExceeded = false;
    imgErrors->hide();
    Label8->hide();
}

// The place goes into settings.bin unless the window is minimized; the work files go.
void frmLoose::done(int result) {
    runGuarded(services_.dialogs, [&] {
        SettingsRecord record = readSettings(services_.fs, state_.paths.programFolder);
        if (!isMinimized()) {
            record.looseLeft = pixelsToTwips(frameGeometry().left());
            record.looseTop = pixelsToTwips(frameGeometry().top());
            state_.settings.looseLeft = record.looseLeft;
            state_.settings.looseTop = record.looseTop;
            (void)saveSettings(record, state_.paths, services_);
        }
        removeLooseWorkFiles(context_);
    });
    QDialog::done(result);
}

}  // namespace rakeyard::ui
