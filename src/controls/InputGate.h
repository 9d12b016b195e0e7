#pragma once
// What is pressed while the program cannot answer is not done afterwards.

#include "platform/PendingInput.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class QMouseEvent;
class QWidget;

namespace ocuva {

/// Keeps pointer and keys away from all windows of the program while a call holds it. Each call of the host
/// that may take long goes through it: a Hold lives around the call. One for the life of the main window.
/// User-interface thread.
class InputGate final : public QObject {
    Q_OBJECT

public:
    /// Shows on the screen, before it returns, what the program is busy with; an empty text when it no longer
    /// is.
    using Say = std::function<void(const QString& what)>;

    /// Watches the application's events from now on.
    explicit InputGate(Say say);
    ~InputGate() override;

    /// While one lives, presses, pointer moves and the wheel are dropped, in whatever window they arrive; a
    /// window or menu that opens meanwhile and must be answered gets them all the same. At the end of the
    /// outermost Hold what was made until then and is still queued is dropped too. A press that was made
    /// before comes to nothing: its release arrives outside of everything. Holds may be nested.
    class Hold {
    public:
        /// Begins to drop input; the gate outlives it.
        explicit Hold(InputGate& gate);
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

        /// Shows what is going on, and the pointer of a busy program, as long as this Hold lives.
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
    int m_saying = 0;             // Holds that have said something
    QPointer<QWidget> m_inFront;  // the modal window or menu as the outermost Hold began
    Qt::MouseButtons m_pressed;   // presses that a window has got, their release to come
    Qt::MouseButtons m_cancelled; // of those: that a Hold came between
    bool m_isSendingRelease = false;
};

} // namespace ocuva
