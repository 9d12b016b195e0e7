#pragma once
// The magnification and the field as the operator types them.

#include "setup/SetupMainWindow.h"
#include "video/Magnification.h"

#include <string>

namespace ocuva {

/// The texts in the boxes.
struct MagnificationTexts {
    std::string magnification; ///< 400 means 400 times
    std::string x100;          ///< width of the field in stage units at magnification 100
    std::string y100;          ///< height of the field
};

/// The operations of the stage page.
class MagnificationSetup {
public:
    /// Both outlive it.
    MagnificationSetup(MagnificationStore& store, SetupMainWindow& mainWindow)
        : m_store(store)
        , m_mainWindow(mainWindow) {}

    /// The host's current values. The texts read back give exactly the same numbers.
    MagnificationTexts texts() const;

    /// Passes the numbers at the beginning of the texts (0 if there is none; the magnification rounded
    /// half to even) to the host and redraws the micro marker. Throws std::runtime_error that names the
    /// field if a number is too large to be stored, with nothing changed; and, after all is stored, if
    /// there is no scale at this magnification.
    void set(const MagnificationTexts& typed);

private:
    MagnificationStore& m_store;
    SetupMainWindow& m_mainWindow;
};

/// Typed texts as numbers, by the rules of MagnificationSetup::set.
Magnification typedMagnification(const MagnificationTexts& typed);

} // namespace ocuva
