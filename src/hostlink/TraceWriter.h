#pragma once
// The file of a trace.

#include "base/LineFile.h"

#include <filesystem>

namespace ocuva {

/// The size limit of a trace file from a text with a whole number of MiB, 1 to 1024; 8 MiB for null and,
/// with one line on stderr, for any other text.
FileLimit traceLimit(const char* mebibytes);

/// The same from the environment's OCUVA_TRACE_MAX_MIB.
FileLimit traceLimit();

/// Reports trouble with the file by one line on stderr.
class TraceWriter : public LineFile {
public:
    /// Opens or creates the file; lines of earlier runs stay.
    explicit TraceWriter(std::filesystem::path file, const FileLimit& limit = traceLimit());
};

} // namespace ocuva
