#pragma once
// The file that a trace goes to.

#include "base/LineFile.h"

#include <filesystem>

namespace ocuva {

/// The size of a trace file, from a whole number of MiB, 1 to 1024, as a text; 8 MiB for a missing text
/// (null), and with one line on stderr for any other.
FileLimit traceLimit(const char* mebibytes);

/// The same from the environment's OCUVA_TRACE_MAX_MIB.
FileLimit traceLimit();

/// Trouble with the file is one line on stderr.
class TraceWriter : public LineFile {
public:
    /// Opens or makes the file; lines of an earlier run stay.
    explicit TraceWriter(std::filesystem::path file, const FileLimit& limit = traceLimit());
};

} // namespace ocuva
