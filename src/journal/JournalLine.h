#pragma once
// The lines of the journal: comma-separated values for any spreadsheet program.

#include "journal/JournalEntry.h"

#include <string>
#include <string_view>

namespace ocuva {

/// The column names, with a line feed.
inline constexpr std::string_view journalHeader = "time,what,from_x,from_y,from_z,to_x,to_y,to_z,result\n";

/// One line with its line feed. An unknown position gives three empty fields. A field with a comma, a
/// quotation mark or blanks at its ends is quoted, and its quotation marks are doubled. A line break in a
/// text becomes a blank, so an entry is always one line.
std::string journalLine(std::string_view time, const JournalEntry& entry);

} // namespace ocuva
