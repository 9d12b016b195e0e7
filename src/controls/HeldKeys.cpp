#include "controls/HeldKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace ocuva {

namespace {

bool moves(int key) {
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return true;
    default:
        return false;
    }
}

// Qt numbers the keys that write from here on, and all others above.
bool writes(int key) { return key >= Qt::Key_Space && key < Qt::Key_Escape; }

bool somebodyTypes() {
    const QWidget* const focused = QApplication::focusWidget();
    return focused != nullptr && focused->testAttribute(Qt::WA_InputMethodEnabled);
}

} // namespace

bool mayRepeat(int key, Qt::KeyboardModifiers modifiers, bool somebodyTypes) {
    if (moves(key)) {
        return !modifiers.testFlag(Qt::AltModifier); // Alt+Down opens a list
    }
    const bool isCommand = (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    return somebodyTypes && !isCommand && (writes(key) || key == Qt::Key_Backspace || key == Qt::Key_Delete);
}

HeldKeys::HeldKeys() { QCoreApplication::instance()->installEventFilter(this); }

// X repeats a held key as pairs of release and press with the same millisecond. Qt recognises the pair
// only if both have arrived when it handles the release. No finger releases and presses a key within a
// millisecond.
bool HeldKeys::isRepetition(const QKeyEvent& press) const {
    return press.isAutoRepeat() ||
           (press.timestamp() != 0 && press.nativeScanCode() != 0 && press.timestamp() == m_releasedAtMs &&
            press.nativeScanCode() == m_releasedKey);
}

bool HeldKeys::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride: {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (!isRepetition(key) || mayRepeat(key.key(), key.modifiers(), somebodyTypes())) {
            return false;
        }
        event->accept(); // a shortcut that is overridden does nothing
        return true;
    }
    case QEvent::KeyRelease: {
        const auto& key = *static_cast<QKeyEvent*>(event);
        m_releasedKey = key.nativeScanCode();
        m_releasedAtMs = key.timestamp();
        return false;
    }
    default:
        return false;
    }
}

} // namespace ocuva
