#pragma once
// The readers and writers of the settings, by group. Nothing is cached: each reader asks the host, each
// writer writes at once, so every reader sees a change immediately.

#include "base/Types.h"
#include "hostlink/Host.h"
#include "settings/SettingsTable.h"

#include <string>

namespace ocuva {

/// The seven view options as stored; any value except 0 is on.
struct ViewOptions {
    /// Named like their keys.
    ///@{
    Long LiveImage = 0;
    Long FullImage = 0;
    Long ShowCross = 0;
    Long ShowGrid = 0;
    Long LargeIcons = 0;
    Long MoveXInverse = 0;
    Long MoveYInverse = 0;
    ///@}
};

/// The area that the host measures in a focus search.
struct AutofocusOptions {
    bool AutofocusOnAllImage = true;   ///< otherwise the fraction around the centre
    Long AutofocusOnImageFraction = 1; ///< index of the choice, from 0
    bool UseTransmittedLight = false;  ///< for a lamp below the sample
};

/// The range of the host's focus search.
struct FineParameters {
    Long halfZRange = 9;     ///< stage units to either side
    Long numberOfPoints = 7; ///< Z positions tried
};

/// The centre cross at 1:1.
struct CrossLengths {
    Long CrossSize = 1000; ///< screen pixels
    Long CrossWidth = 33;  ///< screen pixels
};

/// The grid at 1:1: pitches, and the width of a bar.
struct GridLengths {
    Long GridSizeX = 4000;   ///< screen pixels
    Long GridSizeY = 3000;   ///< screen pixels
    Long GridLineWidth = 33; ///< screen pixels
};

/// A missing key or store reads as the default. A failed write is not noticed. Values are not checked
/// against a range.
class Settings {
public:
    /// The library outlives it.
    explicit Settings(TnReg& reg)
        : m_reg(reg) {}

    /// All seven, in the order of the table.
    ///@{
    ViewOptions readView() const;
    void writeView(const ViewOptions& view);
    ///@}

    /// A stored fraction without an index reads as the default.
    AutofocusOptions readAutofocus() const;
    /// Throws ArithmeticError if the index cannot be stored.
    void writeAutofocus(const AutofocusOptions& autofocus);

    /// The halved range is rounded, ties to even.
    FineParameters readFine() const;
    /// Throws ArithmeticError if the doubled range exceeds 32 bits; nothing is written then.
    void writeFine(const FineParameters& fine);

    /// Both lengths, in the order of the table.
    ///@{
    CrossLengths readCross() const;
    void writeCross(const CrossLengths& cross);
    ///@}

    /// All three lengths, in the order of the table.
    ///@{
    GridLengths readGrid() const;
    void writeGrid(const GridLengths& grid);
    ///@}

    /// The video host's mode, on for any non-zero number.
    bool readVgaMode() const;
    /// The mode as used by the mouse: on only for a number above 0.
    bool readVgaModeForMouse() const;
    /// Written as 1 or 0.
    void writeVgaMode(bool on);

    /// Idle minutes of a sleeping server; the current count if the key is missing.
    Long readServerIdleCount(Long configuredSoFar) const;

    /// The magnification in the host's store; 400 if there is none.
    ///@{
    Long readVideoMag() const;
    void writeVideoMag(Long magnification);
    ///@}

private:
    Long raw(Setting setting, Long defaultValue) const;
    Long stored(Setting setting) const;
    void store(Setting setting, Long value);

    TnReg& m_reg;
};

/// Convert between stored number and value according to the row's encoding. A stored number without a
/// value (an index below the 32-bit range) reads as the default; encoding throws ArithmeticError.
///@{
Long decodeSetting(const SettingRow& row, Long storedNumber);
Long encodeSetting(const SettingRow& row, Long value);
///@}

} // namespace ocuva
