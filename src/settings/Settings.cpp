#include "settings/Settings.h"

#include "base/Numbers.h"

namespace ocuva {

namespace {
constexpr Long indexOffset = 2; // index 0 of the fraction list is a quarter, stored as 2 (2 by 2)
} // namespace

Long decodeSetting(const SettingRow& row, Long storedNumber) {
    switch (row.encoding) {
    case Encoding::Flag:
        return storedNumber != 0 ? 1 : 0;
    case Encoding::IndexPlus2:
        try {
            return checkedSubtract(storedNumber, indexOffset);
        } catch (const ArithmeticError&) {
            return row.defaultValue - indexOffset;
        }
    case Encoding::Doubled:
        return toLong(storedNumber / 2.0);
    case Encoding::Number:
        break;
    }
    return storedNumber;
}

Long encodeSetting(const SettingRow& row, Long value) {
    switch (row.encoding) {
    case Encoding::Flag:
        return value != 0 ? 1 : 0;
    case Encoding::IndexPlus2:
        return checkedAdd(value, indexOffset);
    case Encoding::Doubled:
        return checkedAdd(value, value);
    case Encoding::Number:
        break;
    }
    return value;
}

Long Settings::raw(Setting setting, Long defaultValue) const {
    const SettingRow& row = settingRow(setting);
    return m_reg.TarnRegisterGetInt(row.section, row.key, defaultValue, storeName(row.store).c_str());
}

Long Settings::stored(Setting setting) const {
    const SettingRow& row = settingRow(setting);
    return decodeSetting(row, raw(setting, row.defaultValue));
}

void Settings::store(Setting setting, Long value) {
    const SettingRow& row = settingRow(setting);
    const std::string text = std::to_string(encodeSetting(row, value));
    m_reg.TarnRegisterSetString(row.section, row.key, text.c_str(), storeName(row.store).c_str());
}

ViewOptions Settings::readView() const {
    ViewOptions view;
    view.LiveImage = stored(Setting::LiveImage);
    view.FullImage = stored(Setting::FullImage);
    view.ShowCross = stored(Setting::ShowCross);
    view.ShowGrid = stored(Setting::ShowGrid);
    view.LargeIcons = stored(Setting::LargeIcons);
    view.MoveXInverse = stored(Setting::MoveXInverse);
    view.MoveYInverse = stored(Setting::MoveYInverse);
    return view;
}

void Settings::writeView(const ViewOptions& view) {
    store(Setting::LiveImage, view.LiveImage);
    store(Setting::FullImage, view.FullImage);
    store(Setting::ShowCross, view.ShowCross);
    store(Setting::ShowGrid, view.ShowGrid);
    store(Setting::LargeIcons, view.LargeIcons);
    store(Setting::MoveXInverse, view.MoveXInverse);
    store(Setting::MoveYInverse, view.MoveYInverse);
}

AutofocusOptions Settings::readAutofocus() const {
    AutofocusOptions autofocus;
    autofocus.AutofocusOnAllImage = stored(Setting::AutofocusOnAllImage) != 0;
    autofocus.AutofocusOnImageFraction = stored(Setting::AutofocusOnImageFraction);
    autofocus.UseTransmittedLight = stored(Setting::UseTransmittedLight) != 0;
    return autofocus;
}

void Settings::writeAutofocus(const AutofocusOptions& autofocus) {
    // Fails before the first write, so that a group is never stored in part.
    encodeSetting(settingRow(Setting::AutofocusOnImageFraction), autofocus.AutofocusOnImageFraction);
    store(Setting::AutofocusOnAllImage, autofocus.AutofocusOnAllImage ? 1 : 0);
    store(Setting::AutofocusOnImageFraction, autofocus.AutofocusOnImageFraction);
    store(Setting::UseTransmittedLight, autofocus.UseTransmittedLight ? 1 : 0);
}

FineParameters Settings::readFine() const {
    FineParameters fine;
    fine.halfZRange = stored(Setting::ZRange);
    fine.numberOfPoints = stored(Setting::NumberOfPoints);
    return fine;
}

void Settings::writeFine(const FineParameters& fine) {
    store(Setting::ZRange, fine.halfZRange);
    store(Setting::NumberOfPoints, fine.numberOfPoints);
}

CrossLengths Settings::readCross() const {
    CrossLengths cross;
    cross.CrossSize = stored(Setting::CrossSize);
    cross.CrossWidth = stored(Setting::CrossWidth);
    return cross;
}

void Settings::writeCross(const CrossLengths& cross) {
    store(Setting::CrossSize, cross.CrossSize);
    store(Setting::CrossWidth, cross.CrossWidth);
}

GridLengths Settings::readGrid() const {
    GridLengths grid;
    grid.GridSizeX = stored(Setting::GridSizeX);
    grid.GridSizeY = stored(Setting::GridSizeY);
    grid.GridLineWidth = stored(Setting::GridLineWidth);
    return grid;
}

void Settings::writeGrid(const GridLengths& grid) {
    store(Setting::GridSizeX, grid.GridSizeX);
    store(Setting::GridSizeY, grid.GridSizeY);
    store(Setting::GridLineWidth, grid.GridLineWidth);
}

bool Settings::readVgaMode() const { return stored(Setting::VGAMode) != 0; }

bool Settings::readVgaModeForMouse() const { return raw(Setting::VGAMode, 0) > 0; }

void Settings::writeVgaMode(bool on) { store(Setting::VGAMode, on ? 1 : 0); }

Long Settings::readServerIdleCount(Long configuredSoFar) const {
    return raw(Setting::ServerIdleCount, configuredSoFar);
}

Long Settings::readVideoMag() const { return stored(Setting::VideoMag); }

void Settings::writeVideoMag(Long magnification) { store(Setting::VideoMag, magnification); }

} // namespace ocuva
