#include "report/Report.h"

#include "base/AsideFile.h"
#include "report/ShortPaths.h"

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <array>
#include <cctype>
#include <chrono>
#include <memory>
#include <string_view>
#include <system_error>

namespace ocuva {

namespace {

using ArchivePtr = std::unique_ptr<archive, decltype(&archive_write_free)>;
using EntryPtr = std::unique_ptr<archive_entry, decltype(&archive_entry_free)>;

struct Kind {
    std::string_view extension;
    int (*setFormat)(archive*);
    int (*addFilter)(archive*);
};
constexpr std::array<Kind, 2> kinds{{
    {".tar.gz", archive_write_set_format_pax_restricted, archive_write_add_filter_gzip},
    {".zip", archive_write_set_format_zip, archive_write_add_filter_none},
}};

[[noreturn]] void fail(const std::filesystem::path& target, const std::string& reason) {
    throw ReportError("\"" + target.string() + "\" could not be saved: " + reason);
}

const Kind& kindOf(const std::filesystem::path& target) {
    std::string name = target.filename().string();
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    for (const Kind& kind : kinds) {
        const std::size_t length = kind.extension.size();
        if (name.size() > length && name.compare(name.size() - length, length, kind.extension) == 0) {
            return kind;
        }
    }
    fail(target, "its name must end in .tar.gz or .zip");
}

/// The archive being written. An error of the archive ends it; an error of a packed file does not.
class ArchiveFile {
public:
    ArchiveFile(const RegularFile& file, const std::filesystem::path& target)
        : m_target(target)
        , m_archive(archive_write_new(), archive_write_free) {
        const Kind& kind = kindOf(target);
        check(kind.setFormat(m_archive.get()));
        check(kind.addFilter(m_archive.get()));
        check(archive_write_open_fd(m_archive.get(), file.descriptor()));
    }

    void begin(const std::string& name, std::uintmax_t bytes, std::chrono::system_clock::time_point changed) {
        constexpr int readableByAll = 0644;
        const EntryPtr entry(archive_entry_new(), archive_entry_free);
        archive_entry_set_pathname(entry.get(), name.c_str());
        archive_entry_set_filetype(entry.get(), AE_IFREG);
        archive_entry_set_perm(entry.get(), readableByAll);
        archive_entry_set_size(entry.get(), static_cast<la_int64_t>(bytes));
        archive_entry_set_mtime(entry.get(), std::chrono::system_clock::to_time_t(changed), 0);
        check(archive_write_header(m_archive.get(), entry.get()));
    }

    void write(std::string_view bytes) {
        if (archive_write_data(m_archive.get(), bytes.data(), bytes.size()) !=
            static_cast<la_ssize_t>(bytes.size())) {
            failHere();
        }
    }

    void end() { check(archive_write_finish_entry(m_archive.get())); }
    void close() { check(archive_write_close(m_archive.get())); }

private:
    void check(int result) {
        if (result < ARCHIVE_WARN) {
            failHere();
        }
    }

    [[noreturn]] void failHere() {
        // The system's text comes first: the library's may name things that the operator does not know.
        const int number = archive_errno(m_archive.get());
        const char* words = archive_error_string(m_archive.get());
        fail(m_target, number > 0         ? std::generic_category().message(number)
                       : words != nullptr ? words
                                          : "the archive cannot be written");
    }

    const std::filesystem::path& m_target;
    ArchivePtr m_archive;
};

std::chrono::system_clock::time_point lastChange(const std::filesystem::path& file) {
    std::error_code error;
    const auto changed = std::filesystem::last_write_time(file, error);
    if (error) {
        return std::chrono::system_clock::now();
    }
    return std::chrono::time_point_cast<std::chrono::system_clock::duration>(
        std::filesystem::file_time_type::clock::to_sys(changed));
}

/// Writes this many zeros in place of the missing end of a file.
void fillUp(ArchiveFile& archive, std::uintmax_t bytes) {
    static constexpr std::array<char, 4096> zeros{};
    for (; bytes > 0; bytes -= std::min<std::uintmax_t>(bytes, zeros.size())) {
        archive.write(
            {zeros.data(), static_cast<std::size_t>(std::min<std::uintmax_t>(bytes, zeros.size()))});
    }
}

/// The lines of the first bytes of a file, with shortened paths. A file that is not a text comes in
/// pieces.
class ShortenedLines {
public:
    ShortenedLines(const RegularFile& source, std::uintmax_t bytes, const std::string& home)
        : m_source(source)
        , m_left(bytes)
        , m_home(home) {
        source.rewind();
    }

    /// The next line with its line end; empty at the end of the file, or if the file has become shorter.
    std::string next() {
        constexpr std::size_t longestLine = 1024 * 1024;
        std::size_t end = m_read.find('\n');
        while (end == std::string::npos && m_read.size() < longestLine && readOn()) {
            end = m_read.find('\n', m_read.size() - m_added);
        }
        const std::size_t length = end == std::string::npos ? m_read.size() : end + 1;
        std::string line = withShortPaths(std::string_view(m_read).substr(0, length), m_home);
        m_read.erase(0, length);
        return line;
    }
    /// The number of bytes that the file no longer has.
    std::uintmax_t missing() const { return m_left; }

private:
    bool readOn() {
        std::array<char, 65536> block{};
        std::error_code error;
        m_added = m_source.read(
            block.data(), static_cast<std::size_t>(std::min<std::uintmax_t>(m_left, block.size())), error);
        m_read.append(block.data(), m_added);
        m_left -= m_added;
        return m_added > 0;
    }

    const RegularFile& m_source;
    std::uintmax_t m_left;
    const std::string& m_home;
    std::string m_read;
    std::size_t m_added = 0;
};

/// The total length of the lines, which the archive needs in advance.
std::uintmax_t shortenedBytes(const RegularFile& source, std::uintmax_t bytes, const std::string& home) {
    ShortenedLines lines(source, bytes, home);
    std::uintmax_t total = 0;
    for (std::string line = lines.next(); !line.empty(); line = lines.next()) {
        total += line.size();
    }
    return total + lines.missing();
}

std::string packOpened(ArchiveFile& archive, const RegularFile& source, std::uintmax_t bytes,
                       std::uintmax_t shortened, const std::string& home) {
    ShortenedLines lines(source, bytes, home);
    std::uintmax_t left = shortened;
    for (std::string line = lines.next(); !line.empty() && left > 0; line = lines.next()) {
        line.resize(static_cast<std::size_t>(std::min<std::uintmax_t>(line.size(), left)));
        archive.write(line);
        left -= line.size();
    }
    fillUp(archive, left);
    return lines.missing() == 0 ? std::string()
                                : "could be read up to byte " + std::to_string(bytes - lines.missing()) +
                                      " only; zeros follow";
}

/// Packs a file. Returns what is wrong with it, as a clause, or an empty text.
std::string pack(ArchiveFile& archive, const ReportFile& file, const std::string& nameInArchive,
                 const std::string& home) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::symlink_status(file.path, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        return "is not there";
    }
    if (status.type() != std::filesystem::file_type::regular) {
        return error ? "cannot be read: " + error.message() : "is no regular file";
    }
    const RegularFile source = RegularFile::openToRead(file.path, error);
    if (error) {
        return "cannot be read: " + error.message();
    }
    const std::uintmax_t bytes = source.size();
    const std::uintmax_t shortened = shortenedBytes(source, bytes, home);
    archive.begin(nameInArchive, shortened, lastChange(file.path));
    std::string trouble = packOpened(archive, source, bytes, shortened, home);
    archive.end();
    return trouble;
}

} // namespace

bool canPackReports() { return true; }

void packReport(const std::filesystem::path& target, const ReportContents& contents) {
    AsideFile file(target);
    kindOf(target); // refuses other extensions before anything is created
    if (const std::error_code error = file.create()) {
        fail(target, error.message());
    }
    ArchiveFile archive(file.file(), file.target());
    std::string versions = withShortPaths(contents.versions, contents.home) + "\nFiles:\n";
    for (const ReportFile& source : contents.files) {
        const std::string trouble = pack(archive, source, contents.folder + "/" + source.name, contents.home);
        versions.append("  ")
            .append(source.name)
            .append(trouble.empty() ? "" : " ")
            .append(trouble)
            .append("\n");
    }
    archive.begin(contents.folder + "/versions.txt", versions.size(), std::chrono::system_clock::now());
    archive.write(versions);
    archive.end();
    archive.close();
    if (const std::error_code error = file.moveIntoPlace()) {
        fail(target, error.message());
    }
}

} // namespace ocuva
