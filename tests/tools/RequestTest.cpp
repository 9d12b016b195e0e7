#include "tools/tarnsend/Request.h"

#include <gmock/gmock.h>

using namespace tarnsend;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::variant<Request, Notice> understood(std::vector<std::string> words) {
    words.insert(words.begin(), "tarnsend");
    return understand(words);
}

Request request(const std::vector<std::string>& words) {
    const auto result = understood(words);
    const Notice* const notice = std::get_if<Notice>(&result);
    EXPECT_EQ(notice, nullptr) << (notice != nullptr ? notice->text : "");
    return notice == nullptr ? std::get<Request>(result) : Request();
}

Notice notice(const std::vector<std::string>& words) {
    const auto result = understood(words);
    EXPECT_TRUE(std::holds_alternative<Notice>(result));
    const Notice* const found = std::get_if<Notice>(&result);
    return found != nullptr ? *found : Notice();
}

} // namespace

TEST(TarnsendCommandLine, SendsToTheServersComponentByDefault) {
    const Request plain = request({"OCUVA_WAKEUP"});
    EXPECT_THAT(plain.messages, ElementsAre("OCUVA_WAKEUP"));
    EXPECT_EQ(plain.component, "TN_OCUVA_SERVER");
    EXPECT_EQ(plain.subComponent, "");
    EXPECT_FALSE(plain.byName || plain.listen || plain.waitFor || plain.timeout || plain.count);

    const Request other = request({"--component", "A", "--sub", "B", "x", "y", "--data", "/d"});
    EXPECT_THAT(other.messages, ElementsAre("x", "y"));
    EXPECT_EQ(other.component, "A");
    EXPECT_EQ(other.subComponent, "B");
    EXPECT_EQ(other.dataFolder, "/d");
}

TEST(TarnsendCommandLine, WaitsFiveSecondsByDefault) {
    const Request usual = request({"ASK", "--wait", "ANSWER"});
    EXPECT_EQ(usual.waitFor, "ANSWER");
    EXPECT_EQ(usual.timeout, std::chrono::milliseconds(5000));
    EXPECT_EQ(request({"ASK", "--wait", "ANSWER", "--timeout", "2000"}).timeout,
              std::chrono::milliseconds(2000));
}

TEST(TarnsendCommandLine, ListensToAllComponentsWithoutLimitByDefault) {
    const Request all = request({"--listen"});
    EXPECT_TRUE(all.listen);
    EXPECT_EQ(all.component, "");
    EXPECT_FALSE(all.timeout || all.count);
    const Request some = request({"--listen", "--component", "A", "--count", "3", "--timeout", "0"});
    EXPECT_EQ(some.component, "A");
    EXPECT_EQ(some.count, 3);
    EXPECT_EQ(some.timeout, std::chrono::milliseconds(0));
}

TEST(TarnsendCommandLine, AnswersMisuseWithOneReasonAndExitCodeTwo) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{}, "MESSAGE is missing"},
        {{"--wait", "X"}, "MESSAGE is missing"},
        {{"--nonsense", "X"}, "nonsense"},
        {{"X", "--wait"}, "wait"},
        {{"--listen", "X"}, "sends nothing"},
        {{"--listen", "--wait", "X"}, "not for --listen"},
        {{"--listen", "--by-name"}, "not for --listen"},
        {{"--listen", "--sub", "S"}, "not for --listen"},
        {{"X", "--by-name", "--component", "C"}, "its own component"},
        {{"X", "--by-name", "--sub", "S"}, "its own component"},
        {{"X", "--count", "1"}, "--count is for --listen"},
        {{"X", "--timeout", "1"}, "--timeout is for"},
        {{"X", "--wait", "Y", "--timeout", "soon"}, "whole number of milliseconds"},
        {{"X", "--wait", "Y", "--timeout", "-1"}, "whole number of milliseconds"},
        {{"X", "--wait", "Y", "--timeout", "1.5"}, "whole number of milliseconds"},
        {{"X", "--wait", "Y", "--timeout", "99999999999"}, "whole number of milliseconds"},
        {{"--listen", "--count", "0"}, "whole number above 0"},
        {{"--listen", "--count", ""}, "whole number above 0"},
    };
    for (const auto& [words, reason] : cases) {
        const Notice misuse = notice(words);
        EXPECT_EQ(misuse.exitCode, exitUsage) << reason;
        EXPECT_THAT(misuse.text, HasSubstr(reason));
        EXPECT_THAT(misuse.text, HasSubstr("tarnsend: "));
    }
}

TEST(TarnsendCommandLine, ExplainsItselfAndEveryExitCodeWithAnyOtherOption) {
    const Notice help = notice({"--help", "--listen", "X"});
    EXPECT_EQ(help.exitCode, exitDone);
    for (const char* words :
         {"--wait", "--listen", "--timeout", "--count", "--component", "--sub", "--by-name", "--data",
          "--version", "  0  ", "  1  ", "  2  ", "  3  ", "  4  "}) {
        EXPECT_THAT(help.text, HasSubstr(words));
    }
    EXPECT_EQ(notice({"--version"}).text, "tarnsend " OCUVA_VERSION "\n");
}
