#pragma once
// The magnification and the field as the operator types them.

#include "setup/SetupMainWindow.h"
#include "video/Magnification.h"

#include <string>

namespace ocuva {

/// As they stand in the boxes.
struct MagnificationTexts {
    std::string magnification; ///< 400 means 400 times
    std::string x100;          ///< width of the field in stage units at magnification 100
    std::string y100;          ///< height of the field
};

/// What the stage page does with them.
class MagnificationSetup {
public:
    /// Both outlive it.
    MagnificationSetup(MagnificationStore& store, SetupMainWindow& mainWindow)
        : m_store(store)
        , m_mainWindow(mainWindow) {}

    /// What the host has now. Texts that are read back give the very same numbers.
    MagnificationTexts texts() const;

    /// Hands the numbers that the texts begin with (0 where there is none; the magnification rounded half to
    /// even) to the host and redraws the micro marker. Throws std::runtime_error that names the field when a
    /// number is too large to be kept, with nothing changed; and, after all is stored, when there is no scale
    /// at such a magnification.
    void set(const MagnificationTexts& typed);

private:
    MagnificationStore& m_store;
    SetupMainWindow& m_mainWindow;
};

/// Typed texts as numbers, by the rules of MagnificationSetup::set.
Magnification typedMagnification(const MagnificationTexts& typed);

} // namespace ocuva
