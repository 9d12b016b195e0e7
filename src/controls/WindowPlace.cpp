#include "controls/WindowPlace.h"

#include "controls/InSight.h"
#include "controls/ScrollableContents.h"
#include "controls/UserRegistry.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace ocuva {

namespace {

constexpr int usersChangeMs = 150; // long enough for the window system to report a maximised window

int areaOf(const QRect& rect) { return rect.isEmpty() ? 0 : rect.width() * rect.height(); }

int distance(const QRect& rect, const QRect& screen) {
    return (rect.center() - screen.center()).manhattanLength();
}

UserRegistry registry() { return UserRegistry(); }

QString keyOf(const QString& window) { return QStringLiteral("WindowPlaces/") + window; }
QString maximisedKeyOf(const QString& window) { return keyOf(window) + QStringLiteral("Maximised"); }

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
        return std::pair(-areaOf(a & rect), distance(rect, a)) <
               std::pair(-areaOf(b & rect), distance(rect, b));
    };
    const QRect screen = *std::min_element(screens.begin(), screens.end(), better);
    const QSize size = rect.size().boundedTo(screen.size());
    return {QPoint(moved(rect.left(), size.width(), screen.left(), screen.width()),
                   moved(rect.top(), size.height(), screen.top(), screen.height())),
            size};
}

std::optional<RememberedPlace> WindowPlaceStore::load(const QString& window) const {
    const QVariant stored = registry().value(keyOf(window));
    if (stored.typeId() == QMetaType::QPoint) {
        return RememberedPlace{stored.toPoint(), {}};
    }
    const QRect place = stored.toRect();
    return place.isValid() ? std::optional(RememberedPlace{place.topLeft(), place.size()}) : std::nullopt;
}

void WindowPlaceStore::save(const QString& window, const RememberedPlace& place) const {
    registry().setValue(keyOf(window),
                        place.size ? QVariant(QRect(place.corner, *place.size)) : QVariant(place.corner));
}

bool WindowPlaceStore::loadMaximised(const QString& window) const {
    return registry().value(maximisedKeyOf(window)).toBool();
}

void WindowPlaceStore::saveMaximised(const QString& window, bool maximised) const {
    UserRegistry store = registry();
    if (maximised) {
        store.setValue(maximisedKeyOf(window), true);
    } else {
        store.remove(maximisedKeyOf(window));
    }
}

QSize frameMargins(const QWidget& window) {
    const auto known = [](const QWidget& of) { return of.frameGeometry().size() - of.size(); };
    if (!known(window).isNull()) {
        return known(window);
    }
    for (const QWidget* other : QApplication::topLevelWidgets()) {
        if (other->isVisible() && !known(*other).isNull()) {
            return known(*other);
        }
    }
    return {0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight)};
}

void placeFrame(QWidget& window, const QRect& frame, bool resize) {
    if (resize) {
        window.resize(frame.size() - frameMargins(window));
    }
    window.move(frame.topLeft());
    if (QWindow* handle = window.windowHandle(); handle != nullptr) {
        // Moving the widget is not enough. Until the window system has reported the frame, the widget
        // takes the corner of its contents for that of the frame. It does not pass on a place that it
        // already has, so a window that is shown again would go where the window system puts it. A size
        // that the handle does not know yet would restore the old corner.
        handle->resize(window.size());
        handle->setFramePosition(frame.topLeft());
    }
}

WindowPlace::WindowPlace(QWidget& window, FirstPlace firstPlace)
    : QObject(&window)
    , m_window(window)
    , m_firstPlace(std::move(firstPlace)) {
    if (const auto stored = WindowPlaceStore().load(window.objectName())) {
        m_place = QRect(stored->corner, stored->size.value_or(QSize(1, 1)));
        m_moved = true;
        m_sized = stored->size.has_value();
    }
    for (QTimer* timer : {&m_settling, &m_usersChange}) {
        timer->setSingleShot(true);
    }
    m_settling.setInterval(settleMs);
    m_usersChange.setInterval(usersChangeMs);
    connect(&m_settling, &QTimer::timeout, this, &WindowPlace::settled);
    connect(&m_usersChange, &QTimer::timeout, this, &WindowPlace::takeUsersChange);
    // When a screen is added or removed, the window system moves windows by itself.
    connect(qApp, &QGuiApplication::screenAdded, this, &WindowPlace::settle);
    connect(qApp, &QGuiApplication::screenRemoved, this, &WindowPlace::settle);
    window.installEventFilter(this);
}

bool WindowPlace::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_window) {
        switch (event->type()) {
        case QEvent::Show:
            if (!event->spontaneous()) {
                beforeShow();
            }
            settle();
            break;
        case QEvent::Move:
        case QEvent::Resize:
            changed(*event);
            break;
        case QEvent::WindowStateChange:
            stateChanged();
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

bool WindowPlace::isNormal() const {
    return !m_window.windowState().testAnyFlags(Qt::WindowMaximized | Qt::WindowFullScreen |
                                                Qt::WindowMinimized);
}

std::optional<QRect> WindowPlace::wantedFrame(QSize margins) const {
    const QSize size = (m_sized ? m_place->size() : m_window.size()) + margins;
    if (m_moved) {
        const QRect frame(m_place->topLeft(), size);
        const QWidget& main = outermost(m_window);
        return &main == &m_window ? frame : clearOfHint(frame, surroundingsOf(main));
    }
    const std::optional<QRect> present =
        m_place ? std::optional(QRect(m_place->topLeft(), size)) : std::nullopt;
    return m_firstPlace ? m_firstPlace(size, present) : present;
}

void WindowPlace::beforeShow() {
    if (!isNormal() && !m_window.isMinimized()) {
        return;
    }
    const QSize margins = frameMargins(m_window);
    scrollWhatDoesNotFit(m_window, m_window.screen()->availableSize() - margins);
    if (const auto frame = wantedFrame(margins)) {
        placeFrame(m_window, broughtOnScreen(*frame, screensInUse()), true);
        m_opens = true;
    }
}

void WindowPlace::restoreMaximised() {
    m_maximised = WindowPlaceStore().loadMaximised(m_window.objectName());
    if (!m_maximised) {
        return;
    }
    if (const auto frame = wantedFrame(frameMargins(m_window))) {
        placeFrame(m_window, broughtOnScreen(*frame, screensInUse()), true);
    }
    m_window.setWindowState(m_window.windowState() | Qt::WindowMaximized);
}

void WindowPlace::changed(const QEvent& event) {
    if (!event.spontaneous()) {
        settle(); // the program's own doing
    } else if (!m_settling.isActive() && m_window.isVisible()) {
        m_usersPlace = presentPlace();
        m_usersChange.start();
    }
}

void WindowPlace::stateChanged() {
    if (m_window.isVisible() && !m_window.isMinimized()) {
        m_maximised = m_window.isMaximized();
    }
    m_usersChange.stop();
    settle();
}

void WindowPlace::settle() {
    if (m_usersChange.isActive()) {
        takeUsersChange();
    }
    m_settling.start();
}

void WindowPlace::settled() {
    if (!m_window.isVisible() || !isNormal()) {
        return;
    }
    if (const QWindow* handle = m_window.windowHandle(); handle != nullptr && !handle->isExposed()) {
        m_settling.start(); // a slow window system has not answered yet
        return;
    }
    const QRect frame = m_window.frameGeometry();
    const QRect onScreen = broughtOnScreen(frame, screensInUse());
    if (std::exchange(m_opens, false) && onScreen != frame) {
        // Its frame, known only now, is thicker than was reckoned with.
        m_window.resize(onScreen.size() - frameMargins(m_window));
        m_window.move(onScreen.topLeft());
    }
    m_place = presentPlace();
}

void WindowPlace::takeUsersChange() {
    m_usersChange.stop();
    if (!isNormal()) {
        return; // the change was that to another state
    }
    m_moved = m_moved || m_place != m_usersPlace;
    m_sized = m_sized || !m_place || m_place->size() != m_usersPlace.size();
    m_place = m_usersPlace;
}

void WindowPlace::afterHide() {
    if (m_usersChange.isActive()) {
        takeUsersChange();
    } else if (m_settling.isActive() && isNormal()) {
        m_place = presentPlace();
    }
    m_settling.stop();
    const WindowPlaceStore store;
    if (isTheUsers() && m_place) {
        store.save(m_window.objectName(),
                   {m_place->topLeft(), m_sized ? std::optional(m_place->size()) : std::nullopt});
    }
    if (m_maximised != store.loadMaximised(m_window.objectName())) {
        store.saveMaximised(m_window.objectName(), m_maximised);
    }
}

FirstPlace besideItsOwner(const QWidget* owner, QSize smallest) {
    if (owner == nullptr) {
        return {};
    }
    return [owner, smallest](QSize size, const std::optional<QRect>& present) {
        const Surroundings around = surroundingsOf(outermost(*owner));
        return present && isClear(*present, around) ? *present : dialogPlace(around, size, smallest);
    };
}

} // namespace ocuva
