#include "ui/windows/frmLoadCon.h"

#include <QApplication>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>

#include "core/app/consist_flows.h"
#include "core/settings/settings_file.h"
#include "ui/support/handler_guard.h"
#include "ui/windows/qt_services.h"
#include "ui/support/window_helpers.h"

namespace rakeyard::ui {

frmLoadCon::frmLoadCon(AppState& state, Services& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services) {
    setObjectName("frmLoadCon");
    setWindowTitle("Load consist");
    conList = named(new QListWidget(this), "conList");
    conList->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    conList->installEventFilter(this);
    conList->viewport()->installEventFilter(this);
    Label1 = named(new QLabel(this), "Label1");
    Label1->setToolTip("Name of the consist");
    QFont bold = Label1->font();
    bold.setBold(true);
    Label1->setFont(bold);
    Label2 = named(new QLabel("0", this), "Label2");
    Label2->setToolTip("Number of consist files");
    OKButton = button("OKButton", "OK", this);
    Command1 = button("Command1", "Cancel", this);
    OKButton->setDefault(true);
    auto* bottom = new QHBoxLayout();
    bottom->addWidget(new QLabel("Files:", this));
    bottom->addWidget(Label2);
    bottom->addStretch(1);
    bottom->addWidget(OKButton);
    bottom->addWidget(Command1);
    auto* layout = new QGridLayout(this);
    layout->addWidget(Label1, 0, 0);
    layout->addWidget(conList, 1, 0);
    layout->addLayout(bottom, 2, 0);
    resize(560, 460);
    connect(conList, &QListWidget::currentRowChanged, this, &frmLoadCon::conList_Click);
    connect(conList, &QListWidget::itemDoubleClicked, this, &frmLoadCon::OKButton_Click);
    connect(OKButton, &QPushButton::clicked, this, &frmLoadCon::OKButton_Click);
    connect(Command1, &QPushButton::clicked, this, &frmLoadCon::Command1_Click);
    connect(this, &QDialog::rejected, this, [this] { state_.consist.consistToLoad.clear(); });
    readConsistFiles();
}

void frmLoadCon::readConsistFiles() {
    runGuarded(services_.dialogs, [&] {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        rakeyard::ConsistChooser fresh;
        rakeyard::readConsistFiles(state_, services_, fresh);
        chooser_ = std::move(fresh);
        QApplication::restoreOverrideCursor();
    });
    const QSignalBlocker quiet(conList);
    conList->clear();
    for (const std::string& line : chooser_.lines)
        conList->addItem(qs(line));
    Label2->setText(qs(chooser_.countText()));
}

void frmLoadCon::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    QTimer::singleShot(0, this, &frmLoadCon::Form_Activate);
}

void frmLoadCon::Form_Activate() {
    runGuarded(services_.dialogs, [&] {
        conList->setFocus();
        state_.settings = rakeyard::readSettings(services_.fs, state_.paths.programFolder);
        const int line = rakeyard::lineOfLastConsist(chooser_, state_.settings.lastConsist);
        if (line >= 0) conList->setCurrentRow(line);
    });
}

void frmLoadCon::conList_Click() {
    const int index = conList->currentRow();
    if (index < 0) return;
    runGuarded(services_.dialogs, [&] {
        const auto name = rakeyard::chooseConsistLine(state_, services_, chooser_, index);
        Label1->setText(name ? qs(*name) : QString());
    });
}

void frmLoadCon::OKButton_Click() {
    const int index = conList->currentRow();
    if (index < 0) return;
    runGuarded(services_.dialogs, [&] {
        hide();
        rakeyard::loadChosenConsist(state_, services_, chooser_, index);
        loaded_ = true;
    });
    done(QDialog::Accepted);
}

void frmLoadCon::Command1_Click() {
    state_.consist.consistToLoad.clear();
    reject();
}

bool frmLoadCon::eventFilter(QObject* watched, QEvent* event) {
    if (watched == conList && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Delete) {
            conList_KeyDown(key);
            return true;
        }
        if (typedCharacter(key->text())) return true;
    }
    if (watched == conList->viewport() && event->type() == QEvent::MouseButtonPress)
        conList_MouseDown(static_cast<QMouseEvent*>(event));
    return QDialog::eventFilter(watched, event);
}

void frmLoadCon::keyPressEvent(QKeyEvent* event) {
    if (!typedCharacter(event->text())) QDialog::keyPressEvent(event);
}

// A printable key selects the first line that begins with it; true when the key was taken.
bool frmLoadCon::typedCharacter(const QString& typed) {
    if (typed.size() != 1 || !typed[0].isPrint() || typed[0].isSpace()) return false;
    const int line = rakeyard::lineStartingWith(chooser_, stdString(typed));
    if (line >= 0) conList->setCurrentRow(line);
    return true;
}

void frmLoadCon::conList_KeyDown(QKeyEvent* event) {
    if (event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)) return;
    const int index = conList->currentRow();
    if (index < 0) return;
    runGuarded(services_.dialogs,
               [&] { rakeyard::deleteChosenConsist(state_, services_, chooser_, index); });
    readConsistFiles();
    conList->setCurrentRow(std::min(index, conList->count() - 1));
}

void frmLoadCon::conList_MouseDown(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !(event->modifiers() & Qt::ControlModifier)) return;
    const QModelIndex item = conList->indexAt(event->position().toPoint());
    if (!item.isValid()) return;
    runGuarded(services_.dialogs,
               [&] { rakeyard::editChosenConsist(state_, services_, chooser_, item.row()); });
}

}  // namespace rakeyard::ui
