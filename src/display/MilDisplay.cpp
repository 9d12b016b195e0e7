#include "display/MilDisplay.h"

#include "display/TwipsGeometry.h"

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace ocuva {

namespace {

class MilDisplayAccessible final : public QAccessibleWidget {
public:
    explicit MilDisplayAccessible(MilDisplay& display)
        : QAccessibleWidget(&display, QAccessible::Graphic) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? static_cast<const MilDisplay*>(widget())->spokenState()
                                          : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* accessibleOf(const QString& /*className*/, QObject* object) {
    auto* display = qobject_cast<MilDisplay*>(object);
    return display != nullptr ? new MilDisplayAccessible(*display) : nullptr;
}

} // namespace

MilDisplay::MilDisplay(DisplayWindows& windows, QWidget* parent)
    : QWidget(parent)
    , m_windows(windows)
    // The one hop between threads: the grab thread wakes, the user-interface thread fetches.
    , m_mailbox([this] { QMetaObject::invokeMethod(this, &MilDisplay::takeFrame, Qt::QueuedConnection); }) {
    setObjectName(QStringLiteral("milDisp"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_NativeWindow);
    setAttribute(Qt::WA_PaintOnScreen, isDrawnByHost());
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus); // it does nothing with keys, and so the focus is safe here
    setCursor(Qt::CrossCursor);
    QAccessible::installFactory(accessibleOf); // effective only once
    setAccessibleName(tr("Live image"));
    setAccessibleDescription(tr("Click a point to bring it to the centre"));
    m_hWnd = static_cast<Long>(winId());
    m_windows.attach(m_hWnd, m_mailbox);
}

MilDisplay::~MilDisplay() { m_windows.detach(m_hWnd); }

void MilDisplay::setSpokenState(const QString& text) {
    if (text != m_spokenState) {
        m_spokenState = text;
        QAccessibleValueChangeEvent changed(this, text);
        QAccessible::updateAccessibility(&changed);
    }
}

void MilDisplay::setPrompt(const QString& prompt) {
    if (prompt != m_prompt) {
        m_prompt = prompt;
        if (m_frame == nullptr && !showsPicture()) {
            update();
        }
    }
}

void MilDisplay::takeFrame() {
    if (FramePtr frame = m_mailbox.take()) {
        m_frame = std::move(frame);
        m_frameIsNew = true;
        if (!showsPicture()) {
            update();
        }
    }
}

void MilDisplay::showPicture(const QImage& picture) { showInPlace(picture, tr("Stored picture")); }

void MilDisplay::showFrames() { showInPlace({}, tr("Live image")); }

void MilDisplay::showInPlace(const QImage& picture, const QString& accessibleName) {
    m_picture = picture;
    m_pictureAtSize = {};
    // The program draws stored pictures, even if the host draws the frames; the host's grab is halted
    // then.
    setAttribute(Qt::WA_PaintOnScreen, hostDraws());
    setAccessibleName(accessibleName);
    update();
}

void MilDisplay::paintPicture(QPainter& painter) {
    // Kept between paints, so that a picture of many megapixels is not scaled again for each change of an
    // overlay.
    const QSize wanted = size() * devicePixelRatioF();
    if (m_pictureAtSize.size() != wanted) {
        m_pictureAtSize = m_picture.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                              .convertToFormat(QImage::Format_RGB32);
    }
    painter.drawImage(rect(), m_pictureAtSize);
}

void MilDisplay::paintPrompt(QPainter& painter) {
    constexpr int margin = 12;
    painter.fillRect(rect(), Qt::black);
    painter.setPen(QColor(190, 190, 190));
    // Above the middle, where the cross would cover it.
    const QRect upperHalf(margin, margin, width() - 2 * margin, height() / 2 - 2 * margin);
    painter.drawText(upperHalf, Qt::AlignCenter | Qt::TextWordWrap, m_prompt);
}

void MilDisplay::paintEvent(QPaintEvent* /*event*/) {
    if (hostDraws()) {
        return;
    }
    QPainter painter(this);
    if (showsPicture()) {
        paintPicture(painter);
        return;
    }
    if (m_frame == nullptr) {
        paintPrompt(painter);
        return;
    }
    // The image only borrows the frame's pixels; m_frame keeps them.
    const QImage image(reinterpret_cast<const uchar*>(m_frame->pixels.data()), m_frame->width,
                       m_frame->height, m_frame->width * static_cast<int>(sizeof(std::uint32_t)),
                       QImage::Format_RGB32);
    const bool pixelForPixel = image.size() == size() * devicePixelRatioF();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !pixelForPixel);
    painter.drawImage(rect(), image);
    if (std::exchange(m_frameIsNew, false)) {
        ++m_framesShown;
        Q_EMIT frameShown();
    }
}

bool MilDisplay::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::WinIdChange:
        // The window system may give the control another window, for instance when its parent changes.
        if (m_hWnd != 0 && internalWinId() != 0 && static_cast<Long>(internalWinId()) != m_hWnd) {
            m_windows.detach(m_hWnd);
            m_hWnd = static_cast<Long>(internalWinId());
            m_windows.attach(m_hWnd, m_mailbox);
        }
        break;
    case QEvent::Show:
    case QEvent::ScreenChangeInternal:
        m_mailbox.setDevicePixelRatio(devicePixelRatioF());
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void MilDisplay::mouseMoveEvent(QMouseEvent* event) {
    const QPointF twips = toTwips(event->position());
    Q_EMIT mouseMoved(event->button(), event->modifiers().toInt(), static_cast<float>(twips.x()),
                      static_cast<float>(twips.y()));
}

void MilDisplay::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    Q_EMIT mouseLeft();
}

void MilDisplay::mousePressEvent(QMouseEvent* event) {
    m_isDoubleClick = false;
    event->accept();
    const QPointF twips = toTwips(event->position());
    Q_EMIT mouseDown(event->button(), event->modifiers().toInt(), static_cast<float>(twips.x()),
                     static_cast<float>(twips.y()));
}

void MilDisplay::mouseDoubleClickEvent(QMouseEvent* event) {
    m_isDoubleClick = true;
    event->accept();
}

void MilDisplay::mouseReleaseEvent(QMouseEvent* event) {
    if (std::exchange(m_isDoubleClick, false)) {
        return;
    }
    const QPointF twips = toTwips(event->position());
    Q_EMIT mouseUp(event->button(), event->modifiers().toInt(), static_cast<float>(twips.x()),
                   static_cast<float>(twips.y()));
}

} // namespace ocuva
