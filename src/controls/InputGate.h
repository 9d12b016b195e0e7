#pragma once
// Drops input made while the program cannot respond, instead of carrying it out afterwards.

#include "platform/PendingInput.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class QMouseEvent;
class QWidget;

namespace ocuva {

/// Blocks pointer and keys in all windows of the program while a Hold exists. A Hold surrounds each host
/// call that can take long. One gate for the life of the main window. User-interface thread.
class InputGate final : public QObject {
    Q_OBJECT

public:
    /// Shows on the screen, before it returns, what the program is waiting for; an empty text ends this.
    using Say = std::function<void(const QString& what)>;

    /// Watches the application's events from now on.
    explicit InputGate(Say say);
    ~InputGate() override;

    /// While a Hold exists, presses, pointer moves and wheel steps are dropped in every window, except in
    /// a window or menu that opens meanwhile and must be answered. At the end of the outermost Hold, input
    /// made until then that is still queued is dropped too. A press from before the Hold has no effect:
    /// its release arrives outside everything. Holds may be nested.
    class Hold {
    public:
        /// Begins to drop input; the gate outlives it.
        explicit Hold(InputGate& gate);
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

        /// Shows what the program is waiting for, and the busy pointer, until this Hold ends.
        void say(const QString& what);

    private:
        InputGate& m_gate;
        bool m_said = false;
    };

    /// Whether a Hold lives.
    bool isHeld() const { return m_holds > 0; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void begin();
    void end();
    bool keepsAway(const QEvent& event);
    bool keepsAwayPress(const QMouseEvent& event);
    bool keepsAwayRelease(QObject* watched, const QMouseEvent& event);

    Say m_say;
    PendingInput m_pending;
    int m_holds = 0;
    int m_saying = 0;             // number of Holds that show a text
    QPointer<QWidget> m_inFront;  // the modal window or menu when the outermost Hold began
    Qt::MouseButtons m_pressed;   // presses whose release is still to come
    Qt::MouseButtons m_cancelled; // those of them that a Hold has cancelled
    bool m_isSendingRelease = false;
};

} // namespace ocuva
