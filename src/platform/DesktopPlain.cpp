#include "platform/Desktop.h"

#include <QGuiApplication>
#include <QWidget>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace ocuva {

void bringWindowToTop(QWidget& window) { window.raise(); }

bool runsInDevelopmentEnvironment(quintptr /*window*/) { return false; }

bool anyMouseButtonIsDown() {
    // The offscreen platform has this interface too, but no connection.
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (xcb_connection_t* connection = x11 != nullptr ? x11->connection() : nullptr; connection != nullptr) {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        const std::unique_ptr<xcb_query_pointer_reply_t, decltype(&std::free)> pointer(
            xcb_query_pointer_reply(connection, xcb_query_pointer(connection, root), nullptr), &std::free);
        constexpr unsigned buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
        return pointer != nullptr && (pointer->mask & buttons) != 0;
    }
    return QGuiApplication::mouseButtons() != Qt::NoButton;
}

FrozenDrawing::FrozenDrawing(QWidget& widget)
    : m_widget(widget) {
    m_widget.setUpdatesEnabled(false);
}

FrozenDrawing::~FrozenDrawing() { m_widget.setUpdatesEnabled(true); }

} // namespace ocuva
