#pragma once
// Puts a window on the screen, or takes it off, and makes sure of it.

#include "platform/WindowPresence.h"

#include <cstdint>
#include <optional>

namespace ocuva {

/// What WindowOnScreen does with the window and the clock.
class WindowHands {
public:
    virtual ~WindowHands() = default;
    /// The state that the window system shows.
    virtual WindowPresence look() const = 0;
    /// Shows the window in its normal state, in front of the others, with all that belongs to it.
    virtual void show() = 0;
    /// Takes the window off the screen, with all that belongs to it.
    virtual void hide() = 0;
    /// Only maps or unmaps the window: used if show() or hide() had no effect.
    virtual void setMapped(bool mapped) = 0;
    /// While on, WindowOnScreen::tick is called once in WindowOnScreen::tickMs.
    virtual void enableTimer(bool on) = 0;
    /// A clock that never goes back.
    virtual std::int64_t nowMs() const = 0;
    /// The window system has not carried out the request within WindowOnScreen::patienceMs.
    virtual void givenUp() = 0;
};

/// Shows and hides a window for a caller whose requests may be faster than the window system.
///
/// A request is carried out at once if the previous one has taken effect. Otherwise it waits, and only the
/// latest request counts: a window that is mapped while it is being unmapped can be lost. The window is
/// then observed until it has had the requested state for quietMs, because an earlier action of the user
/// may still take effect; the request is repeated if it is undone meanwhile. After patienceMs it is given
/// up. Later changes are the user's and are left alone. In a flood of requests, from request number
/// floodAfter on, the latest one waits for the next look.
class WindowOnScreen {
public:
    static constexpr int tickMs = 20;       ///< between two looks
    static constexpr int quietMs = 400;     ///< a state that lasts this long is considered stable
    static constexpr int changeMs = 500;    ///< a request without effect delays the next one for at most this
    static constexpr int repeatMs = 100;    ///< from a request to its first repetition; the next take longer
    static constexpr int patienceMs = 5000; ///< from the newest request to the end of the looks
    static constexpr int floodAfter = 100;  ///< requests carried out at once before they wait for looks

    /// The hands outlive it.
    explicit WindowOnScreen(WindowHands& hands)
        : m_hands(hands) {}

    /// Requests the window on the screen, or off it. The looks begin.
    void request(bool shown);
    /// One look, and what follows from it.
    void tick();
    /// Ends the looks; the window stays as it is.
    void letGo();

private:
    bool takesEffect(bool shown) const;
    void carryOut();
    void repeat(std::int64_t now);

    WindowHands& m_hands;
    bool m_wanted = false;
    std::optional<bool> m_carriedOut; // while the window is observed
    std::int64_t m_requestedMs = 0;
    std::int64_t m_carriedOutMs = 0;
    std::optional<std::int64_t> m_rightSinceMs;
    int m_repetitions = 0;
    int m_requests = 0;          // since the looks began
    bool m_requestWaits = false; // for the next look
};

} // namespace ocuva
