#include "app/RunningCopies.h"

#include <QDeadlineTimer>
#include <QThread>

namespace ocuva {

namespace {

constexpr unsigned long lookAgainMs = 50;

} // namespace

bool RunningCopies::waitUntilOthersAreUp(std::chrono::milliseconds patience) {
    leave();
    const QDeadlineTimer deadline(patience);
    for (Others others = look(Enter::IfAlone); others.run; others = look(Enter::IfAlone)) {
        if (!others.start || deadline.hasExpired()) {
            return true;
        }
        QThread::msleep(lookAgainMs);
    }
    return false;
}

} // namespace ocuva
