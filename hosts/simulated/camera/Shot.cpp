#include "hosts/simulated/camera/Shot.h"

#include <algorithm>
#include <cmath>

namespace hosts::simulated {

namespace {

constexpr double neutral = 50.0;
constexpr double middleGrey = 128.0;      // contrast turns about it
constexpr double brightnessReach = 100.0; // grey levels from neutral to either end

/// The controls for dimmed light: the lamp's factor is applied to the contrast, and the side effect of
/// that (the contrast pivots about middle grey) is compensated with the brightness as far as possible.
struct Dimming {
    PictureControls controls;
    double remainder; ///< grey levels still to be added
};

Dimming dimmed(PictureControls controls, double lamp) {
    const double contrast = controls.contrast / neutral;
    const double offset =
        middleGrey * (1.0 - contrast) + brightnessReach * (controls.brightness / neutral - 1.0);
    const double pivot = middleGrey * (1.0 - contrast * lamp);
    const double brightness = std::clamp((offset - pivot) / brightnessReach, -1.0, 1.0);
    controls.contrast *= lamp;
    controls.brightness = neutral * (1.0 + brightness);
    return {controls, offset - pivot - brightnessReach * brightness};
}

/// Adds an even amount and noise to every channel alike.
void add(std::uint32_t* pixels, std::size_t count, double amount, double noise, std::uint64_t seed) {
    // The sum of the four bytes of a number drawn evenly: mean and standard deviation.
    constexpr double mean = 510.0;
    constexpr double deviation = 147.8;
    std::uint64_t state = seed * 0x9e3779b97f4a7c15U + 1;
    const auto held = [](int level) { return static_cast<std::uint32_t>(std::clamp(level, 0, 255)); };
    for (std::size_t i = 0; i < count; ++i) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        const auto drawn = static_cast<std::uint32_t>(state >> 32U);
        const std::uint32_t sum =
            (drawn & 0xffU) + (drawn >> 8U & 0xffU) + (drawn >> 16U & 0xffU) + (drawn >> 24U);
        const auto shift = static_cast<int>(std::lround(amount + noise * (sum - mean) / deviation));
        const std::uint32_t pixel = pixels[i];
        pixels[i] = 0xff000000U | held(static_cast<int>(pixel >> 16U & 0xffU) + shift) << 16U |
                    held(static_cast<int>(pixel >> 8U & 0xffU) + shift) << 8U |
                    held(static_cast<int>(pixel & 0xffU) + shift);
    }
}

} // namespace

void CameraMemory::spoil(Shot& shot, CameraFault fault) {
    const Exposure taken = shot.exposure;
    if (fault != CameraFault::stuck) {
        m_stuck.reset();
    } else {
        if (!m_stuck) {
            m_stuck = m_recent.empty() ? taken : m_recent.back();
        }
        shot.exposure = *m_stuck;
    }
    if (fault == CameraFault::late && !m_recent.empty()) {
        shot.exposure = m_recent.front();
    }
    if (fault == CameraFault::torn) {
        shot.lower = m_recent.empty() ? taken : m_recent.back();
        shot.lower->mode = taken.mode;
    }
    shot.exposure.mode = taken.mode;
    shot.black = fault == CameraFault::black;
    m_recent.push_back(taken);
    if (m_recent.size() > lateFrames) {
        m_recent.pop_front();
    }
}

void Darkroom::develop(const Shot& shot, ocuva::Frame& frame) {
    frame.number = shot.number;
    frame.capturedMs = shot.capturedMs;
    if (shot.black) {
        std::fill(frame.pixels.begin(), frame.pixels.end(), 0xff000000U);
        return;
    }
    render(shot.exposure, shot, frame.pixels.data());
    if (!shot.lower) {
        return;
    }
    m_lower.resize(frame.pixels.size());
    render(*shot.lower, shot, m_lower.data());
    for (int row = frame.height / 2; row < frame.height; ++row) {
        const std::ptrdiff_t begin = static_cast<std::ptrdiff_t>(row) * frame.width;
        std::rotate_copy(m_lower.begin() + begin, m_lower.begin() + begin + frame.width / tornShift,
                         m_lower.begin() + begin + frame.width, frame.pixels.begin() + begin);
    }
}

void Darkroom::render(const Exposure& exposure, const Shot& shot, std::uint32_t* pixels) {
    if (shot.lamp >= 1.0) {
        m_source.render(exposure, shot.controls, pixels);
        return;
    }
    const Dimming dim = dimmed(shot.controls, shot.lamp);
    m_source.render(exposure, dim.controls, pixels);
    // The lamp dims the light and not the noise: what went with the light is put back.
    const ColourTransform signal = transformOf(shot.controls);
    const double factor =
        static_cast<double>(signal.matrix[0][0] + signal.matrix[0][1] + signal.matrix[0][2]);
    const double lost = m_noise * factor * std::sqrt(1.0 - shot.lamp * shot.lamp);
    const auto count = static_cast<std::size_t>(exposure.mode.width) * exposure.mode.height;
    add(pixels, count, dim.remainder, lost, exposure.frameNumber);
}

} // namespace hosts::simulated
