#pragma once
// The camera's four signal references and its gain, as arithmetic on colours.

namespace hosts {

/// Settings of the frame grabber's input; the defaults change nothing.
struct PictureControls {
    double contrast = 50.0;   ///< 0 to 100: factor 0 to 2 about the middle grey
    double brightness = 50.0; ///< 0 to 100: adds -100 to +100 grey levels
    double hue = 50.0;        ///< 0 to 100: turns colours by -60 to +60 degrees
    double saturation = 50.0; ///< 0 to 100: factor 0 to 2 on colours' distance from grey
    int gain =
        automaticGain; ///< 0 to 4: factor 1/2, 1/sqrt 2, 1, sqrt 2, 2; any other number: automatic, factor 1
    static constexpr int automaticGain = -1;
    bool operator==(const PictureControls& other) const = default;
};

/// True when the controls change nothing.
bool isNeutral(const PictureControls& controls);

/// The effect of the controls on a colour: out = matrix * in + offset, in grey levels.
struct ColourTransform {
    float matrix[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    float offset = 0.0F;
};

/// Values out of range are limited; invalid numbers count as neutral.
ColourTransform transformOf(const PictureControls& controls);

} // namespace hosts
