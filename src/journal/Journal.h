#pragma once
// The journal on the disk: what was done to the instrument, for whoever services it.

#include "base/LineFile.h"
#include "journal/JournalEntry.h"

#include <filesystem>
#include <functional>
#include <string>

namespace ocuva {

/// Appends one line an entry. Several copies of the program may write into one file. What cannot be written
/// is lost; the first trouble is one complaint, and nothing else ever comes of it.
class Journal {
public:
    /// `now` tells the time as ISO 8601 with milliseconds and zone.
    Journal(std::filesystem::path file, std::function<std::string()> now, LineFile::Complaint complain,
            const FileLimit& limit = {});

    /// The time is asked for as the line is written.
    void write(const JournalEntry& entry);

private:
    LineFile m_file;
    std::function<std::string()> m_now;
};

} // namespace ocuva
