#include "hosts/common/bus/BusFrame.h"
#include "tests/support/BusRig.h"

#include <cerrno>
#include <random>
#include <set>
#include <sstream>

#ifndef _WIN32
#include <grp.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace hosts {

namespace {

#ifndef _WIN32 // the memory is read from /proc

/// What bus_load says of itself while it counts.
struct Tally {
    int heard = 0;
    int outOfOrder = 0;
    long residentKiB = 0;
};

std::vector<Tally> talliesOf(const std::string& said) {
    std::vector<Tally> tallies;
    std::istringstream lines(said);
    for (std::string line; std::getline(lines, line);) {
        Tally tally;
        if (std::sscanf(line.c_str(), "heard %d, out of order %d, resident %ld KiB", &tally.heard,
                        &tally.outOfOrder, &tally.residentKiB) == 3) {
            tallies.push_back(tally);
        }
    }
    return tallies;
}

/// A sanitizer keeps what was freed for a while; that is not the memory to be measured.
QProcessEnvironment keepingNothing() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"),
                       environment.value(QStringLiteral("ASAN_OPTIONS")) +
                           QStringLiteral(":quarantine_size_mb=1:thread_local_quarantine_size_kb=64"));
    return environment;
}

TEST(BusUnderLoad, LosesNoneOfAHundredThousandMessagesOfFourSendersAndLeavesTheMemoryWhereItWas) {
    constexpr int senderCount = 4;
    constexpr int each = 25000;
    const std::string padding(80, '.'); // makes more than a sender keeps for a peer
    Place place;
    OtherProcess receiver(BUS_LOAD_PROGRAM,
                          {"count", place.folder.string(), std::to_string(senderCount * each)},
                          keepingNothing());
    ASSERT_TRUE(receiver.says("ready"));
    std::vector<std::unique_ptr<OtherProcess>> senders;
    senders.reserve(senderCount);
    for (int i = 0; i < senderCount; ++i) {
        senders.push_back(std::make_unique<OtherProcess>(
            BUS_LOAD_PROGRAM,
            std::vector<std::string>{"flood", place.folder.string(), "sender " + std::to_string(i) + padding,
                                     std::to_string(each)}));
    }
    for (const auto& sender : senders) {
        EXPECT_TRUE(sender->ends());
        EXPECT_EQ(sender->process().exitCode(), 0);
    }
    EXPECT_TRUE(receiver.says([](const std::string& said) { return talliesOf(said).size() == 10; }));

    const std::vector<Tally> tallies = talliesOf(receiver.said());
    ASSERT_EQ(tallies.size(), 10U);
    EXPECT_EQ(tallies.back().heard, senderCount * each);
    EXPECT_EQ(tallies.back().outOfOrder, 0);
    constexpr long toleratedKiB = 4096;
    EXPECT_LT(tallies.back().residentKiB, tallies.front().residentKiB + toleratedKiB);
}

#endif

TEST(BusUnderLoad, TakesFromEverySenderInTurn) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener receiver(bus);
    const std::string frame = *encodeBusFrame({"A", std::string(1000, 'x'), "loud"});
    QLocalSocket loud;
    loud.connectToServer(socketOf(place));
    ASSERT_TRUE(loud.waitForConnected());
    // One peer has more to say than is kept, and goes on.
    for (int i = 0; i < 3000; ++i) {
        loud.write(frame.data(), static_cast<qint64>(frame.size()));
    }
    ASSERT_TRUE(eventually([&] { return receiver.heard.size() > 100; }));
    EXPECT_TRUE(bus.sendByName("quiet"));
    std::size_t quietAt = 0;
    EXPECT_TRUE(eventually([&] {
        const auto quiet = std::find(receiver.heard.begin(), receiver.heard.end(), "TN_OCUVA_SERVER||quiet");
        quietAt = static_cast<std::size_t>(quiet - receiver.heard.begin());
        return quiet != receiver.heard.end();
    }));
    EXPECT_LT(quietAt, 2500U) << "it waits for what is kept already, not for the end of the loud peer";
    EXPECT_TRUE(eventually([&] { return receiver.heard.size() == 3001; }));
}

TEST(BusUnderLoad, IsHarmedByNoGarbage) {
    constexpr int connections = 300;
    Place place;
    MessageBus bus = place.makeBus();
    Listener receiver(bus);
    std::mt19937 random(20261);
    const std::string good = *encodeBusFrame({"A", "b", "good"});
    std::vector<std::unique_ptr<QLocalSocket>> sockets;
    for (int i = 0; i < connections; ++i) {
        // A third is noise, a third a message with one byte changed, a third the beginning of a message.
        std::string bytes = good;
        if (i % 3 == 0) {
            bytes.resize(random() % 4000);
            std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random()); });
        } else if (i % 3 == 1) {
            bytes[random() % bytes.size()] ^= static_cast<char>(1 + random() % 255);
        } else {
            bytes.resize(random() % bytes.size());
        }
        sockets.push_back(std::make_unique<QLocalSocket>());
        sockets.back()->connectToServer(socketOf(place));
        ASSERT_TRUE(eventually([&] { return sockets.back()->state() == QLocalSocket::ConnectedState; }));
        sockets.back()->write(bytes.data(), static_cast<qint64>(bytes.size()));
        sockets.back()->flush();
        bus.sendByName("good " + std::to_string(i));
        if (i % 100 == 99) {
            letEverythingArrive(); // Windows has places for so many callers at the door, and refuses the next
        }
    }
    const auto goodOnes = [&receiver] {
        std::set<std::string> found;
        for (const std::string& message : receiver.heard) {
            if (message.rfind("TN_OCUVA_SERVER||good ", 0) == 0) {
                found.insert(message);
            }
        }
        return found.size();
    };
    EXPECT_TRUE(eventually([&] { return goodOnes() == connections; }));
    sockets.clear();
    letEverythingArrive();
    EXPECT_TRUE(bus.sendByName("at the end"));
    EXPECT_TRUE(eventually([&] { return receiver.heard.back() == "TN_OCUVA_SERVER||at the end"; }));
    EXPECT_TRUE(place.logged("is no message"));
}

#ifndef _WIN32

/// Connects to a socket as another user; gives the error number, 0 for none. Only calls that are allowed
/// between fork and exit.
int connectAsNobody(const std::string& socketName) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    socketName.copy(address.sun_path, sizeof address.sun_path - 1);
    const pid_t child = ::fork();
    if (child == 0) {
        constexpr unsigned nobody = 65534;
        if (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0) {
            ::_exit(255);
        }
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        const int done = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        ::_exit(done == 0 ? 0 : errno);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(BusUnderLoad, IsOutOfReachOfAnotherUsersProcess) {
    Place place;
    // Only the socket itself and the folder of peers shut the other user out, no folder above them.
    fs::permissions(place.temporary.path().toStdString(), fs::perms::owner_all | fs::perms(0055));
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", place.temporary.path().toUtf8());
    MessageBus bus = place.makeBus();
    Listener receiver(bus);
    before.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", before);

    const std::string socket = socketOf(place).toStdString();
    struct stat about {};
    ASSERT_EQ(::stat(socket.c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 0077U, 0U);
    ASSERT_EQ(::stat((place.folder / "peers").c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 0077U, 0U);
    if (::geteuid() == 0) { // others cannot become another user; the access rights above speak for them
        EXPECT_EQ(connectAsNobody(socket), EACCES);
    }
    EXPECT_TRUE(bus.sendByName("still here"));
    EXPECT_TRUE(eventually([&] { return !receiver.heard.empty(); }));
}

#endif

} // namespace

} // namespace hosts
