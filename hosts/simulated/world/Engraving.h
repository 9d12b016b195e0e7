#pragma once
// Text engraved into a surface with a single stroke, readable on the picture.

#include "hosts/simulated/world/SampleGrid.h"

#include <string>

namespace hosts::simulated {

/// One line of text, centred on a place. Known signs: letters (shown as capitals), digits, - . / + and blank.
struct Engraving {
    std::string text;
    double x = 0.0;
    double y = 0.0;
    double height = 100.0;  ///< units, of a capital letter
    Rgb groove{30, 28, 27}; ///< its colour
    float rim = 0.25F;      ///< how much lighter the burr beside the groove is, part
};

/// Engraves the text where the grid shows it.
void engrave(const SampleGrid& grid, const Engraving& engraving, ColourPlanes& out);

} // namespace hosts::simulated
