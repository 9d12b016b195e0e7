#include "hosts/simulated/world/BlurKernels.h"

#include "hosts/common/picture/VectorClones.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace hosts::simulated {
namespace {

double weightAt(double distance, double radius) {
    const double t = distance / radius;
    const double rest = 1.0 - t * t;
    return rest > 0.0 ? rest * rest : 0.0;
}

double sampledVariance(double radius) {
    double sum = 1.0;
    double moment = 0.0;
    for (int d = 1; d < radius; ++d) {
        const double weight = 2.0 * weightAt(d, radius);
        sum += weight;
        moment += weight * d * d;
    }
    return moment / sum;
}

double radiusForVariance(double variance) {
    double low = 1.0; // no neighbour counts yet
    double high = 4.0 * static_cast<double>(BlurKernels::kLargestSigma);
    for (int i = 0; i < 40; ++i) {
        const double middle = 0.5 * (low + high);
        (sampledVariance(middle) < variance ? low : high) = middle;
    }
    return high;
}

Kernel kernelOf(double sigma) {
    const double radius = radiusForVariance(sigma * sigma);
    std::vector<double> weights{1.0};
    double sum = 1.0;
    for (int d = 1; d < radius; ++d) {
        weights.push_back(weightAt(d, radius));
        sum += 2.0 * weights.back();
    }
    Kernel kernel;
    int rest = 65536;
    for (std::size_t d = weights.size() - 1; d >= 1; --d) {
        const auto weight = static_cast<int>(std::lround(weights[d] / sum * 65536.0));
        if (weight == 0 && kernel.weights.empty()) {
            continue; // too faint to count
        }
        kernel.weights.insert(kernel.weights.begin(), static_cast<std::uint16_t>(weight));
        rest -= 2 * weight;
    }
    if (kernel.weights.empty() || rest > 65535) {
        return {};
    }
    kernel.radius = static_cast<int>(kernel.weights.size());
    kernel.weights.insert(kernel.weights.begin(), static_cast<std::uint16_t>(rest));
    return kernel;
}

// The upper half of the product: what 16-bit vector units offer as one instruction.
constexpr std::uint16_t scaled(std::uint16_t value, std::uint16_t weight) {
    return static_cast<std::uint16_t>((static_cast<std::uint32_t>(value) * weight) >> 16);
}

// A radius known to the compiler unrolls the taps and keeps the sum in registers. Each product drops half a
// unit on average; the sum starts with what they drop together.
template <int Radius>
HOSTS_VECTOR_CLONES void convolveRadius(const std::uint16_t* __restrict from, std::ptrdiff_t stride,
                                        const std::uint16_t* weights, std::uint16_t* __restrict out,
                                        int count) {
    std::array<std::uint16_t, Radius + 1> w{};
    std::copy_n(weights, Radius + 1, w.begin());
    for (int i = 0; i < count; ++i) {
        auto sum = static_cast<std::uint16_t>(scaled(from[i], w[0]) + (Radius + 1) / 2);
        for (int k = 1; k <= Radius; ++k) {
            const auto pair = static_cast<std::uint16_t>(from[i - k * stride] + from[i + k * stride]);
            sum = static_cast<std::uint16_t>(sum + scaled(pair, w[static_cast<std::size_t>(k)]));
        }
        out[i] = sum;
    }
}

HOSTS_VECTOR_CLONES void convolveWide(const std::uint16_t* __restrict from, std::ptrdiff_t stride,
                                      const Kernel& kernel, std::uint16_t* __restrict out, int count) {
    for (int i = 0; i < count; ++i) {
        out[i] = static_cast<std::uint16_t>(scaled(from[i], kernel.weights[0]) + (kernel.radius + 1) / 2);
    }
    for (int k = 1; k <= kernel.radius; ++k) {
        const std::uint16_t weight = kernel.weights[static_cast<std::size_t>(k)];
        const std::uint16_t* before = from - k * stride;
        const std::uint16_t* after = from + k * stride;
        for (int i = 0; i < count; ++i) {
            const auto pair = static_cast<std::uint16_t>(before[i] + after[i]);
            out[i] = static_cast<std::uint16_t>(out[i] + scaled(pair, weight));
        }
    }
}

using ConvolveRadius = void (*)(const std::uint16_t*, std::ptrdiff_t, const std::uint16_t*, std::uint16_t*,
                                int);
constexpr std::array<ConvolveRadius, 7> kConvolvers{nullptr,           convolveRadius<1>, convolveRadius<2>,
                                                    convolveRadius<3>, convolveRadius<4>, convolveRadius<5>,
                                                    convolveRadius<6>};

} // namespace

BlurKernels::BlurKernels()
    : m_kernels(static_cast<std::size_t>(kLargestSigma) * kStepsPerSample + 1) {}

const Kernel& BlurKernels::kernel(int number) {
    std::optional<Kernel>& kernel = m_kernels[static_cast<std::size_t>(number)];
    if (!kernel) {
        kernel = number == 0 ? Kernel() : kernelOf(static_cast<double>(number) / kStepsPerSample);
    }
    return *kernel;
}

int BlurKernels::numberOf(float sigma) {
    return static_cast<int>(std::lround(std::clamp(sigma, 0.0F, kLargestSigma) * kStepsPerSample));
}

void convolve(const std::uint16_t* from, std::ptrdiff_t stride, const Kernel& kernel, std::uint16_t* out,
              int count) {
    if (kernel.radius == 0) {
        std::copy_n(from, count, out);
    } else if (static_cast<std::size_t>(kernel.radius) < kConvolvers.size()) {
        kConvolvers[static_cast<std::size_t>(kernel.radius)](from, stride, kernel.weights.data(), out, count);
    } else {
        convolveWide(from, stride, kernel, out, count);
    }
}

HOSTS_VECTOR_CLONES void weighThree(const std::uint16_t* __restrict from, std::ptrdiff_t stride,
                                    const std::uint16_t (&weights)[3], std::uint16_t* __restrict out,
                                    int count) {
    const std::uint16_t before = weights[0];
    const std::uint16_t at = weights[1];
    const std::uint16_t after = weights[2];
    for (int i = 0; i < count; ++i) {
        out[i] = static_cast<std::uint16_t>(scaled(from[i - stride], before) + scaled(from[i], at) +
                                            scaled(from[i + stride], after) + 1);
    }
}

} // namespace hosts::simulated
