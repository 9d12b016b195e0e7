// A program that stores the list of standards is killed over and over, at any moment.
#include "hosts/common/services/Stores.h"
#include "standards/StandardList.h"
#include "tests/support/NamesOnList.h"
#include "tests/support/Processes.h"
#include "tests/support/StubHost.h"
#include "tests/support/TempFolder.h"

#include <chrono>
#include <gmock/gmock.h>
#include <random>
#include <thread>

using namespace ocuva;

namespace {

constexpr int kills = 150;

/// The settings library of a host whose stores are files.
class StoresLibrary final : public StubHost {
public:
    explicit StoresLibrary(const TempFolder& folder)
        : m_log(folder / "log")
        , m_stores(folder.path(), m_log) {}

    TarnLong TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                const char* store) override {
        return m_stores.getInt(section, key, defaultValue, store);
    }
    TarnLong TarnRegisterSetString(const char* section, const char* key, const char* value,
                                   const char* store) override {
        return m_stores.setString(section, key, value, store) ? 1 : 0;
    }
    TarnLong TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                   char* buffer, TarnLong bufferSize, const char* store) override {
        const std::string text = m_stores.getString(section, key, defaultValue, store);
        return static_cast<TarnLong>(text.copy(buffer, static_cast<std::size_t>(bufferSize)));
    }

private:
    hosts::HostLog m_log;
    hosts::Stores m_stores;
};

struct Program {
    explicit Program(const TempFolder& folder)
        : host(folder)
        , list(host, host, folder / "standards.unfinished") {}

    std::vector<std::string> names() const { return namesOn(list); }

    StoresLibrary host;
    StandardList list;
};

} // namespace

TEST(KilledList, IsCompleteAfterTheNextStartAfterAnyNumberOfKills) {
    const TempFolder folder;
    const std::vector<std::string> one{"a", "b", "c", "d", "e", "f"};
    const std::vector<std::string> other{"f", "a", "c", "e"};
    ASSERT_TRUE(Program(folder).list.store(one));
    std::mt19937 random(20261);
    std::uniform_int_distribution<int> waitUs(0, 30000);
    int cutOff = 0;
    for (int n = 0; n < kills; ++n) {
        const pid_t running = startProcess([&folder, &one, &other] {
            Program program(folder);
            while (program.list.store(other) && program.list.store(one)) {
            }
            return false;
        });
        std::this_thread::sleep_for(std::chrono::microseconds(waitUs(random)));
        killProcess(running);
        Program next(folder);
        cutOff += next.list.finishStoring() ? 1 : 0;
        ASSERT_THAT(next.names(), testing::AnyOf(one, other)) << "kill " << n;
    }
    EXPECT_GT(cutOff, kills / 10) << "the kills hardly ever came in the middle of a list";
    RecordProperty("cutOff", cutOff);
}
