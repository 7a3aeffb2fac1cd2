#include "ui/windows/frmHelp.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "ui/windows/qt_services.h"

namespace rakeyard::ui {

frmHelp::frmHelp(const QString& guidePath, QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName("frmHelp");
    setWindowTitle("Rakeyard Help");
    setAttribute(Qt::WA_DeleteOnClose);
    txtGuide = new QTextBrowser(this);
    txtGuide->setObjectName("txtGuide");
    txtGuide->setOpenExternalLinks(true);
    txtGuide->setSource(QUrl::fromLocalFile(guidePath));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(txtGuide);
    resize(720, 640);
}

QString frmHelp::guidePath(const std::string& programFolder) {
    const QStringList places = {QCoreApplication::applicationDirPath(),
                                rakeyard::ui::qs(programFolder)};
    for (const QString& folder : places) {
        const QString path = folder + "/guide.html";
        if (!folder.isEmpty() && QFileInfo::exists(path)) return path;
    }
    return {};
}

bool frmHelp::showGuide(const std::string& programFolder, QWidget* parent) {
    static QPointer<frmHelp> window;
    const QString path = guidePath(programFolder);
    if (path.isEmpty()) return false;
    if (!window) window = new frmHelp(path, parent);
    window->show();
    window->raise();
    window->activateWindow();
    return true;
}

}  // namespace rakeyard::ui
