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

/// The store has the grid in image pixels, the operator in micrometres on the sample; the present
/// magnification lies between the two. A stage unit is a micrometre.
class OverlaySetup {
public:
    /// All outlive it.
    OverlaySetup(Settings& settings, const MagnificationStore& magnification,
                 const LengthConversion& conversion, SetupMainWindow& mainWindow)
        : m_settings(settings)
        , m_conversion(magnification, conversion)
        , m_mainWindow(mainWindow) {}

    /// The stored pitch in micrometres; 0 where the magnification tells none.
    StagePair gridMicrometres() const;

    /// Gives the main window the typed pitch, redraws the grid and stores it. A length that is typed as it
    /// is shown stands for the stored one, which may be finer than whole micrometres. Throws
    /// std::runtime_error that names the field when a text is no number, or a length that is not 0 has no
    /// pixels on the image; nothing is changed then.
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
