#pragma once
// Input that the window system queued while the program was busy.

#include <QtGlobal>

#include <memory>

class QInputEvent;

namespace ocuva {

/// Distinguishes input made before a certain moment from later input. Releases of buttons and keys are
/// never dropped: a widget that has seen a press must see the release. User-interface thread.
class PendingInput {
public:
    PendingInput();
    ~PendingInput();
    PendingInput(const PendingInput&) = delete;
    PendingInput& operator=(const PendingInput&) = delete;

    /// Marks all input up to now that has not reached the program as outdated. Runs no event, timer or
    /// message of the program. On X the server's time stamps decide; on Windows the messages are removed
    /// from the thread's queue; on other platforms nothing is outdated.
    void outdate();

    /// Whether an event was made before the last call of outdate.
    bool isOutdated(const QInputEvent& event);

private:
    class System;
    std::unique_ptr<System> m_system;
};

} // namespace ocuva
