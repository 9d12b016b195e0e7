// Faults of Windows. A test of a fault runs in a second process of this program, from the test's beginning. A
// stack that is used up is not among them: Wine gives the system's own functions no room to report it.

#include "hostlink/CrashNote.h"
#include "hostlink/LibraryHost.h"
#include "tests/support/TempFolder.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <windows.h>

namespace ocuva {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr const wchar_t* noteOfTheParent = L"OCUVA_TEST_NOTE";

struct CrashNotes : testing::Test {
    std::optional<TempFolder> folder;
    std::filesystem::path note;
    CallMark mark;

    CrashNotes() {
        if (testing::internal::InDeathTestChild()) {
            note = _wgetenv(noteOfTheParent);
            SetErrorMode(SEM_NOGPFAULTERRORBOX); // no debugger, and nobody is asked
        } else {
            folder.emplace();
            note = folder->path() / L"N\u00f6te.note";
            SetEnvironmentVariableW(noteOfTheParent, note.c_str());
        }
    }
    ~CrashNotes() override { SetEnvironmentVariableW(noteOfTheParent, nullptr); }
};

void writeToNowhere() { *reinterpret_cast<volatile int*>(std::uintptr_t{16}) = 1; }

TEST_F(CrashNotes, NameTheFunctionThatRanWhenTheProcessCrashed) {
    EXPECT_EXIT(
        {
            const CrashNote armed(note, mark);
            const CallMark::Scope call(mark, "TarnStartStage of tn_micro_proxy.dll");
            writeToNowhere();
        },
        [](int code) { return static_cast<DWORD>(code) == EXCEPTION_ACCESS_VIOLATION; }, "");
    EXPECT_THAT(CrashNote::take(note),
                AllOf(HasSubstr("TarnStartStage of tn_micro_proxy.dll"), HasSubstr("fault 0xC0000005")));
    EXPECT_EQ(CrashNote::take(note), "") << "it is said once";
}

TEST_F(CrashNotes, NameTheFunctionThatRanWhenTheProcessAborted) {
    EXPECT_DEATH(
        {
            const CrashNote armed(note, mark);
            const CallMark::Scope call(mark, "TarnAutoFocusExt of tn_micro_proxy.dll");
            std::abort();
        },
        "");
    EXPECT_THAT(CrashNote::take(note), HasSubstr("TarnAutoFocusExt of tn_micro_proxy.dll"));
}

TEST_F(CrashNotes, NameTheFunctionInWhichALibraryOfTheHostCrashed) {
    EXPECT_DEATH(
        {
            const CrashNote armed(note, mark);
            LibraryHost host(
                LYING_HOST_FOLDER, [] { return nullptr; }, &mark);
            host.tn_video().TarnVideoGetCurrentCameraType();
            host.tn_video().TarnVideoBoardShutdown();
        },
        "");
    EXPECT_THAT(CrashNote::take(note), AllOf(HasSubstr("TarnVideoBoardShutdown of "), HasSubstr("tn_video")));
}

TEST_F(CrashNotes, AreNotWrittenWhenTheProcessIsEndedFromOutsideOrEnds) {
    EXPECT_DEATH(
        {
            const CrashNote armed(note, mark);
            const CallMark::Scope call(mark, "TarnAutoFocusExt of tn_micro_proxy.dll");
            TerminateProcess(GetCurrentProcess(), 7);
        },
        "");
    EXPECT_EQ(CrashNote::take(note), "");
    EXPECT_EXIT(
        {
            { const CrashNote armed(note, mark); }
            writeToNowhere();
        },
        [](int code) { return static_cast<DWORD>(code) == EXCEPTION_ACCESS_VIOLATION; }, "");
    EXPECT_EQ(CrashNote::take(note), "") << "the fault came later than the end of the watch";
}

LONG WINAPI endWithEleven(EXCEPTION_POINTERS* /*about*/) {
    TerminateProcess(GetCurrentProcess(), 11);
    return EXCEPTION_CONTINUE_SEARCH;
}

TEST_F(CrashNotes, LeaveTheLastWordToAFilterThatWasThereBefore) {
    EXPECT_EXIT(
        {
            SetUnhandledExceptionFilter(endWithEleven);
            const CrashNote armed(note, mark);
            writeToNowhere();
        },
        testing::ExitedWithCode(11), "");
    EXPECT_THAT(CrashNote::take(note), HasSubstr("crashed"));
}

TEST_F(CrashNotes, ThatAreDamagedAreStillOneSentenceOfPlainCharacters) {
    folder->write("damaged", std::string("x\n\x1b[31m\nTarn\x07Start\n", 19) + std::string(100000, 'y'));
    EXPECT_THAT(CrashNote::take(*folder / "damaged"), AllOf(HasSubstr("Tarn?Start"), Not(HasSubstr("\x1b"))));
}

} // namespace
} // namespace ocuva
