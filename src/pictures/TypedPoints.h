#pragma once
// Calibration points as they are typed.

#include "pictures/Calibration.h"

#include <array>
#include <stdexcept>
#include <string>

namespace ocuva {

/// The boxes of one point, in their order.
enum class PointField { XI, YI, XS, YS, ZS };
inline constexpr std::size_t pointFieldCount = 5;

/// The texts of one point's boxes, by field.
using PointTexts = std::array<std::string, pointFieldCount>;

/// A box whose text is not a number, or one that does not fit: 16 bits for the picture, 32 for the stage.
/// what() names the box ("Point 2, stage Y: "12abc" is not a number").
class PointFieldError : public std::runtime_error {
public:
    /// reason: the problem with the text, as a clause.
    PointFieldError(std::size_t point, PointField field, const std::string& reason);

    std::size_t point() const { return m_point; } ///< from 0
    PointField field() const { return m_field; }  ///< the box of that point

private:
    std::size_t m_point;
    PointField m_field;
};

/// Reads the boxes of the points in use, in their order, and throws PointFieldError for the first bad one.
/// An unused third point is all zeros, whatever is in its boxes.
CalibrationPoints typedPoints(bool twoPoints, const std::array<PointTexts, 3>& texts);

PointTexts pointTexts(const CalibrationPoint& point);

} // namespace ocuva
