#include "setup/OverlaySetup.h"

#include "base/Numbers.h"
#include "base/TextNumber.h"

#include <stdexcept>

namespace ocuva {

namespace {

Long typedLength(const char* field, const std::string& text) {
    try {
        return textToLong(text);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(std::string(field) + ": " + error.what());
    }
}

struct Pitch {
    Long typedMicrometres;
    Long shownMicrometres; // of the stored one
    Long storedPixels;
    Long convertedPixels; // of the typed one; 0 also when the conversion failed
};

Long pixelsOf(const char* field, const Pitch& pitch) {
    if (pitch.typedMicrometres == pitch.shownMicrometres) {
        return pitch.storedPixels;
    }
    if (pitch.convertedPixels == 0 && pitch.typedMicrometres != 0) {
        throw std::runtime_error(std::string(field) + ": " + std::to_string(pitch.typedMicrometres) +
                                 " micrometres cannot be converted to pixels at the present magnification");
    }
    return pitch.convertedPixels;
}

Long half(Long length) { return toLong(length / 2.0); }

} // namespace

FramePair OverlaySetup::wholeImage() const {
    const MonitorFields& fields = m_mainWindow.fields();
    return {fields.GrabSizeX, fields.GrabSizeY};
}

StagePair OverlaySetup::gridMicrometres() const {
    const GridLengths grid = m_settings.readGrid();
    return m_conversion.frameToStage({grid.GridSizeX, grid.GridSizeY}, wholeImage());
}

void OverlaySetup::setGrid(const GridTexts& typed) {
    const StagePair wanted{typedLength("Width", typed.width), typedLength("Height", typed.height)};
    GridLengths grid = m_settings.readGrid();
    const StagePair shown = m_conversion.frameToStage({grid.GridSizeX, grid.GridSizeY}, wholeImage());
    const FramePair pixels = m_conversion.stageToFrame(wanted, wholeImage());
    const Long width = pixelsOf("Width", {wanted.x, shown.x, grid.GridSizeX, pixels.x});
    const Long height = pixelsOf("Height", {wanted.y, shown.y, grid.GridSizeY, pixels.y});
    grid.GridSizeX = width;
    grid.GridSizeY = height;

    m_mainWindow.setGridLengths(grid);
    const MonitorFields& fields = m_mainWindow.fields();
    m_mainWindow.DrawGrid(half(fields.InitImageSizeY), half(fields.InitImageSizeX));
    m_settings.writeGrid(grid);
}

void OverlaySetup::setCross(const CrossLengths& cross) {
    m_mainWindow.setCrossLengths(cross);
    const MonitorFields& fields = m_mainWindow.fields();
    m_mainWindow.DrawCross(half(fields.InitImageSizeY), half(fields.InitImageSizeX));
    m_settings.writeCross(cross);
}

} // namespace ocuva
