#include "platform/PendingInput.h"

#include <QGuiApplication>
#include <QInputEvent>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <xcb/xcb.h>

namespace ocuva {

namespace {

using Clock = std::chrono::steady_clock;

// If a server's event times come from another clock than its current time, input is accepted again after
// this time.
constexpr std::chrono::seconds longestDoubt{2};

// Qt's event loop reads Qt's connection, so waiting for an answer needs a second one.
class ServerClock {
public:
    ServerClock()
        : m_connection(xcb_connect(nullptr, nullptr), xcb_disconnect) {
        if (xcb_connection_has_error(m_connection.get()) != 0) {
            return;
        }
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data;
        m_window = xcb_generate_id(m_connection.get());
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    }

    /// In milliseconds; nothing if the server does not answer.
    std::optional<xcb_timestamp_t> now() {
        // The server reports its time with a property change, even one of zero bytes.
        xcb_change_property(m_connection.get(), XCB_PROP_MODE_APPEND, m_window, XCB_ATOM_WM_NAME,
                            XCB_ATOM_STRING, 8, 0, nullptr);
        xcb_flush(m_connection.get());
        using Event = std::unique_ptr<xcb_generic_event_t, decltype(&std::free)>;
        while (const Event event{xcb_wait_for_event(m_connection.get()), std::free}) {
            constexpr std::uint8_t sentFlag = 0x80;
            if ((event->response_type & ~sentFlag) == XCB_PROPERTY_NOTIFY) {
                return reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->time;
            }
        }
        return std::nullopt;
    }

private:
    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_connection;
    xcb_window_t m_window = 0;
};

} // namespace

class PendingInput::System {
public:
    void outdate() {
        if (QGuiApplication::platformName() != QStringLiteral("xcb")) {
            return;
        }
        if (!m_clock) {
            m_clock.emplace();
        }
        m_outdatedUntil = m_clock->now();
        m_doubtEnds = Clock::now() + longestDoubt;
    }

    bool isOutdated(const QInputEvent& event) {
        const auto time = static_cast<xcb_timestamp_t>(event.timestamp());
        if (!m_outdatedUntil || time == XCB_CURRENT_TIME) {
            return false;
        }
        // The server's milliseconds wrap every 50 days, so only differences count.
        const bool outdated = static_cast<std::int32_t>(time - *m_outdatedUntil) <= 0;
        if (!outdated || Clock::now() > m_doubtEnds) {
            m_outdatedUntil.reset(); // events arrive in the order of their times
            return false;
        }
        return true;
    }

private:
    std::optional<ServerClock> m_clock;
    std::optional<xcb_timestamp_t> m_outdatedUntil;
    Clock::time_point m_doubtEnds;
};

PendingInput::PendingInput()
    : m_system(std::make_unique<System>()) {}

PendingInput::~PendingInput() = default;

void PendingInput::outdate() { m_system->outdate(); }

bool PendingInput::isOutdated(const QInputEvent& event) { return m_system->isOutdated(event); }

} // namespace ocuva
