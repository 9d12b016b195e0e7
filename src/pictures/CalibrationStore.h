#pragma once
// The calibration that was accepted last, kept from one run of the program to the next.

#include "pictures/Calibration.h"

#include <optional>
#include <string>
#include <string_view>

namespace ocuva {

/// A calibration as it is kept.
struct KeptCalibration {
    CalibrationPoints points;       ///< those in use
    std::optional<ViewPlace> place; ///< where they were picked; nothing when that is not known

    bool operator==(const KeptCalibration&) const = default;
};

/// Keeps the points in the program's own settings, section "Calibration", key "Points", as one text: per
/// point in use XI,YI,XS,YS,ZS in decimal, a blank between points; then, where it is known, a blank and
/// \@X,Y,Z,MAGNIFICATION of the view. Two points mean two, three mean three. One write of one value, so that
/// there is never a mixture of two calibrations.
class CalibrationStore {
public:
    /// The library outlives it.
    explicit CalibrationStore(TnReg& reg)
        : m_reg(reg) {}

    /// False when the host could not keep it.
    bool save(const KeptCalibration& calibration);

    /// Nothing when there is none, or the text is not one that save writes. Earlier versions wrote no view.
    std::optional<KeptCalibration> load() const;

private:
    TnReg& m_reg;
};

/// The text of one value that save writes.
std::string storedText(const KeptCalibration& calibration);
/// Nothing when the text is no calibration of two or three points.
std::optional<KeptCalibration> parseStoredText(std::string_view text);

/// X,Y,Z,MAGNIFICATION in decimal, and back; nothing when the text is anything else.
///@{
std::string placeText(const ViewPlace& place);
std::optional<ViewPlace> parsePlaceText(std::string_view text);
///@}

} // namespace ocuva
