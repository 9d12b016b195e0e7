#pragma once
// A file of lines that only grows: a log, a trace, a journal.

#include "base/FileRotation.h"
#include "base/RegularFile.h"

#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <system_error>

namespace ocuva {

/// Appends lines to a regular file. Each line is handed to the operating system in one unbuffered write
/// before writeLine returns, so that it can be read however the program ends, and lines of several programs
/// never mix. Nothing is ever waited for. Any thread.
///
/// A full file is moved away (base/FileRotation.h) and a new one begun; so it is when another program that
/// writes into the same file has moved it, or somebody has deleted it. What cannot be written is lost; the
/// file is tried again with each line, so that lines go on when the trouble is over.
class LineFile {
public:
    /// Takes one clause that begins with the name of the file, UTF-8, and says what is wrong with it.
    using Complaint = std::function<void(const std::string&)>;

    /// The file is opened or made with the first line; the lines in it stay. `complain` is called once for
    /// each time that the file cannot be written, until it can again; it must not write into this object.
    /// `header`, ended with its line feed, is at the beginning of each file that is begun.
    explicit LineFile(std::filesystem::path file, const FileLimit& limit = {}, Complaint complain = {},
                      std::string header = {});

    /// Opens or makes the file without a line.
    std::error_code open();

    /// Whether the line before had a file to go into.
    bool isOpen() const { return m_open.isOpen(); }

    /// `line` ends with its line feed. What went wrong, or no error.
    std::error_code writeLine(std::string_view line);

    /// From the next line on; not while another thread writes.
    void limitTo(const FileLimit& limit) { m_limit = limit; }

    /// As given at its making.
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
    bool m_torn = false; ///< the last line could be written in part only
    bool m_complained = false;
};

} // namespace ocuva
