#pragma once
// The folder in which a host keeps everything: stores, standards, its configuration, its log.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace hosts {

/// A file that the first start creates.
struct SeedFile {
    std::filesystem::path name; ///< relative to the data folder
    std::string text;           ///< its content
};

/// The folder with the files of one host.
class DataFolder {
public:
    /// Looks a variable of the environment up; nothing when it is not set.
    using Environment = std::function<std::optional<std::string>(const char* name)>;

    /// OCUVA_DATA if it is set and not empty; otherwise "Ocuva" in the folder for the user's data:
    /// %LOCALAPPDATA% on Windows, elsewhere $XDG_DATA_HOME if it is absolute, or $HOME/.local/share.
    /// Without any of them it is in the system's temporary folder.
    ///@{
    static std::filesystem::path locate();
    static std::filesystem::path locate(const Environment& environment);
    ///@}

    /// What a first start lays down in that folder.
    using Seeds = std::function<std::vector<SeedFile>(const std::filesystem::path& folder)>;

    /// Creates the folder if necessary and fills it at its first start; without seeds it is only created.
    /// An interrupted seeding is completed by the next open; a completed one is never repeated, so files
    /// that the user deletes stay deleted. Existing files are never overwritten. Several processes may
    /// open it at the same time. On failure returns one sentence with path and reason.
    static std::variant<DataFolder, std::string> open(const std::filesystem::path& path,
                                                      const Seeds& seeds = {});

    /// Absolute.
    const std::filesystem::path& path() const { return m_path; }
    /// Paths inside the folder; the files may be missing.
    ///@{
    std::filesystem::path standards() const { return m_path / "standards"; }
    std::filesystem::path logFile() const { return m_path / "tarn.log"; }
    ///@}

private:
    explicit DataFolder(std::filesystem::path path)
        : m_path(std::move(path)) {}

    std::filesystem::path m_path;
};

} // namespace hosts
