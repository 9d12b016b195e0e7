// A store that a program writes, and is killed in writing, while somebody edits it by hand without its lock.
#include "hosts/common/services/Stores.h"
#include "tests/support/Processes.h"
#include "tests/support/TempFolder.h"

#include <chrono>
#include <gmock/gmock.h>
#include <thread>

using namespace hosts;

namespace {

constexpr int edits = 200;
constexpr int killEvery = 20;

/// Between a toggle and the next there is time for an edit, as with people.
bool toggleForever(const TempFolder& folder) {
    HostLog log(folder / "log");
    Stores stores(folder.path(), log, std::chrono::seconds(60));
    for (int n = 0;; ++n) {
        if (!stores.setString("Toggle", "k", std::to_string(n % 2), "S.INI")) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

/// As editors save: a new file in the place of the old one.
void editByHand(const TempFolder& folder, const std::string& value) {
    const auto ini = IniText::parse(folder.read("S.INI"));
    ASSERT_TRUE(ini);
    IniText edited = *ini;
    ASSERT_TRUE(edited.setValue("Hand", "edit", value));
    folder.write("S.INI.editor", edited.text());
    std::filesystem::rename(folder / "S.INI.editor", folder / "S.INI");
}

std::string editIn(const TempFolder& folder) {
    return IniText::parse(folder.read("S.INI"))->value("Hand", "edit").value_or("");
}

} // namespace

TEST(EditsByHand, AreNeverLostWhileAProgramWritesTheSameStoreAndIsKilled) {
    const TempFolder folder;
    // Of a size that takes a while to write.
    folder.write("S.INI", "[Filler]\ntext=" + std::string(64 * 1024, 'f') + "\n[Hand]\nedit=0\n");
    int lost = 0;
    pid_t program = startProcess([&folder] { return toggleForever(folder); });
    for (int n = 1; n <= edits; ++n) {
        const std::string value = std::to_string(n);
        editByHand(folder, value);
        std::this_thread::sleep_for(std::chrono::milliseconds(15));
        lost += editIn(folder) == value ? 0 : 1;
        if (n % killEvery == 0) {
            killProcess(program);
            program = startProcess([&folder] { return toggleForever(folder); });
        }
    }
    killProcess(program);
    EXPECT_EQ(lost, 0);
    RecordProperty("lost", lost);
}

TEST(EditsByHand, AFileThatAnEditorHasJustEmptiedIsNotTakenForAnEmptyStore) {
    const TempFolder folder;
    folder.write("S.INI", "[A]\nk=1\n");
    HostLog log(folder / "log");
    Stores stores(folder.path(), log);
    ASSERT_EQ(stores.getInt("A", "k", 0, "S.INI"), 1);
    folder.write("S.INI", "");
    std::thread editor([&folder] {
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        std::ofstream(folder / "S.INI", std::ios::binary | std::ios::in) << "[A]\nk=2\nnew=3\n";
    });
    EXPECT_TRUE(stores.setString("B", "toggle", "1", "S.INI"));
    editor.join();
    EXPECT_EQ(stores.getInt("A", "k", 0, "S.INI"), 2);
    EXPECT_EQ(stores.getInt("A", "new", 0, "S.INI"), 3);
    EXPECT_EQ(stores.getInt("B", "toggle", 0, "S.INI"), 1);
}
