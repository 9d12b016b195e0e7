#include "settings/SettingsTable.h"

#include "base/Product.h"

#include <array>

namespace ocuva {

namespace {

constexpr auto program = SettingsStore::Program;
constexpr auto number = Encoding::Number;
constexpr auto flag = Encoding::Flag;

// The view flags count as numbers, because they are written as the number that the writer gets.
constexpr std::array<SettingRow, 20> table{{
    {Setting::LiveImage, program, "Configuration", "LiveImage", 0, number},
    {Setting::FullImage, program, "Configuration", "FullImage", 0, number},
    {Setting::ShowCross, program, "Configuration", "ShowCross", 0, number},
    {Setting::ShowGrid, program, "Configuration", "ShowGrid", 0, number},
    {Setting::LargeIcons, program, "Configuration", "LargeIcons", 0, number},
    {Setting::MoveXInverse, program, "Configuration", "MoveXInverse", 0, number},
    {Setting::MoveYInverse, program, "Configuration", "MoveYInverse", 0, number},
    {Setting::AutofocusOnAllImage, program, "Configuration", "AutofocusOnAllImage", 1, flag},
    {Setting::AutofocusOnImageFraction, program, "Configuration", "AutofocusOnImageFraction", 3,
     Encoding::IndexPlus2},
    {Setting::UseTransmittedLight, program, "Configuration", "UseTransmittedLight", 0, flag},
    {Setting::ZRange, program, "Fine Parameters", "Z Range", 18, Encoding::Doubled},
    {Setting::NumberOfPoints, program, "Fine Parameters", "Number of points", 7, number},
    {Setting::CrossSize, program, "Configuration", "CrossSize", 1000, number},
    {Setting::CrossWidth, program, "Configuration", "CrossWidth", 33, number},
    {Setting::GridSizeX, program, "Configuration", "GridSizeX", 4000, number},
    {Setting::GridSizeY, program, "Configuration", "GridSizeY", 3000, number},
    {Setting::GridLineWidth, program, "Configuration", "GridLineWidth", 33, number},
    {Setting::ServerIdleCount, program, "Server", "ServerIdleCount", 0, number},
    {Setting::VGAMode, SettingsStore::HostShort, "tn_video", "VGAMode", 0, flag},
    {Setting::VideoMag, SettingsStore::Host, "tn_video", "VideoMag", 400, number},
}};

constexpr bool inOrder() {
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (static_cast<std::size_t>(table[i].setting) != i) {
            return false;
        }
    }
    return true;
}
static_assert(inOrder(), "settingRow finds a row by its number");

} // namespace

std::span<const SettingRow> settingsTable() { return table; }

const SettingRow& settingRow(Setting setting) { return table[static_cast<std::size_t>(setting)]; }

const std::string& storeName(SettingsStore store) {
    static const std::array<std::string, 3> names{std::string(productTitle) + ".INI", "TARN.INI", "TARN"};
    return names[static_cast<std::size_t>(store)];
}

} // namespace ocuva
