// Two processes write the same store and are killed over and over, at any moment.
#include "hosts/common/services/Stores.h"
#include "tests/support/Processes.h"
#include "tests/support/TempFolder.h"

#include <array>
#include <atomic>
#include <chrono>
#include <gmock/gmock.h>
#include <new>
#include <random>
#include <sys/mman.h>
#include <thread>

using namespace hosts;

namespace {

constexpr std::size_t writers = 2;
constexpr std::size_t keys = 12;
constexpr int kills = 1000;

/// What a writer says of one key, in memory that outlives it.
struct Said {
    std::atomic<int> begun = 0;   ///< the write that may be under way
    std::atomic<int> written = 0; ///< the last one that was acknowledged
};
using Board = std::array<std::array<Said, keys>, writers>;

class SharedBoard {
public:
    SharedBoard()
        : m_memory(::mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
        , m_board(new (m_memory) Board) {}
    ~SharedBoard() { ::munmap(m_memory, sizeof(Board)); }
    SharedBoard(const SharedBoard&) = delete;
    SharedBoard& operator=(const SharedBoard&) = delete;
    Board& operator*() const { return *m_board; }

private:
    void* m_memory;
    Board* m_board;
};

std::string keyOf(std::size_t writer, std::size_t key) {
    const char first = static_cast<char>('a' + writer);
    return {first, static_cast<char>('a' + key)};
}

/// Values of changing length that show what number they belong to and whether they are whole.
std::string valueOf(int number) {
    std::string text = std::to_string(number);
    text.append(static_cast<unsigned>(number) % 97, 'x');
    text += '!';
    return text;
}

constexpr std::chrono::seconds longPatience{120};

/// Of a size that takes a while to write, so that many a kill comes in the middle.
const std::string filler(64 * 1024, 'f');

bool writeForever(const TempFolder& folder, std::array<Said, keys>& said, std::size_t writer) {
    HostLog log(folder / "log");
    Stores stores(folder.path(), log, longPatience);
    for (std::size_t key = 0;; key = (key + 1) % keys) {
        Said& mine = said[key];
        const int number = mine.written + 1;
        mine.begun = number;
        if (!stores.setString("Shared", keyOf(writer, key), valueOf(number), "S.INI")) {
            return false;
        }
        mine.written = number;
    }
}

/// Every key holds a whole value, no older than what was acknowledged before the look and no newer than what
/// was begun by its end.
void expectNothingLostOrTorn(const TempFolder& folder, const Board& board) {
    std::array<std::array<int, keys>, writers> atLeast{};
    for (std::size_t writer = 0; writer < writers; ++writer) {
        for (std::size_t key = 0; key < keys; ++key) {
            atLeast[writer][key] = board[writer][key].written;
        }
    }
    const auto ini = IniText::parse(folder.read("S.INI"));
    ASSERT_TRUE(ini && ini->value("Filler", "text") == filler);
    for (std::size_t writer = 0; writer < writers; ++writer) {
        for (std::size_t key = 0; key < keys; ++key) {
            const std::string name = keyOf(writer, key);
            const std::string text = ini->value("Shared", name).value_or("");
            const int number = text.empty() ? 0 : std::stoi(text);
            ASSERT_EQ(text, number == 0 ? "" : valueOf(number)) << name;
            ASSERT_GE(number, atLeast[writer][key]) << name;
            ASSERT_LE(number, board[writer][key].begun) << name;
        }
    }
}

} // namespace

TEST(KilledWriters, AThousandKillsNeitherLoseNorTearConfirmedWrites) {
    const TempFolder folder;
    folder.write("S.INI", "[Filler]\ntext=" + filler + "\n[Shared]\n");
    const SharedBoard shared;
    Board& board = *shared;
    const auto start = [&folder, &board](std::size_t writer) {
        return startProcess(
            [&folder, &board, writer] { return writeForever(folder, board[writer], writer); });
    };
    std::mt19937 random(20261);
    std::uniform_int_distribution<int> waitUs(0, 4000);
    std::array<pid_t, writers> running = {start(0), start(1)};
    for (int n = 0; n < kills && !HasFatalFailure(); ++n) {
        std::this_thread::sleep_for(std::chrono::microseconds(waitUs(random)));
        const std::size_t victim = random() % writers;
        killProcess(running[victim]);
        expectNothingLostOrTorn(folder, board);
        running[victim] = start(victim);
    }
    for (const pid_t writer : running) {
        killProcess(writer);
    }
    expectNothingLostOrTorn(folder, board);

    int acknowledged = 0;
    for (const auto& said : board) {
        for (const Said& key : said) {
            acknowledged += key.written;
        }
    }
    EXPECT_GT(acknowledged, kills / 10) << "the writers were hardly ever in the middle of a write";
    EXPECT_FALSE(folder.has("log")) << folder.read("log");
}
