#pragma once
// One-dimensional blur kernels, applied along rows and columns, on planes of 16-bit samples.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace hosts::simulated {

/// A symmetric kernel: weights of the middle sample and of each pair around it, together 65536.
struct Kernel {
    int radius = 0;                     ///< 0: leaves the picture as it is
    std::vector<std::uint16_t> weights; ///< [0] middle, [1] the pair one sample off, ...; empty for radius 0
};

/// Kernels of every blur from none to kLargestSigma samples (standard deviation), in fine steps. The shape is
/// (1 - (d/r)^2)^2, near a Gaussian but of finite width; r is chosen so that the sampled kernel has exactly
/// the wanted variance, so blur grows evenly from zero. One thread at a time.
class BlurKernels {
public:
    static constexpr float kLargestSigma = 8.0F;
    static constexpr int kStepsPerSample = 64;

    BlurKernels();

    /// Number of the kernel for a standard deviation in samples; wider ones get the widest.
    static int numberOf(float sigma);
    /// Made when it is first asked for; stays where it is.
    const Kernel& kernel(int number);

private:
    std::vector<std::optional<Kernel>> m_kernels;
};

/// out[i] = kernel over from[i + k * stride], for i < count. Samples are at most 32640; `from` must
/// reach kernel.radius strides to both sides.
void convolve(const std::uint16_t* from, std::ptrdiff_t stride, const Kernel& kernel, std::uint16_t* out,
              int count);

/// Three neighbouring samples weighted (weights together at most 65536), for resampling; stride as above.
void weighThree(const std::uint16_t* from, std::ptrdiff_t stride, const std::uint16_t (&weights)[3],
                std::uint16_t* out, int count);

} // namespace hosts::simulated
