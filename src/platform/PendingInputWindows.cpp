#include "platform/PendingInput.h"

#include <array>
#include <windows.h>

namespace ocuva {

namespace {

// All messages that begin an action. WM_xBUTTONUP and WM_KEYUP stay: a press must be followed by its
// release.
struct Messages {
    UINT first;
    UINT last;
};
constexpr std::array<Messages, 12> beginnings{{
    {WM_KEYDOWN, WM_KEYDOWN},
    {WM_CHAR, WM_DEADCHAR},
    {WM_SYSKEYDOWN, WM_SYSKEYDOWN},
    {WM_SYSCHAR, WM_SYSDEADCHAR},
    {WM_MOUSEMOVE, WM_LBUTTONDOWN},
    {WM_LBUTTONDBLCLK, WM_RBUTTONDOWN},
    {WM_RBUTTONDBLCLK, WM_MBUTTONDOWN},
    {WM_MBUTTONDBLCLK, WM_XBUTTONDOWN},
    {WM_XBUTTONDBLCLK, WM_MOUSEHWHEEL},
    {WM_POINTERUPDATE, WM_POINTERDOWN},
    {WM_POINTERWHEEL, WM_POINTERHWHEEL},
    {WM_TOUCH, WM_TOUCH},
}};
// The wheel messages are numbered between those of the buttons.
static_assert(WM_MOUSEWHEEL == WM_MBUTTONDBLCLK + 1 && WM_XBUTTONDOWN == WM_MOUSEWHEEL + 1 &&
              WM_MOUSEHWHEEL == WM_XBUTTONDBLCLK + 1);

} // namespace

class PendingInput::System {};

PendingInput::PendingInput() = default;

PendingInput::~PendingInput() = default;

void PendingInput::outdate() {
    // Without naming kinds, the system would deliver what other threads and programs have sent.
    constexpr UINT onlyInput = PM_QS_INPUT | PM_QS_POSTMESSAGE;
    for (const Messages& range : beginnings) {
        MSG message;
        while (PeekMessageW(&message, nullptr, range.first, range.last, PM_REMOVE | PM_NOYIELD | onlyInput) !=
               FALSE) {
        }
    }
}

bool PendingInput::isOutdated(const QInputEvent& /*event*/) { return false; }

} // namespace ocuva
