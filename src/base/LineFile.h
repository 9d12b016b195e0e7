#pragma once
// A file of lines that only grows: a trace, a journal.

#include "base/FileRotation.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace ocuva {

/// Appends lines to a file. Each line is handed to the operating system in one unbuffered write before
/// writeLine returns, so that it can be read however the program ends. Errors never reach the caller: the
/// first one is complained of, and what cannot be written is lost.
///
/// A full file is moved away (base/FileRotation.h) and a new one begun; so it is when another program that
/// writes into the same file has moved it, or somebody has deleted it.
class LineFile {
public:
    /// Takes one clause that begins with the name of the file, UTF-8, and says what is wrong with it.
    using Complaint = std::function<void(const std::string&)>;

    /// Opens or makes the file; lines that stand in it stay. Pipes and sockets are not taken, because their
    /// reader could hold the program up. `header`, ended with its line feed, stands at the beginning of each
    /// file that is begun.
    LineFile(std::filesystem::path file, const FileLimit& limit, Complaint complain, std::string header = {});
    ~LineFile();
    LineFile(const LineFile&) = delete;
    LineFile& operator=(const LineFile&) = delete;

    /// Whether the next line has a file to go into.
    bool isOpen() const { return m_descriptor >= 0; }

    /// `line` ends with its line feed. Does nothing while the file is not open.
    void writeLine(std::string_view line);

private:
    void makeRoom(std::size_t addedBytes);
    void reopen();
    void complain(const std::string& trouble);
    bool isEmpty() const;

    std::filesystem::path m_file;
    FileLimit m_limit;
    Complaint m_complain;
    std::string m_header;
    int m_descriptor = -1;
    bool m_torn = false; ///< the last line could be written in part only
    bool m_complained = false;
};

} // namespace ocuva
