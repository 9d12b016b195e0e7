#include "app/RunningCopies.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QUuid>

#include <array>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>

using namespace ocuva;

namespace {

struct Copies : testing::Test {
    QString scope = QUuid::createUuid().toString();

    std::unique_ptr<QProcess> launch() const {
        auto process = std::make_unique<QProcess>();
        process->start(QStringLiteral(RUNNING_COPY), {scope});
        return process;
    }
    static QByteArray answer(QProcess& process) {
        while (!process.canReadLine() && process.waitForReadyRead(30000)) {
        }
        return process.readLine().trimmed();
    }
    static void end(QProcess& process) {
        process.closeWriteChannel();
        process.waitForFinished();
    }
};

} // namespace

TEST_F(Copies, TheFirstIsAloneAndTheSecondIsNot) {
    const auto first = launch();
    EXPECT_EQ(answer(*first), "alone");
    const auto second = launch();
    EXPECT_EQ(answer(*second), "other");
    end(*second);
    end(*first);
}

TEST_F(Copies, ACopyThatWasKilledIsNotCounted) {
    const auto first = launch();
    EXPECT_EQ(answer(*first), "alone");
    first->kill();
    first->waitForFinished();
    EXPECT_FALSE(RunningCopies(scope).anotherWasRunning());
}

TEST_F(Copies, ASecondCopyStillCountsWhenTheFirstHasEnded) {
    const auto first = launch();
    EXPECT_EQ(answer(*first), "alone");
    const auto client = launch();
    EXPECT_EQ(answer(*client), "other");
    end(*first);
    EXPECT_TRUE(RunningCopies(scope).anotherWasRunning());
    end(*client);
    EXPECT_FALSE(RunningCopies(scope).anotherWasRunning());
}

TEST_F(Copies, OnAnotherDataFolderDoNotMeet) {
    const auto first = launch();
    EXPECT_EQ(answer(*first), "alone");
    EXPECT_FALSE(RunningCopies(scope + QStringLiteral("/other")).anotherWasRunning());
    end(*first);
}

TEST_F(Copies, OfManyThatStartAtOnceExactlyOneIsAlone) {
    std::array<std::unique_ptr<QProcess>, 6> processes;
    for (auto& process : processes) {
        process = launch();
    }
    int alone = 0;
    for (auto& process : processes) {
        alone += answer(*process) == "alone" ? 1 : 0;
    }
    EXPECT_EQ(alone, 1);
    for (auto& process : processes) {
        end(*process);
    }
}

TEST_F(Copies, AWakeWaitsForACopyThatIsStillStartingAndForNoOther) {
    using namespace std::chrono_literals;
    const auto first = launch();
    EXPECT_EQ(answer(*first), "alone");
    RunningCopies second(scope);
    ASSERT_TRUE(second.anotherWasRunning());
    QElapsedTimer clock;
    clock.start();
    EXPECT_TRUE(second.waitUntilOthersAreUp(300ms));
    EXPECT_GE(clock.elapsed(), 300) << "the other one is still starting";
    first->write("\n");
    EXPECT_EQ(answer(*first), "up");
    clock.start();
    EXPECT_TRUE(second.waitUntilOthersAreUp(60s));
    EXPECT_LT(clock.elapsed(), 30000);
    end(*first);
}

TEST_F(Copies, ACopyTakesOverFromOneThatDiedDuringItsStart) {
    const auto first = launch();
    EXPECT_EQ(answer(*first), "alone");
    RunningCopies second(scope);
    ASSERT_TRUE(second.anotherWasRunning());
    first->kill();
    first->waitForFinished();
    EXPECT_FALSE(second.waitUntilOthersAreUp(std::chrono::seconds(60)));
    const auto third = launch();
    EXPECT_EQ(answer(*third), "other") << "the second one is a running copy again";
    end(*third);
}
