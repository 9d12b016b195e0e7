// Copies of the program find each other, or report that they cannot, whatever somebody has planted.
#include "Planted.h"
#include "app/KeepingWatch.h"
#include "app/RunningCopies.h"
#include "app/SecondStart.h"
#include "base/FileLock.h"
#include "controls/UserRegistry.h"
#include "hostlink/ObservedHost.h"
#include "hosts/common/bus/MessageBus.h"
#include "hosts/common/bus/PeerPresence.h"
#include "tests/support/StubHost.h"
#include "tests/support/TempFolder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSettings>
#include <QTest>

#include <gmock/gmock.h>

using namespace ocuva;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr std::chrono::seconds bound{20};
constexpr uid_t somebody = 65534;
const auto scope = QStringLiteral("/bench/data");

/// A session whose folders are the test's own.
struct Session {
    explicit Session(bool hasRuntimeFolder = false) {
        std::filesystem::create_directory(folder / "tmp");
        std::filesystem::create_directory(folder / "home");
        qputenv("TMPDIR", (folder / "tmp").c_str());
        qputenv("XDG_CACHE_HOME", (folder / "home/.cache").c_str());
        if (hasRuntimeFolder) {
            std::filesystem::create_directory(folder / "run");
            qputenv("XDG_RUNTIME_DIR", (folder / "run").c_str());
        } else {
            qunsetenv("XDG_RUNTIME_DIR");
        }
    }
    ~Session() {
        qunsetenv("TMPDIR");
        qunsetenv("XDG_CACHE_HOME");
        qunsetenv("XDG_RUNTIME_DIR");
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    std::filesystem::path copies() const {
        return folder / "tmp" / ("ocuva-copies-" + std::to_string(::geteuid()));
    }
    /// The folder of one scope, once a copy has been known in it.
    std::filesystem::path ofScope() const { return std::filesystem::directory_iterator(copies())->path(); }

    TempFolder folder;
};

/// Whether a copy that starts now, in a process of its own, finds another one.
bool findsAnother(std::chrono::milliseconds patience = std::chrono::seconds(5)) {
    return passesWithin(bound, [patience] {
        const RunningCopies copies(scope, patience);
        EXPECT_TRUE(copies.problem().isEmpty()) << copies.problem().toStdString();
        ::_exit(copies.anotherWasRunning() ? 0 : 1);
    });
}

/// What plants a foreign folder: another user where this one may give files away, and otherwise a folder that
/// others may write to, which is as little ours.
void plantForeignFolder(const std::filesystem::path& at) {
    std::filesystem::create_directory(at);
    if (::chown(at.c_str(), somebody, somebody) != 0) {
        std::filesystem::permissions(at, std::filesystem::perms::all);
    }
}

} // namespace

TEST(Copies, FindEachOtherWithoutARuntimeFolderAlthoughTheirNamesAreTaken) {
    const Session session;
    plantForeignFolder(session.folder / "tmp/ocuva-copies");
    plantForeignFolder(session.copies());
    EXPECT_TRUE(passesWithin(bound, [] {
        const RunningCopies first(scope);
        EXPECT_EQ(first.problem().toStdString(), "");
        EXPECT_FALSE(first.anotherWasRunning());
        EXPECT_TRUE(findsAnother());
    }));
}

TEST(Copies, OfSessionsWithAndWithoutARuntimeFolderFindEachOther) {
    const Session session(true);
    EXPECT_TRUE(passesWithin(bound, [] {
        const RunningCopies first(scope);
        qunsetenv("XDG_RUNTIME_DIR");
        EXPECT_TRUE(findsAnother());
    }));
}

TEST(Copies, SayThatTheyCannotFindEachOtherWhereNoFolderIsTheirs) {
    const Session session;
    plantForeignFolder(session.copies());
    std::filesystem::create_directory(session.folder / "home/.cache");
    plantForeignFolder(session.folder / "home/.cache/ocuva-copies");
    // Where the system has a folder for this user of its own, that one serves.
    const bool hasSystemFolder = std::filesystem::exists("/run/user/" + std::to_string(::geteuid()));
    EXPECT_TRUE(passesWithin(bound, [hasSystemFolder] {
        const RunningCopies copies(scope);
        EXPECT_EQ(copies.problem().isEmpty(), hasSystemFolder) << copies.problem().toStdString();
        if (!hasSystemFolder) {
            EXPECT_THAT(copies.problem().toStdString(), HasSubstr("not a private folder of yours"));
        }
    }));
}

TEST(Copies, ALinkInThePlaceOfTheirFolderIsNotFollowed) {
    const Session session;
    std::filesystem::create_directory(session.folder / "elsewhere");
    std::filesystem::create_directory_symlink(session.folder / "elsewhere", session.copies());
    EXPECT_FALSE(findsAnother());
    EXPECT_TRUE(std::filesystem::is_empty(session.folder / "elsewhere"));
}

TEST(Copies, APlantedGuardOrEntryNeitherHangsAStartNorCountsAsACopy) {
    for (const Planted kind : plantedKinds) {
        for (const char* name : {"guard", "copy-1", "copy-"}) {
            const Session session;
            EXPECT_FALSE(findsAnother());
            plant(kind, session.ofScope() / name);
            EXPECT_FALSE(findsAnother()) << nameOf(kind) << " as " << name;
        }
    }
}

TEST(Copies, AnEntryOfADeadCopyDoesNotCount) {
    const Session session;
    EXPECT_FALSE(findsAnother());
    std::ofstream(session.ofScope() / "copy-1") << "1\n";
    EXPECT_FALSE(findsAnother());
}

TEST(Copies, AStartThatHangsWithTheGuardDelaysOthersOnlyBriefly) {
    const Session session;
    EXPECT_FALSE(findsAnother());
    const FileLock hung(session.ofScope() / "guard", std::chrono::seconds(0));
    ASSERT_TRUE(hung.held());
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(findsAnother(std::chrono::milliseconds(200)));
    EXPECT_LT(clock.elapsed(), 10'000);
}

TEST(UserRegistryFile, IsNeitherWaitedForNorReplacedIfItIsNotAFile) {
    for (const char* name : {"Ocuva.conf", "Ocuva.conf.guard"}) {
        for (const Planted kind : plantedKinds) {
            const TempFolder folder;
            QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                               QString::fromStdString(folder.path().string()));
            std::filesystem::create_directory(folder / "Brem");
            plant(kind, folder / "Brem" / name);
            const std::string before = standing(folder / "Brem" / name);
            EXPECT_TRUE(passesWithin(bound,
                                     [] {
                                         EXPECT_FALSE(UserRegistry().value(QStringLiteral("A/b")).isValid());
                                         EXPECT_FALSE(UserRegistry().setValue(QStringLiteral("A/b"), 1));
                                     }))
                << name << ": " << nameOf(kind);
            EXPECT_EQ(standing(folder / "Brem" / name), before) << name << ": " << nameOf(kind);
        }
    }
}

TEST(UserRegistryFile, WhoseLockAnotherMachineHoldsIsGivenUpSoon) {
    const TempFolder folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(folder.path().string()));
    // As QSettings would find it when another machine has it, and as we would.
    folder.write("Brem/Ocuva.conf.lock", "1\nocuva\nanother-machine\n00000000\n00000000\n");
    QElapsedTimer clock;
    clock.start();
    EXPECT_TRUE(UserRegistry().setValue(QStringLiteral("A/b"), 1));
    const FileLock held(folder / "Brem/Ocuva.conf.guard", std::chrono::seconds(0));
    EXPECT_FALSE(UserRegistry().setValue(QStringLiteral("A/b"), 2));
    EXPECT_LT(clock.elapsed(), 5'000);
    EXPECT_EQ(UserRegistry().value(QStringLiteral("A/b")).toInt(), 1);
}

TEST(Peers, EntriesThatAreNotFilesDelayNoSender) {
    for (const Planted kind : plantedKinds) {
        const TempFolder folder;
        std::filesystem::create_directory(folder / "peers");
        std::filesystem::permissions(folder / "peers", std::filesystem::perms::owner_all);
        plant(kind, folder / "peers/1-planted.peer");
        EXPECT_TRUE(passesWithin(bound, [&folder] {
            hosts::MessageBus bus(folder.path(), {});
            EXPECT_FALSE(bus.sendByName("OCUVA_WakeUp"));
        })) << nameOf(kind);
    }
}

TEST(Peers, AnnounceThemselvesAgainWhenTheirDataFolderIsBack) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "data");
    const auto peers = std::make_shared<const hosts::PeerFolder>(folder / "data", hosts::BusLog());
    hosts::PeerPresence presence(peers);
    ASSERT_TRUE(presence.announce("1-a", {"machine", "socket"}));
    std::filesystem::remove_all(folder / "data");
    QTest::qWait(300);
    EXPECT_FALSE(std::filesystem::exists(folder / "data")) << "somebody else's to bring back";
    std::filesystem::create_directory(folder / "data");
    EXPECT_TRUE(QTest::qWaitFor([&] { return peers->isThere("1-a"); }, 10'000));
    std::filesystem::remove_all(folder / "data/peers");
    EXPECT_TRUE(QTest::qWaitFor([&] { return peers->isThere("1-a"); }, 10'000));
    presence.withdraw();
    QTest::qWait(100);
    EXPECT_THAT(peers->names(), IsEmpty());
}

TEST(ASecondStart, WakesACopyThatIsStillStartingAndGivesUpOnOneThatDoesNotRespond) {
    struct Messages : TnOcuva {
        int deafFor = 0;
        int sent = 0;
        TarnLong TarnOcuvaSendMsgByName(const char*) override { return ++sent > deafFor ? 1 : 0; }
    };
    Messages starting;
    starting.deafFor = 2;
    EXPECT_TRUE(wakeWithin(starting, std::chrono::seconds(30)));
    EXPECT_EQ(starting.sent, 3);
    Messages deaf;
    deaf.deafFor = 1'000'000;
    EXPECT_FALSE(wakeWithin(deaf, std::chrono::milliseconds(600)));
    EXPECT_GE(deaf.sent, 2);
}

TEST(ObservedHost, ReportsLostSettingsAndWhetherAMessageWasReceived) {
    StubHost stub;
    int lost = 0;
    std::vector<bool> taken;
    ObservedHost host(stub, {[&lost] { ++lost; }, [&taken](bool was) { taken.push_back(was); }});
    stub.results["TarnRegisterSetString"] = 1;
    host.tn_reg().TarnRegisterSetString("A", "k", "1", "S");
    EXPECT_EQ(lost, 0);
    stub.results["TarnRegisterSetString"] = 0;
    host.tn_reg().TarnRegisterSetString("A", "k", "2", "S");
    EXPECT_EQ(lost, 1);
    stub.results["TarnOcuvaSendMsgByName"] = 0;
    host.tn_ocuva().TarnOcuvaSendMsgByName("OCUVA_WakeUp");
    stub.results["TarnOcuvaSendMsgByName"] = 1;
    host.tn_ocuva().TarnOcuvaSendMsgByName("OCUVA_WakeUp");
    EXPECT_THAT(taken, ElementsAre(false, true));
}

TEST(KeepingWatch, ReportsThatSettingsAreNotKeptAndThatTheyAreKeptAgain) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "data");
    std::vector<std::string> notes;
    KeepingWatch watch(folder / "data", [&notes](const QString& note, const QString&) {
        notes.push_back(note.toStdString());
    });
    QTest::qWait(50);
    EXPECT_THAT(notes, IsEmpty());
    std::filesystem::rename(folder / "data", folder / "away");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !notes.empty(); }, 10'000)) << "nobody had to write";
    EXPECT_EQ(notes.front(), "Settings are not kept: No such file or directory");
    ASSERT_TRUE(QTest::qWaitFor([&] { return notes.size() >= 2; }, 10'000)) << "said on and on";
    std::filesystem::rename(folder / "away", folder / "data");
    EXPECT_TRUE(QTest::qWaitFor([&] { return notes.back() == "Settings are kept again"; }, 10'000));
    EXPECT_FALSE(watch.inTrouble());
    EXPECT_TRUE(std::filesystem::is_empty(folder / "data")) << "the trial leaves nothing";
}

TEST(KeepingWatch, SaysThatASingleSettingWasLost) {
    const TempFolder folder;
    std::vector<std::string> notes;
    KeepingWatch watch(folder.path(), [&notes](const QString& note, const QString&) {
        notes.push_back(note.toStdString());
    });
    watch.lost();
    watch.lost();
    QTest::qWait(50);
    EXPECT_THAT(notes, ElementsAre("A setting was not kept"));
    EXPECT_FALSE(watch.inTrouble());
}
