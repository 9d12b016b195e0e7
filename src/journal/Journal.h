#pragma once
// The journal on the disk: a record of the actions on the instrument, for service.

#include "base/LineFile.h"
#include "journal/JournalEntry.h"

#include <filesystem>
#include <functional>
#include <string>

namespace ocuva {

/// Appends one line per entry. Several copies of the program may write into one file. A line that cannot
/// be written is lost; the first failure causes one complaint and has no other effect.
class Journal {
public:
    /// `now` returns the time as ISO 8601 with milliseconds and time zone.
    Journal(std::filesystem::path file, std::function<std::string()> now, LineFile::Complaint complain,
            const FileLimit& limit = {});

    /// Reads the time when it writes the line.
    void write(const JournalEntry& entry);

private:
    LineFile m_file;
    std::function<std::string()> m_now;
};

} // namespace ocuva
