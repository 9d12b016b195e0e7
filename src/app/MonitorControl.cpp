#include "app/MonitorControl.h"

#include "display/TwipsGeometry.h"
#include "video/DisplayHandOver.h"

#include <QScreen>
#include <QTimer>

#include <utility>

namespace ocuva {

namespace {

// A host may claim a picture of any size; nothing larger than all screens together is ever laid out.
QSize bounded(const QSize& size, const QScreen& screen) {
    constexpr QSize ordinary(4096, 4096);
    return size.expandedTo(QSize(0, 0)).boundedTo(screen.virtualSize().expandedTo(ordinary));
}

} // namespace

MonitorControl::MonitorControl(MonitorControlContext context)
    : m_context(std::move(context))
    , m_sizing(m_context.readings.host.tn_video(), m_context.readings.host.tn_log(),
               m_context.readings.settings, *this) {}

void MonitorControl::makeFit() {
    MilDisplay& milDisp = *m_context.controls.panels.milDisp;
    m_fit = new WindowFit({m_context.window, milDisp, m_sizing, [this] { fillWindow(); },
                           [this, &milDisp](Integer reduction) {
                               handDisplayToBoard(m_context.readings.host.tn_video(), milDisp.hWnd(),
                                                  reduction, m_normalZoom);
                           },
                           [this](const QString& line) { m_context.guard.log(line); }});
}

void MonitorControl::toggleZoom() {
    const bool wasNormal = m_normalZoom;
    m_normalZoom = !wasNormal;
    m_sizing.ComputeImageSize(true, wasNormal ? 2 : 1);
    m_sizing.ResizeAll(true);
    m_fit->imageSized();
}

void MonitorControl::showZoom() {
    m_context.controls.menu.action("mnuZoom0")->setChecked(m_normalZoom);
    m_context.controls.menu.action("mnuZoom1")->setChecked(!m_normalZoom);
    m_context.controls.tbMain->setValue(QStringLiteral("Zoom"), m_normalZoom);
}

void MonitorControl::windowResized() {
    MainToolbar& tbMain = *m_context.controls.tbMain;
    tbMain.resize(m_context.controls.client->width(), tbMain.sizeHint().height());
    if (m_context.windowIsUp() && !m_sizing.isBusy()) {
        fillWindow();
    }
}

void MonitorControl::fillWindow() {
    m_sizing.ComputeImageSize(false, 2);
    m_sizing.ResizeAll(false);
}

// After the handler that called it: another picture is sized as by a change of the zoom.
void MonitorControl::cameraChanged() {
    QTimer::singleShot(0, &m_context.window, [this] {
        if (m_context.windowIsUp() && m_sizing.bufferHasChanged()) {
            m_sizing.ComputeImageSize(true, m_sizing.fields().GrabZoom);
            m_sizing.ResizeAll(true);
            m_fit->imageSized();
        }
    });
}

Long MonitorControl::displayHandle() const {
    m_fit->boardReducesAsZoomSays(); // the handle is requested for a display hand-over
    return m_context.controls.panels.milDisp->hWnd();
}

void MonitorControl::enableAcq(bool on) { m_context.controls.tbMain->setEnabled(QStringLiteral("Acq"), on); }

ScreenMetrics MonitorControl::screen() const { return screenMetrics(); }

QWidget* MonitorControl::partWidget(MonitorPart part) const {
    const MainControls& controls = m_context.controls;
    switch (part) {
    case MonitorPart::milDisp:
        return controls.panels.milDisp;
    case MonitorPart::frImage:
        return controls.panels.frImage;
    case MonitorPart::frMonitor:
        return controls.panels.frMonitor;
    case MonitorPart::frUpDown:
        return controls.upDown.frUpDown;
    case MonitorPart::frMicroMarker:
        return controls.panels.frMicroMarker;
    case MonitorPart::tbMain:
        break;
    }
    return controls.tbMain;
}

TwipsRect MonitorControl::rect(MonitorPart part) const {
    const QWidget* widget = partWidget(part);
    if (part == MonitorPart::tbMain) {
        // Its height is that of its buttons, whether or not the window has laid it out yet.
        return toTwips(QRect(widget->pos(), QSize(widget->width(), widget->sizeHint().height())));
    }
    return toTwips(widget->geometry());
}

void MonitorControl::setRect(MonitorPart part, const TwipsRect& rect) {
    const QRect pixels = toPixels(rect);
    partWidget(part)->setGeometry(
        QRect(pixels.topLeft(), bounded(pixels.size(), *m_context.window.screen())));
}

Long MonitorControl::windowWidth() const { return twipsX(m_context.window.width()); }

Long MonitorControl::windowHeight() const { return twipsY(m_context.window.height()); }

bool MonitorControl::windowIsMaximised() const {
    return m_context.window.isMaximized() || m_context.window.isFullScreen();
}

void MonitorControl::setWindowSize(Long width, Long height) {
    m_context.window.resize(bounded({pixelsX(width), pixelsY(height)}, *m_context.window.screen()));
}

} // namespace ocuva
