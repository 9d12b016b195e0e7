#pragma once
// A file to which lines are appended: a log, a trace, a journal.

#include "base/FileRotation.h"
#include "base/RegularFile.h"

#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <system_error>

namespace ocuva {

/// Appends lines to a regular file. Each line is passed to the operating system in one unbuffered write
/// before writeLine returns, so it is not lost however the program ends, and lines of several programs do
/// not mix. Nothing is waited for. Any thread.
///
/// A full file is renamed (base/FileRotation.h) and a new one begun; the same happens if another program
/// has renamed the file or somebody has deleted it. A line that cannot be written is lost; the next line
/// tries the file again.
class LineFile {
public:
    /// Receives a clause in UTF-8 that begins with the file's name and says what is wrong.
    using Complaint = std::function<void(const std::string&)>;

    /// The first line opens or creates the file; existing lines stay. `complain` is called once each time
    /// writing begins to fail; it must not write to this object. `header`, with its line feed, begins each
    /// new file.
    explicit LineFile(std::filesystem::path file, const FileLimit& limit = {}, Complaint complain = {},
                      std::string header = {});

    /// Opens or creates the file without writing a line.
    std::error_code open();

    /// Whether the file was open for the previous line.
    bool isOpen() const { return m_open.isOpen(); }

    /// Writes a line, which ends with a line feed. Returns the error, if any.
    std::error_code writeLine(std::string_view line);

    /// Takes effect with the next line. Not to be called while another thread writes.
    void limitTo(const FileLimit& limit) { m_limit = limit; }

    /// As passed to the constructor.
    const std::filesystem::path& path() const { return m_file; }

private:
    std::error_code makeRoom(std::size_t addedBytes);
    std::error_code reopen();
    std::error_code writeWhole(std::string_view line);
    void complain(const std::string& trouble);

    std::filesystem::path m_file;
    FileLimit m_limit;
    Complaint m_complain;
    std::string m_header;
    std::mutex m_mutex;
    RegularFile m_open;
    bool m_torn = false; ///< only part of the last line could be written
    bool m_complained = false;
};

} // namespace ocuva
