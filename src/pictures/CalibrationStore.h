#pragma once
// The calibration that was accepted last, kept from one run of the program to the next.

#include "pictures/Calibration.h"

#include <optional>
#include <string>
#include <string_view>

namespace ocuva {

/// Keeps the points in the program's own settings, section "Calibration", key "Points", as one text: per
/// point in use XI,YI,XS,YS,ZS in decimal, a blank between points. Two points mean two, three mean three. One
/// write of one value, so that no mixture of two calibrations can ever stand there.
class CalibrationStore {
public:
    /// The library outlives it.
    explicit CalibrationStore(TnReg& reg)
        : m_reg(reg) {}

    /// False when the host could not keep it.
    bool save(const CalibrationPoints& points);

    /// The points; nothing when there are none, or the text is not one that save writes.
    std::optional<CalibrationPoints> load() const;

private:
    TnReg& m_reg;
};

/// The text of one value that save writes.
std::string storedText(const CalibrationPoints& points);
/// Nothing when the text is no calibration of two or three points.
std::optional<CalibrationPoints> parseStoredText(std::string_view text);

} // namespace ocuva
