#pragma once
// The program's one handle on the frame-grabber board.

#include "base/Types.h"
#include "hostlink/Host.h"

namespace ocuva {

class CTnVideoImage;

/// Keeps two flags and turns each operation into one call of the host's video library. A refusal by the host
/// shows only in the flags. The image arguments say whose picture is meant; the board itself needs none of
/// them.
class CTnVideoBoard {
public:
    /// Initialises the board at once.
    explicit CTnVideoBoard(TnVideo& video);

    /// Asks the host to make the board ready, whatever the state was; afterwards no grab counts as running.
    void Initialize();

    /// Halts a running grab and puts the board down, if it was initialised. IsInitialized stays as it was;
    /// isShutDown tells.
    void Shutdown();

    /// Starts the grab unless one runs; bFlag true asks for continuous frames.
    void Grab(const CTnVideoImage* image, bool bFlag);

    /// Ends a running grab.
    void Halt(const CTnVideoImage* image);

    /// Halts when grabbing, else grabs continuously.
    void GrabToggle(const CTnVideoImage* image);

    /// Tells the host the board type (0 or 1). The board counts as not initialised until Initialize is
    /// called; a running grab goes on.
    void BoardType(Long boardType);
    /// The host's board type, asked each time.
    Long BoardType() const;

    /// What the host answered to the last Initialize; false after BoardType was set.
    bool IsInitialized() const { return m_bInitialized; }
    /// Whether this object has put the board down and not initialised it since. The host is not asked.
    bool isShutDown() const { return m_shutDown; }
    /// Initialised and not shut down since: a grab can be expected to start.
    bool isReady() const { return m_bInitialized && !m_shutDown; }
    /// Whether a grab was started and not ended by this object. The host is not asked.
    bool IsGrabbing() const { return m_bGrabbing; }

private:
    TnVideo& m_video;
    bool m_bInitialized = false;
    bool m_bGrabbing = false;
    bool m_shutDown = false;
};

} // namespace ocuva
