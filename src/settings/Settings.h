#pragma once
// The readers and writers of the settings, by group. Nothing is kept here: each reader asks the host every
// time, each writer writes at once, so a change made in one window is seen by the next reader anywhere.

#include "base/Types.h"
#include "hostlink/Host.h"
#include "settings/SettingsTable.h"

#include <string>

namespace ocuva {

/// The seven view options as stored; a flag is on when it is not zero.
struct ViewOptions {
    /// As the keys of these names.
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

/// What the host measures in its focus search.
struct AutofocusOptions {
    bool AutofocusOnAllImage = true;   ///< else the fraction around the middle
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

/// A key that is not there reads as its default, the same as one whose store is not; a write that fails is
/// not noticed. No value is checked against a range.
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

    /// A stored fraction that has no index reads as the default.
    AutofocusOptions readAutofocus() const;
    /// Throws ArithmeticError when the index has no number that could be stored for it.
    void writeAutofocus(const AutofocusOptions& autofocus);

    /// The halved range is rounded, ties to even.
    FineParameters readFine() const;
    /// Throws ArithmeticError when the doubled range leaves 32 bits; nothing is written then.
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
    /// The mode as the mouse takes it: on only for a number above 0.
    bool readVgaModeForMouse() const;
    /// Written as 1 or 0.
    void writeVgaMode(bool on);

    /// Idle minutes of a sleeping server; the count configured so far stands in for an absent key.
    Long readServerIdleCount(Long configuredSoFar) const;

    /// The magnification in the host's store; 400 when there is none.
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

/// Stored number to value and back, as the setting's encoding says. A stored number that has no value (an
/// index below the 32-bit range) reads as the default; encoding throws ArithmeticError.
///@{
Long decodeSetting(const SettingRow& row, Long storedNumber);
Long encodeSetting(const SettingRow& row, Long value);
///@}

} // namespace ocuva
