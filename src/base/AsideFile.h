#pragma once
// A file that is prepared beside its place and moved there when it is complete, so that what stood there
// before stays whole until then.

#include <filesystem>
#include <system_error>

namespace ocuva {

/// Owns the name "target.aside" in the target's folder. Whatever stands under it is removed at the end,
/// unless it was moved into place. One thread.
class AsideFile {
public:
    explicit AsideFile(std::filesystem::path target);
    ~AsideFile();
    AsideFile(const AsideFile&) = delete;
    AsideFile& operator=(const AsideFile&) = delete;

    /// Where the file is to be written; closed before it is moved.
    const std::filesystem::path& path() const { return m_path; }
    const std::filesystem::path& target() const { return m_target; }

    /// Replaces what stands at the target by the file. On an error nothing has changed.
    [[nodiscard]] std::error_code moveIntoPlace();

private:
    std::filesystem::path m_target;
    std::filesystem::path m_path;
};

} // namespace ocuva
