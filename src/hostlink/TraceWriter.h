#pragma once
// The file that a trace goes to.

#include "base/FileRotation.h"

#include <filesystem>
#include <string_view>

namespace ocuva {

/// The size of a trace file, from a whole number of MiB, 1 to 1024, as a text; 8 MiB for a missing text
/// (null), and with one line on stderr for any other.
FileLimit traceLimit(const char* mebibytes);

/// The same from the environment's OCUVA_TRACE_MAX_MIB.
FileLimit traceLimit();

/// Appends lines to a file. Each line is handed to the operating system in one unbuffered write before
/// writeLine returns, so that it can be read however the program ends. Errors never reach the caller: a file
/// that cannot be opened is reported once on stderr, and what cannot be written is lost.
///
/// A full file is moved away (base/FileRotation.h) and a new one begun; so it is when another program that
/// traces into the same file has moved it, or somebody has deleted it.
class TraceWriter {
public:
    /// Opens or makes the file; lines that stand in it stay. Pipes and sockets are not taken, because their
    /// reader could hold the program up.
    explicit TraceWriter(std::filesystem::path file, const FileLimit& limit = traceLimit());
    ~TraceWriter();
    TraceWriter(const TraceWriter&) = delete;
    TraceWriter& operator=(const TraceWriter&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }

    /// `line` ends with its line feed. Does nothing while the file is not open.
    void writeLine(std::string_view line);

private:
    void makeRoom(std::size_t addedBytes);
    void reopen();

    std::filesystem::path m_file;
    FileLimit m_limit;
    int m_descriptor = -1;
    bool m_torn = false; ///< the last line could be written in part only
};

} // namespace ocuva
