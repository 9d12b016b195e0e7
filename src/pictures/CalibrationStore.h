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

/// Stores the points in the program's own settings, section "Calibration", key "Points", as one text: for
/// each point in use XI,YI,XS,YS,ZS in decimal, points separated by a blank; then, if it is known, a blank
/// and \@X,Y,Z,MAGNIFICATION of the view. One write of one value, so that two calibrations never mix.
class CalibrationStore {
public:
    /// The library outlives it.
    explicit CalibrationStore(TnReg& reg)
        : m_reg(reg) {}

    /// False when the host could not keep it.
    bool save(const KeptCalibration& calibration);

    /// Nothing if there is none or the text is invalid. A text without a view is valid too.
    std::optional<KeptCalibration> load() const;

private:
    TnReg& m_reg;
};

/// The text of one value that save writes.
std::string storedText(const KeptCalibration& calibration);
/// Nothing when the text is no calibration of two or three points.
std::optional<KeptCalibration> parseStoredText(std::string_view text);

/// Convert to X,Y,Z,MAGNIFICATION in decimal and back; nothing if the text is anything else.
///@{
std::string placeText(const ViewPlace& place);
std::optional<ViewPlace> parsePlaceText(std::string_view text);
///@}

} // namespace ocuva
