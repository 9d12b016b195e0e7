#pragma once
// The camera signal's four references and what they do to a picture.

#include <array>
#include <cstdint>
#include <vector>

namespace simhost {

/// Values of 0 to 100; 50 leaves the picture as the camera made it.
/// contrast: the distance of every level from mid-grey, times value / 50.
/// brightness: 51 levels up or down for every 20.
/// hue: turns the colours, 3.6 degrees for every 1.
/// saturation: the strength of the colours, times value / 50; 0 gives grey.
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

/// Applies the references to pixels 0xffRRGGBB. Hue and saturation act on colour cameras alone.
void applyReferences(const CameraReferences& references, bool colour, std::vector<std::uint32_t>& pixels);

} // namespace simhost
