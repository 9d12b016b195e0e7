#include "pictures/CalibrationField.h"

#include "pictures/CalibrationQuality.h"

#include <cmath>

namespace ocuva {

std::optional<CalibrationField> fieldOf(const CalibrationPoints& points, Long magnification) {
    const CalibrationQuality quality = calibrationQuality(points);
    if (magnification <= 0 || !quality.isComputable() || *quality.unitsPerWidth == 0.0 ||
        *quality.unitsPerHeight == 0.0) {
        return {};
    }
    const double to100 = magnification / 100.0;
    return CalibrationField{static_cast<Single>(std::abs(*quality.unitsPerWidth) * to100),
                            static_cast<Single>(std::abs(*quality.unitsPerHeight) * to100),
                            *quality.unitsPerWidth > 0.0, *quality.unitsPerHeight > 0.0};
}

} // namespace ocuva
