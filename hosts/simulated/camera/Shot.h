#pragma once
// One exposure of the camera before it is rendered: everything that determines its pixels. A shot is
// cheap; a picture that nobody needs is never rendered.

#include "hostlink/DisplayWindow.h"
#include "hosts/simulated/camera/PictureSource.h"
#include "hosts/simulated/faults/DeviceFaults.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

namespace hosts::simulated {

struct Shot {
    Exposure exposure;
    PictureControls controls;
    std::int64_t number = 0;
    double capturedMs = 0.0;
    bool black = false;
    double lamp = 1.0;             ///< light, 0 to 1
    std::optional<Exposure> lower; ///< of a torn picture: what its lower half shows
};

/// What a faulty camera delivers in place of a shot; remembers the shots before it.
class CameraMemory {
public:
    void spoil(Shot& shot, CameraFault fault);

    static constexpr std::size_t lateFrames = 10; ///< how old the pictures of a late camera are

private:
    std::deque<Exposure> m_recent; ///< as they were taken, the newest last; at most lateFrames
    std::optional<Exposure> m_stuck;
};

/// Turns shots into pixels.
class Darkroom {
public:
    /// noise: grey levels, root mean square, that the source adds of itself. The source outlives this.
    Darkroom(PictureSource& source, double noise)
        : m_source(source)
        , m_noise(noise) {}

    /// Renders into the frame, which has the size of the shot's mode. Exceptions of the source pass
    /// through.
    void develop(const Shot& shot, ocuva::Frame& frame);

    /// A torn picture's lower half begins this part of the width too far to the left.
    static constexpr int tornShift = 4;

private:
    void render(const Exposure& exposure, const Shot& shot, std::uint32_t* pixels);

    PictureSource& m_source;
    double m_noise;
    std::vector<std::uint32_t> m_lower;
};

} // namespace hosts::simulated
