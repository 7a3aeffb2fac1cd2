#pragma once
#include <QWidget>
#include <string>

class QTextBrowser;
namespace rakeyard::ui {

// The user guide that ships beside the program (guide.html), in a window of its own.
class frmHelp : public QWidget {
    Q_OBJECT
public:
    explicit frmHelp(const QString& guidePath, QWidget* parent = nullptr);
    // Shows the one guide window, made on first use. The guide is looked for beside the
    // executable, then in the program's folder. False when it is in neither.
    static bool showGuide(const std::string& programFolder, QWidget* parent);
    // Where showGuide finds the guide; "" when nowhere.
    static QString guidePath(const std::string& programFolder);

    QTextBrowser* txtGuide;
};

}  // namespace rakeyard::ui
