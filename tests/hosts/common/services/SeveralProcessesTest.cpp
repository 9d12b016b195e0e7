// What happens when processes share a data folder, or are killed in the middle of their work.
#include "hosts/common/services/DataFolder.h"
#include "hosts/common/services/Standards.h"
#include "hosts/common/services/Stores.h"
#include "tests/support/TempFolder.h"

#include <array>
#include <csignal>
#include <functional>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace hosts;

namespace {

/// Runs the work in a process of its own; its exit code is 0 when the work returned true.
pid_t start(const std::function<bool()>& work) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work() ? 0 : 1);
    return child;
}

bool succeeded(pid_t child) {
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Runs the work in so many processes at once, each with its number from 0; true when all returned true.
bool inProcesses(int count, const std::function<bool(int)>& work) {
    std::vector<pid_t> children(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        children[static_cast<std::size_t>(i)] = start([&work, i] { return work(i); });
    bool all = true;
    for (const pid_t child : children)
        all = succeeded(child) && all;
    return all;
}

constexpr std::chrono::seconds longPatience{120};

/// Each writer has 20 keys of its own and writes them in turn.
std::string keyOf(int writer, int write) { return std::to_string(writer) + '-' + std::to_string(write % 20); }

} // namespace

TEST(SeveralProcesses, WritersOfDifferentKeysLoseNothing) {
    const TempFolder folder;
    constexpr int writers = 4;
    constexpr int writes = 200;
    EXPECT_TRUE(inProcesses(writers, [&folder](int i) {
        HostLog log(folder / "log");
        Stores stores(folder.path(), log, longPatience);
        bool good = true;
        for (int n = 1; n <= writes; ++n) {
            const std::string key = keyOf(i, n);
            good = stores.setString("Shared", key, std::to_string(n), "S.INI") &&
                   stores.getInt("Shared", key, 0, "S.INI") == n && good;
        }
        return good;
    }));

    HostLog log(folder / "log");
    Stores stores(folder.path(), log);
    EXPECT_EQ(stores.entryCount("Shared", "S.INI"), writers * 20);
    for (int i = 0; i < writers; ++i)
        for (int n = writes - 19; n <= writes; ++n)
            EXPECT_EQ(stores.getInt("Shared", keyOf(i, n), 0, "S.INI"), n);
    EXPECT_FALSE(folder.has("log"));
}

TEST(SeveralProcesses, AWriterThatIsKilledLeavesAWholeStoreAndNoLock) {
    const TempFolder folder;
    folder.write("S.INI", "[A]\nk=0\nfiller=" + std::string(20000, 'x') + "\n");
    for (int round = 0; round < 10; ++round) {
        std::array<int, 2> ends{};
        ASSERT_EQ(::pipe(ends.data()), 0);
        const pid_t child = start([&folder, &ends] {
            HostLog log(folder / "log");
            Stores stores(folder.path(), log, longPatience);
            for (int n = 0;; ++n) {
                stores.setString("A", "k", std::to_string(n), "S.INI");
                if (::write(ends[1], "w", 1) != 1)
                    return false;
            }
        });
        std::array<char, 1> byte{};
        for (int writesBeforeKill = 0; writesBeforeKill <= round; ++writesBeforeKill)
            ASSERT_EQ(::read(ends[0], byte.data(), 1), 1);
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ::close(ends[0]);
        ::close(ends[1]);

        HostLog log(folder / "log");
        Stores stores(folder.path(), log, longPatience);
        EXPECT_EQ(stores.getString("A", "filler", "", "S.INI").size(), 20000u);
        EXPECT_TRUE(stores.setString("A", "k", "-1", "S.INI"));
        EXPECT_EQ(stores.getInt("A", "k", 0, "S.INI"), -1);
    }
    EXPECT_FALSE(folder.has("log"));
}

TEST(SeveralProcesses, LogLinesOfSeveralProcessesStayWhole) {
    const TempFolder folder;
    EXPECT_TRUE(inProcesses(4, [&folder](int i) {
        HostLog log(folder / "log", [] { return std::string("T"); });
        for (int n = 0; n < 250; ++n)
            log.line(std::string(300, static_cast<char>('a' + i)));
        return true;
    }));
    const auto lines = folder.lines("log");
    EXPECT_EQ(lines.size(), 1000u);
    for (const auto& line : lines)
        EXPECT_EQ(line, "T " + std::string(300, line[2]));
}

TEST(SeveralProcesses, AFirstStartOfSeveralAtOnceSeedsOneWholeFolder) {
    const TempFolder folder;
    const auto seeds = [](const std::filesystem::path&) {
        std::vector<SeedFile> files;
        for (int n = 0; n < 8; ++n) {
            const std::string name = "Standard" + std::to_string(n);
            files.push_back({"standards/" + name + ".std", standardText(name, {n, n, n})});
        }
        return files;
    };
    EXPECT_TRUE(inProcesses(4, [&](int) {
        const auto opened = DataFolder::open(folder / "data", seeds);
        if (!std::holds_alternative<DataFolder>(opened))
            return false;
        HostLog log(folder / "log");
        return readStandards(std::get<DataFolder>(opened).standards(), log).size() == 8;
    }));
    EXPECT_FALSE(folder.has("log"));
}
