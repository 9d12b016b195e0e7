#include "app/MonitorPanels.h"

#include "display/TwipsGeometry.h"
#include "stage/StageWatch.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QVBoxLayout>

namespace ocuva {

namespace {

// The initial layout in twips: a display of 384 x 288 pixels, the size of a reduced European picture.
constexpr TwipsRect designDisplay{30, 120, 5760, 4320};
constexpr TwipsRect designImage{360, 360, 5760 + 90, 4320 + 170};
constexpr TwipsRect designMonitor{180, 600, 5760 + 810, 4320 + 890};
constexpr TwipsRect designUpDown{6930, 600, 1080, 4320 + 890};
constexpr TwipsRect designMicroMarker{0, 3840, 5760, 480};

QToolButton* stepButton(const QString& name, Long step, bool up, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setText(QString::number(step));
    button->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    button->setMaximumHeight(44);
    button->setFocusPolicy(Qt::TabFocus); // a Space after a click would be one more step
    const QString what =
        up ? QObject::tr("Move Z up by %1").arg(step) : QObject::tr("Move Z down by %1").arg(step);
    button->setToolTip(what);
    button->setAccessibleName(what);
    return button;
}

} // namespace

ImageFrame::ImageFrame(QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("frImage"));
}

void ImageFrame::paintEvent(QPaintEvent* /*event*/) {
    if (m_framed == nullptr) {
        return;
    }
    constexpr int bevel = 2;
    QStyleOptionFrame option;
    option.initFrom(this);
    option.rect = m_framed->geometry().adjusted(-bevel, -bevel, bevel, bevel);
    option.lineWidth = 1;
    option.midLineWidth = 0;
    option.frameShape = QFrame::Panel;
    option.state |= QStyle::State_Sunken;
    QPainter painter(this);
    style()->drawControl(QStyle::CE_ShapedFrame, &option, &painter, this);
}

UpDownPanel::UpDownPanel(QWidget* parent)
    : frUpDown(new GroupFrame(QStringLiteral("frUpDown"), QObject::tr("Z"), parent)) {
    frUpDown->setGeometry(toPixels(designUpDown));
    auto* column = new QVBoxLayout(frUpDown);
    column->setContentsMargins(9, GroupFrame::captionInset + 15, 9, 12);
    column->setSpacing(6);
    column->addStretch(1);
    for (std::size_t i = zSteps.size(); i-- > 0;) {
        cmdUp.at(i) = stepButton(QStringLiteral("cmdUp%1").arg(i), zSteps.at(i), true, frUpDown);
        column->addWidget(cmdUp.at(i), 4);
    }
    column->addSpacing(12);
    for (std::size_t i = 0; i < zSteps.size(); ++i) {
        cmdDown.at(i) = stepButton(QStringLiteral("cmdDown%1").arg(i), zSteps.at(i), false, frUpDown);
        column->addWidget(cmdDown.at(i), 4);
    }
    column->addStretch(1);
}

MonitorPanels::MonitorPanels(DisplayWindows& windows, QWidget* parent)
    : frMonitor(new GroupFrame(QStringLiteral("frMonitor"), QString(), parent))
    , frImage(new ImageFrame(frMonitor))
    , milDisp(new MilDisplay(windows, frImage))
    , frMicroMarker(new MicroMarkerPanel(milDisp)) {
    frMonitor->setGeometry(toPixels(designMonitor));
    frMonitor->setToolTip(QObject::tr("Click to move the stage to the current position"));
    frImage->setGeometry(toPixels(designImage));
    frImage->setFramed(milDisp);
    milDisp->setGeometry(toPixels(designDisplay));
    frMicroMarker->setGeometry(toPixels(designMicroMarker));
    frMicroMarker->hide();
}

} // namespace ocuva
