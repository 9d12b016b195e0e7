#include "hosts/common/services/HostLog.h"

#include "hosts/common/services/PlatformFiles.h"

#include <cstdio>

namespace hosts {

namespace {

std::string onOneLine(std::string_view text) {
    const std::size_t last = text.find_last_not_of("\r\n");
    text = text.substr(0, last == std::string_view::npos ? 0 : last + 1);
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (pair || text[i] == '\r' || text[i] == '\n') {
            result += " | ";
            i += pair ? 1 : 0;
        } else {
            result += text[i];
        }
    }
    return result;
}

} // namespace

HostLog::HostLog(std::filesystem::path path, std::function<std::string()> nowText)
    : m_file(std::move(path))
    , m_nowText(nowText ? std::move(nowText) : localTimeText) {}

void HostLog::line(std::string_view text) noexcept {
    try {
        const std::lock_guard guard(m_mutex);
        const std::string stamped = m_nowText() + ' ' + onOneLine(text) + '\n';
        if (m_file.writeLine(stamped))
            std::fputs(stamped.c_str(), stderr);
    } catch (...) {
        // Out of memory or a faulty time source: the text itself still has to come out somewhere.
        std::fwrite(text.data(), 1, text.size(), stderr);
        std::fputc('\n', stderr);
    }
}

void HostLog::limitTo(const ocuva::FileLimit& limit) {
    const std::lock_guard guard(m_mutex);
    m_file.limitTo(limit);
}

} // namespace hosts
