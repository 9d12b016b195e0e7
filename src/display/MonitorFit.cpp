#include "display/MonitorFit.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cmath>

namespace ocuva {

namespace {

constexpr double twipsPerPixel = 15.0;
constexpr int smallestDisplay = static_cast<int>(MonitorSizing::smallestImage / twipsPerPixel);
constexpr int longestSide = 32767;
constexpr double extremeProportion = 20.0;

bool isEmpty(PixelSize size) { return size.width < 1 || size.height < 1; }

int following(int length, double own, double other) {
    return toLong(std::min(length * other / own, double{longestSide}));
}

bool hasProportion(PixelSize picture) {
    const double ratio = isEmpty(picture) ? 0.0 : static_cast<double>(picture.width) / picture.height;
    return ratio >= 1.0 / extremeProportion && ratio <= extremeProportion;
}

PixelSize ofWidth(int width, PixelSize picture) {
    return {width, following(width, picture.width, picture.height)};
}

PixelSize ofHeight(int height, PixelSize picture) {
    return {following(height, picture.height, picture.width), height};
}

double change(int now, int before) {
    return std::abs(std::log(static_cast<double>(now) / std::max(before, 1)));
}

PixelSize proportioned(PixelSize display, PixelSize before, PixelSize picture) {
    const auto scale = shownScale(picture, display);
    if (scale && !scale->stretched) {
        return display;
    }
    return change(display.width, before.width) >= change(display.height, before.height)
               ? ofWidth(display.width, picture)
               : ofHeight(display.height, picture);
}

} // namespace

std::optional<ShownScale> shownScale(PixelSize picture, PixelSize display) {
    if (isEmpty(picture) || isEmpty(display)) {
        return {};
    }
    const double trueHeight = static_cast<double>(display.width) * picture.height / picture.width;
    const double trueWidth = static_cast<double>(display.height) * picture.width / picture.height;
    // Whole pixels cannot keep a proportion exactly.
    const bool stretched =
        std::abs(display.height - trueHeight) > 1.0 && std::abs(display.width - trueWidth) > 1.0;
    return ShownScale{static_cast<double>(picture.width) / display.width,
                      static_cast<double>(picture.height) / display.height, stretched};
}

std::string scaleText(double pixelsOfThePicture) {
    const bool enlarged = pixelsOfThePicture < 0.995; // what rounds to 1.00 is 1:1
    constexpr double most = 1000000.0;
    const Long hundredths =
        toLong(100.0 * std::min(enlarged ? 1.0 / pixelsOfThePicture : pixelsOfThePicture, most));
    std::string number = std::to_string(hundredths / 100);
    if (const Long rest = hundredths % 100; rest != 0) {
        number += '.' + std::to_string(rest / 10);
        number += rest % 10 != 0 ? std::to_string(rest % 10) : "";
    }
    return enlarged ? number + ":1" : "1:" + number;
}

Integer neededReduction(PixelSize picture, PixelSize display, Integer zoomDivisor) {
    const auto scale = shownScale(picture, display);
    // A pixel more than the reduced picture has is no reason to send four times as many.
    const bool larger = scale && std::min(scale->x, scale->y) < zoomDivisor * 0.98;
    return zoomDivisor == 2 && larger ? Integer{1} : zoomDivisor;
}

bool isPlausiblePicture(PixelSize picture) {
    return !isEmpty(picture) && std::max(picture.width, picture.height) <= longestSide;
}

PixelSize fittedWindow(const WindowToFit& fit) {
    PixelSize display{std::max(fit.window.width - fit.around.width, smallestDisplay),
                      std::max(fit.window.height - fit.around.height, smallestDisplay)};
    const PixelSize room{std::max(fit.largest.width - fit.around.width, smallestDisplay),
                         std::max(fit.largest.height - fit.around.height, smallestDisplay)};
    const bool keepsProportion = hasProportion(fit.picture);
    if (keepsProportion) {
        display = proportioned(display, fit.before, fit.picture);
        if (display.width > room.width) {
            display = ofWidth(room.width, fit.picture);
        }
        if (display.height > room.height) {
            display = ofHeight(room.height, fit.picture);
        }
        if (display.width < smallestDisplay) {
            display = ofWidth(smallestDisplay, fit.picture);
        }
        if (display.height < smallestDisplay) {
            display = ofHeight(smallestDisplay, fit.picture);
        }
    }
    return {std::min(display.width, room.width) + fit.around.width,
            std::min(display.height, room.height) + fit.around.height};
}

} // namespace ocuva
