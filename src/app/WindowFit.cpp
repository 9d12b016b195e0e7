#include "app/WindowFit.h"

#include "controls/WindowPlace.h"
#include "display/TwipsGeometry.h"
#include "platform/Desktop.h"

#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QWindow>

namespace ocuva {

namespace {

PixelSize sizeOf(const QSize& size) { return {size.width(), size.height()}; }

} // namespace

WindowFit::WindowFit(WindowFitContext context)
    : QObject(&context.window)
    , m_context(std::move(context)) {
    for (QTimer* timer : {&m_tLetGo, &m_tSized}) {
        timer->setParent(this);
        timer->setSingleShot(true);
    }
    m_tLetGo.setObjectName(QStringLiteral("tLetGo"));
    m_tLetGo.setInterval(letGoMs);
    m_tSized.setInterval(0);
    connect(&m_tLetGo, &QTimer::timeout, this, &WindowFit::operatorLetGo);
    connect(&m_tSized, &QTimer::timeout, this, &WindowFit::settle);
}

void WindowFit::start() {
    m_started = true;
    m_context.window.installEventFilter(this);
    m_tSized.start();
}

void WindowFit::stop() {
    m_started = false;
    m_tLetGo.stop();
    m_tSized.stop();
}

void WindowFit::imageSized() {
    m_reduction = 0; // the board has just received the zoom
    if (m_started) {
        m_tSized.start();
    }
}

void WindowFit::boardReducesAsZoomSays() {
    m_reduction = 0;
    if (m_started) {
        m_tLetGo.start();
    }
}

bool WindowFit::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_context.window && m_started) {
        switch (event->type()) {
        case QEvent::Show:
            watchScreen();
            m_tSized.start();
            m_tLetGo.start(); // by then the window system has reported the frame's width
            break;
        case QEvent::Resize:
        case QEvent::WindowStateChange:
            m_tLetGo.start();
            break;
        default:
            break;
        }
    }
    return QObject::eventFilter(watched, event);
}

void WindowFit::watchScreen() {
    QWindow* window = m_context.window.windowHandle();
    if (window == nullptr) {
        return;
    }
    const auto again = qOverload<>(&QTimer::start);
    connect(window, &QWindow::screenChanged, this, &WindowFit::watchScreen, Qt::UniqueConnection);
    connect(window->screen(), &QScreen::availableGeometryChanged, &m_tLetGo, again, Qt::UniqueConnection);
    m_tLetGo.start();
}

void WindowFit::operatorLetGo() {
    if (anyMouseButtonIsDown()) {
        m_tLetGo.start();
        return;
    }
    settle();
}

void WindowFit::settle() {
    const Qt::WindowStates state = m_context.window.windowState();
    if (!m_started || state.testFlag(Qt::WindowMinimized)) {
        return;
    }
    noteImplausiblePicture();
    if (state.testAnyFlags(Qt::WindowMaximized | Qt::WindowFullScreen)) {
        fitMaximised();
    } else {
        fitNormal();
    }
    m_before = sizeOf(m_context.display.size());
    askForNeededReduction();
}

PixelSize WindowFit::picture() const {
    const MonitorFields& fields = m_context.sizing.fields();
    return {fields.GrabSizeX, fields.GrabSizeY};
}

PixelSize WindowFit::around() const {
    return {pixelsX(m_context.sizing.aroundImageX()), pixelsY(m_context.sizing.aroundImageY())};
}

// The image does not fit into the window: stretching it is better than cutting it.
void WindowFit::fitMaximised() {
    const QSize window = m_context.window.size();
    const QSize display = m_context.display.size();
    const PixelSize beside = around();
    if (m_context.window.isVisible() && (display.width() + beside.width > window.width() ||
                                         display.height() + beside.height > window.height())) {
        m_context.fillWindow();
    }
}

QSize WindowFit::frameMargins() const {
    const QSize known = m_context.window.frameGeometry().size() - m_context.window.size();
    return known.isNull() ? QSize(0, m_context.window.style()->pixelMetric(QStyle::PM_TitleBarHeight))
                          : known;
}

void WindowFit::fitNormal() {
    QWidget& window = m_context.window;
    const QSize room = window.screen()->availableSize() - frameMargins();
    const PixelSize fitted =
        fittedWindow({picture(), sizeOf(window.size()), around(), sizeOf(room), m_before});
    const QSize wanted(fitted.width, fitted.height);
    const auto asked = std::pair(window.size(), wanted);
    // If the window system refuses a size, the same size is not requested again.
    if (wanted == window.size()) {
        m_asked.reset();
    } else if (m_asked != asked) {
        m_asked = asked;
        window.resize(wanted);
    }
    // Before it is exposed, the window system has not reported the place of the window.
    const QWindow* handle = window.windowHandle();
    if (window.isVisible() && handle != nullptr && handle->isExposed()) {
        bringOnScreen();
    }
}

void WindowFit::bringOnScreen() {
    QWidget& window = m_context.window;
    const QRect frame(window.pos(), window.size() + frameMargins());
    const QRect place = broughtOnScreen(frame, {window.screen()->availableGeometry()});
    if (place.topLeft() != frame.topLeft()) {
        window.move(place.topLeft());
    }
}

void WindowFit::askForNeededReduction() {
    const MonitorFields& fields = m_context.sizing.fields();
    const Integer needed = neededReduction(picture(), sizeOf(m_context.display.size()), fields.GrabZoom);
    const Integer present = m_reduction != 0 ? m_reduction : fields.GrabZoom;
    if (m_context.window.isVisible() && needed != present) {
        m_reduction = needed;
        m_context.askBoard(needed);
    }
}

void WindowFit::noteImplausiblePicture() {
    const MonitorFields& fields = m_context.sizing.fields();
    const auto claimed = std::pair(fields.GrabSizeX, fields.GrabSizeY);
    if (isPlausiblePicture(picture()) || m_reported == claimed) {
        return;
    }
    m_reported = claimed;
    m_context.log(tr("The video board reports a picture of %1 x %2 pixels, which no camera has; the image is "
                     "only as large as the screen. Check the board and the camera type.")
                      .arg(claimed.first)
                      .arg(claimed.second));
}

} // namespace ocuva
