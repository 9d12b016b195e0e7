#pragma once
// The folder in which a host keeps everything: stores, standards, its configuration, its log.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace hosts {

/// A file that a first start lays down.
struct SeedFile {
    std::filesystem::path name; ///< in the data folder
    std::string text;
};

/// Where the files of one host are.
class DataFolder {
public:
    /// Looks a variable of the environment up; nothing when it is not set.
    using Environment = std::function<std::optional<std::string>(const char* name)>;

    /// OCUVA_DATA where it is set and not empty; else "Ocuva" in the place for a user's data: %LOCALAPPDATA%
    /// on Windows, elsewhere $XDG_DATA_HOME if absolute, or $HOME/.local/share. Without any of them it is in
    /// the system's folder for temporary files.
    ///@{
    static std::filesystem::path locate();
    static std::filesystem::path locate(const Environment& environment);
    ///@}

    /// What a first start lays down in that folder.
    using Seeds = std::function<std::vector<SeedFile>(const std::filesystem::path& folder)>;

    /// Makes the folder where needed and seeds it at its first start; without seeds it is only made. A
    /// seeding that was cut short is completed by the next open; a completed one is never repeated, so what
    /// the user deletes stays deleted. No existing file is ever overwritten. Several processes may open at
    /// once. On failure one sentence that names path and reason.
    static std::variant<DataFolder, std::string> open(const std::filesystem::path& path,
                                                      const Seeds& seeds = {});

    /// Absolute.
    const std::filesystem::path& path() const { return m_path; }
    /// In it; what they name may be gone.
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
