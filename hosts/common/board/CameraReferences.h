#pragma once
// The camera signal's four references as the host's two groups.

#include <array>

namespace hosts {

/// Values of 0 to 100; PictureControls.h describes their effect. 50 leaves the picture unchanged.
class CameraReferences {
public:
    /// group 1: contrast, brightness; group 2: hue, saturation. -1.0 leaves a value as it is; other values
    /// are pulled to 0..100. False for another group or a value that is not a number, and nothing changes
    /// then.
    bool set(int group, double first, double second);
    /// False, and both untouched, for another group.
    bool get(int group, double& first, double& second) const;

    double contrast() const { return m_values[0]; }
    double brightness() const { return m_values[1]; }
    double hue() const { return m_values[2]; }
    double saturation() const { return m_values[3]; }

private:
    static constexpr double neutral = 50.0;
    std::array<double, 4> m_values{neutral, neutral, neutral, neutral};
};

} // namespace hosts
