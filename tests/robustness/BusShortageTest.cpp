// A storm of connections, and a process with few descriptors: messages arrive again afterwards. Local sockets
// only; counts and times are bounded.

#include "hosts/common/bus/BusNotifier.h"
#include "tests/support/BusRig.h"

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace hosts {

namespace {

/// A listener in a process of its own that may have so many descriptors.
struct LimitedListener : OtherProcess {
    LimitedListener(const Place& place, int descriptors)
        : OtherProcess("/bin/sh",
                       {"-c", "ulimit -n " + std::to_string(descriptors) + " && exec \"$0\" \"$@\"",
                        BUS_PEER_PROGRAM, "listen", place.folder.string(), ""}) {}

    std::size_t descriptors() {
        const fs::path folder = "/proc/" + std::to_string(process().processId()) + "/fd";
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
    }
    void limitDescriptors(rlim_t count) {
        const rlimit limit{count, 1024};
        ASSERT_EQ(::prlimit(static_cast<pid_t>(process().processId()), RLIMIT_NOFILE, &limit, nullptr), 0);
    }
    /// How many lines it has written to its log, of those with these words.
    int logged(const std::string& words) const {
        int lines = 0;
        for (std::size_t at = said().find(words); at != std::string::npos; at = said().find(words, at + 1)) {
            ++lines;
        }
        return lines;
    }
};

/// Connections that say nothing, held open.
struct SilentConnections {
    std::vector<int> sockets;

    SilentConnections() = default;
    SilentConnections(const SilentConnections&) = delete;
    SilentConnections& operator=(const SilentConnections&) = delete;
    ~SilentConnections() {
        for (const int socket : sockets) {
            ::close(socket);
        }
    }
    /// False when nobody listens there at the moment.
    bool add(const std::string& socketName) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        socketName.copy(address.sun_path, sizeof address.sun_path - 1);
        const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (::connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
            ::close(connection);
            return false;
        }
        sockets.push_back(connection);
        return true;
    }
};

struct BusShortage : testing::Test {
    Place place;
    MessageBus bus = place.makeBus();

    void SetUp() override {
        rlimit limit{};
        ::getrlimit(RLIMIT_NOFILE, &limit);
        limit.rlim_cur = limit.rlim_max;
        ::setrlimit(RLIMIT_NOFILE, &limit);
        ASSERT_GE(limit.rlim_max, 1300U) << "this test needs that many descriptors for itself";
    }
    /// Name of the listener's socket; empty while it has none.
    std::string presentSocket() const {
        std::string line;
        for (const fs::path& peer : place.peerFiles()) {
            std::ifstream file(peer);
            while (std::getline(file, line)) {
            }
        }
        return line;
    }
    bool arrives(OtherProcess& listener, const std::string& name) {
        return eventually([&] { return bus.sendByName(name); }) && listener.says("TN_OCUVA_SERVER||" + name);
    }
};

TEST_F(BusShortage, ElevenHundredConnectionsLeaveItListeningWithFewOfThemOpen) {
    LimitedListener listener(place, 1024);
    ASSERT_TRUE(listener.says("ready"));
    const std::size_t before = listener.descriptors();
    const std::string socket = socketOf(place).toStdString();
    SilentConnections storm;
    for (int i = 0; i < 1100; ++i) {
        ASSERT_TRUE(storm.add(socket)) << "connection " << i;
    }
    EXPECT_TRUE(arrives(listener, "during"));
    EXPECT_LE(listener.descriptors(), before + busMaxConnections + 10);
    EXPECT_EQ(listener.logged("connections at once"), 1);
}

TEST_F(BusShortage, AListenerWithFewDescriptorsServesMoreConnectionsThanItCanHave) {
    LimitedListener listener(place, 24);
    ASSERT_TRUE(listener.says("ready"));
    SilentConnections storm;
    for (int i = 0; i < 200; ++i) {
        ASSERT_TRUE(storm.add(socketOf(place).toStdString())) << "connection " << i;
    }
    EXPECT_TRUE(arrives(listener, "during"));
    EXPECT_EQ(listener.logged("connections at once"), 1);
}

TEST_F(BusShortage, AListenerThatHadNoDescriptorsListensAgain) {
    LimitedListener listener(place, 1024);
    ASSERT_TRUE(listener.says("ready"));
    const std::string socket = socketOf(place).toStdString();
    for (const char* message : {"after the first", "after the second"}) {
        listener.limitDescriptors(5); // fewer than it has, enough to wait on those that it watches
        SilentConnections some;
        some.add(presentSocket());
        ASSERT_TRUE(eventually([this] { return presentSocket().empty(); })) << "the shortage closes it";
        listener.limitDescriptors(1024);
        ASSERT_TRUE(eventually([this] { return !presentSocket().empty(); }));
        EXPECT_TRUE(arrives(listener, message));
    }
    EXPECT_NE(presentSocket(), socket) << "a late sender would clear the old one away";
    EXPECT_EQ(listener.logged("listening again"), 1) << "one line a minute";
    EXPECT_EQ(place.peerFiles().size(), 1U);
}

TEST_F(BusShortage, ASenderWhoseIdleConnectionWasClosedStillGetsThrough) {
    LimitedListener listener(place, 1024);
    ASSERT_TRUE(listener.says("ready"));
    EXPECT_TRUE(arrives(listener, "before"));
    SilentConnections storm;
    for (std::size_t i = 0; i < 2 * busMaxConnections; ++i) {
        ASSERT_TRUE(storm.add(socketOf(place).toStdString()));
    }
    EXPECT_TRUE(arrives(listener, "after"));
}

} // namespace

} // namespace hosts
