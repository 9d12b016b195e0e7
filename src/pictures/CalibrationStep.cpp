#include "pictures/CalibrationStep.h"

#include "pictures/CalibrationQuality.h"

#include <algorithm>
#include <initializer_list>
#include <optional>

namespace ocuva {

namespace {

using Texts = std::array<PointTexts, 3>;

Texts withZerosForEmpty(Texts texts) {
    for (PointTexts& point : texts) {
        std::replace(point.begin(), point.end(), std::string(), std::string("0"));
    }
    return texts;
}

std::optional<std::size_t> firstWithout(const Texts& texts, std::size_t count,
                                        std::initializer_list<PointField> fields) {
    for (std::size_t i = 0; i < count; ++i) {
        if (std::any_of(fields.begin(), fields.end(), [&](PointField field) {
                return texts.at(i).at(static_cast<std::size_t>(field)).empty();
            })) {
            return i;
        }
    }
    return {};
}

} // namespace

CalibrationStep nextCalibrationStep(bool twoPoints, const Texts& texts) {
    using Kind = CalibrationStep::Kind;
    CalibrationPoints points;
    try {
        points = typedPoints(twoPoints, withZerosForEmpty(texts));
    } catch (const PointFieldError& error) {
        return {Kind::Correct, error.point(), error.field()};
    }
    if (const auto point = firstWithout(texts, points.count(), {PointField::XI, PointField::YI})) {
        return {Kind::Pick, *point};
    }
    if (const auto point =
            firstWithout(texts, points.count(), {PointField::XS, PointField::YS, PointField::ZS})) {
        return {Kind::Read, *point};
    }
    return {calibrationQuality(points).isComputable() ? Kind::Accept : Kind::Unusable};
}

} // namespace ocuva
