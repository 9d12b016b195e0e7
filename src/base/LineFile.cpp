#include "base/LineFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <utility>
#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace ocuva {

namespace {

#ifdef _WIN32

int openForAppending(const std::filesystem::path& file) {
    return _wopen(file.c_str(), _O_WRONLY | _O_APPEND | _O_CREAT | _O_BINARY | _O_NOINHERIT,
                  _S_IREAD | _S_IWRITE);
}

long long writeSome(int descriptor, std::string_view text) {
    return _write(descriptor, text.data(), static_cast<unsigned>(text.size()));
}

void closeFile(int descriptor) { _close(descriptor); }

/// An open file can be neither moved nor deleted here.
bool isStillAt(int /*descriptor*/, const std::filesystem::path& /*file*/) { return true; }

#else

int openForAppending(const std::filesystem::path& file) {
    // O_NONBLOCK lets the opening of a pipe without a reader fail instead of waiting for one.
    const int descriptor =
        ::open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0644);
    struct stat about {};
    if (descriptor >= 0 && ::fstat(descriptor, &about) == 0 && S_ISFIFO(about.st_mode)) {
        ::close(descriptor);
        errno = ESPIPE;
        return -1;
    }
    return descriptor;
}

long long writeSome(int descriptor, std::string_view text) {
    for (;;) {
        const auto written = ::write(descriptor, text.data(), text.size());
        if (written >= 0 || errno != EINTR) {
            return written;
        }
    }
}

void closeFile(int descriptor) { ::close(descriptor); }

bool isStillAt(int descriptor, const std::filesystem::path& file) {
    struct stat open {};
    struct stat named {};
    return ::fstat(descriptor, &open) == 0 && ::stat(file.c_str(), &named) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

#endif

} // namespace

LineFile::LineFile(std::filesystem::path file, const FileLimit& limit, Complaint complain, std::string header)
    : m_file(std::move(file))
    , m_limit(limit)
    , m_complain(std::move(complain))
    , m_header(std::move(header)) {
    reopen();
}

void LineFile::reopen() {
    if (isOpen()) {
        closeFile(m_descriptor);
    }
    m_descriptor = openForAppending(m_file);
    if (!isOpen()) {
        complain(std::string("cannot be opened (") + std::strerror(errno) + ')');
    }
}

void LineFile::complain(const std::string& trouble) {
    if (m_complain && !m_complained) {
        const std::u8string name = m_file.u8string();
        m_complain(std::string(name.begin(), name.end()) + ' ' + trouble);
    }
    m_complained = true;
}

bool LineFile::isEmpty() const {
    std::error_code error;
    return std::filesystem::file_size(m_file, error) == 0 && !error;
}

LineFile::~LineFile() {
    if (isOpen()) {
        closeFile(m_descriptor);
    }
}

/// The file is closed while it is moved, as some systems move no open one.
void LineFile::makeRoom(std::size_t addedBytes) {
    if (isFull(m_file, addedBytes, m_limit)) {
        closeFile(m_descriptor);
        m_descriptor = -1;
        rotateWhenFull(m_file, addedBytes, m_limit);
        reopen();
    } else if (!isStillAt(m_descriptor, m_file)) {
        reopen();
    }
}

void LineFile::writeLine(std::string_view line) {
    if (!isOpen()) {
        return;
    }
    makeRoom(line.size());
    if (!isOpen()) {
        return;
    }
    std::string whole;
    if (!m_header.empty() && isEmpty()) {
        whole = m_header + std::string(line);
        line = whole;
    } else if (m_torn) {
        // After a disk was full for a while the broken line must not spoil the one that follows it.
        whole = '\n' + std::string(line);
        line = whole;
    }
    while (!line.empty()) {
        const long long written = writeSome(m_descriptor, line);
        if (written <= 0) {
            complain(std::string("cannot be written (") + std::strerror(errno) + ')');
            return;
        }
        line.remove_prefix(static_cast<std::size_t>(written));
        m_torn = !line.empty();
    }
}

} // namespace ocuva
