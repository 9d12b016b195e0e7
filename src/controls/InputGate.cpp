#include "controls/InputGate.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <utility>

namespace ocuva {

namespace {

QWidget* widgetInFront() {
    QWidget* const popup = QApplication::activePopupWidget();
    return popup != nullptr ? popup : QApplication::activeModalWidget();
}

} // namespace

InputGate::InputGate(Say say)
    : m_say(std::move(say)) {
    QCoreApplication::instance()->installEventFilter(this);
}

InputGate::~InputGate() = default;

InputGate::Hold::Hold(InputGate& gate)
    : m_gate(gate) {
    m_gate.begin();
}

InputGate::Hold::~Hold() {
    if (m_said && --m_gate.m_saying == 0) {
        QGuiApplication::restoreOverrideCursor();
        m_gate.m_say({});
        m_gate.m_pending.outdate(); // a question may follow, which what was pressed meanwhile must not answer
    }
    m_gate.end();
}

void InputGate::Hold::say(const QString& what) {
    if (!std::exchange(m_said, true) && m_gate.m_saying++ == 0) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    m_gate.m_say(what);
}

void InputGate::begin() {
    if (m_holds++ > 0) {
        return;
    }
    m_inFront = widgetInFront();
    m_cancelled = m_pressed;
    if (auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget()); button != nullptr) {
        button->setDown(false); // pressed with Space; the release would be a click
    }
}

void InputGate::end() {
    if (--m_holds == 0) {
        m_pending.outdate();
    }
}

bool InputGate::keepsAway(const QEvent& event) {
    if (isHeld()) {
        // A question of the host must be answered, or the call would never end.
        QWidget* const inFront = widgetInFront();
        if (inFront == nullptr || inFront == m_inFront) {
            return true;
        }
    }
    return m_pending.isOutdated(static_cast<const QInputEvent&>(event));
}

bool InputGate::keepsAwayPress(const QMouseEvent& event) {
    if (keepsAway(event)) {
        return true;
    }
    m_pressed |= event.button();
    m_cancelled &= ~Qt::MouseButtons(event.button());
    return false;
}

bool InputGate::keepsAwayRelease(QObject* watched, const QMouseEvent& event) {
    const bool wasPressed = m_pressed.testFlag(event.button());
    const bool isCancelled = m_cancelled.testFlag(event.button());
    m_pressed &= ~Qt::MouseButtons(event.button());
    m_cancelled &= ~Qt::MouseButtons(event.button());
    if (wasPressed && isCancelled) {
        constexpr QPointF outside(-32000.0, -32000.0);
        QMouseEvent release(QEvent::MouseButtonRelease, outside, outside, outside, event.button(),
                            event.buttons(), event.modifiers(), event.pointingDevice());
        const QScopedValueRollback sending(m_isSendingRelease, true);
        QCoreApplication::sendEvent(watched, &release);
    }
    return !wasPressed || isCancelled;
}

bool InputGate::eventFilter(QObject* watched, QEvent* event) {
    if (m_isSendingRelease) {
        return false;
    }
    // Input from the window system arrives first at a window and then at a widget. Input sent by a
    // program, for example by a host that runs events inside its call, arrives at a widget only.
    const bool atWindow = watched->isWindowType();
    if (!atWindow && !isHeld()) {
        return false;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return atWindow ? keepsAwayPress(*static_cast<QMouseEvent*>(event)) : keepsAway(*event);
    case QEvent::MouseButtonRelease:
        return atWindow ? keepsAwayRelease(watched, *static_cast<QMouseEvent*>(event)) : keepsAway(*event);
    case QEvent::MouseMove:
        return (atWindow && (static_cast<QMouseEvent*>(event)->buttons() & ~m_pressed) != Qt::NoButton) ||
               keepsAway(*event);
    case QEvent::KeyPress:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::ContextMenu:
        return keepsAway(*event);
    case QEvent::ShortcutOverride:
        if (keepsAway(*event)) {
            event->accept(); // and so no shortcut is looked for
            return true;
        }
        return false;
    default:
        return false;
    }
}

} // namespace ocuva
