#include "hosts/common/services/DataFolder.h"

#include "base/FileLock.h"
#include "base/Product.h"
#include "hosts/common/services/PlatformFiles.h"
#include "hosts/common/services/Standards.h"
#include "hosts/common/services/UniqueKey.h"
#include "hosts/simulated/config/SimConfig.h"

#include <cmath>
#include <cstdlib>
#include <utility>
#include <vector>

namespace hosts {

using namespace simulated;

namespace {

namespace fs = std::filesystem;

/// Laid down last; while it is missing, seeding is not complete.
constexpr const char* seededMark = "first-start.done";
constexpr const char* seedingLock = "first-start.lock";
constexpr std::chrono::seconds seedingPatience{30};

/// The program reads names of standards through a buffer of this many characters.
constexpr std::size_t longestStandardName = 128;

struct Mineral {
    const char* name;
    double x; ///< stage units
    double y;
};

constexpr Mineral minerals[] = {
    {"Quartz", -9000, 4000},   {"Albite", -3000, 4000},    {"Orthoclase", 3000, 4000},
    {"Olivine", 9000, 4000},   {"Diopside", -9000, -4000}, {"Almandine", -3000, -4000},
    {"Hematite", 3000, -4000}, {"Pyrite", 9000, -4000},
};

fs::path mineralFile(const fs::path& folder, const Mineral& mineral) {
    return folder / "standards" / (std::string(mineral.name) + ".std");
}

/// Bench settings: lines thin and close enough for the picture on a screen.
std::string programStore(const fs::path& folder) {
    std::string text =
        "[Configuration]\nCrossSize=96\nCrossWidth=2\nGridSizeX=96\nGridSizeY=96\nGridLineWidth=1\n"
        "LiveImage=1\nShowCross=1\n\n[StandardList]\n";
    text += "StandardListSize=" + std::to_string(std::size(minerals)) + "\n";
    int number = 0;
    for (const Mineral& mineral : minerals) {
        const fs::path file = mineralFile(folder, mineral);
        // A path that would be cut is of no use; the database finds the bare name in its own folder.
        const bool fits = file.string().size() <= longestStandardName;
        text += "Standard" + std::to_string(++number) + "=" + (fits ? file : file.filename()).string() + "\n";
    }
    return text;
}

std::string mineralText(const Mineral& mineral) {
    const double z = defaultSurface().at(mineral.x, mineral.y);
    return standardText(mineral.name,
                        {static_cast<ocuva::Long>(mineral.x), static_cast<ocuva::Long>(mineral.y),
                         static_cast<ocuva::Long>(std::lround(z))});
}

/// What a first start lays down, the mark of completion last.
std::vector<std::pair<fs::path, std::string>> seedFiles(const fs::path& folder) {
    std::vector<std::pair<fs::path, std::string>> files;
    for (const Mineral& mineral : minerals)
        files.emplace_back(mineralFile(folder, mineral), mineralText(mineral));
    files.emplace_back(folder / (std::string(ocuva::productTitle) + ".INI"), programStore(folder));
    files.emplace_back(folder / "TARN.INI",
                       "[tn_video]\nVideoMag=400\nVideoMag100X=2560\nVideoMag100Y=1920\nCameraType=3\n");
    files.emplace_back(folder / "TARN", "[tn_video]\nVGAMode=0\n");
    files.emplace_back(folder / "simulator.ini", defaultSimConfigText());
    files.emplace_back(folder / seededMark,
                       "This folder was filled at its first start. Delete this file to have what "
                       "is missing laid down again.\n");
    return files;
}

std::string sentence(const fs::path& path, const std::string& trouble, const std::string& reason) {
    return "The data folder \"" + path.string() + "\" " + trouble + (reason.empty() ? "" : ": " + reason) +
           ".";
}

std::string makeFolder(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::exists(status) && !fs::is_directory(status))
        return sentence(path, "is a file, not a folder", "");
    fs::create_directories(path, error);
    return error ? sentence(path, "cannot be created", error.message()) : std::string();
}

/// Rights alone do not tell (read-only disks, full disks): only a file that was made does.
std::string tryWriting(const fs::path& path) {
    const fs::path probe = path / ("probe-" + uniqueKey());
    const std::string problem = replaceFile(probe, "probe\n");
    std::error_code ignored;
    fs::remove(probe, ignored);
    return problem.empty() ? problem : sentence(path, "is not writable", problem);
}

std::string seed(const fs::path& path) {
    const ocuva::FileLock lock(path / seedingLock, seedingPatience);
    if (!lock.held())
        return sentence(path, "cannot be filled for its first start", lock.problem());
    std::error_code error;
    if (fs::exists(path / seededMark, error))
        return {};
    fs::create_directories(path / "standards", error);
    if (error)
        return sentence(path, "cannot be filled for its first start", "standards: " + error.message());
    for (const auto& [file, text] : seedFiles(path)) {
        if (fs::exists(fs::symlink_status(file, error)))
            continue;
        const std::string problem = replaceFile(file, text);
        if (!problem.empty())
            return sentence(path, "cannot be filled for its first start",
                            file.filename().string() + ": " + problem);
    }
    return {};
}

std::optional<std::string> processEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

fs::path userDataPlace(const DataFolder::Environment& environment) {
#ifdef _WIN32
    if (const auto local = environment("LOCALAPPDATA"); local && !local->empty())
        return *local;
#else
    if (const auto xdg = environment("XDG_DATA_HOME"); xdg && fs::path(*xdg).is_absolute())
        return *xdg;
    if (const auto home = environment("HOME"); home && !home->empty())
        return fs::path(*home) / ".local" / "share";
#endif
    std::error_code error;
    return fs::temp_directory_path(error);
}

} // namespace

fs::path DataFolder::locate() { return locate(processEnvironment); }

fs::path DataFolder::locate(const Environment& environment) {
    if (const auto given = environment("OCUVA_DATA"); given && !given->empty())
        return *given;
    return userDataPlace(environment) / ocuva::productTitle;
}

std::variant<DataFolder, std::string> DataFolder::open(const fs::path& path) {
    std::error_code error;
    fs::path folder = fs::absolute(path, error).lexically_normal();
    if (path.empty() || error)
        return sentence(path, "cannot be created", path.empty() ? "its name is empty" : error.message());
    if (!folder.has_filename())
        folder = folder.parent_path();
    for (const auto step : {makeFolder, tryWriting, seed})
        if (std::string problem = step(folder); !problem.empty())
            return problem;
    return DataFolder(std::move(folder));
}

} // namespace hosts
