#pragma once
// The list of standards while it is being stored. The host takes it one entry at a time, so a program that is
// killed in between leaves a part of it.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace ocuva {

/// A file of the program's own that holds the whole list until all of it is stored. One thread; the caller
/// sees to it that no other program uses the file meanwhile.
class UnfinishedList {
public:
    /// Touches nothing yet. An empty path keeps nothing.
    explicit UnfinishedList(std::filesystem::path file);

    /// As given at its making.
    const std::filesystem::path& file() const { return m_file; }

    /// Keeps these names in place of what was kept before. False when they could not be written or a name has
    /// a line end in it; nothing is kept then.
    bool keep(const std::vector<std::string>& names) const;
    /// What is kept; nothing for a file that is not there or not whole.
    std::optional<std::vector<std::string>> names() const;
    /// Keeps nothing from now on.
    void drop() const;

private:
    std::filesystem::path m_file;
};

} // namespace ocuva
