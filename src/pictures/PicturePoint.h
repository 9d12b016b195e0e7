#pragma once
// Places on the picture, independent of its size and zoom.

#include "base/Types.h"

namespace ocuva {

/// Picture coordinates: 1/10000 of the picture's width from its left edge, and of its height from its top.
struct PicturePoint {
    /// 0 to 10000 on the picture.
    ///@{
    Single XPic = 0.0F;
    Single YPic = 0.0F;
    ///@}

    bool operator==(const PicturePoint&) const = default;
};

/// Number of units across the picture's width and height.
inline constexpr double pictureUnits = 10000.0;

/// The place x, y of a picture of that width and height, all four in one unit, from the top left corner. A
/// place off the picture gives coordinates below 0 or above 10000. Width and height are taken as 16-bit
/// numbers: throws ArithmeticError when one is larger, or 0.
PicturePoint picturePoint(Single x, Single y, Long width, Long height);

/// The same for a picture of any size: 32767 twips are only 2184 pixels, and screens are wider. Throws
/// ArithmeticError for a width or height of 0.
PicturePoint widePicturePoint(Single x, Single y, Long width, Long height);

} // namespace ocuva
