#pragma once
// The journal's lines: comma-separated values that any spreadsheet reads.

#include "journal/JournalEntry.h"

#include <string>
#include <string_view>

namespace ocuva {

/// The names of the columns, ended with a line feed.
inline constexpr std::string_view journalHeader = "time,what,from_x,from_y,from_z,to_x,to_y,to_z,result\n";

/// One line, ended with a line feed; an unknown position is three empty fields. A field with a comma, a
/// quotation mark or blanks at its ends is put in quotation marks, those inside it doubled. A line break in a
/// text becomes a blank: an entry is always one line.
std::string journalLine(std::string_view time, const JournalEntry& entry);

} // namespace ocuva
