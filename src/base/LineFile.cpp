#include "base/LineFile.h"

#include <utility>

namespace ocuva {

LineFile::LineFile(std::filesystem::path file, const FileLimit& limit, Complaint complain, std::string header)
    : m_file(std::move(file))
    , m_limit(limit)
    , m_complain(std::move(complain))
    , m_header(std::move(header)) {}

std::error_code LineFile::open() {
    const std::lock_guard guard(m_mutex);
    return makeRoom(0);
}

std::error_code LineFile::reopen() {
    std::error_code error;
    m_open.close();
    m_open = RegularFile::openToAppend(m_file, error);
    if (error) {
        complain("cannot be opened (" + error.message() + ')');
    }
    return error;
}

void LineFile::complain(const std::string& trouble) {
    if (m_complained) {
        return;
    }
    m_complained = true; // set first: the complaint may write a line to this very file
    if (m_complain) {
        const std::u8string name = m_file.u8string();
        m_complain(std::string(name.begin(), name.end()) + ' ' + trouble);
    }
}

/// Closes the file before renaming it, because some systems cannot rename open files.
std::error_code LineFile::makeRoom(std::size_t addedBytes) {
    if (!m_open.isOpen()) {
        return reopen();
    }
    if (isFull(m_file, addedBytes, m_limit)) {
        m_open.close();
        rotateWhenFull(m_file, addedBytes, m_limit);
        return reopen();
    }
    return m_open.isStillAt(m_file) ? std::error_code() : reopen();
}

std::error_code LineFile::writeLine(std::string_view line) {
    const std::lock_guard guard(m_mutex);
    if (const std::error_code error = makeRoom(line.size())) {
        return error;
    }
    std::string whole;
    if (!m_header.empty() && m_open.size() == 0) {
        whole = m_header + std::string(line);
    } else if (m_torn) {
        // A line that was cut off by a full disk must not spoil the next one.
        whole = '\n' + std::string(line);
    }
    return writeWhole(whole.empty() ? line : whole);
}

std::error_code LineFile::writeWhole(std::string_view line) {
    std::error_code error;
    const std::size_t written = m_open.write(line, error);
    m_torn = written < line.size() && (m_torn || written > 0);
    if (error) {
        complain("cannot be written (" + error.message() + ')');
    } else {
        m_complained = false;
    }
    return error;
}

} // namespace ocuva
