#include "ui/windows/frmDep.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QVBoxLayout>

#include "core/consist/consist_reader.h"
#include "core/consist/save_offer.h"
#include "core/platform/paths.h"
#include "core/settings/settings_file.h"
#include "core/tools/consists_using.h"
#include "ui/support/handler_guard.h"
#include "ui/support/twips.h"
#include "ui/support/window_helpers.h"
#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

frmDep::frmDep(AppState& state, Services& services, const UnitRecord& unit, bool isEngine,
               QWidget* parent)
    : QDialog(parent), state_(state), services_(services), unit_(unit) {
    setObjectName("frmDep");
    setWindowTitle(isEngine ? "Engine dependencies..." : "Wagon dependencies...");
    conList = named(new QListWidget(this), "conList");
    conList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    conList->setToolTip("Double click a consist to load it into the editor");
    Command1 = button("Command1", "&Delete", this);
    Command1->setToolTip("Moves the selected consists to the Trash");
    Command2 = button("Command2", "&Close", this);
    auto* buttons = new QHBoxLayout();
    buttons->addWidget(Command1);
    buttons->addStretch(1);
    buttons->addWidget(Command2);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(qs("Consists using " + unit.displayName + ":"), this));
    layout->addWidget(conList, 1);
    layout->addLayout(buttons);
    resize(420, 360);
    const SettingsRecord& record = state_.settings;
    if (record.dependenciesLeft || record.dependenciesTop)
        move(twipsToPixels(record.dependenciesLeft), twipsToPixels(record.dependenciesTop));
    if (record.dependenciesWidth > 0 && record.dependenciesHeight > 0)
        resize(twipsToPixels(record.dependenciesWidth), twipsToPixels(record.dependenciesHeight));
    connect(conList, &QListWidget::itemDoubleClicked, this, &frmDep::conList_DblClick);
    connect(Command1, &QPushButton::clicked, this, &frmDep::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::accept);
}

bool frmDep::Form_Load() {
    bool found = false;
    runGuarded(services_.dialogs, [&] {
        for (const std::string& name :
             consistsUsingUnit(unit_, state_.paths.consistsPath, services_.fs))
            conList->addItem(qs(name));
        found = conList->count() > 0;
        if (!found)
            services_.dialogs.report("There are no consists using this unit!", Icon::Information);
    });
    return found;
}

// The consist replaces the one in the editor, which is offered for saving first.
void frmDep::conList_DblClick() {
    runGuarded(services_.dialogs, [&] {
        const QListWidgetItem* item = conList->currentItem();
        if (!item || !clearConsist(state_, services_)) return;
        state_.consist.consistToLoad = joinPath(state_.paths.consistsPath, stdString(item->text()));
        (void)loadConsistFile(state_, services_);
    });
}

void frmDep::Command1_Click() {
    runGuarded(services_.dialogs, [&] {
        for (QListWidgetItem* item : conList->selectedItems())
            if (trashListedConsist(state_.paths.consistsPath, stdString(item->text()), services_))
                delete item;
    });
}

void storeDependenciesPlace(const QWidget& window, AppState& state, Services& services) {
    runGuarded(services.dialogs, [&] {
        SettingsRecord record = readSettings(services.fs, state.paths.programFolder);
        if (!window.isMinimized()) {
            record.dependenciesLeft = pixelsToTwips(window.frameGeometry().left());
            record.dependenciesTop = pixelsToTwips(window.frameGeometry().top());
            record.dependenciesWidth = pixelsToTwips(window.width());
            record.dependenciesHeight = pixelsToTwips(window.height());
        }
        state.settings = record;
        (void)saveSettings(record, state.paths, services);
    });
}

void frmDep::done(int result) {
    storeDependenciesPlace(*this, state_, services_);
    QDialog::done(result);
}

}  // namespace rakeyard::ui
