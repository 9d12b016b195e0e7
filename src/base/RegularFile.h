#pragma once
// The only place where files are opened. A name that should be a file may be something else: a pipe
// without a writer, a device, a folder, or a planted link. Anything but a regular file is neither waited
// for nor read nor written.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace ocuva {

/// The reasons for which the program itself refuses a file that the system would open.
enum class FileRefusal { notRegular = 1, link, writeProtected, tooLarge };

/// Its message() is a clause such as "It is not a regular file".
std::error_code make_error_code(FileRefusal refusal);

/// An open regular file; the destructor closes it. Opening never blocks, other programs do not inherit the
/// file, and it may be renamed or removed while it is open, on every system.
///
/// If the name is not a regular file or the system refuses it, the opening functions return a file that is
/// not open, and `error` has the reason.
class RegularFile {
public:
    /// Not open.
    RegularFile() = default;
    ~RegularFile() { close(); }
    /// The moved-from object is not open.
    ///@{
    RegularFile(RegularFile&& other) noexcept;
    RegularFile& operator=(RegularFile&& other) noexcept;
    ///@}
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;

    /// Links are followed.
    static RegularFile openToRead(const std::filesystem::path& file, std::error_code& error);
    /// Creates the file if necessary; each write appends. A link is followed only if it belongs to the
    /// user or the administrator and leads to an existing file.
    static RegularFile openToAppend(const std::filesystem::path& file, std::error_code& error);
    /// Opens a file for locking and creates it if necessary. Links are not followed.
    static RegularFile openToLock(const std::filesystem::path& file, std::error_code& error);
    /// Creates a file if the name is free; nothing is followed or overwritten. With `forOwnerOnly` nobody
    /// else may read it until its rights are changed.
    static RegularFile createNew(const std::filesystem::path& file, bool forOwnerOnly,
                                 std::error_code& error);

    /// Whether the file is open.
    bool isOpen() const { return m_descriptor >= 0; }
    /// For libraries that do not close it; this object still owns it. -1 if it is not open.
    int descriptor() const { return m_descriptor; }
    /// A descriptor for libtiff's TIFFFdOpen, which then closes it; -1 on an error.
    int numberForTiff() const;
    /// Closes a descriptor from numberForTiff that libtiff did not accept.
    static void closeNumber(int number);
    /// Closes the file before the destructor does.
    void close();

    /// In bytes; 0 if the system does not report it.
    std::uintmax_t size() const;
    /// Moves the read position to the first byte.
    void rewind() const;
    /// Reads at most this many bytes from the current position. Returns the number of bytes read.
    std::size_t read(char* buffer, std::size_t bytes, std::error_code& error) const;
    /// Reads everything from the current position. Empty, with the reason, if the file cannot be read or
    /// is longer than maxBytes.
    std::optional<std::string> readAll(std::size_t maxBytes, std::error_code& error) const;
    /// Returns the number of bytes written; if it is smaller than the text, `error` has the reason.
    std::size_t write(std::string_view bytes, std::error_code& error) const;
    /// Returns once everything written is on the disk.
    std::error_code flushToDisk() const;

    /// Tries to take an exclusive advisory lock, without waiting; it is held while the file is open, and
    /// the system releases it if the process ends. Returns whether it was taken; false without an error if
    /// somebody else holds it.
    bool tryLock(std::error_code& error) const;
    /// Whether that name still refers to this file.
    bool isStillAt(const std::filesystem::path& file) const;
    /// Whether the file still has a name; true if the system cannot tell.
    bool hasName() const;
    /// Whether somebody has the file open for writing; false if the system or the disk cannot tell. For a
    /// file opened for reading.
    bool isBeingWritten() const;
    /// Whether the user owns the file and it has only one name.
    bool isOwn() const;
    /// Copies the access rights of that file, if it exists.
    std::error_code takeRightsOf(const std::filesystem::path& file) const;

private:
    explicit RegularFile(int descriptor)
        : m_descriptor(descriptor) {}
    static RegularFile openExisting(const std::filesystem::path& file, int way, std::error_code& error);

    int m_descriptor = -1; ///< of the C library, on every system
};

/// No error if a file may be put under that name: it does not exist, or it is a regular file that the user
/// may write. A link is never replaced, wherever it leads.
std::error_code replaceable(const std::filesystem::path& target);

/// Exchanges the names of two files in one step. std::errc::not_supported if the system or the disk cannot
/// do this; other errors are the system's, for example if a name does not exist.
std::error_code exchangeNames(const std::filesystem::path& one, const std::filesystem::path& other);

/// Renames a file unless the new name is taken: std::errc::file_exists.
std::error_code renameIfFree(const std::filesystem::path& from, const std::filesystem::path& to);

/// Moves a file to a name in the same folder, also over a regular file that has it. On Windows a program that
/// has one of the two open, such as a virus scanner, can be in the way; it is waited for, but not longer than
/// `patience`. No other system lets it be in the way.
std::error_code moveFile(const std::filesystem::path& from, const std::filesystem::path& to,
                         std::chrono::milliseconds patience);

} // namespace ocuva

/// @cond
template <> struct std::is_error_code_enum<ocuva::FileRefusal> : std::true_type {};
/// @endcond
