#include "hostlink/CrashNote.h"

#include "hostlink/LibraryHost.h"
#include "hostlink/LoadWatch.h"
#include "tests/support/TempFolder.h"

#include <csignal>
#include <functional>
#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#ifndef _WIN32
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace ocuva {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

TEST(CallMark, NamesTheInnermostCallAndThenTheOneAroundIt) {
    CallMark mark;
    EXPECT_EQ(mark.current(), nullptr);
    {
        const CallMark::Scope outer(mark, "message box");
        {
            const CallMark::Scope inner(mark, "position");
            EXPECT_STREQ(mark.current(), "position");
        }
        EXPECT_STREQ(mark.current(), "message box");
    }
    EXPECT_EQ(mark.current(), nullptr);
}

TEST(LoadWatch, NamesACallThatHasNotEndedInTime) {
    CallMark mark;
    const CallMark::Scope loading(mark, "the loading of tn_video.so");
    std::promise<std::string> late;
    const LoadWatch watch(mark, std::chrono::milliseconds(1),
                          [&late](const std::string& running) { late.set_value(running); });
    EXPECT_EQ(late.get_future().get(), "the loading of tn_video.so");
}

TEST(LoadWatch, DoesNotReportACallThatEndsInTime) {
    const CallMark mark;
    bool said = false;
    {
        const LoadWatch watch(mark, std::chrono::hours(1), [&said](const std::string&) { said = true; });
    }
    EXPECT_FALSE(said);
}

#ifndef _WIN32 // CrashNoteWindowsTest.cpp tests the faults of Windows

struct CrashNotes : testing::Test {
    TempFolder folder;
    std::filesystem::path note = folder.path() / "host-crash.note";
    CallMark mark;

    // In another process, whose handlers are the system's own whatever this one has.
    int endOf(const std::function<void()>& deed) {
        const pid_t child = ::fork();
        if (child == 0) {
            const rlimit noCore{0, 0};
            ::setrlimit(RLIMIT_CORE, &noCore);
            for (const int fault : {SIGSEGV, SIGBUS, SIGABRT}) {
                ::signal(fault, SIG_DFL);
            }
            const CrashNote armed(note, mark);
            deed();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return status;
    }
};

TEST_F(CrashNotes, NameTheFunctionThatRanWhenTheProcessCrashed) {
    for (const int fault : {SIGSEGV, SIGBUS, SIGABRT}) {
        const int status = endOf([this, fault] {
            const CallMark::Scope call(mark, "TarnStartStage of tn_micro_proxy.so");
            ::raise(fault);
        });
        EXPECT_TRUE(WIFSIGNALED(status)) << "the process ends as it would have without the note";
        EXPECT_EQ(WTERMSIG(status), fault);
        EXPECT_THAT(CrashNote::take(note),
                    AllOf(HasSubstr("TarnStartStage of tn_micro_proxy.so"), HasSubstr("fault SIG")));
        EXPECT_EQ(CrashNote::take(note), "") << "it is said once";
    }
}

TEST_F(CrashNotes, NameTheFunctionInWhichALibraryOfTheHostCrashed) {
    endOf([this] {
        LibraryHost host(
            LYING_HOST_FOLDER, [] { return nullptr; }, &mark);
        host.tn_video().TarnVideoGetCurrentCameraType();
        host.tn_video().TarnVideoBoardShutdown();
    });
    const std::string said = CrashNote::take(note);
    EXPECT_THAT(said, AllOf(HasSubstr("TarnVideoBoardShutdown of "), HasSubstr("tn_video")));
}

TEST_F(CrashNotes, SayWhenNoCallWasRunning) {
    endOf([] { ::raise(SIGSEGV); });
    EXPECT_THAT(CrashNote::take(note), HasSubstr("No function of the host's libraries was running"));
}

// NOLINTNEXTLINE(misc-no-recursion)
int useUpTheStack(int level) {
    volatile char room[4096] = {};
    room[0] = static_cast<char>(level);
    return level == std::numeric_limits<int>::max() ? 0 : useUpTheStack(level + 1) + room[0];
}

TEST_F(CrashNotes, AreWrittenWhenTheStackIsUsedUp) {
    const int status = endOf([] { useUpTheStack(0); });
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_THAT(CrashNote::take(note), HasSubstr("crashed"));
}

TEST_F(CrashNotes, AreNotWrittenWhenTheProcessIsEndedFromOutside) {
    for (const int ending : {SIGTERM, SIGKILL, SIGHUP}) {
        endOf([this, ending] {
            const CallMark::Scope call(mark, "TarnAutoFocusExt of tn_micro_proxy.so");
            ::raise(ending);
        });
        EXPECT_EQ(CrashNote::take(note), "");
    }
    endOf([] {});
    EXPECT_EQ(CrashNote::take(note), "");
}

TEST_F(CrashNotes, PlantedAsALinkOrFifoAreNeitherReadNorWritten) {
    folder.write("private", "precious");
    std::filesystem::create_symlink(folder.path() / "private", note);
    endOf([] { ::raise(SIGSEGV); });
    EXPECT_EQ(folder.read("private"), "precious");
    EXPECT_EQ(CrashNote::take(note), "");
    std::filesystem::remove(note);
    ASSERT_EQ(::mkfifo(note.c_str(), 0600), 0);
    EXPECT_TRUE(WIFSIGNALED(endOf([] { ::raise(SIGSEGV); }))) << "it does not wait for a reader";
    EXPECT_EQ(CrashNote::take(note), "");
}

TEST_F(CrashNotes, ThatAreDamagedAreStillOneSentenceOfPlainCharacters) {
    folder.write("host-crash.note",
                 std::string("x\n\x1b[31m\nTarn\x07Start\n", 19) + std::string(100000, 'y'));
    EXPECT_THAT(CrashNote::take(note), AllOf(HasSubstr("Tarn?Start"), Not(HasSubstr("\x1b"))));
}

#endif

} // namespace
} // namespace ocuva
