#include "setup/SetupMonitorPage.h"

#include "controls/UpDownBox.h"
#include "setup/ViewFlags.h"

#include <QSignalBlocker>

#include <algorithm>

namespace ocuva {

namespace {

// Screen pixels at 1:1. A cross of 4000 pixels reaches across every camera's picture; a step of 10 is seen,
// one of 1 would not be.
constexpr int largestCross = 4000;
constexpr int crossStep = 10;
constexpr int thickestCross = 200;
constexpr int thicknessStep = 1;

// A stored value beyond the usual range is shown as it is, and stays as it is when the other one is changed.
void setWidening(QSpinBox& upDown, Long value) {
    const QSignalBlocker quiet(upDown);
    upDown.setRange(std::min(upDown.minimum(), value), std::max(upDown.maximum(), value));
    upDown.setValue(value);
}

} // namespace

const std::array<SetupMonitorPage::StartupCheck, 5> SetupMonitorPage::startupChecks{{
    {&SetupMonitorPage::chkLiveImage, &ViewOptions::LiveImage},
    {&SetupMonitorPage::chkFullSize, &ViewOptions::FullImage},
    {&SetupMonitorPage::chkShowCross, &ViewOptions::ShowCross},
    {&SetupMonitorPage::chkShowGrid, &ViewOptions::ShowGrid},
    {&SetupMonitorPage::chkShowLargeButtons, &ViewOptions::LargeIcons},
}};

SetupMonitorPage::SetupMonitorPage(const char* name, const SetupContext& context, QWidget* parent)
    : SetupPage(name, context.report, parent)
    , m_settings(context.settings)
    , m_overlays(context.settings, context.magnification, context.conversion, context.mainWindow) {
    makeGrid();
    makeCross();
    lineUp({frSetupGrid, frSetupCross});
    makeStartup();
    endFrames();

    whenLeft(txtGridWidth, [this] { grid_LostFocus(); });
    whenLeft(txtGridHeight, [this] { grid_LostFocus(); });
    connect(udCrossSize, &QSpinBox::valueChanged, this, &SetupMonitorPage::cross_Change);
    connect(udCrossThick, &QSpinBox::valueChanged, this, &SetupMonitorPage::cross_Change);
    for (const StartupCheck& check : startupChecks) {
        connect(this->*check.box, &QCheckBox::clicked, this, [this, check] { startup_Click(check); });
    }
}

void SetupMonitorPage::makeGrid() {
    frSetupGrid = addFrame("frSetupGrid", tr("Grid Parameters"));
    txtGridWidth = makeTextBox("txtGridWidth", tr("Width of a cell of the grid, micrometres"));
    txtGridHeight = makeTextBox("txtGridHeight", tr("Height of a cell of the grid, micrometres"));
    auto* grid = new QGridLayout(frSetupGrid);
    addRow(*grid, tr("&Width"), txtGridWidth, micrometres());
    addRow(*grid, tr("H&eight"), txtGridHeight, micrometres());
}

QSpinBox* SetupMonitorPage::makeUpDown(const char* name, const QString& help, int largest, int step) {
    auto* upDown = named<QSpinBox>(new UpDownBox, name, help);
    upDown->setRange(1, largest);
    upDown->setSingleStep(step);
    upDown->setAlignment(Qt::AlignRight);
    upDown->setKeyboardTracking(false); // 250 typed is one change, not 2, 25 and 250
    return upDown;
}

void SetupMonitorPage::makeCross() {
    frSetupCross = addFrame("frSetupCross", tr("Cross Parameters"));
    udCrossSize = makeUpDown("udCrossSize", tr("From the end of one arm to the end of the opposite one"),
                             largestCross, crossStep);
    udCrossThick = makeUpDown("udCrossThick", tr("Thickness of the arms"), thickestCross, thicknessStep);
    auto* grid = new QGridLayout(frSetupCross);
    addRow(*grid, tr("Si&ze"), udCrossSize, tr("pixels"));
    addRow(*grid, tr("&Thickness"), udCrossThick, tr("pixels"));
}

void SetupMonitorPage::makeStartup() {
    frSetupMonitorStartup = addFrame("frSetupMonitorStartup", tr("Start Up"));
    chkLiveImage = named(new QCheckBox(tr("Show li&ve image")), "chkLiveImage",
                         tr("Start the live image when the program starts"));
    chkFullSize = named(new QCheckBox(tr("Show &full size image")), "chkFullSize",
                        tr("Show every pixel of the image when the program starts"));
    chkShowCross = named(new QCheckBox(tr("Show c&ross")), "chkShowCross",
                         tr("Show the centre cross when the program starts"));
    chkShowGrid =
        named(new QCheckBox(tr("Show &grid")), "chkShowGrid", tr("Show the grid when the program starts"));
    chkShowLargeButtons = named(new QCheckBox(tr("Sh&ow large buttons")), "chkShowLargeButtons",
                                tr("Use large bitmaps button in the toolbar"));
    auto* column = new QVBoxLayout(frSetupMonitorStartup);
    for (const StartupCheck& check : startupChecks) {
        column->addWidget(this->*check.box);
    }
}

void SetupMonitorPage::load() {
    showGrid();
    showCross();
    showStartup();
}

void SetupMonitorPage::showGrid() {
    const StagePair grid = m_overlays.gridMicrometres();
    txtGridWidth->setText(QString::number(grid.x));
    txtGridHeight->setText(QString::number(grid.y));
}

void SetupMonitorPage::followMagnification() {
    const StagePair grid = m_overlays.gridMicrometres();
    txtGridWidth->follow(QString::number(grid.x));
    txtGridHeight->follow(QString::number(grid.y));
}

void SetupMonitorPage::showCross() {
    const CrossLengths cross = m_overlays.cross();
    setWidening(*udCrossSize, cross.CrossSize);
    setWidening(*udCrossThick, cross.CrossWidth);
}

void SetupMonitorPage::showStartup() {
    const ViewOptions view = m_settings.readView();
    for (const StartupCheck& check : startupChecks) {
        (this->*check.box)->setChecked(view.*check.flag != 0);
    }
}

void SetupMonitorPage::grid_LostFocus() {
    guarded([this] {
        m_overlays.setGrid({txtGridWidth->text().toStdString(), txtGridHeight->text().toStdString()});
    });
    showGrid();
}

void SetupMonitorPage::cross_Change() {
    guarded([this] { m_overlays.setCross({udCrossSize->value(), udCrossThick->value()}); });
}

void SetupMonitorPage::startup_Click(const StartupCheck& check) {
    storeViewFlag(m_settings, check.flag, (this->*check.box)->isChecked() ? 1 : 0);
}

} // namespace ocuva
