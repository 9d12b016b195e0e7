#include "app/ServerControl.h"

#include "controls/HostMessageBox.h"
#include "platform/Desktop.h"

#include <utility>

namespace ocuva {

ServerControl::ServerControl(ServerControlContext context)
    : tServerCheckIdle(new QTimer(&context.window))
    , m_context(std::move(context))
    , m_sleeping(
          m_context.window, [this](bool minimised) { noteWindowState(minimised); },
          [this] {
              m_context.guard.log(
                  QObject::tr("The window system has not shown or hidden the window as the host requested."));
          }) {
    tServerCheckIdle->setObjectName(QStringLiteral("tServerCheckIdle"));
    tServerCheckIdle->setInterval(m_context.world.minuteMs);
    QObject::connect(tServerCheckIdle, &QTimer::timeout, tServerCheckIdle,
                     [this] { m_context.guard.runForHost([this] { m_server->idleTick(); }); });
}

void ServerControl::start(const std::function<void(const Notification&)>& onNotify) {
    Host& host = m_context.world.host;
    m_notifier = host.createNotifier();
    m_server.emplace(
        m_context.world.flags, host.tn_log(), *m_notifier, static_cast<ServerWindow&>(*this),
        [this](Long soFar) { return m_context.settings.readServerIdleCount(soFar); }, logLineSurroundings());
    m_notifier->setOnNotify(onNotify);
    m_notifier->Subscribe("DST_APP=TN_OCUVA_SERVER");
}

void ServerControl::onNotify(const Notification& notification) {
    m_context.guard.runForHost([this, &notification] { m_server->onNotify(notification); });
}

void ServerControl::stop() {
    tServerCheckIdle->stop();
    m_sleeping.letGo();
}

void ServerControl::applyWindowState(ServerWindow::State state) {
    m_sleeping.setMinimised(state == ServerWindow::State::minimised);
}

void ServerControl::noteWindowState(bool minimised) {
    if (minimised) {
        // Only stored: the window is hidden next, and a window system asked to minimise it would answer
        // late, perhaps after a wake-up that it would undo.
        m_context.window.overrideWindowState(Qt::WindowMinimized);
    } else {
        m_context.window.setWindowState(Qt::WindowNoState);
    }
}

void ServerControl::enableIdleTimer(bool on) {
    if (!on) {
        tServerCheckIdle->stop();
    } else if (!tServerCheckIdle->isActive()) { // a running minute continues
        tServerCheckIdle->start();
    }
}

LogLineSurroundings ServerControl::logLineSurroundings() {
    LogLineSurroundings surroundings;
    surroundings.journal = m_context.world.journal;
    surroundings.anyWindowIsLoaded = m_context.windowIsUp;
    surroundings.isDevelopmentEnvironment = [this] {
        return runsInDevelopmentEnvironment(m_context.window.internalWinId());
    };
    surroundings.showMessage = [this](const char* text, const char* title, TarnLong style) {
        const ProcessFlags& flags = m_context.world.flags;
        if (flags.serverMode || flags.sleeping) {
            m_context.guard.logError(QString::fromLatin1(text));
        } else {
            showMessageBox(text, title, style);
        }
    };
    return surroundings;
}

} // namespace ocuva
