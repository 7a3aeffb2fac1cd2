#include "ui/windows/frmDiag.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QStringListModel>
#include <QStyle>
#include <QVBoxLayout>

#include "core/tester/reports.h"
#include "ui/support/handler_guard.h"
#include "ui/support/window_helpers.h"
#include "ui/widgets/log_list.h"
#include "ui/windows/frmErrTyp.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

QLabel* counter(const QString& name, QWidget* parent) {
    auto* label = named(new QLabel("0", parent), name);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(48);
    label->setFrameShape(QFrame::StyledPanel);
    return label;
}

QWidget* titled(const QString& title, QWidget* content, QWidget* parent) {
    auto* box = new QGroupBox(title, parent);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(content);
    return box;
}

}  // namespace

frmDiag::frmDiag(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmDiag");
    setWindowTitle("Test units");

    const char* sections[] = {"&Engines", "&Wagons", "&Consists"};
    auto* sectionRow = new QHBoxLayout();
    for (int i = 0; i < 3; ++i) {
        Command1[i] = button(QString("Command1_%1").arg(i), sections[i], this);
        sectionRow->addWidget(Command1[i]);
        connect(Command1[i], &QPushButton::clicked, this, [this, i] { Command1_Click(i); });
    }
    sectionRow->addStretch(1);
    lblCount = named(new QLabel(this), "lblCount");
    sectionRow->addWidget(lblCount);

    rows_ = new QStringListModel(this);
    diagList = named(new QListView(this), "diagList");
    diagList->setModel(rows_);
    diagList->setUniformItemSizes(true);
    // A row is the name, forty blanks and the file: in even letters the files stand in line.
    diagList->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    diagList->setEditTriggers(QAbstractItemView::NoEditTriggers);
    diagList->setSelectionMode(QAbstractItemView::MultiSelection);
    diagList->viewport()->installEventFilter(this);
    connect(diagList->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmDiag::diagList_SelectionChanged);

    Check1 = named(new QCheckBox("Test cab views", this), "Check1");
    Check2 = named(new QCheckBox("Test sound files", this), "Check2");
    Check3 = named(new QCheckBox("Check duplicated files", this), "Check3");
    cmdCheckAll = button("cmdCheckAll", "Check all", this);
    cmdUncheckAll = button("cmdUncheckAll", "Uncheck all", this);
    cmdTest = button("cmdTest", "Start &test", this);
    cmdStop = button("cmdStop", "&Stop test", this);
    cmdEditCon = button("cmdEditCon", "Send consist to e&ditor", this);
    cmdDelCon = button("cmdDelCon", "Delete consists with e&rrors", this);
    cmdDelRep = button("cmdDelRep", "Del Reports", this);
    cmdDelRep->setToolTip("Delete all error reports");
    cmdShowErr = button("cmdShowErr", "Show &reports", this);
    cmdExit = button("cmdExit", "Close", this);
    cmdStop->setVisible(false);
    cmdEditCon->setEnabled(false);
    cmdDelCon->setVisible(false);
    cmdShowErr->setEnabled(false);
    cmdTest->setDefault(true);

    pBar = named(new QProgressBar(this), "pBar");
    pBar->setVisible(false);
    imgErrors = named(new QLabel(this), "imgErrors");
    imgErrors->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(24, 24));
    imgErrors->setToolTip("Double-click the icon to view errors again");
    imgErrors->setVisible(false);
    Label1 = named(new QLabel(this), "Label1");
    Label5 = named(new QLabel(this), "Label5");
    Label8 = named(new QLabel("Errors found:", this), "Label8");
    Label4 = counter("Label4", this);
    Label2 = named(new QLabel("Files with errors:", this), "Label2");
    lblErrors = counter("lblErrors", this);
    for (QWidget* hidden : {static_cast<QWidget*>(Label8), static_cast<QWidget*>(Label4),
                            static_cast<QWidget*>(Label2), static_cast<QWidget*>(lblErrors)})
        hidden->setVisible(false);

    auto* counts = new QGridLayout();
    const char* levels[] = {"Minor", "Serious", "Critical"};
    for (int i = 0; i < 3; ++i) {
        Label6[i] = counter(QString("Label6_%1").arg(i), this);
        counts->addWidget(new QLabel(levels[i], this), 0, i);
        counts->addWidget(Label6[i], 1, i);
    }
    for (int i = 0; i < 6; ++i) {
        Label9[i] = counter(QString("Label9_%1").arg(i), this);
        auto* heading = named(new QLabel(qs(kCategoryNames[i]), this), QString("Label%1").arg(10 + i));
        counts->addWidget(heading, 2, i);
        counts->addWidget(Label9[i], 3, i);
    }

    listTestedShapes = new LogList(run_.testedShapes, this);
    listTestedShapes->setObjectName("listTestedShapes");
    listTestedSounds = new LogList(run_.testedSounds, this);
    listTestedSounds->setObjectName("listTestedSounds");
    listFailed = new LogList(run_.failed, this);
    listFailed->setObjectName("listFailed");
    listFailed->setVisible(false);  // the failed consists' paths: for the consist section

    auto* left = new QVBoxLayout();
    left->addLayout(sectionRow);
    left->addWidget(diagList, 1);
    auto* selectRow = new QHBoxLayout();
    selectRow->addWidget(cmdCheckAll);
    selectRow->addWidget(cmdUncheckAll);
    selectRow->addStretch(1);
    left->addLayout(selectRow);
    for (QCheckBox* box : {Check1, Check2, Check3})
        left->addWidget(box);

    auto* right = new QVBoxLayout();
    auto* logs = new QHBoxLayout();
    logs->addWidget(titled("Files already tested (1)", listTestedShapes, this));
    logs->addWidget(titled("Files already tested (2)", listTestedSounds, this));
    right->addLayout(logs, 1);
    right->addWidget(Label5);
    right->addWidget(Label1);
    auto* errors = new QHBoxLayout();
    errors->addWidget(imgErrors);
    errors->addWidget(Label8);
    errors->addWidget(Label4);
    errors->addSpacing(12);
    errors->addWidget(Label2);
    errors->addWidget(lblErrors);
    errors->addStretch(1);
    right->addLayout(errors);
    right->addLayout(counts);
    right->addWidget(pBar);

    auto* columns = new QHBoxLayout();
    columns->addLayout(left, 2);
    columns->addLayout(right, 3);
    auto* buttons = new QHBoxLayout();
    for (QPushButton* b : {cmdTest, cmdStop, cmdEditCon, cmdDelCon})
        buttons->addWidget(b);
    buttons->addStretch(1);
    for (QPushButton* b : {cmdShowErr, cmdDelRep, cmdExit})
        buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addLayout(buttons);
    resize(900, 560);

    connect(cmdTest, &QPushButton::clicked, this, &frmDiag::cmdTest_Click);
    connect(cmdStop, &QPushButton::clicked, this, &frmDiag::cmdStop_Click);
    connect(cmdCheckAll, &QPushButton::clicked, this, &frmDiag::cmdCheckAll_Click);
    connect(cmdUncheckAll, &QPushButton::clicked, this, &frmDiag::cmdUncheckAll_Click);
    connect(cmdDelRep, &QPushButton::clicked, this, &frmDiag::cmdDelRep_Click);
    connect(cmdShowErr, &QPushButton::clicked, this, &frmDiag::cmdShowErr_Click);
    connect(cmdEditCon, &QPushButton::clicked, this, &frmDiag::cmdEditCon_Click);
    connect(cmdDelCon, &QPushButton::clicked, this, &frmDiag::cmdDelCon_Click);
    connect(diagList->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { diagList_Click(current); });
    connect(listTestedSounds, &QListView::doubleClicked, this,
            &frmDiag::listTestedSounds_DblClick);
    connect(listTestedSounds, &QListView::activated, this, &frmDiag::listTestedSounds_DblClick);
    connect(cmdExit, &QPushButton::clicked, this, &QDialog::close);

    if (!services_.fs.isFolder(state_.paths.consistsPath))
        services_.dialogs.report("The consist folder doesn't exist!", Icon::Stop, "ERROR");
    checkCmdDelRepButtonState();
}

frmDiag::~frmDiag() = default;

TestContext frmDiag::context() {
    return {state_.paths, state_.catalogue, services_, *this};
}

std::string frmDiag::filter() const {
    return run_.section == TestSection::Wagons ? state_.paths.wagonFilter
                                               : state_.paths.engineFilter;
}

void frmDiag::Command1_Click(int index) {
    runGuarded(services_.dialogs, [&] {
        const TestSection section = index == 0   ? TestSection::Engines
                                    : index == 1 ? TestSection::Wagons
                                                 : TestSection::Consists;
        run_.section = section;
        const bool reports = fillSection(run_, context(), section, filter());
        const bool units = section != TestSection::Consists;
        Check1->setEnabled(run_.cabViewsEnabled);
        Check2->setEnabled(units);
        Check3->setEnabled(units);
        if (units) cmdEditCon->setEnabled(false);
        cmdDelCon->setVisible(false);
        for (QWidget* hidden : {static_cast<QWidget*>(Label2), static_cast<QWidget*>(lblErrors),
                                static_cast<QWidget*>(Label4), static_cast<QWidget*>(Label8)})
            hidden->setVisible(false);
        showRows();
        showRun();
        diagList->setFocus();
        cmdShowErr->setEnabled(reports);
    });
}

void frmDiag::testGivenConsists(const std::vector<std::string>& rows) {
    runGuarded(services_.dialogs, [&] {
        fillGivenConsists(run_, context(), rows);
        Check1->setEnabled(false);
        Check2->setEnabled(false);
        Check3->setEnabled(false);
        showRows();
        showRun();
    });
    cmdTest_Click();
}

void frmDiag::showRows() {
    showingRows_ = true;
    QStringList rows;
    rows.reserve(static_cast<qsizetype>(run_.rows.size()));
    for (const std::string& row : run_.rows)
        rows << qs(row);
    rows_->setStringList(rows);
    QItemSelection selected;
    for (std::size_t i = 0; i < run_.selected.size(); ++i) {
        if (!run_.selected[i]) continue;
        std::size_t end = i;
        while (end + 1 < run_.selected.size() && run_.selected[end + 1])
            ++end;
        selected.select(rows_->index(static_cast<int>(i)), rows_->index(static_cast<int>(end)));
        i = end;
    }
    diagList->selectionModel()->select(selected, QItemSelectionModel::ClearAndSelect);
    showingRows_ = false;
}

void frmDiag::diagList_SelectionChanged() {
    if (showingRows_) return;
    std::fill(run_.selected.begin(), run_.selected.end(), 0);
    for (const QModelIndex& index : diagList->selectionModel()->selectedIndexes())
        if (static_cast<std::size_t>(index.row()) < run_.selected.size())
            run_.selected[static_cast<std::size_t>(index.row())] = 1;
}

void frmDiag::showRun() {
    const TestCounts& counts = run_.counts;
    lblCount->setText(qs(run_.countText));
    Label1->setText(qs(run_.filesTestedText));
    Label5->setText(qs(run_.unitShown));
    Label4->setText(QString::number(counts.errorCount));
    for (int i = 0; i < 3; ++i)
        Label6[i]->setText(QString::number(counts.levels[i]));
    for (int i = 0; i < 6; ++i)
        Label9[i]->setText(QString::number(counts.categories[i]));
    const bool found = run_.errorsFound;
    imgErrors->setVisible(found);
    if (found) {
        Label4->setVisible(true);
        Label8->setVisible(true);
    }
    listTestedShapes->sync();
    listTestedSounds->sync();
    listFailed->sync();
}

void frmDiag::yield() {
    if (sinceShown_.isValid() && sinceShown_.elapsed() < 30) return;
    sinceShown_.start();
    showRun();
    QCoreApplication::processEvents();
}

void frmDiag::cmdTest_Click() {
    if (run_.rows.empty()) return;
    runGuarded(services_.dialogs, [&] {
        run_.duplicates = Check3->isChecked();
        run_.cabViews = Check1->isChecked();
        run_.sounds = Check2->isChecked();
        cmdExit->setEnabled(false);
        cmdTest->setEnabled(false);
        cmdStop->setVisible(true);
        pBar->setVisible(true);
        pBar->setValue(0);
        Label2->setVisible(false);
        lblErrors->setVisible(false);
        cmdDelCon->setVisible(false);
        cmdShowErr->setEnabled(false);
        const bool consists = run_.section == TestSection::Consists;
        if (consists) cmdEditCon->setEnabled(false);
        if (errTyp_) errTyp_->hide();
        QApplication::setOverrideCursor(Qt::WaitCursor);
        auto* progress = dynamic_cast<QtProgress*>(&services_.progress);
        if (progress) progress->attach(pBar, nullptr);
        const bool offerReports = runTests(run_, context());
        if (progress) progress->detach();
        QApplication::restoreOverrideCursor();
        showRows();
        showRun();
        showIdle();
        if (consists) {
            cmdEditCon->setEnabled(true);
            cmdDelCon->setVisible(!run_.failed.empty() && !run_.failed.front().empty());
        }
        if (run_.counts.filesTested > 0 || run_.counts.errorCount > 0 || !run_.unitShown.empty()) {
            Label2->setVisible(true);
            lblErrors->setVisible(true);
            lblErrors->setText(QString::number(run_.counts.errorCount));
        }
        checkCmdDelRepButtonState();
        if (offerReports) {
            cmdShowErr->setEnabled(true);
            cmdShowErr_Click();
        }
    });
}

void frmDiag::showIdle() {
    cmdExit->setEnabled(true);
    cmdTest->setEnabled(true);
    cmdStop->setVisible(false);
    pBar->setVisible(false);
}

void frmDiag::cmdStop_Click() {
    runGuarded(services_.dialogs, [&] {
        stopTests(run_, context(), filter());
        showRows();
        showRun();
    });
}

void frmDiag::cmdCheckAll_Click() {
    cmdDelCon->setVisible(false);
    if (run_.rows.empty()) return;
    selectAllRows(run_, true);
    showRows();
    diagList->setFocus();
    diagList->scrollToTop();
}

void frmDiag::cmdUncheckAll_Click() {
    cmdDelCon->setVisible(false);
    if (run_.rows.empty()) return;
    selectAllRows(run_, false);
    showRows();
    diagList->setFocus();
    diagList->scrollToTop();
}

// A row of the consist section is the consist the editor button sends.
void frmDiag::diagList_Click(const QModelIndex& index) {
    if (run_.section != TestSection::Consists || !index.isValid()) return;
    cmdEditCon->setEnabled(true);
    consistClicked_ = stdString(index.data().toString());
}

void frmDiag::cmdEditCon_Click() {
    runGuarded(services_.dialogs, [&] {
        if (const auto path = consistOfRow(context(), consistClicked_)) {
            consistToEdit_ = path;
            accept();
        }
    });
}

// A failed consist's name opens it in the editor; the units' files listed there do nothing.
void frmDiag::listTestedSounds_DblClick(const QModelIndex& index) {
    if (run_.running || !index.isValid()) return;
    runGuarded(services_.dialogs, [&] {
        if (const auto path = consistOfRow(context(), stdString(index.data().toString()))) {
            consistToEdit_ = path;
            accept();
        }
    });
}

void frmDiag::cmdDelCon_Click() {
    runGuarded(services_.dialogs, [&] { deleteFailedConsists(run_, context()); });
    Command1_Click(2);
}

void frmDiag::checkCmdDelRepButtonState() {
    cmdDelRep->setEnabled(anyReportExists(state_.paths, services_.fs));
}

void frmDiag::cmdDelRep_Click() {
    runGuarded(services_.dialogs, [&] {
        deleteAllReports(state_.paths, services_.fs);
        cmdDelRep->setEnabled(false);
        cmdShowErr->setEnabled(false);
        run_.counts.errorCount = 0;
        run_.counts.levels = {};
        run_.counts.categories = {};
        showRun();
        services_.dialogs.report("Reports deleted!", Icon::Information);
    });
}

void frmDiag::cmdShowErr_Click() {
    runGuarded(services_.dialogs, [&] {
        if (!errTyp_) errTyp_ = new frmErrTyp(state_, services_, this);
        if (errTyp_->lightButtons(run_.testMode)) {
            errTyp_->show();
            errTyp_->raise();
        } else {
            errTyp_->hide();
        }
    });
}

// Ctrl with the left button opens the row's unit in the text editor.
bool frmDiag::eventFilter(QObject* watched, QEvent* event) {
    if (watched == diagList->viewport() && event->type() == QEvent::MouseButtonPress) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton && (mouse->modifiers() & Qt::ControlModifier)) {
            const QModelIndex index = diagList->indexAt(mouse->position().toPoint());
            if (index.isValid())
                runGuarded(services_.dialogs, [&] {
                    openTestRowInEditor(context(), stdString(index.data().toString()));
                });
            return true;  // the selection stays as it was
        }
    }
    return QDialog::eventFilter(watched, event);
}

// A run in progress is stopped first: the window closes once it has ended.
void frmDiag::closeEvent(QCloseEvent* event) {
    if (run_.running) {
        cmdStop_Click();
        event->ignore();
        return;
    }
    if (errTyp_) errTyp_->hide();
    QDialog::closeEvent(event);
}

void frmDiag::reject() {
    if (run_.running) {
        cmdStop_Click();
        return;
    }
    if (errTyp_) errTyp_->hide();
    QDialog::reject();
}

}  // namespace rakeyard::ui
