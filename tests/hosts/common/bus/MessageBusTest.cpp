#include "hosts/common/bus/BusFrame.h"
#include "tests/support/BusRig.h"

#include <QDir>

#ifndef _WIN32
#include <csignal>
#include <sys/stat.h>
#include <sys/types.h>
#endif

namespace hosts {

namespace {

/// The program bus_peer.
struct FarEnd : OtherProcess {
    FarEnd(const char* what, const fs::path& folder, const std::string& argument)
        : OtherProcess(BUS_PEER_PROGRAM, {what, folder.string(), argument}) {}
};

const std::string wakeUpHeard = "TN_OCUVA_SERVER||OCUVA_WAKEUP";

// ---- within one process ----

TEST(MessageBus, CarriesAMessageBetweenTwoBusesOnTheSameFolder) {
    Place place;
    MessageBus first = place.makeBus();
    MessageBus second = place.makeBus();
    Listener sender(first);
    Listener receiver(second, "DST_APP=TN_OCUVA_SERVER");
    sender.notifier->Send("TN_OCUVA_SERVER", "sub", "OCUVA_SLEEP");
    EXPECT_TRUE(receiver.heard.empty()) << "nothing is delivered from inside Send";
    EXPECT_TRUE(eventually([&] { return !receiver.heard.empty(); }));
    letEverythingArrive();
    EXPECT_EQ(receiver.heard, std::vector<std::string>{"TN_OCUVA_SERVER|sub|OCUVA_SLEEP"});
    EXPECT_TRUE(sender.heard.empty()) << "a notifier does not receive its own messages";
    EXPECT_TRUE(place.log.empty());
}

TEST(MessageBus, LetsTwoNotifiersOfOneBusHearEachOther) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener one(bus);
    Listener two(bus);
    one.notifier->Send("A", "", "from one");
    two.notifier->Send("A", "", "from two");
    EXPECT_TRUE(eventually([&] { return !one.heard.empty() && !two.heard.empty(); }));
    EXPECT_EQ(one.heard, std::vector<std::string>{"A||from two"});
    EXPECT_EQ(two.heard, std::vector<std::string>{"A||from one"});
}

TEST(MessageBus, KeepsDataFoldersApart) {
    Place here;
    Place there;
    MessageBus hereBus = here.makeBus();
    MessageBus thereBus = there.makeBus();
    Listener receiver(thereBus);
    EXPECT_FALSE(hereBus.sendByName("OCUVA_WakeUp"));
    letEverythingArrive();
    EXPECT_TRUE(receiver.heard.empty());
}

TEST(MessageBus, SendsByNameToEverySubscriberWithTheMatchingIdentifier) {
    Place place;
    MessageBus bus = place.makeBus();
    EXPECT_FALSE(bus.sendByName("OCUVA_WakeUp")) << "nobody is there yet";
    Listener one(bus, "DST_APP=TN_OCUVA_SERVER");
    Listener two(bus);
    EXPECT_TRUE(bus.sendByName("OCUVA_WakeUp"));
    EXPECT_TRUE(bus.sendByName("Other"));
    const std::vector<std::string> expected = {wakeUpHeard, "TN_OCUVA_SERVER||Other"};
    EXPECT_TRUE(eventually([&] { return one.heard.size() == 2 && two.heard.size() == 2; }));
    EXPECT_EQ(one.heard, expected);
    EXPECT_EQ(two.heard, expected);
}

TEST(MessageBus, LetsOnlyTheSubscribedComponentThrough) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener sender(bus);
    Listener picky(bus, "DST_APP=B");
    Listener all(bus, "");
    Listener confused(bus, "APP:B");
    for (const char* component : {"A", "B", "b", "C"}) {
        sender.notifier->Send(component, "", "x");
    }
    EXPECT_TRUE(eventually([&] { return all.heard.size() == 4; }));
    letEverythingArrive();
    EXPECT_EQ(picky.heard, std::vector<std::string>{"B||x"});
    EXPECT_TRUE(confused.heard.empty());
    EXPECT_TRUE(place.logged("filter is not understood"));
}

TEST(MessageBus, ReplacesTheFilterAtTheSecondSubscribe) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener sender(bus);
    Listener receiver(bus, "DST_APP=A");
    receiver.notifier->Subscribe("DST_APP=B");
    EXPECT_EQ(place.peerFiles().size(), 2U);
    sender.notifier->Send("A", "", "1");
    sender.notifier->Send("B", "", "2");
    EXPECT_TRUE(eventually([&] { return !receiver.heard.empty(); }));
    EXPECT_EQ(receiver.heard, std::vector<std::string>{"B||2"});
}

TEST(MessageBus, HearsNothingBeforeSubscribeAndLeavesNoFileBehind) {
    Place place;
    MessageBus bus = place.makeBus();
    {
        const auto silent = bus.createNotifier();
        EXPECT_TRUE(place.peerFiles().empty());
        silent->Subscribe("");
        EXPECT_EQ(place.peerFiles().size(), 1U);
    }
    EXPECT_TRUE(place.peerFiles().empty());
    EXPECT_FALSE(bus.sendByName("OCUVA_WakeUp"));
}

TEST(MessageBus, QueuesWhatArrivesWhileTheReceiverRunsAnEventLoop) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener sender(bus);
    const auto receiver = bus.createNotifier();
    std::vector<std::string> order;
    receiver->setOnNotify([&](const ocuva::Notification& message) {
        order.push_back("begin " + message.strId);
        if (message.strId == "1") {
            sender.notifier->Send("", "", "2");
            sender.notifier->Send("", "", "3");
        }
        letEverythingArrive();
        order.push_back("end " + message.strId);
    });
    receiver->Subscribe("");
    sender.notifier->Send("", "", "1");
    EXPECT_TRUE(eventually([&] { return order.size() == 6; }));
    EXPECT_EQ(order, (std::vector<std::string>{"begin 1", "end 1", "begin 2", "end 2", "begin 3", "end 3"}));
}

TEST(MessageBus, LetsAReceiverAnswerAndDestroyItsNotifier) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener asker(bus);
    auto answerer = bus.createNotifier();
    answerer->setOnNotify([&answerer](const ocuva::Notification&) {
        answerer->Send("TN_OCUVA_SERVER", "", "OCUVA_SERVER_IS_UP");
        answerer.reset();
    });
    answerer->Subscribe("");
    asker.notifier->Send("", "", "OCUVA_IS_SERVER_UP");
    asker.notifier->Send("", "", "too late");
    EXPECT_TRUE(eventually([&] { return !asker.heard.empty(); }));
    letEverythingArrive();
    EXPECT_EQ(asker.heard, std::vector<std::string>{"TN_OCUVA_SERVER||OCUVA_SERVER_IS_UP"});
    EXPECT_EQ(answerer, nullptr);
}

TEST(MessageBus, NumbersTheDeliveriesOfANotifier) {
    Place place;
    MessageBus bus = place.makeBus();
    const auto receiver = bus.createNotifier();
    std::vector<ocuva::Long> numbers;
    receiver->setOnNotify(
        [&numbers](const ocuva::Notification& message) { numbers.push_back(message.msgHandler); });
    receiver->Subscribe("");
    bus.sendByName("a");
    bus.sendByName("b");
    EXPECT_TRUE(eventually([&] { return numbers.size() == 2; }));
    EXPECT_EQ(numbers, (std::vector<ocuva::Long>{1, 2}));
}

TEST(MessageBus, CarriesTwoThousandMessagesInOrderWithinOneThread) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener sender(bus);
    Listener receiver(bus);
    for (int i = 0; i < 2000; ++i) {
        sender.notifier->Send("MANY", "", std::to_string(i));
    }
    EXPECT_TRUE(eventually([&] { return receiver.heard.size() == 2000; }));
    for (std::size_t i = 0; i < receiver.heard.size(); ++i) {
        ASSERT_EQ(receiver.heard[i], "MANY||" + std::to_string(i));
    }
    EXPECT_TRUE(place.log.empty());
}

TEST(MessageBus, DropsAMessageThatIsTooLongWithALogLine) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener sender(bus);
    Listener receiver(bus);
    sender.notifier->Send("A", "", std::string(busFrameMaxBytes, 'x'));
    const std::string longest(busFrameMaxBytes - 16, 'x');
    sender.notifier->Send("A", "", longest);
    EXPECT_TRUE(eventually([&] { return !receiver.heard.empty(); }));
    EXPECT_EQ(receiver.heard, std::vector<std::string>{"A||" + longest});
    EXPECT_TRUE(place.logged("too long"));
}

// ---- strange peers ----

TEST(MessageBus, ClosesAConnectionThatBringsNoMessageAndServesTheOthers) {
    const std::string good = *encodeBusFrame({"A", "", "good"});
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"GET / HTTP/1.1\r\n\r\n", "is no message"},
        {std::string("OCUB\x01\xFF\xFF\xFF\x7F", 9) + std::string(100000, 'x'), "is no message"},
        {std::string("OCUB\x01\x02\0\0\0\xFF\xFF", 11), "is no message"},
        {good.substr(0, good.size() - 1), "middle of a message"},
    };
    for (const auto& [bytes, complaint] : cases) {
        Place place;
        MessageBus bus = place.makeBus();
        Listener receiver(bus);
        sendRaw(place, good + bytes);
        EXPECT_TRUE(eventually([&, &words = complaint] { return place.logged(words); })) << complaint;
        EXPECT_TRUE(bus.sendByName("still here"));
        EXPECT_TRUE(eventually([&] { return receiver.heard.size() == 2; }));
        EXPECT_EQ(receiver.heard.front(), "A||good");
        EXPECT_EQ(place.log.size(), 1U);
    }
}

TEST(MessageBus, PutsAFrameTogetherThatArrivesInPieces) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener receiver(bus);
    QLocalSocket socket;
    socket.connectToServer(socketOf(place));
    ASSERT_TRUE(socket.waitForConnected());
    const std::string frame = *encodeBusFrame({"A", "", "pieces"});
    for (const char byte : frame) {
        socket.write(&byte, 1);
        socket.flush();
        QTest::qWait(0);
    }
    EXPECT_TRUE(eventually([&] { return !receiver.heard.empty(); }));
    EXPECT_EQ(receiver.heard, std::vector<std::string>{"A||pieces"});
}

TEST(MessageBus, IgnoresFilesThatNameNoPeerAndSaysSoOnce) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener receiver(bus);
    for (const auto& [name, text] :
         std::vector<std::pair<const char*, std::string>>{{"empty.peer", ""},
                                                          {"other.peer", "something else\nx\ny"},
                                                          {"short.peer", "bus peer 1\nmachine\n"},
                                                          {"long.peer", std::string(100000, 'x')},
                                                          {"note.txt", "not ours"}}) {
        std::ofstream(place.folder / "peers" / name) << text;
    }
    fs::create_directory(place.folder / "peers" / "folder.peer");
    EXPECT_TRUE(bus.sendByName("OCUVA_WakeUp"));
    EXPECT_TRUE(bus.sendByName("OCUVA_WakeUp"));
    EXPECT_EQ(place.log.size(), 5U);
    EXPECT_TRUE(fs::exists(place.folder / "peers" / "note.txt"));
}

TEST(MessageBus, LeavesPeersOfOtherComputersAlone) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener receiver(bus);
    const fs::path foreign = place.folder / "peers" / "foreign.peer";
    std::ofstream(foreign) << "bus peer 1\nanother machine\n/nowhere/ocuva-bus-1";
    EXPECT_TRUE(bus.sendByName("OCUVA_WakeUp"));
    EXPECT_TRUE(fs::exists(foreign));
}

// ---- between processes ----

TEST(MessageBusProcesses, CarryMessagesBothWays) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener here(bus, "DST_APP=TN_OCUVA_SERVER");
    FarEnd there("listen", place.folder, "DST_APP=TN_OCUVA_SERVER");
    ASSERT_TRUE(there.says("ready"));
    here.notifier->Send("OTHER", "", "not for it");
    here.notifier->Send("TN_OCUVA_SERVER", "s", "OCUVA_SLEEP");
    EXPECT_TRUE(there.says("TN_OCUVA_SERVER|s|OCUVA_SLEEP"));
    EXPECT_EQ(there.said().find("not for it"), std::string::npos);

    FarEnd caller("name", place.folder, "ocuva_wakeup");
    EXPECT_TRUE(caller.says("taken"));
    EXPECT_TRUE(there.says(wakeUpHeard));
    EXPECT_TRUE(eventually([&] { return !here.heard.empty(); }));
    EXPECT_EQ(here.heard, std::vector<std::string>{wakeUpHeard});
}

TEST(MessageBusProcesses, KeepTheOrderOfTwoThousandMessagesOfASenderThatEndsAtOnce) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener receiver(bus, "DST_APP=MANY");
    FarEnd sender("send", place.folder, "2000");
    EXPECT_TRUE(eventually([&] { return receiver.heard.size() == 2000; }));
    EXPECT_TRUE(sender.ends());
    for (std::size_t i = 0; i < receiver.heard.size(); ++i) {
        ASSERT_EQ(receiver.heard[i], "MANY||" + std::to_string(i));
    }
}

TEST(MessageBusProcesses, ForgetAKilledPeerAtTheNextSend) {
    Place place;
    MessageBus bus = place.makeBus();
    FarEnd there("listen", place.folder, "");
    ASSERT_TRUE(there.says("ready"));
    EXPECT_TRUE(bus.sendByName("OCUVA_WakeUp"));
    ASSERT_TRUE(there.says(wakeUpHeard));
    const fs::path socket = socketOf(place).toStdU16String();
    there.process().kill();
    ASSERT_TRUE(there.ends());
    EXPECT_EQ(place.peerFiles().size(), 1U) << "a killed process leaves its file";
    EXPECT_FALSE(bus.sendByName("OCUVA_WakeUp"));
    EXPECT_TRUE(place.peerFiles().empty());
    EXPECT_FALSE(fs::exists(socket));
}

TEST(MessageBusProcesses, ForgetAKilledPeerTheyWereNeverConnectedTo) {
    Place place;
    MessageBus bus = place.makeBus();
    FarEnd there("listen", place.folder, "");
    ASSERT_TRUE(there.says("ready"));
    there.process().kill();
    ASSERT_TRUE(there.ends());
    EXPECT_FALSE(bus.sendByName("OCUVA_WakeUp"));
    EXPECT_TRUE(place.peerFiles().empty());
}

#ifndef _WIN32

TEST(MessageBusProcesses, AreNotHeldUpByAPeerThatStopsReading) {
    Place place;
    MessageBus bus = place.makeBus();
    FarEnd stopped("listen", place.folder, "");
    ASSERT_TRUE(stopped.says("ready"));
    Listener sender(bus);
    Listener receiver(bus);
    ASSERT_EQ(::kill(static_cast<pid_t>(stopped.process().processId()), SIGSTOP), 0);

    const std::string large(8000, 'x');
    constexpr int count = 400; // more than the system and the sender together keep for the stopped one
    for (int i = 0; i < count; ++i) {
        sender.notifier->Send("A", large, std::to_string(i));
        QTest::qWait(0);
    }
    EXPECT_TRUE(eventually([&] { return receiver.heard.size() == count; }));
    EXPECT_TRUE(place.logged("stopped reading"));
    EXPECT_EQ(place.log.size(), 1U) << "said once, not for each message";

    // Once it reads again it gets what was kept, and new messages.
    ASSERT_EQ(::kill(static_cast<pid_t>(stopped.process().processId()), SIGCONT), 0);
    EXPECT_TRUE(stopped.says("A|" + large + "|0"));
    EXPECT_TRUE(stopped.says("A|" + large + "|99"));
    letEverythingArrive();
    sender.notifier->Send("A", "", "again");
    EXPECT_TRUE(stopped.says("A||again"));
}

// ---- folders ----

TEST(MessageBusFolder, IsOpenToItsUserAlone) {
    Place place;
    MessageBus bus = place.makeBus();
    Listener receiver(bus);
    struct stat about {};
    ASSERT_EQ(::stat((place.folder / "peers").c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 0777U, 0700U);
    ASSERT_EQ(::stat(socketOf(place).toStdString().c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 0077U, 0U);
}

TEST(MessageBusFolder, IsNotUsedWhenOthersMayWriteToIt) {
    Place place;
    fs::create_directories(place.folder / "peers");
    fs::permissions(place.folder / "peers", fs::perms::all);
    MessageBus bus = place.makeBus();
    Listener receiver(bus);
    EXPECT_TRUE(place.peerFiles().empty());
    EXPECT_TRUE(place.logged("open to other users"));
    EXPECT_FALSE(bus.sendByName("OCUVA_WakeUp"));
}

TEST(MessageBusFolder, IsNotUsedWhenItIsALink) {
    Place place;
    fs::create_directories(place.folder / "elsewhere");
    fs::create_directory_symlink(place.folder / "elsewhere", place.folder / "peers");
    MessageBus bus = place.makeBus();
    Listener receiver(bus);
    EXPECT_TRUE(fs::is_empty(place.folder / "elsewhere"));
    EXPECT_FALSE(bus.sendByName("OCUVA_WakeUp"));
}

#endif

TEST(MessageBusFolder, MayHaveAnyNameAndBeDeep) {
    Place place;
#ifdef _WIN32 // a path of at most 260 characters, in letters that a command line has in every code page
    const std::u8string part = u8"Report of a year's work %n & more";
    constexpr int depth = 4;
#else
    const std::u8string part = u8"M\u00E9moire d'\u00E9t\u00E9 \u6D4B\u8BD5 %n \"x\" & more";
    constexpr int depth = 6;
#endif
    for (int i = 0; i < depth; ++i) {
        place.folder /= part;
    }
    MessageBus bus = place.makeBus();
    Listener receiver(bus);
    FarEnd caller("name", place.folder, "OCUVA_WakeUp");
    EXPECT_TRUE(caller.says("taken"));
    EXPECT_TRUE(eventually([&] { return !receiver.heard.empty(); }));
    EXPECT_EQ(receiver.heard, std::vector<std::string>{wakeUpHeard});
    EXPECT_TRUE(place.log.empty());
}

TEST(MessageBusFolder, LeavesThePlaceOfTheSocketOutWhenItsPathIsTooLong) {
    Place place;
    const QString deep = place.temporary.path() + QLatin1Char('/') + QString(120, QLatin1Char('d'));
    ASSERT_TRUE(QDir().mkpath(deep));
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", deep.toUtf8());
    MessageBus bus = place.makeBus();
    Listener receiver(bus);
    before.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", before);
    EXPECT_TRUE(bus.sendByName("OCUVA_WakeUp"));
    EXPECT_TRUE(eventually([&] { return !receiver.heard.empty(); }));
}

TEST(MessageBusFolder, ThatCannotBeCreatedIsLogged) {
    Place place;
    std::ofstream(fs::path(place.folder)) << "a file stands here";
    MessageBus bus = place.makeBus();
    Listener receiver(bus);
    EXPECT_FALSE(place.log.empty());
    EXPECT_FALSE(bus.sendByName("OCUVA_WakeUp"));
}

TEST(MessageBus, WorksWithoutALog) {
    Place place;
    MessageBus bus(place.folder, nullptr);
    Listener receiver(bus, "nonsense");
    EXPECT_TRUE(bus.sendByName("OCUVA_WakeUp"));
}

} // namespace

} // namespace hosts
