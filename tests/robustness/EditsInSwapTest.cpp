// Somebody edits a store between the last look at it and its replacement, and the program is killed there.
#include "base/AsideFile.h"
#include "hosts/common/services/Stores.h"
#include "tests/support/Processes.h"
#include "tests/support/TempFolder.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <sys/syscall.h>
#include <thread>
#include <utility>

using namespace hosts;

namespace {

/// What happens right before and right after two files are exchanged, with the number of the exchange from 1.
std::function<void(int)> beforeExchange;
std::function<void(int)> afterExchange;
bool diskCannotExchange = false;
int exchanges = 0;

void call(const std::function<void(int)>& what) {
    if (what) {
        what(exchanges);
    }
}

} // namespace

extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned way) noexcept {
    if (diskCannotExchange) {
        errno = EINVAL;
        return -1;
    }
    const bool isExchange = way == RENAME_EXCHANGE;
    if (isExchange) {
        ++exchanges;
        call(beforeExchange);
    }
    const long result = ::syscall(SYS_renameat2, fromFolder, from, toFolder, to, way);
    if (isExchange && result == 0) {
        call(afterExchange);
    }
    return static_cast<int>(result);
}

namespace {

struct EditsInSwap : testing::Test {
    TempFolder folder;
    HostLog log{folder / "log"};
    Stores stores{folder.path(), log};

    void SetUp() override {
        folder.write("S.INI", "[A]\nk=0\n");
        exchanges = 0;
    }
    void TearDown() override {
        beforeExchange = {};
        afterExchange = {};
        diskCannotExchange = false;
    }

    /// As editors save: a new file in the place of the old one.
    void save(const std::string& text) const {
        folder.write("editor", text);
        std::filesystem::rename(folder / "editor", folder / "S.INI");
    }
    long filesInFolder() const {
        return std::distance(std::filesystem::directory_iterator(folder.path()), {});
    }
    /// In a process of its own, which ends right after that exchange.
    void writeAndDieAfter(int exchange) const {
        EXPECT_FALSE(succeeded(startProcess([this, exchange] {
            afterExchange = [exchange](int number) {
                if (number == exchange) {
                    ::_exit(1);
                }
            };
            HostLog itsLog(folder / "log");
            return Stores(folder.path(), itsLog).setString("A", "k", "1", "S.INI");
        })));
    }
};

} // namespace

TEST_F(EditsInSwap, AnEditRightBeforeTheExchangeStaysAndTheWriteIsMadeToIt) {
    beforeExchange = [this](int number) {
        if (number == 1) {
            save("[A]\nk=0\n[Hand]\nedit=1\n");
        }
    };
    EXPECT_TRUE(stores.setString("A", "k", "1", "S.INI"));
    EXPECT_EQ(folder.read("S.INI"), "[A]\nk=1\n[Hand]\nedit=1\n");
    EXPECT_EQ(filesInFolder(), 2); // the store and its lock
}

TEST_F(EditsInSwap, TheLastOfSeveralEditsInARowStays) {
    for (int edits = 2; edits <= 6; ++edits) {
        save("[A]\nk=0\n");
        exchanges = 0;
        beforeExchange = [this, edits](int number) {
            if (number <= edits) {
                save("[A]\nk=0\n[Hand]\nedit=" + std::to_string(number) + "\n");
            }
        };
        EXPECT_TRUE(stores.setString("A", "k", "1", "S.INI"));
        EXPECT_EQ(folder.read("S.INI"), "[A]\nk=1\n[Hand]\nedit=" + std::to_string(edits) + "\n");
        EXPECT_EQ(filesInFolder(), 2);
    }
}

TEST_F(EditsInSwap, AnEditorThatHasJustEmptiedTheFileKeepsWritingToTheStore) {
    std::ofstream editor;
    beforeExchange = [this, &editor](int number) {
        if (number == 1) {
            editor.open(folder / "S.INI", std::ios::binary); // and so it is empty
        }
    };
    afterExchange = [&editor](int number) {
        if (number == 2) {
            editor << "[A]\nk=0\n[Hand]\nedit=1\n" << std::flush;
        }
    };
    EXPECT_TRUE(stores.setString("A", "k", "1", "S.INI"));
    EXPECT_EQ(folder.read("S.INI"), "[A]\nk=1\n[Hand]\nedit=1\n");
}

TEST_F(EditsInSwap, AnEditorThatIsStillWritingToTheFileIsWaitedFor) {
    std::thread editor;
    beforeExchange = [this, &editor](int number) {
        if (number != 1) {
            return;
        }
        std::fstream file(folder / "S.INI", std::ios::binary | std::ios::in | std::ios::out);
        editor = std::thread([file = std::move(file)]() mutable {
            std::this_thread::sleep_for(std::chrono::milliseconds(60));
            file << "[A]\nk=0\n[Hand]\nedit=1\n" << std::flush;
        });
    };
    EXPECT_TRUE(stores.setString("A", "k", "1", "S.INI"));
    editor.join();
    EXPECT_EQ(folder.read("S.INI"), "[A]\nk=1\n[Hand]\nedit=1\n");
}

TEST_F(EditsInSwap, AProgramThatKeepsTheFileOpenForWritingDoesNotKeepTheStoreFromBeingWritten) {
    const std::fstream other(folder / "S.INI", std::ios::binary | std::ios::in | std::ios::out);
    EXPECT_TRUE(stores.setString("A", "k", "1", "S.INI"));
    EXPECT_EQ(folder.read("S.INI"), "[A]\nk=1\n");
}

TEST_F(EditsInSwap, AStoreThatAppearsOrDisappearsMeanwhileIsUsedAsItIs) {
    beforeExchange = [this](int number) {
        if (number == 1) {
            std::filesystem::remove(folder / "S.INI");
        }
    };
    EXPECT_TRUE(stores.setString("A", "k", "1", "S.INI"));
    EXPECT_EQ(IniText::parse(folder.read("S.INI"))->value("A", "k"), "1");
    EXPECT_EQ(filesInFolder(), 2);
}

TEST_F(EditsInSwap, OnADiskThatCannotExchangeFilesTheStoreIsStillWritten) {
    diskCannotExchange = true;
    EXPECT_TRUE(stores.setString("A", "k", "1", "S.INI"));
    EXPECT_TRUE(stores.setString("A", "k", "2", "New.INI"));
    EXPECT_EQ(folder.read("S.INI"), "[A]\nk=1\n");
    EXPECT_EQ(IniText::parse(folder.read("New.INI"))->value("A", "k"), "2");
    EXPECT_EQ(filesInFolder(), 4);
}

TEST_F(EditsInSwap, AProgramThatIsKilledRightAfterTheExchangeLeavesTheNewStoreWhole) {
    writeAndDieAfter(1);
    EXPECT_EQ(folder.read("S.INI"), "[A]\nk=1\n");
    EXPECT_EQ(filesInFolder(), 3); // what it replaced is there still
    EXPECT_TRUE(stores.setString("B", "k", "2", "S.INI"));
    EXPECT_EQ(stores.getString("A", "k", "", "S.INI"), "1");
    EXPECT_EQ(filesInFolder(), 2);
}

TEST_F(EditsInSwap, AnEditThatAKilledProgramHadStillToPutBackIsPutBackByTheNextWrite) {
    beforeExchange = [this](int number) {
        if (number == 1) {
            save("[A]\nk=0\n[Hand]\nedit=1\n");
        }
    };
    for (const int lastExchange : {1, 2}) {
        save("[A]\nk=0\n");
        exchanges = 0;
        writeAndDieAfter(lastExchange);
        const auto edits = std::exchange(beforeExchange, {});
        EXPECT_TRUE(stores.setString("B", "k", "2", "S.INI"));
        EXPECT_EQ(stores.getString("Hand", "edit", "", "S.INI"), "1") << lastExchange;
        EXPECT_EQ(stores.getString("B", "k", "", "S.INI"), "2") << lastExchange;
        EXPECT_EQ(filesInFolder(), 2) << lastExchange;
        beforeExchange = edits;
    }
}

TEST_F(EditsInSwap, AnEditMadeAfterTheKillCountsMoreThanTheOneBeforeIt) {
    beforeExchange = [this](int number) {
        if (number == 1) {
            save("[A]\nk=0\n[Hand]\nedit=1\n");
        }
    };
    writeAndDieAfter(1);
    beforeExchange = {};
    save("[A]\nk=1\n[Hand]\nedit=2\n");
    EXPECT_TRUE(stores.setString("B", "k", "2", "S.INI"));
    EXPECT_EQ(stores.getString("Hand", "edit", "", "S.INI"), "2");
    EXPECT_EQ(filesInFolder(), 2);
}

TEST_F(EditsInSwap, FilesThatOnlyLookLikeTheOnesLeftByASwapStay) {
    folder.write("S.INI.ocuva-0123456789abcdef0123456789abcdef01234567.swap", "my own");
    EXPECT_TRUE(stores.setString("A", "k", "1", "S.INI"));
    EXPECT_EQ(folder.read("S.INI.ocuva-0123456789abcdef0123456789abcdef01234567.swap"), "my own");
    EXPECT_FALSE(stores.setString("A", "k", "1", "S.INI.swap"));
}
