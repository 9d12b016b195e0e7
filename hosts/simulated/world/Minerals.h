#pragma once
// What the sections are made of: minerals as seen in reflected light, and the mixtures that make a rock or an
// ore.

#include "hosts/simulated/world/SampleGrid.h"

#include <cstdint>
#include <string>
#include <vector>

namespace hosts::simulated {

/// One mineral under the microscope. Colours are the camera's, at the reference exposure.
struct Mineral {
    const char* name;
    Rgb colour;
    float spread;       ///< grains differ by up to this part in brightness (their crystal's direction)
    float texture;      ///< strength of the fine texture inside a grain, 0 to about 0.3
    float twinnedPart;  ///< part of the grains that show twin or exsolution lamellae
    float twinContrast; ///< brightness step between lamellae, part
    float twinPitch;    ///< units from lamella to lamella
};

enum class MineralId : std::uint8_t {
    Quartz,
    Albite,
    Orthoclase,
    Calcite,
    Magnetite,
    Hematite,
    Ilmenite,
    Chromite,
    Pyrite,
    Chalcopyrite,
    Pyrrhotite,
    Galena,
    Sphalerite,
    Bornite,
    Olivine,
    Count
};

const Mineral& mineral(MineralId id);

/// A mineral and its share of a mixture.
struct Share {
    MineralId mineral;
    float weight;
};

/// A rock or ore: what it is mixed of and how coarse.
struct Assemblage {
    std::vector<Share> coarse;     ///< the large grains
    std::vector<Share> fine;       ///< the fine-grained aggregates between them
    std::vector<Share> inclusions; ///< drops, cubes and needles inside the grains
    double coarseCell;             ///< units, mean distance of large grains
    double fineCell;               ///< units, mean distance of the grains of aggregates
    float aggregatePart;           ///< part of the large cells that are fine-grained
    float inclusionDensity;        ///< 0 to 1
    float poreDensity;             ///< 0 to 1
};

/// The endless section around the mounts.
const Assemblage& sectionAssemblage();

/// The standard in a mount: the mineral that the name contains (any case), else one chosen by the number.
const Assemblage& mountAssemblage(int number, const std::string& name);

} // namespace hosts::simulated
