#include "ui/windows/frmErrTyp.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/platform/paths.h"
#include "core/settings/shell_helpers.h"
#include "core/tester/reports.h"
#include "ui/support/handler_guard.h"
#include "ui/support/window_helpers.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

namespace {

constexpr const char* kCaptions[] = {"Missing files", "Syntax errors", "Shape files",
                                     "Cabview files", "Sound files",   "Other errors",
                                     "&Duplicate files"};

constexpr const char* kHelp[] = {
    "If any file is missing then it will be listed in this report. Please note that sometimes "
    "a file isn't really missing, only the name is wrong. To correct this error check the "
    "folder where the file was supposed to be and rename it if necessary.",
    "Syntax errors are often caused by missing delimiters. A delimiter is any character marking "
    "the beginning and the end of a field. Quotes and parenthesis are the delimiters MSTS uses. "
    "Edit another file with the same extension and compare it with the one giving the error.",
    "A shape file has the extension .s and a shape definition file the extension .sd . Only the "
    ".sd files can be edited. Sometimes it happens that the .sd file is stating a shape file "
    "that doesn't exist in the same folder. Check what's the name of the .s file inside that "
    "folder and make the line to state the same name.",
    "With CabView files (.cvf extension) there can happen several errors, but most of them are "
    "related with missing texture files (.ace). Also syntax errors can sometimes happen. Any "
    "error related with CabView files will be reported here.",
    "With Sound files (.sms extension) there can happen several errors, but most of them are "
    "related with missing sound files (.wav). Also syntax errors can sometimes happen. Any "
    "error related with Sound files will be reported here.",
    "Several kinds of errors will be reported here. If the line \"Wagon\" or \"Engine\" inside "
    "a file doesn't have the same name as the file it will be considered as an error. To "
    "correct this, check for the line stating \"Wagon ( xxxxx )\" inside the file and make the "
    "name enclosed to be the same as the file (without the extension).",
    "Duplicate engine or wagon file names can cause problems with MSTS and/or the Activity "
    "Editor. This report will list any file with the same name as any other one in a different "
    "folder."};

}  // namespace

frmErrTyp::frmErrTyp(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmErrTyp");
    setWindowTitle("Error reports by type");
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout();
    for (int i = 0; i < 7; ++i) {
        Command1[i] = button(QString("Command1_%1").arg(i), kCaptions[i], this);
        Command1[i]->setEnabled(false);
        Command1[i]->installEventFilter(this);
        grid->addWidget(Command1[i], i, 0);
        connect(Command1[i], &QPushButton::clicked, this, [this, i] { Command1_Click(i); });
    }
    auto* help = new QVBoxLayout();
    for (int i = 0; i < 7; ++i) {
        Label1[i] = textLabel(QString("Label1_%1").arg(i), kHelp[i], this);
        Label1[i]->setVisible(false);
        Label1[i]->setMinimumWidth(260);
        help->addWidget(Label1[i]);
    }
    help->addStretch(1);
    grid->addLayout(help, 0, 1, 7, 1);
    grid->setColumnStretch(1, 1);
    layout->addLayout(grid, 1);
    Label2 = textLabel("Label2",
                       "For more details about errors and how to fix them, see the Help file "
                       "under the topic \"Error messages\".",
                       this);
    layout->addWidget(Label2);
    setMouseTracking(true);
    resize(560, 320);
}

bool frmErrTyp::lightButtons(const std::string& testMode) {
    testMode_ = testMode;
    for (int kind = 0; kind < 7; ++kind) {
        const std::optional<std::string> report = reportOfKind(testMode, kind);
        // A mode has only the buttons of its reports: a consist's two, no cab views for wagons.
        Command1[kind]->setVisible(report.has_value());
        if (report && services_.fs.isFile(joinPath(reportsFolder(state_.paths), *report)))
            Command1[kind]->setEnabled(true);
    }
    if (testMode == "con" && !Command1[0]->isEnabled() && !Command1[1]->isEnabled()) {
        services_.dialogs.report("Invalid references found!", Icon::Stop);
        return false;
    }
    return true;
}

void frmErrTyp::Command1_Click(int index) {
    runGuarded(services_.dialogs, [&] {
        const std::optional<std::string> report = reportOfKind(testMode_, index);
        if (!report) return;
        (void)startTextEditor(state_.paths, joinPath(reportsFolder(state_.paths), *report),
                              services_);
    });
}

void frmErrTyp::showHelp(int index) {
    if (index == lastHelp_) return;
    for (QLabel* label : Label1)
        label->setVisible(false);
    if (index >= 0) Label1[index]->setVisible(true);
    lastHelp_ = index;
}

bool frmErrTyp::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter)
        for (int i = 0; i < 7; ++i)
            if (watched == Command1[i]) showHelp(i);
    return QDialog::eventFilter(watched, event);
}

// Over the window itself no help is shown.
void frmErrTyp::mouseMoveEvent(QMouseEvent* event) {
    showHelp(-1);
    QDialog::mouseMoveEvent(event);
}

void frmErrTyp::hideEvent(QHideEvent* event) {
    for (QPushButton* button : Command1)
        button->setEnabled(false);
    QDialog::hideEvent(event);
}

}  // namespace rakeyard::ui
