// What is left in the queue of a Windows program once the input in it is outdated.

#include "platform/PendingInput.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace ocuva {
namespace {

constexpr UINT ownMessage = WM_APP + 1;

struct PendingInputOfWindows : testing::Test {
    HWND window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);

    ~PendingInputOfWindows() override { DestroyWindow(window); }
    bool isQueued(UINT message) const {
        MSG found;
        return PeekMessageW(&found, window, message, message, PM_NOREMOVE) != FALSE;
    }
};

TEST_F(PendingInputOfWindows, BeginsNothingAnyMoreOnceItIsOutdated) {
    constexpr UINT beginnings[] = {WM_KEYDOWN,       WM_CHAR,        WM_SYSKEYDOWN,    WM_SYSCHAR,
                                   WM_MOUSEMOVE,     WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN,
                                   WM_RBUTTONDBLCLK, WM_MBUTTONDOWN, WM_MOUSEWHEEL,    WM_MOUSEHWHEEL,
                                   WM_XBUTTONDOWN};
    constexpr UINT others[] = {WM_KEYUP,     WM_SYSKEYUP,  WM_LBUTTONUP, WM_RBUTTONUP,
                               WM_MBUTTONUP, WM_XBUTTONUP, WM_COMMAND,   ownMessage};
    for (const UINT message : beginnings) {
        ASSERT_TRUE(PostMessageW(window, message, 0, 0));
        ASSERT_TRUE(PostMessageW(window, message, 0, 0));
    }
    for (const UINT message : others) {
        ASSERT_TRUE(PostMessageW(window, message, 0, 0));
    }
    PendingInput input;
    input.outdate();
    for (const UINT message : beginnings) {
        EXPECT_FALSE(isQueued(message)) << message;
    }
    for (const UINT message : others) {
        EXPECT_TRUE(isQueued(message)) << message;
    }
}

} // namespace
} // namespace ocuva
