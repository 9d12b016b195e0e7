#include "simhost/board/CameraReferences.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <optional>

namespace simhost {

namespace {

constexpr double neutralReference = 50.0;

std::optional<std::size_t> firstSlot(int group) {
    if (group != 1 && group != 2) {
        return std::nullopt;
    }
    return group == 1 ? 0 : 2;
}

std::uint8_t level(double value) { return static_cast<std::uint8_t>(std::clamp(value + 0.5, 0.0, 255.0)); }

using LevelTable = std::array<std::uint8_t, 256>;

LevelTable levelTable(double contrast, double brightness) {
    constexpr double midGrey = 127.5;
    constexpr double levelsPerBrightness = 2.55;
    LevelTable table{};
    for (std::size_t grey = 0; grey < table.size(); ++grey) {
        table[grey] = level((static_cast<double>(grey) - midGrey) * contrast / neutralReference + midGrey +
                            (brightness - neutralReference) * levelsPerBrightness);
    }
    return table;
}

// The turn of the colour plane round the grey axis and its stretching, as fixed-point factors of 1/4096: the
// weights of one channel by itself and by the two that follow it in the order red, green, blue.
struct ColourTurn {
    std::int32_t own;
    std::int32_t next;
    std::int32_t afterNext;
};

constexpr int turnBits = 12;

ColourTurn colourTurn(double hue, double saturation) {
    const double angle = (hue - neutralReference) / neutralReference * std::numbers::pi;
    const double strength = saturation / neutralReference;
    const double along = strength * 2.0 * std::cos(angle) / 3.0;
    const double across = strength * 2.0 / 3.0;
    constexpr double third = 2.0 * std::numbers::pi / 3.0;
    const auto fixed = [](double factor) {
        return static_cast<std::int32_t>(std::lround(factor * (1 << turnBits)));
    };
    return {fixed(1.0 / 3.0 + along), fixed(1.0 / 3.0 + across * std::cos(angle + third)),
            fixed(1.0 / 3.0 + across * std::cos(angle - third))};
}

std::uint32_t turned(const ColourTurn& turn, std::int32_t own, std::int32_t next, std::int32_t afterNext) {
    constexpr std::int32_t half = 1 << (turnBits - 1);
    const std::int32_t sum = turn.own * own + turn.next * next + turn.afterNext * afterNext;
    return static_cast<std::uint32_t>(std::clamp((sum + half) >> turnBits, 0, 255));
}

} // namespace

bool CameraReferences::set(int group, double first, double second) {
    const std::optional<std::size_t> slot = firstSlot(group);
    if (!slot || std::isnan(first) || std::isnan(second)) {
        return false;
    }
    constexpr double unchanged = -1.0;
    const std::array<double, 2> values{first, second};
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (values[i] != unchanged) {
            m_values[*slot + i] = std::clamp(values[i], 0.0, 100.0);
        }
    }
    return true;
}

bool CameraReferences::get(int group, double& first, double& second) const {
    const std::optional<std::size_t> slot = firstSlot(group);
    if (!slot) {
        return false;
    }
    first = m_values[*slot];
    second = m_values[*slot + 1];
    return true;
}

void applyReferences(const CameraReferences& references, bool colour, std::vector<std::uint32_t>& pixels) {
    const bool turns =
        colour && (references.hue() != neutralReference || references.saturation() != neutralReference);
    if (turns) {
        const ColourTurn turn = colourTurn(references.hue(), references.saturation());
        for (std::uint32_t& pixel : pixels) {
            const auto red = static_cast<std::int32_t>((pixel >> 16) & 0xffU);
            const auto green = static_cast<std::int32_t>((pixel >> 8) & 0xffU);
            const auto blue = static_cast<std::int32_t>(pixel & 0xffU);
            pixel = 0xff000000U | turned(turn, red, green, blue) << 16 | turned(turn, green, blue, red) << 8 |
                    turned(turn, blue, red, green);
        }
    }
    if (references.contrast() != neutralReference || references.brightness() != neutralReference) {
        const LevelTable table = levelTable(references.contrast(), references.brightness());
        for (std::uint32_t& pixel : pixels) {
            pixel = 0xff000000U | static_cast<std::uint32_t>(table[(pixel >> 16) & 0xffU]) << 16 |
                    static_cast<std::uint32_t>(table[(pixel >> 8) & 0xffU]) << 8 | table[pixel & 0xffU];
        }
    }
}

} // namespace simhost
