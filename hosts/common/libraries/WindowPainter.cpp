#include "hosts/common/libraries/WindowPainter.h"

#include "hosts/common/libraries/PictureStretch.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <mutex>
#include <poll.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>
#include <xcb/xcb.h>

namespace hosts {

namespace {

struct Freed {
    void operator()(void* answer) const { std::free(answer); }
};
template <class T> using Answer = std::unique_ptr<T, Freed>;

} // namespace

// Its own connection to the window system, on its own thread: the program's connection cannot be used.
struct WindowPainter::Window {
    explicit Window(ocuva::Long handle)
        : id(static_cast<xcb_window_t>(handle)) {
        if (xcb_connection_has_error(connection) != 0 || pipe(wakeUp.data()) != 0) {
            return;
        }
        const std::uint32_t events = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection, id, XCB_CW_EVENT_MASK, &events);
        xcb_create_gc(connection, context, id, 0, nullptr);
        xcb_flush(connection);
        thread = std::thread([this] { work(); });
    }

    ~Window() {
        if (thread.joinable()) {
            wake('q');
            thread.join();
            close(wakeUp[0]);
            close(wakeUp[1]);
        }
        xcb_disconnect(connection);
    }

    void wake(char why) const {
        const ssize_t written = write(wakeUp[1], &why, 1);
        static_cast<void>(written); // a full pipe wakes as well
    }

    void work() {
        while (waitForReason()) {
            ocuva::FramePtr newest;
            {
                const std::lock_guard lock(mutex);
                newest = frame;
            }
            if (newest) {
                draw(*newest);
            }
        }
    }

    /// False when the painter goes or the window system is gone.
    bool waitForReason() {
        std::array<pollfd, 2> fds{{{xcb_get_file_descriptor(connection), POLLIN, 0}, {wakeUp[0], POLLIN, 0}}};
        if (poll(fds.data(), fds.size(), -1) < 0 || xcb_connection_has_error(connection) != 0) {
            return false;
        }
        while (const Answer<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
        }
        std::array<char, 64> reasons{};
        if ((fds[1].revents & POLLIN) == 0) {
            return true;
        }
        const ssize_t count = read(wakeUp[0], reasons.data(), reasons.size());
        return std::find(reasons.begin(), reasons.begin() + std::max<ssize_t>(count, 0), 'q') ==
               reasons.begin() + std::max<ssize_t>(count, 0);
    }

    void draw(const ocuva::Frame& picture) {
        const Answer<xcb_get_geometry_reply_t> size{
            xcb_get_geometry_reply(connection, xcb_get_geometry(connection, id), nullptr)};
        if (!size || size->width == 0 || size->depth < 24) {
            return;
        }
        stretch(picture, size->width, size->height, stretched);
        // A request has a greatest length; rows go as many at a time as it holds.
        const std::size_t rowBytes = std::size_t{4} * size->width;
        const std::size_t most = std::size_t{4} * xcb_get_maximum_request_length(connection) - 64;
        const int rowsAtOnce = static_cast<int>(std::max<std::size_t>(1, most / rowBytes));
        for (int row = 0; row < size->height; row += rowsAtOnce) {
            const int rows = std::min(rowsAtOnce, size->height - row);
            xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, id, context, size->width,
                          static_cast<std::uint16_t>(rows), 0, static_cast<std::int16_t>(row), 0, size->depth,
                          static_cast<std::uint32_t>(rowBytes * static_cast<std::size_t>(rows)),
                          reinterpret_cast<const std::uint8_t*>(stretched.data() +
                                                                static_cast<std::size_t>(row) * size->width));
        }
        xcb_flush(connection);
    }

    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const xcb_window_t id;
    const xcb_gcontext_t context = xcb_generate_id(connection);
    std::array<int, 2> wakeUp{-1, -1};
    std::mutex mutex;
    ocuva::FramePtr frame;
    std::vector<std::uint32_t> stretched;
    std::thread thread;
};

WindowPainter::WindowPainter(ocuva::Long windowHandle)
    : m_window(std::make_unique<Window>(windowHandle)) {}

WindowPainter::~WindowPainter() = default;

void WindowPainter::present(ocuva::FramePtr frame) {
    {
        const std::lock_guard lock(m_window->mutex);
        m_window->frame = std::move(frame);
    }
    m_window->wake('f');
}

} // namespace hosts
