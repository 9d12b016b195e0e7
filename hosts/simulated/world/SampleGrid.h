#pragma once
// The places at which the world is sampled, and their colours.

#include <cstddef>
#include <vector>

namespace hosts::simulated {

/// Linear colour in grey levels of the camera, 0 to 255, before optics and noise.
struct Rgb {
    float r = 0.0F;
    float g = 0.0F;
    float b = 0.0F;
};

constexpr Rgb operator*(Rgb colour, float factor) {
    return {colour.r * factor, colour.g * factor, colour.b * factor};
}
constexpr Rgb mixed(Rgb from, Rgb to, float part) {
    return {from.r + (to.r - from.r) * part, from.g + (to.g - from.g) * part,
            from.b + (to.b - from.b) * part};
}

/// A rectangle of places in picture order: column c and row r lie at (x0 + c * stepX, y0 + r * stepY) stage
/// units; the steps are negative on a picture because right is decreasing X and down is decreasing Y.
struct SampleGrid {
    double x0 = 0.0;
    double y0 = 0.0;
    double stepX = -1.0;
    double stepY = -1.0;
    int columns = 1;
    int rows = 1;

    double xOf(int column) const { return x0 + column * stepX; }
    double yOf(int row) const { return y0 + row * stepY; }
    std::size_t size() const { return static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows); }
    /// The size of one sample in stage units: edges are softened over it, finer things fade out.
    float footprint() const {
        const double x = stepX < 0 ? -stepX : stepX;
        const double y = stepY < 0 ? -stepY : stepY;
        return static_cast<float>(x > y ? x : y);
    }
};

/// Spare numbers behind the last sample of planes that loops may overrun to work in whole vectors; a power of
/// two.
inline constexpr std::size_t kSpareSamples = 8;

/// Colours of a grid, one plane per channel, row by row, with spare samples behind them.
struct ColourPlanes {
    std::vector<float> r, g, b;
    explicit ColourPlanes(std::size_t size)
        : r(size + kSpareSamples)
        , g(size + kSpareSamples)
        , b(size + kSpareSamples) {}
    Rgb at(std::size_t index) const { return {r[index], g[index], b[index]}; }
    void set(std::size_t index, Rgb colour) {
        r[index] = colour.r;
        g[index] = colour.g;
        b[index] = colour.b;
    }
    /// Covers a part (0 to 1) of one sample with a colour.
    void cover(std::size_t index, Rgb colour, float part) { set(index, mixed(at(index), colour, part)); }
    /// Makes one sample lighter or darker.
    void scale(std::size_t index, float factor) { set(index, at(index) * factor); }
};

/// How much of a sample lies inside an edge that is `inside` units away (positive inside).
inline float coverage(float inside, float footprint) {
    const float part = 0.5F + inside / footprint;
    return part < 0.0F ? 0.0F : part > 1.0F ? 1.0F : part;
}

} // namespace hosts::simulated
