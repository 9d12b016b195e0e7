#pragma once
// A message bus on a folder of its own, who listens on it, and programs at its far end.

#include "hosts/common/bus/MessageBus.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace hosts {

namespace fs = std::filesystem;

/// Runs the event loop until the condition holds, for at most half a minute.
template <class Condition> bool eventually(Condition condition) {
    QDeadlineTimer deadline(30000);
    QTimer wake; // looks again now and then even when no event comes
    wake.start(5);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// Runs what is pending in the event loop; for showing that nothing comes.
inline void letEverythingArrive() {
    for (int i = 0; i < 50; ++i) {
        QTest::qWait(1);
    }
}

/// A data folder and the log of the buses on it.
struct Place {
    QTemporaryDir temporary;
    fs::path folder = fs::path(temporary.path().toStdU16String()) / "data";
    std::vector<std::string> log;

    Place() = default;
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
    /// A send clears away the sockets of the processes that a test has killed.
    ~Place() { MessageBus(folder, nullptr).sendByName("end"); }

    MessageBus makeBus() {
        return MessageBus(folder, [this](const std::string& line) { log.push_back(line); });
    }
    std::vector<fs::path> peerFiles() const {
        std::vector<fs::path> files;
        std::error_code error;
        for (const auto& entry : fs::directory_iterator(folder / "peers", error)) {
            if (entry.path().extension() != ".aside") { // still being written
                files.push_back(entry.path());
            }
        }
        return files;
    }
    bool logged(const std::string& words) const {
        return std::any_of(log.begin(), log.end(), [&words](const std::string& line) {
            return line.find(words) != std::string::npos;
        });
    }
};

/// A notifier that keeps what it hears as component|sub-component|id.
struct Listener {
    std::unique_ptr<ocuva::Notifier> notifier;
    std::vector<std::string> heard;

    explicit Listener(MessageBus& bus, const std::string& filter = "")
        : notifier(bus.createNotifier()) {
        notifier->setOnNotify([this](const ocuva::Notification& message) {
            heard.push_back(message.strComponent + '|' + message.strSubComponent + '|' + message.strId);
        });
        notifier->Subscribe(filter);
    }
};

/// A program at the far end of the bus.
class OtherProcess {
public:
    OtherProcess(const char* program, const std::vector<std::string>& arguments,
                 const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
        QStringList words;
        for (const std::string& argument : arguments) {
            words += QString::fromStdString(argument);
        }
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.setProcessEnvironment(environment);
        m_process.start(QString::fromLatin1(program), words);
    }
    ~OtherProcess() {
        m_process.kill();
        m_process.waitForFinished();
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    /// Keeps this program's event loop running while it waits for the line.
    bool says(const std::string& line) {
        return says([&line](const std::string& said) {
            return ("\n" + said).find("\n" + line + "\n") != std::string::npos;
        });
    }
    bool says(const std::function<bool(const std::string& said)>& what) {
        return eventually([&] {
            m_said += m_process.readAllStandardOutput().toStdString();
            std::erase(m_said, '\r'); // of Windows' line ends
            return what(m_said);
        });
    }
    bool ends() {
        return eventually([this] { return m_process.state() == QProcess::NotRunning; });
    }
    const std::string& said() const { return m_said; }
    QProcess& process() { return m_process; }

private:
    QProcess m_process;
    std::string m_said;
};

/// Name of the socket of the only peer.
inline QString socketOf(const Place& place) {
    std::ifstream file(place.peerFiles().at(0));
    std::string line;
    while (std::getline(file, line)) {
    }
    return QString::fromStdString(line);
}

/// Sends bytes to the only peer as a stranger would, and goes.
inline void sendRaw(const Place& place, const std::string& bytes) {
    QLocalSocket socket;
    socket.connectToServer(socketOf(place));
    ASSERT_TRUE(socket.waitForConnected());
    socket.write(bytes.data(), static_cast<qint64>(bytes.size()));
    EXPECT_TRUE(eventually(
        [&] { return socket.bytesToWrite() == 0 || socket.state() != QLocalSocket::ConnectedState; }));
}

} // namespace hosts
