#pragma once
// The parts of the main window that the set-up dialog changes.

#include "display/MonitorSizing.h"
#include "settings/Settings.h"

#include <QString>

#include <memory>

namespace ocuva {

/// Lengths on the image in the units that each operation names.
class SetupMainWindow {
public:
    virtual ~SetupMainWindow() = default;

    /// The image as it is sized now.
    virtual const MonitorFields& fields() const = 0;
    /// Screen pixels at 1:1, as stored; nothing is redrawn.
    ///@{
    virtual void setCrossLengths(const CrossLengths& cross) = 0;
    virtual void setGridLengths(const GridLengths& grid) = 0;
    ///@}

    /// The centre on the initial image, in twips.
    ///@{
    virtual void DrawCross(Long centreY, Long centreX) = 0;
    virtual void DrawGrid(Long centreY, Long centreX) = 0;
    ///@}

    /// Throws ArithmeticError when there is no field to draw a scale for.
    virtual void DrawMicroMarker() = 0;

    /// Shows the magnification in the status bar.
    virtual void showMagnification(Long magnification) = 0;
    /// Blocks pointer and keys and shows the text for the life of the returned object, around host calls
    /// that can take long. Null if there is no window.
    virtual std::shared_ptr<void> holdInput(const QString& /*what*/) { return nullptr; }
    /// The camera or the board is another one: its picture may have another size. The image is sized for it
    /// once the handler that called this has ended.
    virtual void cameraChanged() {}
    /// Whether the image is live, in menu, toolbar and status bar.
    virtual void showAcquisition() = 0;
};

} // namespace ocuva
