#include "hostlink/TraceWriter.h"

#include <cerrno>
#include <cstdio>
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

#endif

} // namespace

TraceWriter::TraceWriter(const std::filesystem::path& file)
    : m_descriptor(openForAppending(file)) {
    if (!isOpen()) {
        const char* reason = std::strerror(errno);
        const std::u8string name = file.u8string();
        std::fprintf(stderr, "The trace file %s cannot be opened (%s); going on without a trace.\n",
                     reinterpret_cast<const char*>(name.c_str()), reason);
    }
}

TraceWriter::~TraceWriter() {
    if (isOpen()) {
        closeFile(m_descriptor);
    }
}

void TraceWriter::writeLine(std::string_view line) {
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
