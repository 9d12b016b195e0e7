#include "hosts/simulated/config/SeedFiles.h"

#include "base/Product.h"
#include "hosts/common/services/Standards.h"
#include "hosts/simulated/config/SimConfig.h"

#include <cmath>
#include <string>

namespace hosts::simulated {

namespace {

/// The program reads names of standards through a buffer of this many characters.
constexpr std::size_t longestStandardName = 128;

struct SeededMineral {
    const char* name;
    double x; ///< stage units
    double y;
};

constexpr SeededMineral minerals[] = {
    {"Quartz", -9000, 4000},   {"Albite", -3000, 4000},    {"Orthoclase", 3000, 4000},
    {"Olivine", 9000, 4000},   {"Diopside", -9000, -4000}, {"Almandine", -3000, -4000},
    {"Hematite", 3000, -4000}, {"Pyrite", 9000, -4000},
};

std::filesystem::path mineralFile(const SeededMineral& mineral) {
    return std::filesystem::path("standards") / (std::string(mineral.name) + ".std");
}

/// Bench settings: lines thin and close enough for the picture on a screen.
std::string programStore(const std::filesystem::path& folder) {
    std::string text =
        "[Configuration]\nCrossSize=96\nCrossWidth=2\nGridSizeX=96\nGridSizeY=96\nGridLineWidth=1\n"
        "LiveImage=1\nShowCross=1\n\n[StandardList]\n";
    text += "StandardListSize=" + std::to_string(std::size(minerals)) + "\n";
    int number = 0;
    for (const SeededMineral& mineral : minerals) {
        const std::filesystem::path file = folder / mineralFile(mineral);
        // A path that would be cut is of no use; the database finds the bare name in its own folder.
        const bool fits = file.string().size() <= longestStandardName;
        text += "Standard" + std::to_string(++number) + "=" + (fits ? file : file.filename()).string() + "\n";
    }
    return text;
}

std::string mineralText(const SeededMineral& mineral) {
    const double z = defaultSurface().at(mineral.x, mineral.y);
    return standardText(mineral.name,
                        {static_cast<ocuva::Long>(mineral.x), static_cast<ocuva::Long>(mineral.y),
                         static_cast<ocuva::Long>(std::lround(z))});
}

} // namespace

std::vector<SeedFile> seedFiles(const std::filesystem::path& folder) {
    std::vector<SeedFile> files;
    for (const SeededMineral& mineral : minerals) {
        files.push_back({mineralFile(mineral), mineralText(mineral)});
    }
    files.push_back({std::string(ocuva::productTitle) + ".INI", programStore(folder)});
    files.push_back(
        {"TARN.INI", "[tn_video]\nVideoMag=400\nVideoMag100X=2560\nVideoMag100Y=1920\nCameraType=3\n"});
    files.push_back({"TARN", "[tn_video]\nVGAMode=0\n"});
    files.push_back({"simulator.ini", defaultSimConfigText()});
    return files;
}

} // namespace hosts::simulated
