#include "ui/windows/frmDep1.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <vector>

#include "core/consist/consist_reader.h"
#include "core/consist/save_offer.h"
#include "core/platform/paths.h"
#include "core/settings/settings_file.h"
#include "ui/support/handler_guard.h"
#include "ui/support/twips.h"
#include "ui/windows/frmDep.h"
#include "ui/support/window_helpers.h"
#include "ui/widgets/dependency_icons.h"
#include "ui/widgets/dependency_model.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

// The legend's lines, in the order of the pictures.
constexpr std::pair<DependencyKind, const char*> kLegend[] = {
    {DependencyKind::Route, "Route"},
    {DependencyKind::ServiceConsist, "Normal consist related with a service"},
    {DependencyKind::LooseConsist, "Loose consist inside an activity"},
    {DependencyKind::MissingUnit, "Missing engine or wagon"},
    {DependencyKind::PresentUnit, "Engine or wagon used on a consist"},
    {DependencyKind::MissingConsist, "Missing consist"},
};

}  // namespace

frmDep1::frmDep1(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services), model_(new DependencyModel(this)) {
    setObjectName("frmDep1");
    setWindowTitle("Dependencies");
    TreeView = named(new QTreeView(this), "TreeView");
    TreeView->setModel(model_);
    TreeView->setHeaderHidden(true);
    TreeView->setUniformRowHeights(true);  // thousands of rows are laid out at once
    TreeView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    TreeView->setToolTip("Double click a consist to load it into the editor");
    Label1 = named(new QLabel(this), "Label1");
    Label2 = named(new QLabel("Loading data from route...", this), "Label2");
    Combo1 = named(new QComboBox(this), "Combo1");
    Combo1->setPlaceholderText("Please select a route...");
    Combo1->setMinimumContentsLength(28);
    Combo1->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    Command1[1] = button("Command1_1", "&Start", this);
    Command1[0] = button("Command1_0", "&Stop", this);
    Command2 = button("Command2", "Expand tree", this);
    Command4 = button("Command4", "?", this);
    Command4->setToolTip("What the pictures mean");
    Frame1 = makeLegend();

    auto* labels = new QHBoxLayout();
    labels->addWidget(Label2);
    labels->addWidget(Label1, 1);
    auto* buttons = new QHBoxLayout();
    buttons->addWidget(Combo1, 1);
    for (QWidget* widget : {Command1[1], Command1[0], Command2, Command4})
        buttons->addWidget(widget);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(TreeView, 1);
    layout->addLayout(labels);
    layout->addLayout(buttons);
    setTabOrder(Combo1, Command1[1]);
    resize(560, 600);

    connect(Combo1, &QComboBox::activated, this, &frmDep1::Combo1_Click);
    connect(Command1[1], &QPushButton::clicked, this, [this] { Command1_Click(1); });
    connect(Command1[0], &QPushButton::clicked, this, [this] { Command1_Click(0); });
    connect(Command2, &QPushButton::clicked, this, &frmDep1::Command2_Click);
    connect(Command4, &QPushButton::clicked, this, [this] {
        placeLegend();
        Frame1->show();
        Frame1->raise();
        Command3->setFocus();
    });
    connect(Command3, &QPushButton::clicked, Frame1, &QWidget::hide);
    connect(TreeView, &QTreeView::activated, this, &frmDep1::TreeView_DblClick);
    Form_Load();
}

frmDep1::~frmDep1() = default;

QFrame* frmDep1::makeLegend() {
    auto* frame = named(new QFrame(this), "Frame1");
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setAutoFillBackground(true);
    auto* grid = new QGridLayout(frame);
    int row = 0;
    for (const auto& [kind, text] : kLegend) {
        auto* picture = new QLabel(frame);
        picture->setPixmap(dependencyIcon(kind).pixmap(16, 16));
        grid->addWidget(picture, row, 0);
        grid->addWidget(new QLabel(text, frame), row++, 1);
    }
    Command3 = button("Command3", "&OK", frame);
    grid->addWidget(Command3, row, 1, Qt::AlignRight);
    frame->adjustSize();
    frame->hide();
    return frame;
}

// The window's place and size from settings.bin, read afresh; a size is applied when it is set.
void frmDep1::Form_Load() {
    runGuarded(services_.dialogs, [&] {
        const SettingsRecord record = readSettings(services_.fs, state_.paths.programFolder);
        if (record.dependenciesLeft || record.dependenciesTop)
            move(twipsToPixels(record.dependenciesLeft), twipsToPixels(record.dependenciesTop));
        if (record.dependenciesWidth >= 1 && record.dependenciesHeight >= 1)
            resize(twipsToPixels(record.dependenciesWidth),
                   twipsToPixels(record.dependenciesHeight));
        scan_.stopFlag = false;
        scan_.routeNames = getRoutes(state_.paths, state_.routes, services_, scan_.stopFlag);
        for (const std::string& name : scan_.routeNames)
            Combo1->addItem(qs(name));
        Combo1->setCurrentIndex(-1);
    });
    showStart(true);
    Command1[1]->setEnabled(false);
    Command1[0]->setEnabled(false);
}

void frmDep1::Combo1_Click() {
    const bool chosen = Combo1->currentIndex() >= 0;
    Command1[1]->setEnabled(chosen);
    Command1[0]->setEnabled(chosen);
}

// "&Start" and "&Stop" take turns in one place.
void frmDep1::showStart(bool start) {
    Command1[1]->setVisible(start);
    Command1[0]->setVisible(!start);
}

// Start fills the tree while it is hidden; the window lets its events run meanwhile, so that
// Stop and Esc are seen. Stop only asks: the scan ends at its next file.
void frmDep1::Command1_Click(int index) {
    if (index == 0) {
        scan_.stopFlag = true;
        showStart(true);
        Command2->setEnabled(true);
        return;
    }
    if (scanning_) return;
    scanning_ = true;
    scan_.stopFlag = false;
    TreeView->hide();
    model_->setTree(nullptr);  // the tree grows while it is read
    scan_.tree.clear();
    showStart(false);
    Command1[0]->setFocus();
    Command2->setEnabled(false);
    Label1->setText(Combo1->currentText());
    QApplication::setOverrideCursor(Qt::WaitCursor);
    runGuarded(services_.dialogs, [&] {
        scanOne(state_.paths, state_.routes, stdString(Combo1->currentText()), scan_, services_);
    });
    QApplication::restoreOverrideCursor();
    scanning_ = false;
    showTree();
    showStart(true);
    Command2->setEnabled(true);
    TreeView->setFocus();
}

// The tree shown with every node the scan made visible: its parents are opened.
void frmDep1::showTree() {
    model_->setTree(&scan_.tree);
    std::vector<bool> opened(scan_.tree.size(), false);
    const auto open = [&](std::size_t node) {
        opened[node] = true;
        TreeView->expand(model_->indexOf(node));
    };
    if (!scan_.tree.empty()) open(0);
    for (std::size_t node = 0; node < scan_.tree.size(); ++node) {
        if (!scan_.tree[node].revealed) continue;
        for (std::size_t up = scan_.tree[node].parent; !opened[up]; up = scan_.tree[up].parent)
            open(up);
    }
    TreeView->show();
    TreeView->setCurrentIndex(model_->indexOf(0));
}

void frmDep1::Command2_Click() {
    TreeView->hide();
    TreeView->expandAll();
    TreeView->show();
}

// A consist's node (its text ends in ".con") loads that consist into the editor, which offers
// the consist shown for saving first.
void frmDep1::TreeView_DblClick(const QModelIndex& index) {
    const std::size_t node = model_->nodeOf(index);
    if (node == DependencyTree::kRefused) return;
    const DependencyNode& consist = scan_.tree[node];
    const bool isConsist = consist.kind == DependencyKind::ServiceConsist ||
                           consist.kind == DependencyKind::MissingConsist;
    if (!isConsist || !consist.text.ends_with(".con")) return;
    runGuarded(services_.dialogs, [&] {
        if (!clearConsist(state_, services_)) return;
        state_.consist.consistToLoad = joinPath(state_.paths.consistsPath, consist.text);
        (void)loadConsistFile(state_, services_);
        Q_EMIT consistLoaded();
    });
}

// Esc and the window's close button end a scan at its next file.
void frmDep1::reject() {
    scan_.stopFlag = true;
    QDialog::reject();
}

// The place and size go into settings.bin, unless the window is minimized.
void frmDep1::done(int result) {
    scan_.stopFlag = true;
    storeDependenciesPlace(*this, state_, services_);
    QDialog::done(result);
}

void frmDep1::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    placeLegend();
}

// The legend stands over the tree's lower right corner.
void frmDep1::placeLegend() {
    const QRect tree = TreeView->geometry();
    const QSize size = Frame1->sizeHint();
    Frame1->setGeometry(std::max(0, tree.right() - size.width() - 12),
                        std::max(0, tree.bottom() - size.height() - 12), size.width(),
                        size.height());
}

}  // namespace rakeyard::ui
