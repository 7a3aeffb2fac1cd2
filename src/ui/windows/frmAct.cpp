#include "ui/windows/frmAct.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include "core/platform/system_words.h"
#include "core/tester/loose_test.h"
#include "core/tester/reports.h"
#include "ui/support/handler_guard.h"
#include "ui/support/window_helpers.h"
#include "ui/windows/frmDiag.h"
#include "ui/windows/frmErrTyp.h"
#include "ui/windows/qt_services.h"
#include "ui/windows/wait_scope.h"

namespace rakeyard::ui {

namespace {

QListWidget* list(const QString& name, QWidget* parent) {
    auto* widget = named(new QListWidget(parent), name);
    widget->setMinimumWidth(180);
    return widget;
}

void fill(QListWidget* widget, const std::vector<std::string>& lines) {
    widget->clear();
    for (const std::string& line : lines)
        widget->addItem(qs(line));
}

// A list under its caption, with its count at the caption's right.
QVBoxLayout* captioned(const QString& caption, QLabel* count, QWidget* content) {
    auto* top = new QHBoxLayout();
    top->addWidget(new QLabel(caption));
    top->addStretch();
    if (count) top->addWidget(count);
    auto* column = new QVBoxLayout();
    column->addLayout(top);
    column->addWidget(content, 1);
    return column;
}

}  // namespace

frmAct::frmAct(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmAct");
    setWindowTitle("Consists from activities");
    listRoutes = list("listRoutes", this);
    listAct = list("listAct", this);
    listCon = list("listCon", this);
    listCon->setToolTip("You can delete any consist with the 'Del' key.");
    listMiss = list("listMiss", this);
    lblRoutes = textLabel("lblRoutes", "0", this);
    lblActivities = textLabel("lblActivities", "0", this);
    lblConsists = textLabel("lblConsists", "0", this);
    Label9 = textLabel("Label9", "0", this);
    cmdTest = button("cmdTest", "&Test consists", this);
    cmdTestLoose = button("cmdTestLoose", "Test &loose consists", this);
    Check1 = named(new QCheckBox("Test loose consists in all activities", this), "Check1");
    cmdLoad = button("cmdLoad", "&Send consist to editor", this);
    cmdShowErr = button("cmdShowErr", "S&how lists", this);
    cmdShowErr->setToolTip("Show error lists");
    Command1 = button("Command1", "&Exit", this);
    cmdLoad->setEnabled(false);
    cmdShowErr->setEnabled(false);

    // The consists' lines are the longest: their list takes two thirds of the width.
    auto* top = new QHBoxLayout();
    top->addLayout(captioned("Routes", lblRoutes, listRoutes), 1);
    top->addLayout(captioned("Activities", lblActivities, listAct), 1);
    auto* loose = new QHBoxLayout();
    loose->addWidget(new QLabel("Loose"));
    loose->addWidget(Label9);
    loose->addStretch();
    auto* consists = captioned("Consists", lblConsists, listCon);
    consists->addLayout(loose);
    auto* bottom = new QHBoxLayout();
    bottom->addLayout(consists, 2);
    bottom->addLayout(captioned("Missing consists", nullptr, listMiss), 1);
    auto* lists = new QVBoxLayout();
    lists->addLayout(top, 1);
    lists->addLayout(bottom, 1);
    auto* buttons = new QHBoxLayout();
    for (QWidget* widget : std::initializer_list<QWidget*>{cmdTest, cmdTestLoose, Check1})
        buttons->addWidget(widget);
    buttons->addStretch();
    for (QWidget* widget : std::initializer_list<QWidget*>{cmdLoad, cmdShowErr, Command1})
        buttons->addWidget(widget);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists, 1);
    layout->addLayout(buttons);
    resize(900, 560);

    connect(listRoutes, &QListWidget::currentRowChanged, this, &frmAct::listRoutes_Click);
    connect(listAct, &QListWidget::currentRowChanged, this, &frmAct::listAct_Click);
    connect(listCon, &QListWidget::currentRowChanged, this, &frmAct::listCon_Click);
    connect(listCon, &QListWidget::itemActivated, this, &frmAct::listCon_DblClick);
    connect(listMiss, &QListWidget::itemActivated, this, &frmAct::listMiss_DblClick);
    connect(cmdLoad, &QPushButton::clicked, this, &frmAct::listCon_DblClick);
    connect(cmdTest, &QPushButton::clicked, this, &frmAct::cmdTest_Click);
    connect(cmdTestLoose, &QPushButton::clicked, this, &frmAct::cmdTestLoose_Click);
    connect(Check1, &QCheckBox::toggled, this, &frmAct::Check1_Click);
    connect(cmdShowErr, &QPushButton::clicked, this, &frmAct::cmdShowErr_Click);
    connect(Command1, &QPushButton::clicked, this, &QDialog::close);
    listCon->installEventFilter(this);
    Form_Load();
}

void frmAct::Form_Load() {
    runGuarded(services_.dialogs, [&] {
        openActivityScan(state_.paths, state_.routes, scan_, services_);
        fill(listRoutes, scan_.routeNames);
        lblRoutes->setText(QString::number(listRoutes->count()));
        cmdShowErr->setEnabled(scan_.reportsExist);
    });
}

void frmAct::listRoutes_Click() {
    if (!listRoutes->currentItem()) return;
    cmdLoad->setEnabled(false);
    runGuarded(services_.dialogs, [&] {
        (void)selectRoute(state_.paths, state_.routes, scan_, services_,
                          stdString(listRoutes->currentItem()->text()));
    });
    fill(listAct, scan_.activityNames);
    listCon->clear();
    listMiss->clear();
    lblActivities->setText(QString::number(listAct->count()));
    Check1_Click();
}

// With all activities to test, the first one is shown.
void frmAct::Check1_Click() {
    if (Check1->isChecked() && listAct->count() > 0) listAct->setCurrentRow(0);
}

void frmAct::cmdTestLoose_Click() {
    if (listAct->count() == 0 || (!Check1->isChecked() && !listAct->currentItem())) return;
    std::vector<std::string> names;
    if (Check1->isChecked()) {
        names = scan_.activityNames;
    } else {
        names.push_back(stdString(listAct->currentItem()->text()));
    }
    bool found = false;
    runGuarded(services_.dialogs, [&] {
        WaitScope wait("Please wait. Checking files...", services_.progress, this);
        found = testLooseConsists(state_.paths, state_.routes, scan_, services_, names);
    });
    if (!found) {
        services_.dialogs.report("No errors found.", Icon::Information);
    } else if (state_.paths.editorPath.empty()) {
        services_.dialogs.report(kNoEditorForReports, Icon::Exclamation);
    } else {
        cmdShowErr->setEnabled(true);
        cmdShowErr_Click();
    }
}

void frmAct::listAct_Click() {
    if (!listAct->currentItem()) return;
    cmdLoad->setEnabled(false);
    runGuarded(services_.dialogs, [&] {
        selectActivity(state_.paths, state_.routes, scan_, services_,
                       stdString(listAct->currentItem()->text()));
    });
    showConsists();
}

void frmAct::showConsists() {
    fill(listCon, scan_.consistLines);
    fill(listMiss, scan_.missing);
    Label9->setText(QString::number(scan_.looseCount));
    lblConsists->setText(QString::number(listCon->count()));
}

void frmAct::listCon_Click() {
    if (!listCon->currentItem()) return;
    cmdLoad->setEnabled(true);
    consistToLoad_ = getConsistName(state_.paths, stdString(listCon->currentItem()->text()));
}

// The consist goes to the editor, which loads it once this window has closed.
void frmAct::listCon_DblClick() {
    listCon_Click();
    if (!consistToLoad_) return;
    consistToEdit_ = consistToLoad_;
    accept();
}

// The file goes to the trash once the user agrees; the lists then show what is left.
void frmAct::listCon_Delete() {
    listCon_Click();
    if (!consistToLoad_) return;
    runGuarded(services_.dialogs, [&] {
        const Answer answer = services_.dialogs.ask(
            "Do you want to move the consist " + *consistToLoad_ + " to the " +
                std::string(kTrashName) + "?",
            Buttons::YesNo, Icon::Question, Answer::No, "Delete consist");
        if (answer != Answer::Yes) return;
        (void)services_.desktop.moveToTrash(services_.fs.resolve(*consistToLoad_));
    });
    listAct_Click();
}

// A missing consist's name is kept for the editor, which starts a new consist of that name.
void frmAct::listMiss_DblClick() {
    if (!listMiss->currentItem()) return;
    const std::string line = stdString(listMiss->currentItem()->text());
    missingToBuild_ = line.size() > 4 ? line.substr(0, line.size() - 4) : std::string();
    accept();
}

void frmAct::cmdTest_Click() {
    if (scan_.consistLines.empty()) return;
    frmDiag window(state_, services_, this);
    window.setWindowModality(Qt::ApplicationModal);  // while its run shows, and after
    window.show();
    window.testGivenConsists(consistRowsOf(scan_.consistLines));
    window.exec();
    if (!window.consistToEdit()) return;
    consistToEdit_ = window.consistToEdit();
    accept();
}

void frmAct::cmdShowErr_Click() {
    auto* window = new frmErrTyp(state_, services_, this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    if (window->lightButtons("act")) window->show();
}

bool frmAct::eventFilter(QObject* watched, QEvent* event) {
    if (watched == listCon && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        listCon_Delete();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace rakeyard::ui
