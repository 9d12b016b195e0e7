#include "tools/tarnsend/Conversation.h"

#include <utility>

namespace tarnsend {

namespace {

constexpr int interruptCheckMs = 50;

void appendEscaped(std::string& line, const std::string& text) {
    for (const char letter : text) {
        switch (letter) {
        case '\t':
            line += "\\t";
            break;
        case '\n':
            line += "\\n";
            break;
        case '\r':
            line += "\\r";
            break;
        case '\\':
            line += "\\\\";
            break;
        default:
            line += letter;
        }
    }
}

} // namespace

std::string lineOf(const ocuva::Notification& message) {
    std::string line;
    appendEscaped(line, message.strComponent);
    line += '\t';
    appendEscaped(line, message.strSubComponent);
    line += '\t';
    appendEscaped(line, message.strId);
    return line;
}

Conversation::Conversation(Request request, std::shared_ptr<const hosts::PeerFolder> peers,
                           Surroundings surroundings)
    : m_request(std::move(request))
    , m_surroundings(std::move(surroundings))
    , m_notifier(std::move(peers)) {
    m_notifier.setOnNotify([this](const ocuva::Notification& message) { heard(message); });
    m_timeout.setSingleShot(true);
    m_timeout.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timeout, &QTimer::timeout, &m_timeout, [this] { timeIsUp(); });
    QObject::connect(&m_interruptCheck, &QTimer::timeout, &m_interruptCheck, [this] {
        if (m_surroundings.interrupted()) {
            end(m_request.listen ? exitDone : exitTimeOut);
        }
    });
}

void Conversation::begin() {
    if (m_request.listen || m_request.waitFor) {
        m_notifier.Subscribe(m_request.listen && !m_request.component.empty()
                                 ? "DST_APP=" + m_request.component
                                 : std::string());
        if (!m_notifier.isListening()) {
            QTimer::singleShot(0, &m_timeout, [this] { end(exitTrouble); });
            return;
        }
        m_interruptCheck.start(interruptCheckMs);
    }
    if (m_request.timeout) {
        m_timeout.start(*m_request.timeout);
    }
    if (!m_request.listen) {
        QTimer::singleShot(0, &m_timeout, [this] { sendAll(); });
    }
}

void Conversation::sendAll() {
    m_sent = true;
    for (const std::string& message : m_request.messages) {
        const hosts::BusMessage sent =
            m_request.byName ? hosts::messageOfName(message)
                             : hosts::BusMessage{m_request.component, m_request.subComponent, message};
        if (m_notifier.send(sent) == 0) {
            m_surroundings.complain("nobody took " + message);
            end(exitNobody);
            return;
        }
    }
    if (!m_request.waitFor) {
        end(exitDone);
    }
}

void Conversation::heard(const ocuva::Notification& message) {
    if (m_ended) {
        return;
    }
    if (m_request.listen) {
        m_surroundings.print(lineOf(message));
        if (++m_shown == m_request.count) {
            end(exitDone);
        }
    } else if (m_sent && message.strId == m_request.waitFor) {
        m_surroundings.print(lineOf(message));
        end(exitDone);
    }
}

void Conversation::timeIsUp() {
    if (m_request.listen && !m_request.count) {
        end(exitDone);
        return;
    }
    m_surroundings.complain(m_request.listen
                                ? "only " + std::to_string(m_shown) + " messages came in that time"
                                : *m_request.waitFor + " did not come in that time");
    end(exitTimeOut);
}

void Conversation::end(ExitCode code) {
    if (!m_ended) {
        m_ended = true;
        m_timeout.stop();
        m_interruptCheck.stop();
        m_surroundings.end(code);
    }
}

} // namespace tarnsend
