#pragma once
// The lengths of grid and cross: on the page, on the image, and in the store.

#include "display/LengthConversion.h"
#include "settings/Settings.h"
#include "setup/SetupMainWindow.h"

#include <string>

namespace ocuva {

/// The grid's pitch as typed, whole micrometres.
struct GridTexts {
    /// Of one cell.
    ///@{
    std::string width;
    std::string height;
    ///@}
};

/// The store has the grid in image pixels, the operator types micrometres on the sample; the current
/// magnification converts between them. A stage unit is a micrometre.
class OverlaySetup {
public:
    /// All outlive it.
    OverlaySetup(Settings& settings, const MagnificationStore& magnification,
                 const LengthConversion& conversion, SetupMainWindow& mainWindow)
        : m_settings(settings)
        , m_conversion(magnification, conversion)
        , m_mainWindow(mainWindow) {}

    /// The stored pitch in micrometres; 0 if there is no scale.
    StagePair gridMicrometres() const;

    /// Passes the typed pitch to the main window, redraws the grid and stores it. A length typed as it is
    /// shown means the stored one, which may be finer than whole micrometres. Throws std::runtime_error
    /// that names the field if a text is not a number, or a length other than 0 has no pixels on the
    /// image; nothing is changed then.
    void setGrid(const GridTexts& typed);

    /// The stored lengths, screen pixels at 1:1.
    CrossLengths cross() const { return m_settings.readCross(); }
    /// Redraws the cross on the main window and stores it; screen pixels at 1:1.
    void setCross(const CrossLengths& cross);

private:
    FramePair wholeImage() const;

    Settings& m_settings;
    PairConversion m_conversion;
    SetupMainWindow& m_mainWindow;
};

} // namespace ocuva
