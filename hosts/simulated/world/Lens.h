#pragma once
// What falls on the sensor: the world through the microscope, in and out of focus.

#include "hosts/simulated/world/BlurKernels.h"
#include "hosts/simulated/world/SurfaceShape.h"
#include "hosts/simulated/world/TileCache.h"

#include <array>
#include <cstdint>
#include <vector>

namespace hosts::simulated {

/// What decides a picture but for its noise.
struct View {
    int width = 0;  ///< pixels
    int height = 0; ///< pixels
    bool colour = false;
    double x = 0.0; ///< place under the middle, stage units, finite
    double y = 0.0;
    double z = 0.0;      ///< stage units, finite
    double pixelX = 1.0; ///< stage units per pixel, > 0
    double pixelY = 1.0;
    bool operator==(const View& other) const = default;
};

/// Light on the sensor, one plane per channel (one only for grey), row by row; kOne is one grey level.
struct SensorImage {
    static constexpr int kFractionBits = 6;
    static constexpr int kOne = 1 << kFractionBits;
    int width = 0;
    int height = 0;
    int channels = 0;
    std::array<std::vector<std::uint16_t>, 3> plane;
};

/// Forms the image of a view. The result is a pure function of the view; only the time depends on earlier
/// views. One thread at a time.
class Lens {
public:
    /// Radius of the blur disc per unit of defocus beyond half the depth of field, both in stage units: the
    /// tangent of the aperture's half angle. A working objective of this kind has a numerical aperture of
    /// about 0.33.
    static constexpr double kBlurPerDefocus = 0.35;

    /// Light lost in the corners of the picture, part.
    static constexpr double kVignetting = 0.10;

    Lens(const World& world, const SurfaceShape& surface, double depthOfField);

    const SensorImage& form(const View& view);

private:
    struct Framing;
    struct TileSeen {
        const TileCache::Tile* tile;
        std::int64_t column, row;
    };
    struct Focus;

    double discRadius(double x, double y, double z) const;
    Focus focusOf(const View& view) const;
    Framing framingOf(const View& view, int level, int margin) const;
    void fillKernelMap(const View& view, const Framing& framing, const Focus& focus);
    void findTiles(const Framing& framing);
    void assemble(const View& view, const Framing& framing, int channel);
    void copyTile(const TileCache::Tile& tile, const Framing& framing, std::int64_t column, std::int64_t row,
                  int channel);
    void blur(const Framing& framing);
    void resample(const View& view, const Framing& framing, int channel);

    TileCache m_tiles;
    std::vector<TileSeen> m_tilesSeen; // by the picture that is being formed
    SurfaceShape m_surface;
    double m_halfDepth;
    BlurKernels m_kernels;
    std::vector<std::uint16_t> m_canvas;      // samples of one channel with margin; 7 fraction bits
    std::vector<std::uint16_t> m_columnsDone; // one line, blurred along columns
    std::vector<int> m_kernelX;               // kernel numbers of blocks of the canvas
    std::vector<int> m_kernelY;
    bool m_evenBlur = true; // all blocks alike
    SensorImage m_image;
};

} // namespace hosts::simulated
