#include "hostlink/TraceWriter.h"

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
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

FileLimit traceLimit(const char* mebibytes) {
    FileLimit limit;
    if (mebibytes == nullptr) {
        return limit;
    }
    const std::string_view text = mebibytes;
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc() && end == text.data() + text.size() && number >= 1 && number <= 1024) {
        limit.maxBytes = static_cast<std::uintmax_t>(number) * 1024u * 1024u;
    } else {
        std::fprintf(stderr, "OCUVA_TRACE_MAX_MIB=%s is no whole number from 1 to 1024; 8 is used.\n",
                     mebibytes);
    }
    return limit;
}

FileLimit traceLimit() { return traceLimit(std::getenv("OCUVA_TRACE_MAX_MIB")); }

TraceWriter::TraceWriter(std::filesystem::path file, const FileLimit& limit)
    : m_file(std::move(file))
    , m_limit(limit) {
    reopen();
}

void TraceWriter::reopen() {
    if (isOpen()) {
        closeFile(m_descriptor);
    }
    m_descriptor = openForAppending(m_file);
    if (!isOpen()) {
        const char* reason = std::strerror(errno);
        const std::u8string name = m_file.u8string();
        std::fprintf(stderr, "The trace file %s cannot be opened (%s); going on without a trace.\n",
                     reinterpret_cast<const char*>(name.c_str()), reason);
    }
}

TraceWriter::~TraceWriter() {
    if (isOpen()) {
        closeFile(m_descriptor);
    }
}

/// The file is closed while it is moved, as some systems move no open one.
void TraceWriter::makeRoom(std::size_t addedBytes) {
    if (isFull(m_file, addedBytes, m_limit)) {
        closeFile(m_descriptor);
        m_descriptor = -1;
        rotateWhenFull(m_file, addedBytes, m_limit);
        reopen();
    } else if (!isStillAt(m_descriptor, m_file)) {
        reopen();
    }
}

void TraceWriter::writeLine(std::string_view line) {
    if (!isOpen()) {
        return;
    }
    makeRoom(line.size());
    if (!isOpen()) {
        return;
    }
    // After a disk was full for a while the broken line must not spoil the one that follows it.
    std::string separated;
    if (m_torn) {
        separated = '\n' + std::string(line);
        line = separated;
    }
    while (!line.empty()) {
        const long long written = writeSome(m_descriptor, line);
        if (written <= 0) {
            return;
        }
        line.remove_prefix(static_cast<std::size_t>(written));
        m_torn = !line.empty();
    }
}

} // namespace ocuva
