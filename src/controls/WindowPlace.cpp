#include "controls/WindowPlace.h"

#include "base/Product.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QStyle>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace ocuva {

namespace {

constexpr int gapPixels = 6; // between a window and the one beside it

int area(const QRect& rect) { return rect.isEmpty() ? 0 : rect.width() * rect.height(); }

int distance(const QRect& rect, const QRect& screen) {
    return (rect.center() - screen.center()).manhattanLength();
}

QSettings registry() {
    return {QSettings::NativeFormat, QSettings::UserScope, QString::fromLatin1(registryOrganisation),
            QString::fromLatin1(productTitle)};
}

QList<QRect> screensInUse() {
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        screens.append(screen->availableGeometry());
    }
    return screens;
}

// Lengths along one axis.
int moved(int start, int length, int screenStart, int screenLength) {
    return std::clamp(start, screenStart, std::max(screenStart, screenStart + screenLength - length));
}

} // namespace

QRect broughtOnScreen(const QRect& rect, const QList<QRect>& screens) {
    if (screens.isEmpty()) {
        return rect;
    }
    const auto better = [&rect](const QRect& a, const QRect& b) {
        return std::pair(-area(a & rect), distance(rect, a)) < std::pair(-area(b & rect), distance(rect, b));
    };
    const QRect screen = *std::min_element(screens.begin(), screens.end(), better);
    const QSize size = rect.size().boundedTo(screen.size());
    return {QPoint(moved(rect.left(), size.width(), screen.left(), screen.width()),
                   moved(rect.top(), size.height(), screen.top(), screen.height())),
            size};
}

namespace {

// What is left of that size on the side of the other window that leaves most of it.
QSize roomBeside(const QRect& other, QSize size, const QRect& screen) {
    const QSize right(screen.right() - other.right() - gapPixels, screen.height());
    const QSize left(other.left() - screen.left() - gapPixels, screen.height());
    const QSize below(screen.width(), screen.bottom() - other.bottom() - gapPixels);
    const QSize above(screen.width(), other.top() - screen.top() - gapPixels);
    QSize most;
    for (const QSize& room : {right, left, below, above}) {
        const QSize leaves = size.boundedTo(room);
        if (area({QPoint(), leaves}) > area({QPoint(), most})) {
            most = leaves;
        }
    }
    return most;
}

} // namespace

QRect besideWindow(const QRect& other, QSize size, const QRect& screen, QSize smallest) {
    const QRect right(QPoint(other.right() + 1 + gapPixels, other.top()), size);
    const QRect left(QPoint(other.left() - gapPixels - size.width(), other.top()), size);
    const QRect below(QPoint(other.left(), other.bottom() + 1 + gapPixels), size);
    const QRect above(QPoint(other.left(), other.top() - gapPixels - size.height()), size);
    for (const QRect& place : {right, left, below, above}) {
        const QRect onScreen = broughtOnScreen(place, {screen});
        if (!onScreen.intersects(other)) {
            return onScreen;
        }
    }
    if (smallest.isValid()) {
        const QSize smaller = roomBeside(other, size, screen);
        if (smaller == smaller.expandedTo(smallest)) {
            return besideWindow(other, smaller, screen);
        }
    }
    const QPoint corner(screen.right() + 1 - size.width(), screen.bottom() + 1 - size.height());
    return broughtOnScreen({corner, size}, {screen});
}

std::optional<QRect> WindowPlaceStore::load(const QString& window) const {
    const QRect place = registry().value(QStringLiteral("WindowPlaces/") + window).toRect();
    return place.isValid() ? std::optional(place) : std::nullopt;
}

void WindowPlaceStore::save(const QString& window, const QRect& place) const {
    registry().setValue(QStringLiteral("WindowPlaces/") + window, place);
}

WindowPlace::WindowPlace(QWidget& window, Keeps keeps, std::function<QRect(QSize)> firstPlace)
    : QObject(&window)
    , m_window(window)
    , m_keeps(keeps)
    , m_firstPlace(std::move(firstPlace))
    , m_place(WindowPlaceStore().load(window.objectName())) {
    window.installEventFilter(this);
}

bool WindowPlace::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_window) {
        switch (event->type()) {
        case QEvent::Show:
            if (!event->spontaneous()) {
                beforeShow();
            }
            break;
        case QEvent::Move:
        case QEvent::Resize:
            note();
            break;
        case QEvent::Hide:
            if (!event->spontaneous()) {
                afterHide();
            }
            break;
        default:
            break;
        }
    }
    return QObject::eventFilter(watched, event);
}

// A window that has never been on the screen does not know its frame yet.
QSize WindowPlace::frameMargins() const {
    const QSize known = m_window.frameGeometry().size() - m_window.size();
    return known.isNull() ? QSize(0, m_window.style()->pixelMetric(QStyle::PM_TitleBarHeight)) : known;
}

void WindowPlace::beforeShow() {
    if (m_window.windowState().testAnyFlags(Qt::WindowMaximized | Qt::WindowFullScreen)) {
        return;
    }
    const QSize margins = frameMargins();
    QRect frame;
    if (m_place) {
        const bool keepsSize = m_keeps == Keeps::PositionAndSize;
        frame = {m_place->topLeft(), (keepsSize ? m_place->size() : m_window.size()) + margins};
    } else if (m_firstPlace) {
        frame = m_firstPlace(m_window.size() + margins);
    } else {
        return;
    }
    frame = broughtOnScreen(frame, screensInUse());
    if (m_keeps == Keeps::PositionAndSize) {
        m_window.resize(frame.size() - margins);
    }
    m_window.move(frame.topLeft());
    const bool frameIsUnknown = m_window.frameGeometry().size() == m_window.size();
    if (QWindow* handle = m_window.windowHandle(); handle != nullptr && frameIsUnknown) {
        // Until the window system has told the frame, a widget takes its contents' corner for the frame's;
        // and a size that the handle has not heard of yet would bring that corner back.
        handle->resize(m_window.size());
        handle->setFramePosition(frame.topLeft());
    }
}

void WindowPlace::note() {
    const bool isNormal = !m_window.windowState().testAnyFlags(Qt::WindowMaximized | Qt::WindowFullScreen |
                                                               Qt::WindowMinimized);
    if (m_window.isVisible() && isNormal) {
        m_place = QRect(m_window.pos(), m_window.size());
    }
}

void WindowPlace::afterHide() {
    const bool isLarge = m_window.windowState().testAnyFlags(Qt::WindowMaximized | Qt::WindowFullScreen);
    if (m_place && !isLarge) {
        WindowPlaceStore().save(m_window.objectName(), *m_place);
    }
}

std::function<QRect(QSize)> besideItsOwner(const QWidget* owner, QSize smallest) {
    if (owner == nullptr) {
        return {};
    }
    return [owner, smallest](QSize size) {
        const QWidget* window = owner->window();
        return besideWindow(window->frameGeometry(), size, window->screen()->availableGeometry(), smallest);
    };
}

} // namespace ocuva
