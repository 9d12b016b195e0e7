#pragma once
// A small world with its camera, and measures of the pictures it takes.

#include "hosts/simulated/world/CameraPicture.h"

#include <cmath>
#include <cstdint>
#include <vector>

namespace hosts::simulated::testing {

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    double red(int x, int y) const { return pixels[index(x, y)] >> 16U & 0xffU; }
    double green(int x, int y) const { return pixels[index(x, y)] >> 8U & 0xffU; }
    double blue(int x, int y) const { return pixels[index(x, y)] & 0xffU; }
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    }

    /// Mean squared step of green between neighbours, within columns [left, right).
    double gradientEnergy(int left = 0, int right = -1) const {
        const int end = right < 0 ? width - 1 : right;
        double sum = 0.0;
        for (int y = 0; y + 1 < height; ++y) {
            for (int x = left; x < end; ++x) {
                const double dx = green(x + 1, y) - green(x, y);
                const double dy = green(x, y + 1) - green(x, y);
                sum += dx * dx + dy * dy;
            }
        }
        return sum / (static_cast<double>(height - 1) * (end - left));
    }
};

struct Rig {
    std::uint32_t seed = 7;
    SurfaceShape surface;
    OpticsSettings optics{2.0, 0.0};
    std::vector<Mount> mounts{{5000, 0, 1, "Quartz"}, {-5000, 0, 2, "Pyrite"}};
    Exposure exposure{cameraMode(3)};

    Picture take() const {
        const World world(seed, mounts);
        CameraPicture camera(world, surface, optics);
        return take(camera, exposure);
    }
    static Picture take(CameraPicture& camera, const Exposure& what) {
        Picture picture{what.mode.width, what.mode.height, {}};
        picture.pixels.resize(static_cast<std::size_t>(what.mode.width) *
                              static_cast<std::size_t>(what.mode.height));
        camera.render(what, picture.pixels.data());
        return picture;
    }
    Picture at(double x, double y, double z = 0.0) {
        exposure.stageX = x;
        exposure.stageY = y;
        exposure.stageZ = z;
        return take();
    }
};

inline std::uint32_t crc32(const std::uint8_t* bytes, std::size_t count, std::uint32_t crc = 0) {
    crc = ~crc;
    for (std::size_t i = 0; i < count; ++i) {
        crc ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit) {
            crc = crc >> 1U ^ (crc & 1U ? 0xedb88320U : 0U);
        }
    }
    return ~crc;
}

} // namespace hosts::simulated::testing
