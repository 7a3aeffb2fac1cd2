// The controls of the main window and where they stand.
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStatusBar>
#include <QStyle>
#include <QVBoxLayout>

#include "ui/widgets/slot_strip.h"
#include "ui/widgets/toolbar_icons.h"
#include "ui/widgets/unit_list_view.h"
#include "ui/windows/frmMain.h"

namespace rakeyard::ui {

namespace {

template <typename Widget>
Widget* named(Widget* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}

QPixmap arrowPicture(bool pointsLeft) {
    QPixmap pixmap(28, 56);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(30, 90, 200));
    const QPointF left[] = {{4, 28}, {24, 10}, {24, 46}};
    const QPointF right[] = {{24, 28}, {4, 10}, {4, 46}};
    p.drawPolygon(pointsLeft ? left : right, 3);
    p.end();
    pixmap.setDevicePixelRatio(2);
    return pixmap;
}

QLineEdit* searchBox(const QString& name, const QString& prompt, QWidget* parent) {
    auto* box = named(new QLineEdit(parent), name);
    box->setPlaceholderText(prompt);
    box->setToolTip("Shows the units with every word typed in their name, file or folder. "
                    "Down goes to the list, Escape empties the box.");
    return box;
}

QPushButton* smallButton(const QString& name, const QString& caption, const QString& toolTip,
                         QWidget* parent) {
    auto* button = named(new QPushButton(caption, parent), name);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    return button;
}

}  // namespace

QWidget* frmMain::buildListsRow() {
    auto* row = new QWidget(this);
    auto* grid = new QGridLayout(row);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(2);
    locList = named(new UnitListView(UnitClass::Engine, row), "locList");
    wagList = named(new UnitListView(UnitClass::Wagon, row), "wagList");
    txtLocSearch = searchBox("txtLocSearch", "Search engines (Ctrl+F)", row);
    txtWagSearch = searchBox("txtWagSearch", "Search wagons (Ctrl+Shift+F)", row);
    locList->setAccessibleName("Engines");
    wagList->setAccessibleName("Wagons");
    Label3 = named(new QLabel("0", row), "Label3");
    Label4 = named(new QLabel("0", row), "Label4");
    const QIcon refresh = drawnButtonIcon("refresh");
    Command1 = smallButton("Command1", QString(), "Refresh engines list", row);
    Command2 = smallButton("Command2", QString(), "Refresh wagons list", row);
    Command1->setIcon(refresh);
    Command2->setIcon(refresh);
    Command1->setAccessibleName("Refresh engines list");
    Command2->setAccessibleName("Refresh wagons list");
    const QIcon edit = drawnButtonIcon("edit");
    Image3 = smallButton("Image3", QString(), "Change this engine's parameters", row);
    Image4 = smallButton("Image4", QString(), "Change this wagon's parameters", row);
    Image3->setIcon(edit);
    Image4->setIcon(edit);
    Image3->setAccessibleName("Change engine parameters");
    Image4->setAccessibleName("Change wagon parameters");
    lblLocFilter = named(new QLabel(row), "lblLocFilter");
    lblWagFilter = named(new QLabel(row), "lblWagFilter");
    auto header = [&](const QString& caption, QLabel* count, QLabel* filter, QPushButton* edit,
                      QPushButton* button) {
        auto* line = new QHBoxLayout();
        auto* title = new QLabel(caption, row);
        QFont bold = title->font();
        bold.setBold(true);
        title->setFont(bold);
        line->addWidget(title);
        line->addSpacing(4);
        line->addWidget(count);
        line->addSpacing(12);
        line->addWidget(filter);
        line->addStretch(1);
        line->addWidget(edit);
        line->addWidget(button);
        return line;
    };
    grid->addLayout(header("Engines:", Label3, lblLocFilter, Image3, Command1), 0, 0);
    grid->addLayout(header("Wagons:", Label4, lblWagFilter, Image4, Command2), 0, 1);
    grid->addWidget(txtLocSearch, 1, 0);
    grid->addWidget(txtWagSearch, 1, 1);
    grid->addWidget(locList, 2, 0);
    grid->addWidget(wagList, 2, 1);
    grid->setRowStretch(2, 1);
    return row;
}

QWidget* frmMain::buildStrip() {
    auto* strip = new QWidget(this);
    auto* grid = new QGridLayout(strip);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(1);
    for (int i = 0; i < 6; ++i) {
        Text1[i] = named(new QLineEdit(strip), QString("Text1_%1").arg(i));
        Text1[i]->setAlignment(Qt::AlignCenter);
        Text1[i]->setToolTip("UiD of this unit");
        Text1[i]->setMinimumWidth(60);
        Picture1[i] = new SlotPicture(i, strip);
        Label1[i] = named(new QLabel(strip), QString("Label1_%1").arg(i));
        // Names wrap from their first letter; a name longer than two lines is cut at its end
        // and stands whole in the tool-tip.
        Label1[i]->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        Label1[i]->setWordWrap(true);
        Label1[i]->setMinimumWidth(60);
        QFont small = Label1[i]->font();
        small.setPointSizeF(small.pointSizeF() * 0.85);
        Label1[i]->setFont(small);
        Label1[i]->setFixedHeight(QFontMetrics(small).lineSpacing() * 2 + 2);
        grid->addWidget(Text1[i], 0, i + 1);
        grid->addWidget(Picture1[i], 1, i + 1);
        grid->addWidget(Label1[i], 2, i + 1);
        grid->setColumnStretch(i + 1, 1);
    }
    grid->setRowStretch(1, 1);
    imgLeft = named(new QLabel(strip), "imgLeft");
    imgRight = named(new QLabel(strip), "imgRight");
    imgLeft->setPixmap(arrowPicture(true));
    imgRight->setPixmap(arrowPicture(false));
    imgLeft->setToolTip("More units on the previous page");
    imgRight->setToolTip("More units on the next page");
    for (QLabel* arrow : {imgLeft, imgRight}) {
        arrow->setFixedSize(16, 30);
        QSizePolicy keep = arrow->sizePolicy();
        keep.setRetainSizeWhenHidden(true);
        arrow->setSizePolicy(keep);
        arrow->setVisible(false);
    }
    grid->addWidget(imgLeft, 1, 0);
    grid->addWidget(imgRight, 1, 7);
    return strip;
}

QWidget* frmMain::buildHeaderRow() {
    auto* panel = new QWidget(this);
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(2);
    static constexpr const char* kCaptions[] = {
        "&File name:", "Consist &name:", "Max &velocity:", "D&urability:", "Se&rial:"};
    static constexpr const char* kTips[] = {
        "The consist's file name in the Consists folder, without \".con\"",
        "The consist's name as MSTS shows it", "MaxVelocity: speed and factor", "Durability",
        "Serial"};
    for (int i = 0; i < 5; ++i) {
        Text2[i] = named(new QLineEdit(panel), QString("Text2_%1").arg(i));
        Text2[i]->setToolTip(kTips[i]);
        auto* caption = new QLabel(kCaptions[i], panel);
        caption->setBuddy(Text2[i]);
        const int row = i < 2 ? 0 : 1;
        const int column = i < 2 ? i * 2 : (i - 2) * 2;
        grid->addWidget(caption, row, column);
        grid->addWidget(Text2[i], row, column + 1);
    }
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(3, 3);
    grid->setColumnStretch(5, 1);

    auto* totals = new QHBoxLayout();
    auto value = [&](const char* name, const QString& unit, const QString& tip) {
        QLabel* label = named(new QLabel("0", panel), name);
        label->setToolTip(tip);
        label->setMinimumWidth(56);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setFrameShape(QFrame::StyledPanel);
        totals->addWidget(label);
        totals->addWidget(new QLabel(unit, panel));
        totals->addSpacing(8);
        return label;
    };
    totals->addWidget(new QLabel("Length:", panel));
    lblLenght = value("lblLenght", "m", "Total length in metres");
    lblFeet = value("lblFeet", "ft", "Total length in feet");
    totals->addWidget(new QLabel("Weight:", panel));
    lblWeight = value("lblWeight", "t", "Total mass in tonnes");
    lblImpTon = value("lblImpTon", "tons", "Total mass in imperial tons");
    totals->addWidget(new QLabel("Wagons:", panel));
    lblWagons = value("lblWagons", QString(), "Number of wagons");
    totals->addStretch(1);
    grid->addLayout(totals, 2, 0, 1, 6);
    return panel;
}

void frmMain::buildLayout() {
    auto* central = new QWidget(this);
    central->setObjectName("centralWidget");
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(6, 4, 6, 2);
    column->setSpacing(3);
    // The lists take most of the room a taller window gives; the strip grows a little with it.
    column->addWidget(buildListsRow(), 3);

    Label2 = named(new QLabel(central), "Label2");
    // A palette, not a style sheet: a style sheet's engine would slow the window's start.
    QPalette warning = Label2->palette();
    warning.setColor(QPalette::WindowText, QColor(0xc0, 0, 0));
    Label2->setPalette(warning);
    QFont bold = Label2->font();
    bold.setBold(true);
    Label2->setFont(bold);
    Label2->setAlignment(Qt::AlignCenter);
    QSizePolicy keep = Label2->sizePolicy();
    keep.setRetainSizeWhenHidden(true);
    Label2->setSizePolicy(keep);
    Label2->setVisible(false);
    column->addWidget(Label2);
    column->addWidget(buildStrip(), 1);

    auto* buttons = new QHBoxLayout();
    cmdShift[0] = smallButton("cmdShift_0", "Shift <", "Close the first gap by one slot", central);
    cmdHome = smallButton("cmdHome", "|<", "First page", central);
    cmdMove[0] = smallButton("cmdMove_0", "<", "Previous page", central);
    cmdMove[1] = smallButton("cmdMove_1", ">", "Next page", central);
    cmdEnd = smallButton("cmdEnd", ">|", "Page of the first free slot", central);
    cmdShift[1] = smallButton("cmdShift_1", "Shift >", "Widen the first gap by one slot", central);
    cmdStartErrors = smallButton("cmdStartErrors", "Startup errors",
                                 "Startup errors have been detected! Right-click to delete "
                                 "errors file.",
                                 central);
    cmdStartErrors->setVisible(false);
    cmdStartErrors->setContextMenuPolicy(Qt::CustomContextMenu);
    for (QPushButton* b : {cmdShift[0], cmdHome, cmdMove[0], cmdMove[1], cmdEnd, cmdShift[1]})
        buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(cmdStartErrors);
    column->addLayout(buttons);
    column->addWidget(buildHeaderRow());
    setCentralWidget(central);

    StatusBar1 = named(new QLabel(this), "StatusBar1");
    statusBar()->setObjectName("StatusBar");
    statusBar()->addWidget(StatusBar1, 1);
}

}  // namespace rakeyard::ui
