#include "tests/support/BusRig.h"

#include <gmock/gmock.h>

#ifndef _WIN32
#include <csignal>
#include <sys/types.h>
#endif

using namespace hosts;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

namespace fs = std::filesystem;

/// The built program, on the data folder of a place.
struct Tarnsend {
    QProcess process;

    Tarnsend(const Place& place, const QStringList& words)
        : Tarnsend(words + QStringList{QStringLiteral("--data"),
                                       QString::fromStdU16String(place.folder.u16string())}) {}
    explicit Tarnsend(const QStringList& words) { process.start(QStringLiteral(TARNSEND_PROGRAM), words); }
    ~Tarnsend() {
        process.kill();
        process.waitForFinished();
    }
    Tarnsend(const Tarnsend&) = delete;
    Tarnsend& operator=(const Tarnsend&) = delete;

    /// Keeps this program's event loop running until it ends.
    int exitCode() {
        EXPECT_TRUE(eventually([this] { return process.state() == QProcess::NotRunning; }));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return process.exitCode();
    }
    /// With plain line ends, whatever the system's are.
    std::string out() {
        return process.readAllStandardOutput()
            .replace(QByteArrayLiteral("\r\n"), QByteArrayLiteral("\n"))
            .toStdString();
    }
    std::string err() { return process.readAllStandardError().toStdString(); }
};

struct TarnsendProgram : testing::Test {
    Place place;
    MessageBus bus = place.makeBus();

    TarnsendProgram() { fs::create_directories(place.folder); }

    /// Waits until so many programs listen on the folder.
    bool listening(std::size_t count) {
        return eventually([this, count] { return place.peerFiles().size() == count; });
    }
};

/// Answers the host's question as a server does.
struct Answerer {
    std::unique_ptr<ocuva::Notifier> notifier;
    explicit Answerer(MessageBus& bus)
        : notifier(bus.createNotifier()) {
        notifier->setOnNotify([this](const ocuva::Notification& message) {
            if (message.strId == "OCUVA_IS_SERVER_UP") {
                notifier->Send("TN_OCUVA_SERVER", "", "OCUVA_SERVER_IS_UP");
            }
        });
        notifier->Subscribe("DST_APP=TN_OCUVA_SERVER");
    }
};

const QStringList ask = {QStringLiteral("OCUVA_IS_SERVER_UP"), QStringLiteral("--wait"),
                         QStringLiteral("OCUVA_SERVER_IS_UP"), QStringLiteral("--timeout")};

} // namespace

TEST_F(TarnsendProgram, SendsItsMessagesInOrderAndPrintsNothing) {
    Listener receiver(bus);
    Tarnsend sender(place, {QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("--component"),
                            QStringLiteral("C"), QStringLiteral("--sub"), QStringLiteral("S")});
    EXPECT_EQ(sender.exitCode(), 0);
    EXPECT_TRUE(eventually([&] { return receiver.heard.size() == 2; }));
    EXPECT_EQ(receiver.heard, (std::vector<std::string>{"C|S|one", "C|S|two"}));
    EXPECT_THAT(sender.out() + sender.err(), IsEmpty());
}

TEST_F(TarnsendProgram, SendsByNameInAnyLetterCase) {
    Listener receiver(bus);
    Tarnsend sender(place, {QStringLiteral("--by-name"), QStringLiteral("ocuva_WakeUp")});
    EXPECT_EQ(sender.exitCode(), 0);
    EXPECT_TRUE(eventually([&] { return !receiver.heard.empty(); }));
    EXPECT_EQ(receiver.heard, std::vector<std::string>{"TN_OCUVA_SERVER||OCUVA_WAKEUP"});
}

TEST_F(TarnsendProgram, WaitsForTheAnswerAndPrintsIt) {
    Answerer server(bus);
    Tarnsend asker(place, ask + QStringList(QStringLiteral("30000")));
    EXPECT_EQ(asker.exitCode(), 0);
    EXPECT_EQ(asker.out(), "TN_OCUVA_SERVER\t\tOCUVA_SERVER_IS_UP\n");
    EXPECT_THAT(asker.err(), IsEmpty());
}

TEST_F(TarnsendProgram, EndsWithThreeWhenTheAnswerDoesNotCome) {
    Listener silent(bus);
    Tarnsend asker(place, ask + QStringList(QStringLiteral("1")));
    EXPECT_EQ(asker.exitCode(), 3);
    EXPECT_THAT(asker.err(), HasSubstr("tarnsend: OCUVA_SERVER_IS_UP did not come"));
    EXPECT_THAT(asker.out(), IsEmpty());
}

TEST_F(TarnsendProgram, EndsWithFourAtOnceWhenNobodyListens) {
    Tarnsend asker(place, ask + QStringList(QStringLiteral("30000")));
    EXPECT_EQ(asker.exitCode(), 4);
    EXPECT_THAT(asker.err(), HasSubstr("nobody took OCUVA_IS_SERVER_UP"));
    EXPECT_THAT(place.peerFiles(), IsEmpty());
}

TEST_F(TarnsendProgram, MakesNoDataFolderToSendInto) {
    const fs::path mistyped = place.folder / "mistyped";
    Tarnsend sender(
        {QStringLiteral("X"), QStringLiteral("--data"), QString::fromStdU16String(mistyped.u16string())});
    EXPECT_EQ(sender.exitCode(), 4);
    EXPECT_THAT(sender.err(), HasSubstr("there is no data folder"));
    EXPECT_FALSE(fs::exists(mistyped));
}

TEST_F(TarnsendProgram, SaysWhyADataFolderCannotBeUsedForListening) {
    const fs::path file = place.folder / "file";
    std::ofstream(file) << "no folder";
    Tarnsend listener(
        {QStringLiteral("--listen"), QStringLiteral("--data"), QString::fromStdU16String(file.u16string())});
    EXPECT_EQ(listener.exitCode(), 1);
    EXPECT_THAT(listener.err(), HasSubstr("tarnsend: "));
}

TEST_F(TarnsendProgram, PrintsTheTrafficOneLineAMessage) {
    Tarnsend listener(place, {QStringLiteral("--listen"), QStringLiteral("--count"), QStringLiteral("3")});
    ASSERT_TRUE(listening(1));
    Listener sender(bus);
    sender.notifier->Send("A", "s", "1");
    sender.notifier->Send("B", "", "tab\there\nand \\ there\r");
    sender.notifier->Send("", "", "");
    EXPECT_EQ(listener.exitCode(), 0);
    EXPECT_EQ(listener.out(), "A\ts\t1\nB\t\ttab\\there\\nand \\\\ there\\r\n\t\t\n");
    EXPECT_TRUE(listening(1)) << "only this test's own listener is left";
}

TEST_F(TarnsendProgram, PrintsOnlyTheRequestedComponent) {
    Tarnsend listener(place, {QStringLiteral("--listen"), QStringLiteral("--component"), QStringLiteral("B"),
                              QStringLiteral("--count"), QStringLiteral("1")});
    ASSERT_TRUE(listening(1));
    Listener sender(bus);
    sender.notifier->Send("A", "", "1");
    sender.notifier->Send("B", "", "2");
    EXPECT_EQ(listener.exitCode(), 0);
    EXPECT_EQ(listener.out(), "B\t\t2\n");
}

TEST_F(TarnsendProgram, ListensForTheTimeGivenAndMissesNothingOfACount) {
    Tarnsend patient(place, {QStringLiteral("--listen"), QStringLiteral("--timeout"), QStringLiteral("1")});
    EXPECT_EQ(patient.exitCode(), 0);
    EXPECT_THAT(patient.err(), IsEmpty());
    Tarnsend counting(place, {QStringLiteral("--listen"), QStringLiteral("--timeout"), QStringLiteral("1"),
                              QStringLiteral("--count"), QStringLiteral("2")});
    EXPECT_EQ(counting.exitCode(), 3);
    EXPECT_THAT(counting.err(), HasSubstr("only 0 messages"));
}

TEST_F(TarnsendProgram, RefusesAnUnknownOptionOnStandardError) {
    Tarnsend confused(place, {QStringLiteral("--nonsense")});
    EXPECT_EQ(confused.exitCode(), 2);
    EXPECT_THAT(confused.err(), HasSubstr("nonsense"));
    EXPECT_THAT(confused.out(), IsEmpty());
}

TEST_F(TarnsendProgram, ExplainsItselfOnStandardOutput) {
    Tarnsend helper(place, {QStringLiteral("--help")});
    EXPECT_EQ(helper.exitCode(), 0);
    EXPECT_THAT(helper.out(), HasSubstr("OCUVA_IS_SERVER_UP"));
    EXPECT_THAT(helper.err(), IsEmpty());
}

#ifndef _WIN32

TEST_F(TarnsendProgram, StopsListeningOnAnInterruptAndLeavesNothingBehind) {
    Tarnsend listener(place, {QStringLiteral("--listen")});
    ASSERT_TRUE(listening(1));
    const std::string socket = socketOf(place).toStdString();
    EXPECT_TRUE(fs::exists(socket));
    ASSERT_EQ(::kill(static_cast<pid_t>(listener.process.processId()), SIGINT), 0);
    EXPECT_EQ(listener.exitCode(), 0);
    EXPECT_THAT(place.peerFiles(), IsEmpty());
    EXPECT_FALSE(fs::exists(socket));
}

TEST_F(TarnsendProgram, IsQuietInALocaleThatKnowsAsciiOnly) {
    Listener receiver(bus);
    QProcess sender;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    sender.setProcessEnvironment(environment);
    sender.start(QStringLiteral(TARNSEND_PROGRAM), {QStringLiteral("X"), QStringLiteral("--data"),
                                                    QString::fromStdU16String(place.folder.u16string())});
    EXPECT_TRUE(eventually([&] { return sender.state() == QProcess::NotRunning; }));
    EXPECT_EQ(sender.exitCode(), 0);
    EXPECT_THAT(sender.readAllStandardError().toStdString(), IsEmpty());
}

#endif
