#include "platform/WindowPresence.h"

#include <QGuiApplication>
#include <QWidget>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>
#include <xcb/xcb.h>

namespace ocuva {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply> using Answer = std::unique_ptr<Reply, Free>;

enum WmState : std::uint32_t { withdrawn = 0, normal = 1, iconic = 3 };

WindowPresence qtsBelief(const QWidget& window) {
    if (!window.isVisible()) {
        return WindowPresence::Hidden;
    }
    return window.isMinimized() ? WindowPresence::Iconic : WindowPresence::Shown;
}

bool isViewable(xcb_connection_t* display, xcb_window_t window) {
    const Answer<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(display, xcb_get_window_attributes(display, window), nullptr));
    return attributes != nullptr && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

/// The state set by the window manager; nothing if there is none.
std::optional<std::uint32_t> wmState(xcb_connection_t* display, xcb_window_t window) {
    constexpr std::string_view name = "WM_STATE";
    const Answer<xcb_intern_atom_reply_t> atom(
        xcb_intern_atom_reply(display, xcb_intern_atom(display, 0, name.size(), name.data()), nullptr));
    if (atom == nullptr) {
        return std::nullopt;
    }
    const Answer<xcb_get_property_reply_t> property(xcb_get_property_reply(
        display, xcb_get_property(display, 0, window, atom->atom, atom->atom, 0, 1), nullptr));
    if (property == nullptr || xcb_get_property_value_length(property.get()) < int{sizeof(std::uint32_t)}) {
        return std::nullopt;
    }
    return *static_cast<const std::uint32_t*>(xcb_get_property_value(property.get()));
}

} // namespace

WindowPresence presenceOf(const QWidget& window) {
    // Other platforms offer an X connection that is not open.
    const auto* x11 = QGuiApplication::platformName() == QLatin1String("xcb")
                          ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>()
                          : nullptr;
    if (x11 == nullptr) {
        return qtsBelief(window);
    }
    const auto id = static_cast<xcb_window_t>(window.internalWinId());
    if (id == 0) {
        return WindowPresence::Hidden; // unknown to the window system
    }
    const bool viewable = isViewable(x11->connection(), id);
    const std::uint32_t state = wmState(x11->connection(), id).value_or(viewable ? normal : withdrawn);
    if (state == normal && viewable) {
        return WindowPresence::Shown;
    }
    if (state == withdrawn && !viewable) {
        return WindowPresence::Hidden;
    }
    return state == iconic ? WindowPresence::Iconic : WindowPresence::Changing;
}

} // namespace ocuva
