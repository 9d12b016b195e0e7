#include "app/ErrorEdge.h"

#include <QTest>

#include <gmock/gmock.h>
#include <stdexcept>

using namespace ocuva;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(StartThatFails, IsExplainedAndHasItsOwnExitCode) {
    std::string reason;
    const int code = startOrExplain([]() -> int { throw std::runtime_error("Division by zero"); },
                                    [&reason](const std::string& text) { reason = text; });
    EXPECT_EQ(code, exitStartFailed);
    EXPECT_THAT(reason, HasSubstr("cannot start because of an unexpected error: Division by zero. "));
}

TEST(StartThatFails, DoesNotChangeTheExitCodeOfAStartThatSucceeds) {
    std::string reason;
    EXPECT_EQ(startOrExplain([] { return 5; }, [&reason](const std::string& text) { reason = text; }), 5);
    EXPECT_THAT(reason, IsEmpty());
}

TEST(ErrorOfAnEventHandler, IsReportedOnceAndOutsideOfTheHandler) {
    EventErrors errors;
    std::vector<QString> reports;
    errors.setReport([&reports](const QString& text) { reports.push_back(text); });
    const auto failing = []() -> bool { throw std::runtime_error("Overflow"); };
    EXPECT_FALSE(errors.deliver(failing));
    EXPECT_FALSE(errors.deliver(failing));
    EXPECT_THAT(reports, IsEmpty());
    QCoreApplication::processEvents();
    EXPECT_THAT(reports, ElementsAre(QStringLiteral("Overflow")));
    EXPECT_TRUE(errors.deliver([] { return true; }));
}
