#pragma once
// The host's defaults at the next start: board, camera, and the camera's references.

#include "base/Types.h"
#include "hostlink/Host.h"
#include "video/CTnVideoBoard.h"
#include "video/CameraReferences.h"

#include <string>

namespace ocuva {

/// Stores the settings in use as the host's defaults.
class VideoDefaults {
public:
    /// All outlive it.
    VideoDefaults(TnLibProxy& libProxy, TnVideo& video, TnReg& reg, CTnVideoBoard& board)
        : m_libProxy(libProxy)
        , m_video(video)
        , m_reg(reg)
        , m_board(board) {}

    /// Stores the value (0 to 100) in hundredths under the reference's default key followed by the suffix,
    /// for a board that draws itself; other boards have no default references. Throws ArithmeticError if
    /// the hundredths exceed 32 bits; nothing is stored then.
    void storeReference(CameraReference reference, const std::string& suffix, Double value);

    /// Makes board and camera in use the host's defaults, and the camera's current references the defaults
    /// for its type (the suffix is its number). Without a chosen camera only the board type is stored; a
    /// reference that the host does not give keeps its default. Throws like storeReference, before
    /// anything is changed.
    void save();

private:
    TnLibProxy& m_libProxy;
    TnVideo& m_video;
    TnReg& m_reg;
    CTnVideoBoard& m_board;
};

} // namespace ocuva
