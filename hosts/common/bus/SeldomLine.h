#pragma once
// A line of the log about something that may happen a thousand times a second.

#include "hosts/common/bus/PeerFolder.h"

#include <QElapsedTimer>

#include <string>

namespace hosts {

/// Writes its line at most once a minute.
class SeldomLine {
public:
    /// Logs the line, unless it has been logged within the last minute.
    void log(const PeerFolder& peers, const std::string& line) {
        constexpr qint64 minuteMs = 60000;
        if (!m_logged.isValid() || m_logged.hasExpired(minuteMs)) {
            m_logged.start();
            peers.log(line);
        }
    }

private:
    QElapsedTimer m_logged;
};

} // namespace hosts
