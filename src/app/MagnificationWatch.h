#pragma once
// The host can change the magnification while the program shows a scale. This class decides when to read
// it again, and whether the displayed scale is still correct.

#include "video/Magnification.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace ocuva {

/// Its surroundings; everything outlives it.
struct MagnificationWatchContext {
    /// Whether the camera's image is shown, so that its scale can be seen.
    std::function<bool()> isSeen;
    std::function<Magnification()> read; ///< from the host
    /// It is not the one that is shown.
    std::function<void(const Magnification&)> changed;
};

/// Reads after certain events, and once a second while the image is live; an idle program makes no host
/// calls. User-interface thread.
class MagnificationWatch final : public QObject {
    Q_OBJECT

public:
    /// Period of the reads while live.
    static constexpr int liveMs = 1000;
    /// Delay of a read after an event, so that the current action ends first and several events cause one
    /// read.
    static constexpr int soonMs = 100;

    /// Reads nothing yet.
    MagnificationWatch(MagnificationWatchContext context, QObject* parent);

    /// What a scale was drawn with.
    void drawn(const Magnification& magnification) { m_drawn = magnification; }
    /// The magnification shown in the information panel.
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
