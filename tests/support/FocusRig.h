#pragma once
// The simulated host with its clock in hand, and starts for its focus search: places with detail all over the
// picture, and heights from which the focus lies within the range.

#include "hosts/common/services/Standards.h"
#include "hosts/simulated/SimulatedHost.h"
#include "hosts/simulated/config/SimConfig.h"
#include "hosts/simulated/world/World.h"
#include "tests/support/TempFolder.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace hosts::simulated::testing {

struct FocusStart {
    TarnLong x = 0; ///< stage units
    TarnLong y = 0;
    TarnLong z = 0;
    TarnLong cameraType = 0;
};

struct FocusRig {
    FocusRig() { host.tn_video().TarnVideoBoardInit(); }

    SimulatedHostOptions options() const {
        SimulatedHostOptions chosen;
        chosen.dataFolder = folder.path();
        chosen.clock = clock;
        return chosen;
    }
    void set(const char* section, const char* key, TarnLong value) {
        host.tn_reg().TarnRegisterSetString(section, key, std::to_string(value).c_str(), "Ocuva.INI");
    }
    /// 1: the whole picture, else 1 / part of its width and height.
    void measurePart(TarnLong part) {
        set("Configuration", "AutofocusOnAllImage", part == 1 ? 1 : 0);
        set("Configuration", "AutofocusOnImageFraction", part);
    }
    void go(TarnLong axis, TarnLong target) {
        host.tn_micro_proxy().TarnLoadStageAbs(axis, static_cast<TarnSingle>(target));
        host.tn_micro_proxy().TarnStartStage(axis);
        clock->advance(60000.0);
    }
    void go(const FocusStart& start) {
        host.tn_video().TarnVideoSetCurrentCameraType(start.cameraType);
        go(1, start.x);
        go(2, start.y);
        go(3, start.z);
    }
    TarnLong at(TarnLong axis) {
        TarnLong position = 0;
        host.tn_micro_proxy().TarnReadStagePos(axis, &position);
        return position;
    }
    bool search() { return host.tn_micro_proxy().TarnAutoFocusExt(-1) != 0; }
    /// Units from the true surface under the middle of the picture.
    double error() { return std::abs(at(3) - host.trueSurface().at(at(1), at(2))); }
    std::string log() const { return folder.read("tarn.log"); }

    World world() {
        HostLog quiet(folder / "rig.log");
        std::vector<Mount> mounts;
        for (const StandardMount& standard : readStandards(folder / "standards", quiet)) {
            mounts.push_back({static_cast<double>(standard.position.x),
                              static_cast<double>(standard.position.y), static_cast<int>(mounts.size()) + 1,
                              standard.name});
        }
        return {static_cast<std::uint32_t>(settings::seed.defaultValue), std::move(mounts)};
    }

    TempFolder folder;
    std::shared_ptr<VirtualClock> clock = std::make_shared<VirtualClock>();
    SimulatedHost host{options()};
};

/// Grey levels by which the true colours of a part of the field vary, as standard deviation.
inline double variation(const World& world, double left, double top, double width, double height) {
    constexpr int steps = 8;
    double sum = 0.0;
    double squares = 0.0;
    for (int i = 0; i < steps * steps; ++i) {
        const int row = i / steps;
        const Rgb colour = world.colourAt(left + width * (i % steps) / steps, top + height * row / steps);
        const double grey = 0.299 * colour.r + 0.587 * colour.g + 0.114 * colour.b;
        sum += grey;
        squares += grey * grey;
    }
    const double mean = sum / (steps * steps);
    return std::sqrt(std::max(0.0, squares / (steps * steps) - mean * mean));
}

/// True when each quarter of the usual field around the place has detail, and so has the least part of it
/// that can be measured.
inline bool isTextured(const World& world, double x, double y) {
    constexpr double leastVariation = 2.0;
    for (const double left : {x - 320.0, x}) {
        for (const double top : {y - 240.0, y}) {
            if (variation(world, left, top, 320.0, 240.0) < leastVariation) {
                return false;
            }
        }
    }
    return variation(world, x - 40.0, y - 30.0, 80.0, 60.0) >= leastVariation;
}

/// Half of them on the section, half on the standards; all camera types in turn.
inline std::vector<FocusStart> texturedStarts(FocusRig& rig, int count, std::uint32_t seed,
                                              double halfRange = 9.0) {
    std::mt19937 random(seed); // the distributions of the library differ from one to the next
    const auto between = [&random](double low, double high) {
        return low + (high - low) * static_cast<double>(random()) / 4294967296.0;
    };
    const World world = rig.world();
    std::vector<FocusStart> starts;
    while (starts.size() < static_cast<std::size_t>(count)) {
        double x = between(-20000.0, 20000.0);
        double y = between(-20000.0, 20000.0);
        if (starts.size() % 2 == 1) {
            const Mount& mount = world.mounts().at(random() % world.mounts().size());
            x = mount.x + between(-1600.0, 1600.0);
            y = mount.y + between(-1600.0, 1600.0);
        }
        x = std::round(x);
        y = std::round(y);
        const double surface = rig.host.trueSurface().at(x, y);
        const double offset = between(-halfRange, halfRange);
        const double z = surface + offset;
        if (isTextured(world, x, y)) {
            starts.push_back({static_cast<TarnLong>(x), static_cast<TarnLong>(y),
                              static_cast<TarnLong>(offset < 0.0 ? std::ceil(z) : std::floor(z)),
                              static_cast<TarnLong>(starts.size() / 2 % 4 + 1)});
        }
    }
    return starts;
}

} // namespace hosts::simulated::testing
