#include "hosts/common/picture/PictureControls.h"

#include <algorithm>
#include <cmath>

namespace hosts {
namespace {

constexpr double kMiddleGrey = 128.0;
constexpr double kBrightnessReach = 100.0;       // grey levels
constexpr double kHueReach = 1.0471975511965976; // 60 degrees
constexpr double kLuma[3] = {77.0 / 256, 150.0 / 256, 29.0 / 256};

// -1 to 1, 0 for the neutral 50.
double deflection(double value) {
    return std::isfinite(value) ? std::clamp(value, 0.0, 100.0) / 50.0 - 1.0 : 0.0;
}

double gainFactor(int gain) {
    constexpr double factors[] = {0.5, 0.70710678118654752, 1.0, 1.4142135623730951, 2.0};
    return gain >= 0 && gain <= 4 ? factors[gain] : 1.0;
}

// Series, so that the last digit is the same everywhere; exact to 1e-7 within the hue's reach.
double sine(double a) { return a * (1 - a * a / 6 * (1 - a * a / 20 * (1 - a * a / 42 * (1 - a * a / 72)))); }
double cosine(double a) { return 1 - a * a / 2 * (1 - a * a / 12 * (1 - a * a / 30 * (1 - a * a / 56))); }

} // namespace

bool isNeutral(const PictureControls& controls) {
    const PictureControls neutral;
    return controls.contrast == neutral.contrast && controls.brightness == neutral.brightness &&
           controls.hue == neutral.hue && controls.saturation == neutral.saturation &&
           gainFactor(controls.gain) == 1.0;
}

ColourTransform transformOf(const PictureControls& controls) {
    const double contrast = 1.0 + deflection(controls.contrast);
    const double saturation = 1.0 + deflection(controls.saturation);
    const double angle = kHueReach * deflection(controls.hue);
    const double along = saturation * cosine(angle);
    const double turned = saturation * sine(angle);
    const double factor = contrast * gainFactor(controls.gain);
    ColourTransform transform;
    for (int in = 0; in < 3; ++in) {
        // Colour differences of the unit colour `in`, turned and stretched, then back to red, green, blue.
        const double luma = kLuma[in];
        const double redDifference = (in == 0 ? 1.0 : 0.0) - luma;
        const double blueDifference = (in == 2 ? 1.0 : 0.0) - luma;
        const double red = along * redDifference + turned * blueDifference;
        const double blue = along * blueDifference - turned * redDifference;
        const double green = -(kLuma[0] * red + kLuma[2] * blue) / kLuma[1];
        const double back[3] = {luma + red, luma + green, luma + blue};
        for (int out = 0; out < 3; ++out) {
            transform.matrix[out][in] = static_cast<float>(factor * back[out]);
        }
    }
    transform.offset = static_cast<float>(kMiddleGrey * (1.0 - contrast) +
                                          kBrightnessReach * deflection(controls.brightness));
    return transform;
}

} // namespace hosts
