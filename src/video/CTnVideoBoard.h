#pragma once
// The program's access to the frame-grabber board.

#include "base/Types.h"
#include "hostlink/Host.h"

namespace ocuva {

class CTnVideoImage;

/// Keeps two flags and turns each operation into one call of the host's video library. A refusal by the
/// host shows only in the flags. The image arguments say whose image is meant; the board does not need
/// them.
class CTnVideoBoard {
public:
    /// Initialises the board at once.
    explicit CTnVideoBoard(TnVideo& video);

    /// Asks the host to initialise the board, whatever its state; afterwards no grab counts as running.
    void Initialize();

    /// Halts a running grab and shuts the board down, if it was initialised. IsInitialized does not
    /// change; isShutDown does.
    void Shutdown();

    /// Starts the grab unless one is running; bFlag true requests continuous frames.
    void Grab(const CTnVideoImage* image, bool bFlag);

    /// Ends a running grab.
    void Halt(const CTnVideoImage* image);

    /// Halts a running grab, otherwise grabs continuously.
    void GrabToggle(const CTnVideoImage* image);

    /// Sends the board type (0 or 1) to the host. The board counts as not initialised until Initialize is
    /// called; a running grab continues.
    void BoardType(Long boardType);
    /// The host's board type, read on each call.
    Long BoardType() const;

    /// The host's answer to the last Initialize; false after BoardType was set.
    bool IsInitialized() const { return m_bInitialized; }
    /// Whether this object has shut the board down and not initialised it since. Does not ask the host.
    bool isShutDown() const { return m_shutDown; }
    /// Whether the board is initialised and not shut down, so that a grab should start.
    bool isReady() const { return m_bInitialized && !m_shutDown; }
    /// Whether this object has started a grab and not ended it. Does not ask the host.
    bool IsGrabbing() const { return m_bGrabbing; }

private:
    TnVideo& m_video;
    bool m_bInitialized = false;
    bool m_bGrabbing = false;
    bool m_shutDown = false;
};

} // namespace ocuva
