#include "hosts/common/board/CameraReferences.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

namespace hosts {

namespace {

std::optional<std::size_t> firstSlot(int group) {
    if (group != 1 && group != 2) {
        return std::nullopt;
    }
    return group == 1 ? 0 : 2;
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

} // namespace hosts
