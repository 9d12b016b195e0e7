#include "hosts/simulated/world/Lens.h"

#include "hosts/common/picture/VectorClones.h"

#include <algorithm>
#include <cmath>

namespace hosts::simulated {
namespace {

constexpr int kKernelBlock =
    16; // samples; the blur is constant within a block, and blocks differ too little to see
constexpr int kMaxLevel = 6; // samples up to 64 pixels wide for the worst defocus
constexpr int kProbes = 9;   // places along each axis at which the focus is looked at
constexpr int kCanvasBits =
    7; // fraction bits of the canvas: 255 levels fill 15 bits, so a pair still fits in 16

// Resampling with a quadratic spline blurs by a quarter of a squared sample wherever the sample grid lies;
// that is the sharpest the camera sees, and the reason why sharpness does not flicker with the stage's
// fraction of a pixel.
constexpr double kSplineVariance = 0.25;

constexpr int kGrey = -1; // channel: all three of the world's, weighed

// Kernel of the defocus alone, in samples of the level, from the standard deviation in pixels.
double kernelSigma(double sigmaPixels, int level) {
    const double scale = static_cast<double>(1 << level);
    const double wanted = sigmaPixels * sigmaPixels + kSplineVariance;
    return std::sqrt(std::max(0.0, wanted / (scale * scale) - kSplineVariance));
}

struct SplineTap {
    std::int64_t middle;
    std::uint16_t weights[3];
};

SplineTap splineTap(double place) {
    const double nearest = std::floor(place + 0.5);
    const double t = place - nearest;
    const auto weight = [](double part) { return static_cast<std::uint16_t>(part * 65536.0); };
    return {static_cast<std::int64_t>(nearest),
            {weight(0.5 * (0.5 - t) * (0.5 - t)), weight(0.75 - t * t), weight(0.5 * (0.5 + t) * (0.5 + t))}};
}

// Place of a pixel in samples of the level's grid, along one axis.
double samplePlace(double pixel, int size, double stage, double unitsPerPixel, int level) {
    const double onGrid = pixel + 0.5 - 0.5 * size - stage / unitsPerPixel;
    return onGrid / static_cast<double>(1 << level) - 0.5;
}

// Part of a tile and where it goes.
struct Patch {
    int columns, rows;
    std::size_t from;     // first sample in the tile
    std::uint16_t* to;    // first sample on the canvas
    std::ptrdiff_t pitch; // of the canvas
};

// Bytes to the canvas. Bytes may point at anything, so the compiler has to know that they do not point
// here.
HOSTS_VECTOR_CLONES void widen(const std::uint8_t* channel, const Patch& patch) {
    const int columns = patch.columns;
    for (int r = 0; r < patch.rows; ++r) {
        const std::uint8_t* __restrict in =
            channel + patch.from + static_cast<std::ptrdiff_t>(r) * TileCache::kTile;
        std::uint16_t* __restrict out = patch.to + r * patch.pitch;
        for (int i = 0; i < columns; ++i) {
            out[i] = static_cast<std::uint16_t>(in[i] << kCanvasBits);
        }
    }
}

HOSTS_VECTOR_CLONES void weighGrey(const TileCache::Tile& tile, const Patch& patch) {
    const int columns = patch.columns;
    for (int row = 0; row < patch.rows; ++row) {
        const std::size_t first = patch.from + static_cast<std::size_t>(row) * std::size_t{TileCache::kTile};
        const std::uint8_t* __restrict r = &tile.channel[0][first];
        const std::uint8_t* __restrict g = &tile.channel[1][first];
        const std::uint8_t* __restrict b = &tile.channel[2][first];
        std::uint16_t* __restrict out = patch.to + row * patch.pitch;
        for (int i = 0; i < columns; ++i) {
            out[i] = static_cast<std::uint16_t>((77 * r[i] + 150 * g[i] + 29 * b[i]) >> (8 - kCanvasBits));
        }
    }
}

} // namespace

struct Lens::Focus {
    double sharpest; // standard deviation of the blur in pixels where it is least, along the finer axis
    double widest;   // and where it is greatest
    double limit;    // largest disc radius, units: a quarter of the picture as standard deviation
};

// The samples that a view needs: first, count and margin around them on both axes.
struct Lens::Framing {
    int level;
    int margin;
    std::int64_t left, top; // first sample inside the margin
    int columns, rows;      // without margin
    int pitch() const { return columns + 2 * margin; }
    int lines() const { return rows + 2 * margin; }
    int blocksAcross() const { return (pitch() + kKernelBlock - 1) / kKernelBlock; }
    int blocksDown() const { return (lines() + kKernelBlock - 1) / kKernelBlock; }
};

Lens::Lens(const World& world, const SurfaceShape& surface, double depthOfField)
    : m_tiles(world)
    , m_surface(surface)
    , m_halfDepth(depthOfField > 0.0 ? depthOfField / 2.0 : 0.0) {}

double Lens::discRadius(double x, double y, double z) const {
    const double defocus = std::abs(z - m_surface.at(x, y));
    return kBlurPerDefocus * std::max(0.0, defocus - m_halfDepth);
}

Lens::Focus Lens::focusOf(const View& view) const {
    double low = 1e300;
    double high = -1e300;
    for (int i = 0; i < kProbes; ++i) {
        for (int j = 0; j < kProbes; ++j) {
            const double x =
                view.x + view.pixelX * view.width * (static_cast<double>(i) / (kProbes - 1) - 0.5);
            const double y =
                view.y + view.pixelY * view.height * (static_cast<double>(j) / (kProbes - 1) - 0.5);
            const double defocus = view.z - m_surface.at(x, y);
            low = std::min(low, defocus);
            high = std::max(high, defocus);
        }
    }
    const auto sigma = [&](double defocus, double pixel) {
        return 0.5 * kBlurPerDefocus * std::max(0.0, defocus - m_halfDepth) / pixel;
    };
    const double least = low <= 0.0 && high >= 0.0 ? 0.0 : std::min(std::abs(low), std::abs(high));
    const double limit = view.width / 4.0;
    Focus focus{};
    focus.sharpest = std::min(limit, sigma(least, std::max(view.pixelX, view.pixelY)));
    focus.widest =
        std::min(limit, sigma(std::max(std::abs(low), std::abs(high)), std::min(view.pixelX, view.pixelY)));
    focus.limit = 2.0 * limit * std::min(view.pixelX, view.pixelY);
    return focus;
}

Lens::Framing Lens::framingOf(const View& view, int level, int margin) const {
    const auto nearest = [](double place) { return static_cast<std::int64_t>(std::floor(place + 0.5)); };
    const auto first = [&](int size, double stage, double pixel) {
        return nearest(samplePlace(0, size, stage, pixel, level)) - 1;
    };
    const auto last = [&](int size, double stage, double pixel) {
        return nearest(samplePlace(size - 1, size, stage, pixel, level)) + 1;
    };
    Framing framing{};
    framing.level = level;
    framing.margin = margin;
    framing.left = first(view.width, view.x, view.pixelX);
    framing.top = first(view.height, view.y, view.pixelY);
    // One more than needed: the phases of a coarse level start at either of two samples.
    framing.columns = static_cast<int>(last(view.width, view.x, view.pixelX) - framing.left) + 2;
    framing.rows = static_cast<int>(last(view.height, view.y, view.pixelY) - framing.top) + 2;
    return framing;
}

const SensorImage& Lens::form(const View& view) {
    m_tiles.setScale(view.pixelX, view.pixelY);
    const Focus focus = focusOf(view);
    int level = 0;
    while (level < kMaxLevel && focus.sharpest >= static_cast<double>(2 << level)) {
        ++level; // blur of two pixels hides samples of two pixels, and so on
    }
    const int widest = BlurKernels::numberOf(static_cast<float>(kernelSigma(focus.widest, level)));
    const Framing framing = framingOf(view, level, m_kernels.kernel(widest).radius);
    fillKernelMap(view, framing, focus);
    findTiles(framing);
    m_image.width = view.width;
    m_image.height = view.height;
    m_image.channels = view.colour ? 3 : 1;
    for (int channel = 0; channel < m_image.channels; ++channel) {
        // One channel after the other through the same planes: they stay in the processor's caches.
        assemble(view, framing, channel);
        if (framing.margin > 0) {
            blur(framing);
        }
        resample(view, framing, channel);
    }
    return m_image;
}

void Lens::fillKernelMap(const View& view, const Framing& framing, const Focus& focus) {
    const double scale = static_cast<double>(1 << framing.level);
    const auto across = static_cast<std::size_t>(framing.blocksAcross());
    m_kernelX.resize(across * static_cast<std::size_t>(framing.blocksDown()));
    m_kernelY.resize(m_kernelX.size());
    for (std::size_t i = 0; i < m_kernelX.size(); ++i) {
        const double column = (static_cast<double>(i % across) + 0.5) * kKernelBlock - framing.margin;
        const std::size_t lineOfBlock = i / across;
        const double row = (static_cast<double>(lineOfBlock) + 0.5) * kKernelBlock - framing.margin;
        const double x = -(static_cast<double>(framing.left) + column) * scale * view.pixelX;
        const double y = -(static_cast<double>(framing.top) + row) * scale * view.pixelY;
        const double sigma = 0.5 * std::min(focus.limit, discRadius(x, y, view.z));
        // In the margin blur can exceed what the margin was made for; it is held there.
        const auto number = [&](double pixel) {
            const double pixels = std::min(sigma / pixel, focus.widest);
            return BlurKernels::numberOf(static_cast<float>(kernelSigma(pixels, framing.level)));
        };
        m_kernelX[i] = number(view.pixelX);
        m_kernelY[i] = number(view.pixelY);
    }
    const auto even = [](const std::vector<int>& map) {
        return std::all_of(map.begin(), map.end(), [&](int number) { return number == map.front(); });
    };
    m_evenBlur = even(m_kernelX) && even(m_kernelY);
}

void Lens::findTiles(const Framing& framing) {
    const auto tileOf = [](std::int64_t sample) {
        return sample >= 0 ? sample / TileCache::kTile
                           : -((TileCache::kTile - 1 - sample) / TileCache::kTile);
    };
    const std::int64_t left = framing.left - framing.margin;
    const std::int64_t top = framing.top - framing.margin;
    const std::int64_t firstColumn = tileOf(left);
    const std::int64_t lastColumn = tileOf(left + framing.pitch() - 1);
    const std::int64_t firstRow = tileOf(top);
    const std::int64_t lastRow = tileOf(top + framing.lines() - 1);
    m_tiles.keepAtLeast(static_cast<std::size_t>((lastColumn - firstColumn + 1) * (lastRow - firstRow + 1)));
    m_tilesSeen.clear();
    for (std::int64_t row = firstRow; row <= lastRow; ++row) {
        for (std::int64_t column = firstColumn; column <= lastColumn; ++column) {
            m_tilesSeen.push_back({&m_tiles.tile(framing.level, column, row), column, row});
        }
    }
}

void Lens::assemble(const View& view, const Framing& framing, int channel) {
    m_canvas.resize(static_cast<std::size_t>(framing.pitch()) * static_cast<std::size_t>(framing.lines()));
    for (const TileSeen& seen : m_tilesSeen) {
        copyTile(*seen.tile, framing, seen.column, seen.row, view.colour ? channel : kGrey);
    }
}

void Lens::copyTile(const TileCache::Tile& tile, const Framing& framing, std::int64_t column,
                    std::int64_t row, int channel) {
    constexpr int size = TileCache::kTile;
    const auto offsetX = static_cast<int>(column * size - (framing.left - framing.margin));
    const auto offsetY = static_cast<int>(row * size - (framing.top - framing.margin));
    const int left = std::max(0, offsetX);
    const int top = std::max(0, offsetY);
    const Patch patch{
        std::min(framing.pitch(), offsetX + size) - left, std::min(framing.lines(), offsetY + size) - top,
        static_cast<std::size_t>(top - offsetY) * std::size_t{size} +
            static_cast<std::size_t>(left - offsetX),
        m_canvas.data() + static_cast<std::ptrdiff_t>(top) * framing.pitch() + left, framing.pitch()};
    if (channel == kGrey) {
        weighGrey(tile, patch);
    } else {
        widen(tile.channel[static_cast<std::size_t>(channel)].data(), patch);
    }
}

// Line by line, along columns into a line of its own and then along the row. The result lies `margin` lines
// higher, where no later line looks any more: all stays in one plane.
void Lens::blur(const Framing& framing) {
    const int pitch = framing.pitch();
    m_columnsDone.resize(static_cast<std::size_t>(pitch));
    const int step = m_evenBlur ? pitch : kKernelBlock;
    const int right = pitch - framing.margin;
    for (int y = framing.margin; y < framing.lines() - framing.margin; ++y) {
        const std::size_t firstBlock =
            static_cast<std::size_t>(y / kKernelBlock) * static_cast<std::size_t>(framing.blocksAcross());
        const auto kernelAt = [&](const std::vector<int>& map, int x) -> const Kernel& {
            return m_kernels.kernel(map[firstBlock + static_cast<std::size_t>(x / kKernelBlock)]);
        };
        const std::uint16_t* from = m_canvas.data() + static_cast<std::ptrdiff_t>(y) * pitch;
        for (int x = 0; x < pitch; x += step) {
            convolve(from + x, pitch, kernelAt(m_kernelY, x), m_columnsDone.data() + x,
                     std::min(step, pitch - x));
        }
        std::uint16_t* to = m_canvas.data() + static_cast<std::ptrdiff_t>(y - framing.margin) * pitch;
        for (int x = framing.margin; x < right;) {
            const int end = m_evenBlur ? right : std::min(right, (x / kKernelBlock + 1) * kKernelBlock);
            convolve(m_columnsDone.data() + x, 1, kernelAt(m_kernelX, x), to + x, end - x);
            x = end;
        }
    }
}

namespace {

// Darkening towards the corners: 1 - v (x^2 + y^2) / 2, with x and y from -1 to 1 across the picture.
std::vector<std::uint16_t> darkening(int size) {
    std::vector<std::uint16_t> out(static_cast<std::size_t>(size));
    for (int i = 0; i < size; ++i) {
        const double place = (2.0 * i + 1.0) / size - 1.0;
        out[static_cast<std::size_t>(i)] =
            static_cast<std::uint16_t>(65536.0 * Lens::kVignetting / 2 * place * place);
    }
    return out;
}

HOSTS_VECTOR_CLONES void darken(std::uint16_t* pixels, const std::uint16_t* across, std::uint16_t down,
                                int count) {
    constexpr int drop = kCanvasBits - SensorImage::kFractionBits;
    const auto light = static_cast<std::uint16_t>(65535 - down);
    for (int i = 0; i < count; ++i) {
        const auto part = static_cast<std::uint16_t>(light - across[i]);
        pixels[i] =
            static_cast<std::uint16_t>(((static_cast<std::uint32_t>(pixels[i]) * part) >> 16) >> drop);
    }
}

// What weighThree and darken do to a row, without the way through memory.
HOSTS_VECTOR_CLONES void weighThreeDarkened(const std::uint16_t* __restrict from,
                                            const std::uint16_t (&weights)[3],
                                            const std::uint16_t* __restrict across, std::uint16_t down,
                                            std::uint16_t* __restrict out, int count) {
    constexpr int drop = kCanvasBits - SensorImage::kFractionBits;
    const auto scaled = [](std::uint16_t value, std::uint16_t weight) {
        return static_cast<std::uint16_t>((static_cast<std::uint32_t>(value) * weight) >> 16);
    };
    const std::uint16_t before = weights[0];
    const std::uint16_t at = weights[1];
    const std::uint16_t after = weights[2];
    const auto light = static_cast<std::uint16_t>(65535 - down);
    for (int i = 0; i < count; ++i) {
        const auto sum = static_cast<std::uint16_t>(scaled(from[i - 1], before) + scaled(from[i], at) +
                                                    scaled(from[i + 1], after) + 1);
        const auto part = static_cast<std::uint16_t>(light - across[i]);
        out[i] = static_cast<std::uint16_t>(scaled(sum, part) >> drop);
    }
}

// Brings one row of samples to pixels: each phase of the magnification is a plain three-tap filter.
class RowResampler {
public:
    RowResampler(const View& view, std::int64_t firstSample, int level)
        : m_width(view.width)
        , m_magnification(1 << level) {
        for (int phase = 0; phase < m_magnification; ++phase) {
            SplineTap tap = splineTap(samplePlace(phase, view.width, view.x, view.pixelX, level));
            tap.middle -= firstSample;
            m_taps.push_back(tap);
        }
        m_phase.resize(static_cast<std::size_t>(view.width / m_magnification) + 1);
    }

    // `across` and `down` tell how much darker the picture is there.
    void run(const std::uint16_t* samples, const std::uint16_t* across, std::uint16_t down,
             std::uint16_t* pixels) {
        if (m_magnification == 1) {
            weighThreeDarkened(samples + m_taps[0].middle, m_taps[0].weights, across, down, pixels, m_width);
            return;
        }
        for (int phase = 0; phase < std::min(m_magnification, m_width); ++phase) {
            const SplineTap& tap = m_taps[static_cast<std::size_t>(phase)];
            const int count = (m_width - phase + m_magnification - 1) / m_magnification;
            weighThree(samples + tap.middle, 1, tap.weights, m_phase.data(), count);
            std::uint16_t* out = pixels + phase;
            for (int i = 0; i < count; ++i) {
                out[static_cast<std::ptrdiff_t>(i) * m_magnification] = m_phase[static_cast<std::size_t>(i)];
            }
        }
        darken(pixels, across, down, m_width);
    }

private:
    int m_width;
    int m_magnification;
    std::vector<SplineTap> m_taps;
    std::vector<std::uint16_t> m_phase;
};

} // namespace

void Lens::resample(const View& view, const Framing& framing, int channel) {
    RowResampler resampler(view, framing.left, framing.level);
    const std::vector<std::uint16_t> across = darkening(view.width);
    const std::vector<std::uint16_t> down = darkening(view.height);
    std::vector<std::uint16_t> samples(static_cast<std::size_t>(framing.columns));
    std::vector<std::uint16_t>& plane = m_image.plane[static_cast<std::size_t>(channel)];
    plane.resize(static_cast<std::size_t>(view.width) * static_cast<std::size_t>(view.height));
    for (int r = 0; r < view.height; ++r) {
        const SplineTap tap = splineTap(samplePlace(r, view.height, view.y, view.pixelY, framing.level));
        const std::ptrdiff_t line = static_cast<std::ptrdiff_t>(tap.middle - framing.top);
        std::uint16_t* pixels = &plane[static_cast<std::size_t>(r) * static_cast<std::size_t>(view.width)];
        weighThree(m_canvas.data() + line * framing.pitch() + framing.margin, framing.pitch(), tap.weights,
                   samples.data(), framing.columns);
        resampler.run(samples.data(), across.data(), down[static_cast<std::size_t>(r)], pixels);
    }
}

} // namespace hosts::simulated
