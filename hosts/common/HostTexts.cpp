#include "hosts/common/HostTexts.h"

#include <algorithm>
#include <cstring>

namespace hosts {

TarnLong copyText(std::string_view text, char* buffer, TarnLong size) {
    if (buffer == nullptr || size < 1) {
        return 0;
    }
    const auto room = static_cast<std::size_t>(size);
    const std::size_t count = std::min(text.size(), room);
    std::memcpy(buffer, text.data(), count);
    if (count < room) {
        buffer[count] = '\0';
    }
    return static_cast<TarnLong>(count);
}

std::string messageText(std::string_view key) {
    struct Message {
        std::string_view key;
        std::string_view text;
    };
    constexpr Message messages[] = {
        {"TnOcuvaSelect", "Click the point on the live image."},
    };
    for (const Message& message : messages) {
        if (message.key == key) {
            return std::string(message.text);
        }
    }
    return std::string(key);
}

} // namespace hosts
