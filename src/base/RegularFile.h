#pragma once
// The one place where files are opened. A name that the program expects to be a file may be something else: a
// pipe that nobody writes to, a device, a folder, a link that somebody planted. What is not a regular file is
// neither waited for nor read nor written.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace ocuva {

/// Why a file is left alone, where the system itself would have let us.
enum class FileRefusal { notRegular = 1, link, writeProtected, tooLarge };

/// Its message() is a clause such as "It is not a regular file".
std::error_code make_error_code(FileRefusal refusal);

/// An open regular file, closed at the end. Never blocks on opening, is not inherited by other programs, and
/// may be renamed or removed while it is open, on every system.
///
/// Each way of opening gives a file that is not open, and the reason in `error`, where the name is no regular
/// file or the system refuses it.
class RegularFile {
public:
    /// Not open.
    RegularFile() = default;
    ~RegularFile() { close(); }
    /// The file moves; the other one is not open any more.
    ///@{
    RegularFile(RegularFile&& other) noexcept;
    RegularFile& operator=(RegularFile&& other) noexcept;
    ///@}
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;

    /// Links are followed.
    static RegularFile openToRead(const std::filesystem::path& file, std::error_code& error);
    /// Makes the file where needed; each write goes to its end. A link is followed only when it is the user's
    /// own or the administrator's, and leads to a file that is there.
    static RegularFile openToAppend(const std::filesystem::path& file, std::error_code& error);
    /// To be locked: makes the file where needed. No link is followed.
    static RegularFile openToLock(const std::filesystem::path& file, std::error_code& error);
    /// Only under a name that is free; nothing is followed or overwritten. `forOwnerOnly`: nobody else may
    /// read it, until its rights are changed.
    static RegularFile createNew(const std::filesystem::path& file, bool forOwnerOnly,
                                 std::error_code& error);

    /// Whether there is a file to read or write.
    bool isOpen() const { return m_descriptor >= 0; }
    /// For libraries that do not close it; this object goes on owning it. -1 when it is not open.
    int descriptor() const { return m_descriptor; }
    /// What libtiff's TIFFFdOpen takes, a number of its own that the receiver closes; -1 on an error.
    int numberForTiff() const;
    /// Closes such a number that the library did not want.
    static void closeNumber(int number);
    /// Early; the destructor does it otherwise.
    void close();

    /// Bytes; 0 where the system does not tell.
    std::uintmax_t size() const;
    /// The next read begins at the first byte.
    void rewind() const;
    /// What is there from the present place on, at most so many bytes.
    std::size_t read(char* buffer, std::size_t bytes, std::error_code& error) const;
    /// All from the present place on. Nothing, with the reason, when it cannot be read or is longer than
    /// that.
    std::optional<std::string> readAll(std::size_t maxBytes, std::error_code& error) const;
    /// The number of bytes written: fewer than all only with a reason.
    std::size_t write(std::string_view bytes, std::error_code& error) const;
    /// Returns when what was written is on the disk.
    std::error_code flushToDisk() const;

    /// Takes an exclusive lock, for as long as the file is open, without waiting. An advisory one; the system
    /// frees the lock of a process that dies. Without an error it was taken, or (false) somebody has it.
    bool tryLock(std::error_code& error) const;
    /// Whether that name still stands for this file.
    bool isStillAt(const std::filesystem::path& file) const;
    /// Whether it has a name at all; where a system cannot tell, it has.
    bool hasName() const;
    /// Whether somebody has it open for writing; where a system or a disk cannot tell, nobody has. For a file
    /// that is open to read.
    bool isBeingWritten() const;
    /// Whether the user owns it and it has no second name.
    bool isOwn() const;
    /// Gives it the access rights of the file of that name, where there is one.
    std::error_code takeRightsOf(const std::filesystem::path& file) const;

private:
    explicit RegularFile(int descriptor)
        : m_descriptor(descriptor) {}
    static RegularFile openExisting(const std::filesystem::path& file, int way, std::error_code& error);

    int m_descriptor = -1; ///< of the C library, on every system
};

/// No error when a file may be put under that name: nothing is there, or a regular file that the user may
/// write. A link, wherever it leads, is not replaced.
std::error_code replaceable(const std::filesystem::path& target);

/// Each file gets the other's name, in one step. std::errc::not_supported where the system or the disk has no
/// such step; any other error is the system's, such as for a name that is not there.
std::error_code exchangeNames(const std::filesystem::path& one, const std::filesystem::path& other);

/// Renames a file unless the new name is taken: std::errc::file_exists.
std::error_code renameIfFree(const std::filesystem::path& from, const std::filesystem::path& to);

} // namespace ocuva

/// @cond
template <> struct std::is_error_code_enum<ocuva::FileRefusal> : std::true_type {};
/// @endcond
