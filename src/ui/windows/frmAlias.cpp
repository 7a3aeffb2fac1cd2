#include "ui/windows/frmAlias.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QStatusBar>
#include <QVBoxLayout>

#include "core/alias/alias_engine.h"
#include "core/alias/alias_folder.h"
#include "core/alias/alias_restore.h"
#include "core/settings/settings_file.h"
#include "ui/support/handler_guard.h"
#include "ui/support/window_helpers.h"
#include "ui/windows/Dialog.h"
#include "ui/windows/frmAliasCabSnd.h"
#include "ui/windows/frmAliasEngCab.h"
#include "ui/windows/frmAliasEngSnd.h"
#include "ui/windows/qt_services.h"
#include "ui/windows/wait_scope.h"

namespace rakeyard::ui {

namespace {

// A list under its caption, which takes the room the window gives it.
QListWidget* captionedList(const QString& name, const QString& caption, QGridLayout* grid,
                           int column, QWidget* parent) {
    auto* list = named(new QListWidget(parent), name);
    auto* label = new QLabel(caption, parent);
    label->setBuddy(list);
    grid->addWidget(label, 0, column);
    grid->addWidget(list, 1, column);
    return list;
}

// The hourglass for as long as the scope lasts, whatever leaves it.
class BusyCursor {
public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

void fill(QListWidget* list, const std::vector<std::string>& lines) {
    list->clear();
    for (const std::string& line : lines)
        list->addItem(qs(line));
}

}  // namespace

frmAlias::frmAlias(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmAlias");
    setWindowTitle("Aliases");
    auto* grid = new QGridLayout();
    listNotAliased =
        captionedList("listNotAliased", "Engine to alias / Restore engine", grid, 0, this);
    listBaseEngineCabs = captionedList("listBaseEngineCabs", "Sources for cabviews", grid, 1, this);
    listBaseEngineSounds =
        captionedList("listBaseEngineSounds", "Sources for sounds", grid, 2, this);
    grid->setRowStretch(1, 1);
    Check1 = named(new QCheckBox("  Backup aliased engine", this), "Check1");
    Check1->setChecked(true);
    cmdEngAlias = button("cmdEngAlias", "Alias from &Engine", this);
    cmdEngAlias->setToolTip("Alias cabview and sounds from an existing engine");
    cmdEngCabFolderAlias = button("cmdEngCabFolderAlias", "Alias &cabs from Folder", this);
    cmdEngSndFolderAlias = button("cmdEngSndFolderAlias", "Alias &sounds from Folder", this);
    cmdRestore = button("cmdRestore", "&Restore engine", this);
    Command1 = button("Command1", "E&xit", this);
    StatusBar = named(new QStatusBar(this), "StatusBar");
    StatusBar->setSizeGripEnabled(false);

    auto* buttons = new QHBoxLayout();
    buttons->addWidget(Check1);
    buttons->addStretch(1);
    for (QPushButton* b :
         {cmdEngAlias, cmdEngCabFolderAlias, cmdEngSndFolderAlias, cmdRestore, Command1})
        buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid, 1);
    layout->addLayout(buttons);
    layout->addWidget(StatusBar);
    resize(900, 480);

    for (QListWidget* list : {listNotAliased, listBaseEngineCabs, listBaseEngineSounds})
        connect(list, &QListWidget::currentTextChanged, this, &frmAlias::showEngine);
    connect(cmdEngAlias, &QPushButton::clicked, this, &frmAlias::cmdEngAlias_Click);
    connect(cmdEngCabFolderAlias, &QPushButton::clicked, this,
            &frmAlias::cmdEngCabFolderAlias_Click);
    connect(cmdEngSndFolderAlias, &QPushButton::clicked, this,
            &frmAlias::cmdEngSndFolderAlias_Click);
    connect(cmdRestore, &QPushButton::clicked, this, &frmAlias::cmdRestore_Click);
    connect(Command1, &QPushButton::clicked, this, &frmAlias::Command1_Click);
    connect(this, &QDialog::rejected, this, [this] {
        runGuarded(services_.dialogs, [&] { removeLeftoverCopies(state_.paths, services_); });
    });
}

void frmAlias::Form_Load() {
    runGuarded(services_.dialogs, [&] {
        state_.settings = readSettings(services_.fs, state_.paths.programFolder);
        if (state_.settings.showAliasWarning == 0) {
            Dialog warning(state_, services_, this);
            warning.exec();
        }
        WaitScope wait("Please wait...", services_.progress, this);
        removeLeftoverCopies(state_.paths, services_);
        buildLists();
    });
}

void frmAlias::buildLists() {
    {
        BusyCursor busy;
        lists_ = buildAliasLists(state_.catalogue, services_);
    }
    fill(listNotAliased, lists_.notAliased);
    fill(listBaseEngineCabs, lists_.cabSources);
    fill(listBaseEngineSounds, lists_.soundSources);
}

// The status bar names the engine's folder and its display name.
void frmAlias::showEngine(const QString& line) {
    const EngineRecord* engine =
        line == qs(kNoAlias) ? nullptr : findAliasEngine(state_.catalogue, stdString(line));
    if (!engine) {
        StatusBar->clearMessage();
        return;
    }
    StatusBar->showMessage(qs(engine->folderName + "  -  " + engine->displayName));
}

std::string frmAlias::chosenLine(const QListWidget* list) const {
    const QListWidgetItem* item = list->currentItem();
    return item && item->isSelected() ? stdString(item->text()) : std::string();
}

void frmAlias::cmdEngAlias_Click() {
    runGuarded(services_.dialogs, [&] {
        EngineAliasChoice choice;
        choice.target = chosenLine(listNotAliased);
        choice.cabSource = chosenLine(listBaseEngineCabs);
        choice.soundSource = chosenLine(listBaseEngineSounds);
        choice.backup = Check1->isChecked();
        // The outcome has been told; the lists are built again on the next opening.
        BusyCursor busy;
        (void)aliasFromEngine(lists_, choice, state_.catalogue, state_.paths, services_);
    });
}

void frmAlias::cmdEngCabFolderAlias_Click() {
    runGuarded(services_.dialogs, [&] {
        const std::string target = chosenLine(listNotAliased);
        if (target.empty()) {
            services_.dialogs.report("You must provide an engine to alias!", Icon::Exclamation);
            return;
        }
        frmAliasEngCab window(state_, services_, this);
        window.exec();
        (void)aliasCabsFromFolder(target, stdString(window.chosen()), Check1->isChecked(),
                                  state_.catalogue, state_.paths, services_);
    });
}

void frmAlias::cmdEngSndFolderAlias_Click() {
    runGuarded(services_.dialogs, [&] {
        const std::string target = chosenLine(listNotAliased);
        if (target.empty()) {
            services_.dialogs.report("You must provide an engine to alias!", Icon::Exclamation);
            return;
        }
        frmAliasEngSnd engineSound(state_, services_, this);
        engineSound.exec();
        frmAliasCabSnd cabSound(state_, services_, this);
        cabSound.exec();
        (void)aliasSoundsFromFolder(target, stdString(engineSound.chosen()),
                                    stdString(cabSound.chosen()), Check1->isChecked(),
                                    state_.catalogue, state_.paths, services_);
    });
}

void frmAlias::cmdRestore_Click() {
    runGuarded(services_.dialogs, [&] {
        (void)restoreEngine(chosenLine(listNotAliased), state_.catalogue, services_);
    });
}

void frmAlias::Command1_Click() {
    reject();
}

}  // namespace rakeyard::ui
