#include "hostlink/modServer.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace ocuva {

namespace {

// ASCII only, as the switches are; a locale must not decide what "-SERVER" means.
char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowered(x) == lowered(y); });
}

void takeSwitch(std::string_view collected, ProcessFlags& flags) {
    if (equalsIgnoringCase(collected, "-server")) {
        flags.serverMode = true;
    } else if (equalsIgnoringCase(collected, "-client")) {
        flags.clientMode = true;
    }
}

} // namespace

void scanCommandLine(std::string_view commandLine, ProcessFlags& flags) {
    flags.serverMode = false;
    flags.clientMode = false;
    std::string collected;
    bool inWord = false;
    for (const char c : commandLine) {
        if (c != ' ' && c != '\t') {
            collected += c;
            inWord = true;
        } else if (inWord) {
            takeSwitch(collected, flags);
            inWord = false;
        }
    }
    if (inWord) {
        takeSwitch(collected, flags);
    }
}

void wakeRunningCopy(const ProcessFlags& flags, TnOcuva& ocuva) {
    if (!flags.serverMode) {
        ocuva.TarnOcuvaSendMsgByName("OCUVA_WakeUp");
    }
}

modServer::modServer(ProcessFlags& flags, TnLog& log, Notifier& notifier, ServerWindow& window,
                     std::function<Long(Long)> readIdleCount, LogLineSurroundings surroundings)
    : m_flags(flags)
    , m_log(log)
    , m_notifier(notifier)
    , m_window(window)
    , m_readIdleCount(std::move(readIdleCount))
    , m_surroundings(std::move(surroundings)) {}

void modServer::onNotify(const Notification& notification) {
    struct Message {
        std::string_view id;
        const char* logLine;
        void (modServer::*action)();
    };
    static constexpr std::array<Message, 4> messages{{
        {"OCUVA_IS_SERVER_UP", "Received IAC_MSG_ISALIVE\n", &modServer::isAlive},
        {"OCUVA_AUTOFOCUS", "Received IAC_MSG_OC_AUTOFOCUS\n", &modServer::autofocus},
        {"OCUVA_WAKEUP", "Received IAC_MSG_OC_WAKEUP\n", &modServer::wakeUp},
        {"OCUVA_SLEEP", "Received IAC_MSG_OC_SLEEP\n", &modServer::sleep},
    }};
    for (const Message& message : messages) {
        if (notification.strId == message.id) {
            logLine(message.logLine);
            note(m_surroundings.journal, {"request", {}, {}, std::string(message.id)});
            (this->*message.action)();
            return;
        }
    }
}

void modServer::logLine(const char* text) {
    const LogLineSurroundings& now = m_surroundings;
    const bool windowIsLoaded = !now.anyWindowIsLoaded || now.anyWindowIsLoaded();
    if (!windowIsLoaded && now.showMessage) {
        now.showMessage("This routine cannot be called if "
                        "no forms are loaded.",
                        "Error", TARN_BOX_OK_CANCEL | TARN_BOX_CRITICAL);
    }
    if (windowIsLoaded && now.isDevelopmentEnvironment && now.isDevelopmentEnvironment()) {
        return;
    }
    m_log.TarnPrintfVB(text);
}

void modServer::isAlive() { m_notifier.Send("TN_OCUVA_SERVER", "", "OCUVA_SERVER_IS_UP"); }

void modServer::autofocus() {
    m_flags.serverMode = true;
    stopIdleCountdown();
    m_window.DoFocus();
    if (!m_flags.sleeping) {
        return;
    }
    m_configuredIdleCount = m_readIdleCount(m_configuredIdleCount);
    startIdleCountdown(m_configuredIdleCount);
}

void modServer::wakeUp() {
    stopIdleCountdown();
    m_flags.sleeping = false;
    m_window.applyWindowState(ServerWindow::State::normal);
    m_window.showModeless();
}

void modServer::sleep() {
    m_flags.sleeping = true;
    m_window.applyWindowState(ServerWindow::State::minimised);
    m_window.hideWindow();
    startIdleCountdown(m_configuredIdleCount);
}

void modServer::startIdleCountdown(Long count) {
    if (m_serverIdleCount == 0) {
        m_serverIdleCount = count;
    }
    m_window.enableIdleTimer(true);
}

void modServer::stopIdleCountdown() {
    m_window.enableIdleTimer(false);
    m_serverIdleCount = 0;
}

void modServer::idleTick() {
    if (m_serverIdleCount < 1) {
        m_window.exitProgram();
    } else {
        --m_serverIdleCount;
    }
}

} // namespace ocuva
