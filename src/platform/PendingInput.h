#pragma once
// What the window system has queued for the program while the program did not look.

#include <QtGlobal>

#include <memory>

class QInputEvent;

namespace ocuva {

/// Tells input that was made before a moment from input made after it. Releases of buttons and keys are never
/// lost: who has seen a press must see its end. User-interface thread.
class PendingInput {
public:
    PendingInput();
    ~PendingInput();
    PendingInput(const PendingInput&) = delete;
    PendingInput& operator=(const PendingInput&) = delete;

    /// Whatever was pressed, moved or typed until now, and has not reached the program yet, is outdated. Runs
    /// no event, timer or message of the program. On X the server's clock decides, which stamps each event;
    /// on Windows the messages are taken out of the thread's queue here; on other platforms nothing is
    /// outdated.
    void outdate();

    /// Whether an event that arrives now was made before the last call of outdate.
    bool isOutdated(const QInputEvent& event);

private:
    class System;
    std::unique_ptr<System> m_system;
};

} // namespace ocuva
