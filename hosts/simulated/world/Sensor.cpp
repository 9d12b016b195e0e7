#include "hosts/simulated/world/Sensor.h"

#include "hosts/common/picture/VectorClones.h"
#include "hosts/simulated/world/Hash.h"

#include <algorithm>
#include <cmath>

namespace hosts::simulated {
namespace {

constexpr std::size_t kPool = 1U << 16U;
constexpr double kMostNoise = 30.0; // beyond it 16-bit sums could overflow
constexpr int kDeviates = 6;        // uniform numbers in each near-Gaussian one

// Noise with mean 0 and exactly the wanted root mean square over the pool, in the sensor image's fractions.
std::vector<std::int16_t> noisePool(double rms) {
    if (rms == 0.0) {
        return std::vector<std::int16_t>(kPool + Sensor::kMaxWidth);
    }
    std::vector<double> values(kPool);
    double sum = 0.0;
    for (std::size_t i = 0; i < kPool; ++i) {
        Draw draw(mix(0x0157eU, static_cast<std::uint32_t>(i)));
        for (int k = 0; k < kDeviates; ++k) {
            values[i] += static_cast<double>(draw.centred());
        }
        sum += values[i];
    }
    const double mean = sum / static_cast<double>(kPool);
    double squares = 0.0;
    for (double& value : values) {
        value -= mean;
        squares += value * value;
    }
    const double scale = rms * SensorImage::kOne / std::sqrt(squares / static_cast<double>(kPool));
    std::vector<std::int16_t> pool;
    pool.reserve(kPool + Sensor::kMaxWidth);
    for (const double value : values) {
        pool.push_back(static_cast<std::int16_t>(std::floor(value * scale + 0.5)));
    }
    pool.insert(pool.end(), pool.begin(), pool.begin() + Sensor::kMaxWidth); // a row may run over the end
    return pool;
}

HOSTS_VECTOR_CLONES void addNoise(const std::uint16_t* light, const std::int16_t* noise, std::int16_t* out,
                                  int count) {
    for (int i = 0; i < count; ++i) {
        out[i] = static_cast<std::int16_t>(static_cast<std::int16_t>(light[i]) + noise[i]);
    }
}

constexpr std::int16_t grey(std::int16_t value) {
    const auto rounded =
        static_cast<std::int16_t>((value + SensorImage::kOne / 2) >> SensorImage::kFractionBits);
    const std::int16_t low = rounded > 0 ? rounded : std::int16_t{0};
    return low < 255 ? low : std::int16_t{255};
}

HOSTS_VECTOR_CLONES void packColour(const std::int16_t* r, const std::int16_t* g, const std::int16_t* b,
                                    std::uint32_t* pixels, int count) {
    for (int i = 0; i < count; ++i) {
        pixels[i] = 0xff000000U | static_cast<std::uint32_t>(grey(r[i])) << 16U |
                    static_cast<std::uint32_t>(grey(g[i])) << 8U | static_cast<std::uint32_t>(grey(b[i]));
    }
}

// What addNoise and packColour do, without the way through memory: the usual camera.
HOSTS_VECTOR_CLONES void packNoisy(const std::uint16_t* __restrict r, const std::uint16_t* __restrict g,
                                   const std::uint16_t* __restrict b, const std::int16_t* __restrict noiseR,
                                   const std::int16_t* __restrict noiseG,
                                   const std::int16_t* __restrict noiseB, std::uint32_t* __restrict pixels,
                                   int count) {
    const auto noisy = [](std::uint16_t light, std::int16_t noise) {
        const auto sum = static_cast<std::int16_t>(static_cast<std::int16_t>(light) + noise);
        return static_cast<std::uint32_t>(grey(sum));
    };
    for (int i = 0; i < count; ++i) {
        pixels[i] = 0xff000000U | noisy(r[i], noiseR[i]) << 16U | noisy(g[i], noiseG[i]) << 8U |
                    noisy(b[i], noiseB[i]);
    }
}

HOSTS_VECTOR_CLONES void packGrey(const std::int16_t* values, std::uint32_t* pixels, int count) {
    for (int i = 0; i < count; ++i) {
        pixels[i] = 0xff000000U | static_cast<std::uint32_t>(grey(values[i])) * 0x010101U;
    }
}

constexpr std::int16_t held(float value) {
    constexpr float top = 32000.0F;
    const float low = value > -top ? value : -top;
    return static_cast<std::int16_t>(static_cast<std::int32_t>(low < top ? low : top));
}

HOSTS_VECTOR_CLONES void adjustColour(const ColourTransform& transform, std::int16_t* __restrict red,
                                      std::int16_t* __restrict green, std::int16_t* __restrict blue,
                                      int count) {
    const ColourTransform own = transform;
    const auto& m = own.matrix;
    const float offset = own.offset * static_cast<float>(SensorImage::kOne);
    for (int i = 0; i < count; ++i) {
        const auto r = static_cast<float>(red[i]);
        const auto g = static_cast<float>(green[i]);
        const auto b = static_cast<float>(blue[i]);
        red[i] = held(m[0][0] * r + m[0][1] * g + m[0][2] * b + offset);
        green[i] = held(m[1][0] * r + m[1][1] * g + m[1][2] * b + offset);
        blue[i] = held(m[2][0] * r + m[2][1] * g + m[2][2] * b + offset);
    }
}

HOSTS_VECTOR_CLONES void adjustGrey(const ColourTransform& transform, std::int16_t* values, int count) {
    const ColourTransform own = transform;
    const auto& m = own.matrix;
    const float offset = own.offset * static_cast<float>(SensorImage::kOne);
    for (int i = 0; i < count; ++i) {
        const auto grey = static_cast<float>(values[i]);
        values[i] = held(m[0][0] * grey + m[0][1] * grey + m[0][2] * grey + offset);
    }
}

} // namespace

Sensor::Sensor(double noiseRms)
    : m_noiseRms(noiseRms > 0.0 ? std::min(noiseRms, kMostNoise) : 0.0) {}

void Sensor::setControls(const PictureControls& controls) {
    m_transform = transformOf(controls);
    m_neutral = isNeutral(controls);
}

void Sensor::expose(const SensorImage& image, std::uint64_t frameNumber, std::uint32_t* pixels) {
    if (m_noise.empty()) {
        m_noise = noisePool(m_noiseRms);
    }
    const std::uint32_t frameSeed =
        mix(static_cast<std::uint32_t>(frameNumber), static_cast<std::uint32_t>(frameNumber >> 32U));
    for (auto& row : m_row) {
        row.resize(static_cast<std::size_t>(image.width));
    }
    for (int row = 0; row < image.height; ++row) {
        exposeRow(image, row, frameSeed, pixels + static_cast<std::ptrdiff_t>(row) * image.width);
    }
}

void Sensor::exposeRow(const SensorImage& image, int row, std::uint32_t frameSeed, std::uint32_t* pixels) {
    const std::size_t line = static_cast<std::size_t>(row) * static_cast<std::size_t>(image.width);
    const std::uint16_t* light[3] = {};
    const std::int16_t* noise[3] = {};
    for (int channel = 0; channel < image.channels; ++channel) {
        const std::uint32_t start = mix(frameSeed, static_cast<std::uint32_t>(row * 4 + channel)) % kPool;
        light[channel] = &image.plane[static_cast<std::size_t>(channel)][line];
        noise[channel] = &m_noise[start];
    }
    if (image.channels == 3 && m_neutral) {
        packNoisy(light[0], light[1], light[2], noise[0], noise[1], noise[2], pixels, image.width);
        return;
    }
    for (int channel = 0; channel < image.channels; ++channel) {
        addNoise(light[channel], noise[channel], m_row[channel].data(), image.width);
    }
    if (!m_neutral) {
        adjust(image.channels, image.width);
    }
    if (image.channels == 3) {
        packColour(m_row[0].data(), m_row[1].data(), m_row[2].data(), pixels, image.width);
    } else {
        packGrey(m_row[0].data(), pixels, image.width);
    }
}

void Sensor::adjust(int channels, int width) {
    if (channels == 3) {
        adjustColour(m_transform, m_row[0].data(), m_row[1].data(), m_row[2].data(), width);
    } else {
        adjustGrey(m_transform, m_row[0].data(), width);
    }
}

} // namespace hosts::simulated
