#pragma once
// The magnification belongs to the host and can change while the program shows a scale: when it is read
// again, and whether what is shown is still true.

#include "video/Magnification.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace ocuva {

/// What the watch needs; everything outlives it.
struct MagnificationWatchContext {
    /// Whether the camera's image is shown, so that its scale can be seen.
    std::function<bool()> isSeen;
    std::function<Magnification()> read; ///< from the host
    /// It is not the one that is shown.
    std::function<void(const Magnification&)> changed;
};

/// Reads only at moments that mean something, and once a second while the image is live: a program that
/// stands still asks the host nothing. User-interface thread.
class MagnificationWatch final : public QObject {
    Q_OBJECT

public:
    /// Period of the reads while live.
    static constexpr int liveMs = 1000;
    /// Delay of a read after a moment that asks for one, so that what is going on ends first and several such
    /// moments cost one read.
    static constexpr int soonMs = 100;

    /// Nothing is read until asked.
    MagnificationWatch(MagnificationWatchContext context, QObject* parent);

    /// What a scale was drawn with.
    void drawn(const Magnification& magnification) { m_drawn = magnification; }
    /// What stands in the information panel.
    void shown(Long magnification) { m_shown = magnification; }

    /// A move or a focus has ended, the window has become active, the live image was switched.
    void readSoon();
    /// Reads once a second while live.
    void setLive(bool live);
    /// The program ends: nothing is read any more.
    void stop();

private:
    void check();

    MagnificationWatchContext m_context;
    QTimer m_tSoon;
    QTimer m_tLive;
    Magnification m_drawn;
    Long m_shown = 0;
    bool m_stopped = false;
};

} // namespace ocuva
