#pragma once
// The file that a trace goes to.

#include <filesystem>
#include <string_view>

namespace ocuva {

/// Appends lines to a file. Each line is handed to the operating system in one unbuffered write before
/// writeLine returns, so that it can be read however the program ends. Errors never reach the caller: a file
/// that cannot be opened is reported once on stderr, and what cannot be written is lost.
class TraceWriter {
public:
    /// Opens or makes the file; lines that stand in it stay. Pipes and sockets are not taken, because their
    /// reader could hold the program up.
    explicit TraceWriter(const std::filesystem::path& file);
    ~TraceWriter();
    TraceWriter(const TraceWriter&) = delete;
    TraceWriter& operator=(const TraceWriter&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }

    /// `line` ends with its line feed. Does nothing while the file is not open.
    void writeLine(std::string_view line);

private:
    int m_descriptor = -1;
    bool m_torn = false; ///< the last line could be written in part only
};

} // namespace ocuva
