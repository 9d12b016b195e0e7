#include "hosts/common/services/DataFolder.h"

#include "base/FileLock.h"
#include "base/Product.h"
#include "hosts/common/services/PlatformFiles.h"
#include "hosts/common/services/UniqueKey.h"

#include <cstdlib>
#include <vector>

namespace hosts {

namespace {

namespace fs = std::filesystem;

/// Laid down last; while it is missing, seeding is not complete.
constexpr const char* seededMark = "first-start.done";
constexpr const char* seedingLock = "first-start.lock";
constexpr std::chrono::seconds seedingPatience{30};

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

/// Access rights are not sufficient (read-only disks, full disks): only creating a file proves it.
std::string tryWriting(const fs::path& path) {
    const fs::path probe = path / ("probe-" + uniqueKey());
    const std::string problem = replaceFile(probe, "probe\n");
    std::error_code ignored;
    fs::remove(probe, ignored);
    return problem.empty() ? problem : sentence(path, "is not writable", problem);
}

std::string seed(const fs::path& path, const DataFolder::Seeds& seeds) {
    if (!seeds)
        return {};
    const ocuva::FileLock lock(path / seedingLock, seedingPatience);
    if (!lock.held())
        return sentence(path, "cannot be filled for its first start", lock.problem());
    std::error_code error;
    if (fs::exists(path / seededMark, error))
        return {};
    fs::create_directories(path / "standards", error);
    if (error)
        return sentence(path, "cannot be filled for its first start", "standards: " + error.message());
    std::vector<SeedFile> files = seeds(path);
    files.push_back({seededMark, "This folder was filled at its first start. Delete this file to have what "
                                 "is missing laid down again.\n"});
    for (const SeedFile& file : files) {
        if (fs::exists(fs::symlink_status(path / file.name, error)))
            continue;
        const std::string problem = replaceFile(path / file.name, file.text);
        if (!problem.empty())
            return sentence(path, "cannot be filled for its first start",
                            file.name.filename().string() + ": " + problem);
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

std::variant<DataFolder, std::string> DataFolder::open(const fs::path& path, const Seeds& seeds) {
    std::error_code error;
    fs::path folder = fs::absolute(path, error).lexically_normal();
    if (path.empty() || error)
        return sentence(path, "cannot be created", path.empty() ? "its name is empty" : error.message());
    if (!folder.has_filename())
        folder = folder.parent_path();
    for (const auto step : {makeFolder, tryWriting})
        if (std::string problem = step(folder); !problem.empty())
            return problem;
    if (std::string problem = seed(folder, seeds); !problem.empty())
        return problem;
    return DataFolder(std::move(folder));
}

} // namespace hosts
