#pragma once
// What the host is to begin with next time: board, camera, and the camera's references.

#include "base/Types.h"
#include "hostlink/Host.h"
#include "video/CTnVideoBoard.h"
#include "video/CameraReferences.h"

#include <string>

namespace ocuva {

/// Keeps what is in use as what the host begins with.
class VideoDefaults {
public:
    /// All outlive it.
    VideoDefaults(TnLibProxy& libProxy, TnVideo& video, TnReg& reg, CTnVideoBoard& board)
        : m_libProxy(libProxy)
        , m_video(video)
        , m_reg(reg)
        , m_board(board) {}

    /// Stores the value (0 to 100) in hundredths under the reference's default key followed by the suffix,
    /// for a board that draws itself; other boards have no default references. Throws ArithmeticError when
    /// the hundredths leave 32 bits; nothing is stored then.
    void storeReference(CameraReference reference, const std::string& suffix, Double value);

    /// Makes the board and the camera that are in use the host's defaults, and the camera's present
    /// references the defaults of that camera type (the suffix is its number). Without a chosen camera only
    /// the board's type is kept; a reference that the host does not give keeps its default. Throws as
    /// storeReference does, before anything is changed.
    void save();

private:
    TnLibProxy& m_libProxy;
    TnVideo& m_video;
    TnReg& m_reg;
    CTnVideoBoard& m_board;
};

} // namespace ocuva
