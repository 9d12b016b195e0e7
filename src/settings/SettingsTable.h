#pragma once
// Every setting of the program in one table: which store, section and key, its default, and how its value is
// written.

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

/// How a value of the program becomes the whole number in the store.
enum class Encoding {
    Number,     ///< as it is
    Flag,       ///< "1" or "0"; any non-zero number reads as on
    IndexPlus2, ///< index of a choice plus 2
    Doubled,    ///< the store holds twice the value; reading halves it, ties to even
};

/// One setting.
struct SettingRow {
    /// Which it is, and where the host keeps it.
    ///@{
    Setting setting;
    SettingsStore store;
    const char* section;
    const char* key;
    ///@}
    Long defaultValue; ///< as stored, before decoding
    Encoding encoding; ///< of the number in the store
};

/// One row per Setting, in the order of the enumeration.
std::span<const SettingRow> settingsTable();
const SettingRow& settingRow(Setting setting);

/// The name that the host knows the store by.
const std::string& storeName(SettingsStore store);

} // namespace ocuva
