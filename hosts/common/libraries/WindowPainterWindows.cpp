#include "hosts/common/libraries/WindowPainter.h"

#include <mutex>
#include <utility>
// The second needs the first.
// clang-format off
#include <windows.h>
#include <commctrl.h>
// clang-format on

namespace hosts {

// Receives the messages of the window, on its thread, and handles the paint message.
struct WindowPainter::Window {
    explicit Window(ocuva::Long windowHandle)
        : handle(reinterpret_cast<HWND>(static_cast<LONG_PTR>(windowHandle))) {
        SetWindowSubclass(handle, &Window::procedure, subclassId, reinterpret_cast<DWORD_PTR>(this));
    }
    ~Window() { RemoveWindowSubclass(handle, &Window::procedure, subclassId); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR self) {
        if (message == WM_NCDESTROY) {
            RemoveWindowSubclass(window, &Window::procedure, id);
        }
        if (message == WM_ERASEBKGND) {
            return 1; // no flicker: the picture covers all of it
        }
        if (message == WM_PAINT && reinterpret_cast<Window*>(self)->paint()) {
            return 0;
        }
        return DefSubclassProc(window, message, wParam, lParam);
    }

    /// False as long as there is no picture.
    bool paint() {
        ocuva::FramePtr newest;
        {
            const std::lock_guard lock(mutex);
            newest = frame;
        }
        if (!newest) {
            return false;
        }
        PAINTSTRUCT about;
        if (const HDC context = BeginPaint(handle, &about); context != nullptr) {
            draw(context, *newest);
            EndPaint(handle, &about);
        }
        return true;
    }

    void draw(HDC context, const ocuva::Frame& picture) const {
        RECT inside;
        GetClientRect(handle, &inside);
        BITMAPINFO format{};
        format.bmiHeader.biSize = sizeof format.bmiHeader;
        format.bmiHeader.biWidth = picture.width;
        format.bmiHeader.biHeight = -picture.height; // the first row is the upper one
        format.bmiHeader.biPlanes = 1;
        format.bmiHeader.biBitCount = 32;
        format.bmiHeader.biCompression = BI_RGB;
        SetStretchBltMode(context, COLORONCOLOR);
        StretchDIBits(context, 0, 0, inside.right, inside.bottom, 0, 0, picture.width, picture.height,
                      picture.pixels.data(), &format, DIB_RGB_COLORS, SRCCOPY);
    }

    static constexpr UINT_PTR subclassId = 1;
    const HWND handle;
    std::mutex mutex;
    ocuva::FramePtr frame;
};

WindowPainter::WindowPainter(ocuva::Long windowHandle)
    : m_window(std::make_unique<Window>(windowHandle)) {}

WindowPainter::~WindowPainter() = default;

void WindowPainter::present(ocuva::FramePtr frame) {
    {
        const std::lock_guard lock(m_window->mutex);
        m_window->frame = std::move(frame);
    }
    InvalidateRect(m_window->handle, nullptr, FALSE);
}

} // namespace hosts
