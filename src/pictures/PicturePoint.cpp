#include "pictures/PicturePoint.h"

#include "base/Numbers.h"

namespace ocuva {

namespace {

// In double precision, so that the far edge is 10000 to the last bit.
Single along(Single place, Long length) {
    return static_cast<Single>(checkedDivide(place * pictureUnits, length));
}

} // namespace

PicturePoint picturePoint(Single x, Single y, Long width, Long height) {
    return {along(x, toInteger(width)), along(y, toInteger(height))};
}

PicturePoint widePicturePoint(Single x, Single y, Long width, Long height) {
    return {along(x, width), along(y, height)};
}

} // namespace ocuva
