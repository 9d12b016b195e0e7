#pragma once
// All settings of the program in one table: store, section, key, default and encoding.

#include "base/Types.h"

#include <span>
#include <string>

namespace ocuva {

enum class Setting {
    LiveImage,
    FullImage,
    ShowCross,
    ShowGrid,
    LargeIcons,
    MoveXInverse,
    MoveYInverse,
    AutofocusOnAllImage,
    AutofocusOnImageFraction,
    UseTransmittedLight,
    ZRange,
    NumberOfPoints,
    CrossSize,
    CrossWidth,
    GridSizeX,
    GridSizeY,
    GridLineWidth,
    ServerIdleCount,
    VGAMode,
    VideoMag,
};

enum class SettingsStore {
    Program,   ///< the application title + ".INI"
    Host,      ///< "TARN.INI"
    HostShort, ///< "TARN", without an extension: the host keeps its video mode there
};

/// The relation between a value and the stored whole number.
enum class Encoding {
    Number,     ///< the same number
    Flag,       ///< "1" or "0"; any non-zero number reads as on
    IndexPlus2, ///< index of a choice plus 2
    Doubled,    ///< the store holds twice the value; reading halves it, ties to even
};

/// One setting.
struct SettingRow {
    /// The setting, and its place in the host's stores.
    ///@{
    Setting setting;
    SettingsStore store;
    const char* section;
    const char* key;
    ///@}
    Long defaultValue; ///< as stored, before decoding
    Encoding encoding; ///< of the stored number
};

/// One row per Setting, in the order of the enumeration.
std::span<const SettingRow> settingsTable();
const SettingRow& settingRow(Setting setting);

/// The store's name for the host.
const std::string& storeName(SettingsStore store);

} // namespace ocuva
