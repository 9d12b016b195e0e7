#pragma once
// The list of standards while it is being stored. The host takes it one entry at a time, so a program that is
// killed in between leaves a part of it.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace ocuva {

/// A file of the program that holds the whole list until all of it is stored. For one thread; the caller
/// ensures that no other program uses the file meanwhile.
class UnfinishedList {
public:
    /// Touches nothing yet. An empty path keeps nothing.
    explicit UnfinishedList(std::filesystem::path file);

    /// As passed to the constructor.
    const std::filesystem::path& file() const { return m_file; }

    /// Replaces the kept names. False if they could not be written or a name contains a line end; nothing
    /// is kept then.
    bool keep(const std::vector<std::string>& names) const;
    /// The kept names; nothing if the file is missing or incomplete.
    std::optional<std::vector<std::string>> names() const;
    /// Keeps nothing from now on.
    void drop() const;

private:
    std::filesystem::path m_file;
};

} // namespace ocuva
