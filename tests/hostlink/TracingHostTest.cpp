#include "hostlink/TracingHost.h"

#include "hostlink/TraceFile.h"
#include "support/StubHost.h"

#include <QJsonArray>

#include <gtest/gtest.h>
#include <limits>
#include <optional>

#ifndef _WIN32
#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace ocuva {

namespace {

/// A traced stub and its file.
struct Rig {
    TraceFile file;
    StubHost stub;
    std::optional<TracingHost> host;

    Rig() { host.emplace(stub, file.path()); }

    /// The text that a trace shows for a text of the seam, taken from the parsed line.
    QString shownText(const std::string& text) {
        host->tn_log().TarnPrintfVB(text.c_str());
        return file.objects().back()[QLatin1String("in")].toArray().at(0).toString();
    }
};

TEST(TracingHost, NumbersTheLinesInTheOrderInWhichTheCallsReturn) {
    Rig rig;
    rig.stub.onCall = [&rig](const std::string& name) {
        if (name == "TarnMessageBoxVB") { // the box runs the event loop, and a timer asks for a position
            Long position = 0;
            rig.host->tn_micro_proxy().TarnReadStagePos(axisX, &position);
        }
    };
    rig.host->tn_video().TarnVideoBoardInit();
    rig.host->tn_log().TarnMessageBoxVB("M", "T", 0);
    rig.host->tn_video().TarnVideoBoardHaltGrab();

    const auto objects = rig.file.objects();
    ASSERT_EQ(objects.size(), 4U);
    const std::vector<const char*> order = {"TarnVideoBoardInit", "TarnReadStagePos", "TarnMessageBoxVB",
                                            "TarnVideoBoardHaltGrab"};
    double lastMs = 0.0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        EXPECT_EQ(objects[i][QLatin1String("seq")].toInt(), static_cast<int>(i) + 1);
        EXPECT_EQ(objects[i][QLatin1String("fn")].toString(), QLatin1String(order[i]));
        EXPECT_GE(objects[i][QLatin1String("ms")].toDouble(-1.0), lastMs);
        lastMs = objects[i][QLatin1String("ms")].toDouble();
    }
}

TEST(TracingHost, ShowsTheBufferNumberBeforeAndAfterTheCall) {
    Rig rig;
    Long buffer = 3;
    Long count = 0;
    Long sum = 0;
    Double variance = 0;
    rig.stub.onCall = [&buffer](const std::string&) { buffer = 4; };
    rig.host->tn_vduti().TarnVideoBufferComputeStatistics(&buffer, 0, 0, -1, -1, &count, &sum, &variance);
    EXPECT_EQ(rig.file.timelessLines().at(0),
              R"({"seq":1,"ms":T,"lib":"tn_vduti","fn":"TarnVideoBufferComputeStatistics",)"
              R"("in":[3,0,0,-1,-1],"out":[4,0,0,0],"ret":1})");
}

TEST(TracingHost, ShowsUtf8TextAsItIs) {
    Rig rig;
    const std::string text = "\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x94\xAC / \x7F";
    EXPECT_EQ(rig.shownText(text), QString::fromStdString(text));
}

TEST(TracingHost, EscapesControlCharactersQuotesAndBackslashes) {
    Rig rig;
    const std::string text = "C:\\a\t\"b\"\r\n\x01\x1F";
    EXPECT_EQ(rig.shownText(text), QString::fromStdString(text));
    EXPECT_EQ(rig.file.lines().size(), 1U);
}

TEST(TracingHost, ShowsEachByteOutsideUtf8AsTheCharacterOfItsValue) {
    const std::vector<std::pair<std::string, std::u16string>> cases = {
        {"\xE9t\xE9", u"\u00E9t\u00E9"},                      // Latin-1
        {"\x80", u"\u0080"},                                  // stray continuation
        {"\xC0\xAF", u"\u00C0\u00AF"},                        // overlong
        {"\xE0\x80\xAF", u"\u00E0\u0080\u00AF"},              // overlong
        {"\xF0\x8F\xBF\xBF", u"\u00F0\u008F\u00BF\u00BF"},    // overlong
        {"\xED\xA0\x80", u"\u00ED\u00A0\u0080"},              // surrogate
        {"\xF4\x90\x80\x80", u"\u00F4\u0090\u0080\u0080"},    // beyond the last character
        {"\xF5\xFF\xFE", u"\u00F5\u00FF\u00FE"},              // never a first byte
        {"\xE2\x82", u"\u00E2\u0082"},                        // cut off at the end
        {"\xE2\x82x\xC3\xA9", u"\u00E2\u0082x\u00E9"},        // cut off, then whole again
        {"\xEF\xBF\xBF\xF4\x8F\xBF\xBF", u"\uFFFF\U0010FFFF"} // the last ones are whole
    };
    for (const auto& [bytes, shown] : cases) {
        Rig rig;
        EXPECT_EQ(rig.shownText(bytes).toStdU16String(), shown);
    }
}

TEST(TracingHost, StaysValidJsonForEveryPairOfBytes) {
    Rig rig;
    for (int first = 1; first < 256; ++first) {
        std::string text;
        for (int second = 1; second < 256; ++second) {
            text += static_cast<char>(first);
            text += static_cast<char>(second);
        }
        rig.host->tn_log().TarnPrintfVB(text.c_str());
    }
    const auto lines = rig.file.lines();
    ASSERT_EQ(lines.size(), 255U);
    for (const std::string& line : lines) {
        const QByteArray bytes = QByteArray::fromStdString(line);
        EXPECT_FALSE(QJsonDocument::fromJson(bytes).isNull());
        EXPECT_EQ(QString::fromUtf8(bytes).toUtf8(), bytes) << "a line must be valid UTF-8";
    }
}

TEST(TracingHost, ShowsFloatsSoThatTheyReadBackExactly) {
    const std::vector<Single> values = {0.1F,
                                        -0.0F,
                                        1.0F / 3.0F,
                                        16777217.0F,
                                        std::numeric_limits<Single>::denorm_min(),
                                        std::numeric_limits<Single>::max(),
                                        -25.0F};
    Rig rig;
    for (const Single value : values) {
        rig.host->tn_micro_proxy().TarnLoadStageAbs(axisX, value);
        const QJsonValue shown = rig.file.objects().back()[QLatin1String("in")].toArray().at(1);
        ASSERT_TRUE(shown.isDouble());
        EXPECT_EQ(static_cast<Single>(shown.toDouble()), value);
    }
}

TEST(TracingHost, ShowsNumbersThatAreNotFiniteAsText) {
    Rig rig;
    const Double infinite = std::numeric_limits<Double>::infinity();
    rig.host->tn_video().TarnVideoCameraSetReferences(1, infinite, -infinite);
    rig.host->tn_video().TarnVideoCameraSetReferences(1, std::nan(""), -std::nan(""));
    const auto lines = rig.file.lines();
    EXPECT_NE(lines.at(0).find(R"("in":[1,"inf","-inf"])"), std::string::npos);
    EXPECT_NE(lines.at(1).find(R"("in":[1,"nan","nan"])"), std::string::npos);
}

TEST(TracingHost, NeverReadsBeyondATextBufferForAnyReportedLength) {
    Rig rig;
    std::array<char, 4> buffer = {};
    rig.stub.dirStd = "abcd";
    rig.stub.results["TarnGetDirStd"] = 1000;
    EXPECT_EQ(rig.host->tn_lib_proxy().TarnGetDirStd(buffer.data(), 4), 1000);
    rig.stub.results["TarnGetDirStd"] = -1;
    EXPECT_EQ(rig.host->tn_lib_proxy().TarnGetDirStd(buffer.data(), 4), -1);
    const auto lines = rig.file.lines();
    EXPECT_NE(lines.at(0).find(R"("out":["abcd"],"ret":1000})"), std::string::npos);
    EXPECT_NE(lines.at(1).find(R"("out":[""],"ret":-1})"), std::string::npos);
}

TEST(TracingHost, ShowsTheNotifierTrafficWithTheMessageBeforeWhatItCauses) {
    Rig rig;
    const auto notifier = rig.host->createNotifier();
    std::vector<std::string> received;
    notifier->setOnNotify([&](const Notification& message) {
        received.push_back(message.strId);
        notifier->Send("TN_OCUVA_SERVER", "", "OCUVA_SERVER_IS_UP");
    });
    notifier->Subscribe("DST_APP=TN_OCUVA_SERVER");
    rig.stub.notifier->deliver("OCUVA_IS_SERVER_UP", "A", "B", 12);

    EXPECT_EQ(received, std::vector<std::string>{"OCUVA_IS_SERVER_UP"});
    EXPECT_EQ(rig.stub.calls,
              (std::vector<std::string>{R"(Subscribe("DST_APP=TN_OCUVA_SERVER"))",
                                        R"(Send("TN_OCUVA_SERVER", "", "OCUVA_SERVER_IS_UP"))"}));
    const std::string head = R"("ms":T,"lib":"m_notifier","fn":)";
    EXPECT_EQ(
        rig.file.timelessLines(),
        (std::vector<std::string>{
            R"({"seq":1,)" + head + R"("Subscribe","in":["DST_APP=TN_OCUVA_SERVER"],"out":[],"ret":null})",
            R"({"seq":2,)" + head +
                R"("OnNotify","in":[12,"A","B","OCUVA_IS_SERVER_UP"],"out":[],"ret":null})",
            R"({"seq":3,)" + head +
                R"("Send","in":["TN_OCUVA_SERVER","","OCUVA_SERVER_IS_UP"],"out":[],"ret":null})"}));
}

TEST(TracingHost, AllowsTheReceiverToBeTakenAway) {
    Rig rig;
    const auto notifier = rig.host->createNotifier();
    int received = 0;
    notifier->setOnNotify([&received](const Notification&) { ++received; });
    notifier->setOnNotify(nullptr);
    rig.stub.deliver("OCUVA_SLEEP");
    EXPECT_EQ(received, 0);
    EXPECT_TRUE(rig.file.lines().empty());
}

TEST(TracingHost, AppendsToTheLinesOfAnEarlierRun) {
    Rig rig;
    rig.host->tn_video().TarnVideoBoardInit();
    rig.host.emplace(rig.stub, rig.file.path());
    rig.host->tn_video().TarnVideoBoardInit();
    const auto objects = rig.file.objects();
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[1][QLatin1String("seq")].toInt(), 1);
}

TEST(TracingHost, ReportsOnceThatItsFileCannotBeOpenedAndContinues) {
    const TraceFile file;
    StubHost stub;
    testing::internal::CaptureStderr();
    TracingHost host(stub, file.path() / "no" / "such" / "folder");
    EXPECT_EQ(host.tn_video().TarnVideoBoardInit(), 1);
    EXPECT_EQ(host.tn_video().TarnVideoBoardInit(), 1);
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
    EXPECT_NE(said.find("continuing without a trace"), std::string::npos);
    EXPECT_EQ(stub.calls.size(), 2U);
}

#ifndef _WIN32

TEST(TracingHost, RefusesAPipeWhoseReaderCouldBlockTheProgram) {
    const TraceFile file;
    ASSERT_EQ(::mkfifo(file.path().c_str(), 0600), 0);
    StubHost stub;
    testing::internal::CaptureStderr();
    TracingHost host(stub, file.path());
    EXPECT_EQ(host.tn_video().TarnVideoBoardInit(), 1);
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
}

#ifdef __linux__
TEST(TracingHost, ContinuesIfItsFileIsADevice) {
    StubHost stub;
    TracingHost host(stub, "/dev/full");
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(host.tn_video().TarnVideoBoardInit(), 1);
    }
    EXPECT_EQ(stub.calls.size(), 10U);
}
#endif

TEST(TracingHost, LeavesWholeLinesBehindWhenItsProcessIsKilled) {
    const TraceFile file;
    const pid_t child = ::fork();
    if (child == 0) {
        StubHost stub;
        TracingHost host(stub, file.path());
        for (int i = 0; i < 100; ++i) {
            host.tn_video().TarnVideoBoardInit();
        }
        ::kill(::getpid(), SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
    const auto objects = file.objects();
    ASSERT_EQ(objects.size(), 100U);
    EXPECT_EQ(objects.back()[QLatin1String("seq")].toInt(), 100);
}

#endif

} // namespace

} // namespace ocuva
