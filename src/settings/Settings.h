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
    Long LiveImage = 0;
    Long FullImage = 0;
    Long ShowCross = 0;
    Long ShowGrid = 0;
    Long LargeIcons = 0;
    Long MoveXInverse = 0;
    Long MoveYInverse = 0;
};

struct AutofocusOptions {
    bool AutofocusOnAllImage = true;
    Long AutofocusOnImageFraction = 1; ///< index of the choice, from 0
    bool UseTransmittedLight = false;
};

struct FineParameters {
    Long halfZRange = 9;     ///< stage units to either side
    Long numberOfPoints = 7; ///< Z positions tried
};

struct CrossLengths {
    Long CrossSize = 1000; ///< screen pixels
    Long CrossWidth = 33;  ///< screen pixels
};

struct GridLengths {
    Long GridSizeX = 4000;   ///< screen pixels
    Long GridSizeY = 3000;   ///< screen pixels
    Long GridLineWidth = 33; ///< screen pixels
};

class Settings {
public:
    explicit Settings(TnReg& reg)
        : m_reg(reg) {}

    ViewOptions readView() const;
    void writeView(const ViewOptions& view);

    AutofocusOptions readAutofocus() const;
    /// Throws ArithmeticError when the index has no number that could be stored for it.
    void writeAutofocus(const AutofocusOptions& autofocus);

    FineParameters readFine() const;
    /// Throws ArithmeticError when the doubled range leaves 32 bits; nothing is written then.
    void writeFine(const FineParameters& fine);

    CrossLengths readCross() const;
    void writeCross(const CrossLengths& cross);

    GridLengths readGrid() const;
    void writeGrid(const GridLengths& grid);

    /// The video host's mode, on for any non-zero number.
    bool readVgaMode() const;
    /// The mode as the mouse takes it: on only for a number above 0.
    bool readVgaModeForMouse() const;
    void writeVgaMode(bool on);

    /// Idle minutes of a sleeping server; the count configured so far stands in for an absent key.
    Long readServerIdleCount(Long configuredSoFar) const;

    Long readVideoMag() const;
    void writeVideoMag(Long magnification);

private:
    Long raw(Setting setting, Long defaultValue) const;
    Long stored(Setting setting) const;
    void store(Setting setting, Long value);

    TnReg& m_reg;
};

/// Stored number to value and back, as the setting's encoding says. A stored number that has no value (an
/// index below the 32-bit range) reads as the default; encoding throws ArithmeticError.
Long decodeSetting(const SettingRow& row, Long storedNumber);
Long encodeSetting(const SettingRow& row, Long value);

} // namespace ocuva
