#pragma once
// Sends, waits and listens on the bus.

#include "hosts/common/bus/BusNotifier.h"
#include "tools/tarnsend/Request.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>

namespace tarnsend {

/// A received message as one line without its line feed.
std::string lineOf(const ocuva::Notification& message);

/// One request from its beginning to its end. Needs a QCoreApplication and its event loop.
class Conversation {
public:
    struct Surroundings {
        std::function<void(const std::string& line)> print;
        std::function<void(const std::string& line)> complain;
        std::function<bool()> interrupted; ///< asked now and then while listening or waiting
        std::function<void(ExitCode)> end; ///< called once, when the event loop runs
    };

    Conversation(Request request, std::shared_ptr<const hosts::PeerFolder> peers, Surroundings surroundings);

    /// Begins; the end is reported from the event loop.
    void begin();

private:
    void sendAll();
    void heard(const ocuva::Notification& message);
    void timeIsUp();
    void end(ExitCode code);

    Request m_request;
    Surroundings m_surroundings;
    hosts::BusNotifier m_notifier;
    QTimer m_timeout;
    QTimer m_interruptCheck;
    int m_shown = 0;
    bool m_sent = false;
    bool m_ended = false;
};

} // namespace tarnsend
