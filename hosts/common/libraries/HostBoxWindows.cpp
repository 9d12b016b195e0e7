#include "hosts/common/libraries/HostBox.h"

#include <windows.h>

namespace hosts {

namespace {

constexpr TarnLong buttonsMask = 0x0f;

BOOL CALLBACK findShown(HWND window, LPARAM found) {
    if (IsWindowVisible(window) == FALSE || IsIconic(window) != FALSE) {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// The system's numbers for buttons, icon and answers are those of the host.
static_assert(TARN_BOX_OK_CANCEL == MB_OKCANCEL && TARN_BOX_YES_NO == MB_YESNO &&
              TARN_BOX_CRITICAL == MB_ICONERROR);
static_assert(TARN_ANSWER_OK == IDOK && TARN_ANSWER_CANCEL == IDCANCEL && TARN_ANSWER_YES == IDYES &&
              TARN_ANSWER_NO == IDNO);

TarnLong answerThatChangesLeast(TarnLong style) {
    switch (style & buttonsMask) {
    case TARN_BOX_OK_CANCEL:
        return TARN_ANSWER_CANCEL;
    case TARN_BOX_YES_NO:
        return TARN_ANSWER_NO;
    default:
        return TARN_ANSWER_OK;
    }
}

} // namespace

TarnLong showBox(const std::string& text, const std::string& title, TarnLong style) {
    HWND shown = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &findShown, reinterpret_cast<LPARAM>(&shown));
    if (shown == nullptr) {
        return answerThatChangesLeast(style);
    }
    const HWND active = GetActiveWindow();
    const int answer = MessageBoxA(active != nullptr ? active : shown, text.c_str(), title.c_str(),
                                   static_cast<UINT>(style));
    return answer != 0 ? answer : answerThatChangesLeast(style);
}

void stayLoaded() {
    HMODULE self = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCSTR>(&findShown), &self);
}

} // namespace hosts
