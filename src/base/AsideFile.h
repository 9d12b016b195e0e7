#pragma once
// A file that is prepared beside its place and moved there when it is complete, so that what stood there
// before stays whole until then; and the other way round, a file that is taken out of the way for a while.

#include <filesystem>
#include <system_error>

namespace ocuva {

/// Owns the name "target.aside" in the target's folder. Whatever stands under it is removed at the end,
/// unless it was moved into place. One thread.
class AsideFile {
public:
    /// Makes nothing yet. The target's folder has to be there when the file is written.
    explicit AsideFile(std::filesystem::path target);
    ~AsideFile();
    AsideFile(const AsideFile&) = delete;
    AsideFile& operator=(const AsideFile&) = delete;

    /// Where the file is to be written; closed before it is moved.
    const std::filesystem::path& path() const { return m_path; }
    /// Where the file goes in the end, as it was given.
    const std::filesystem::path& target() const { return m_target; }

    /// Replaces what stands at the target by the file. On an error nothing has changed.
    [[nodiscard]] std::error_code moveIntoPlace();

private:
    std::filesystem::path m_target;
    std::filesystem::path m_path;
};

/// What stands at a target, out of the way under the name "target.former": put back at the end, unless it was
/// dropped. A folder stays where it is. One thread.
class FormerFile {
public:
    /// Moves nothing yet.
    explicit FormerFile(std::filesystem::path target);
    ~FormerFile();
    FormerFile(const FormerFile&) = delete;
    FormerFile& operator=(const FormerFile&) = delete;

    /// No error where nothing stands. On an error nothing has changed.
    [[nodiscard]] std::error_code moveAway();

    /// Removes it for good, and one that an earlier run left.
    void drop();

private:
    std::filesystem::path m_target;
    std::filesystem::path m_path;
    bool m_movedAway = false;
};

} // namespace ocuva
