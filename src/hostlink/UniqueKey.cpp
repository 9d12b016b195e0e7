#include "hostlink/UniqueKey.h"

#include <algorithm>
#include <array>

namespace ocuva {

std::string uniqueObjectKey(TnLogKeys& keys) {
    constexpr Long capacity = 40; // no key is longer
    std::array<char, capacity> buffer{};
    const Long length = std::clamp<Long>(keys.TarnGetUniqueObjectKey(buffer.data(), capacity), 0, capacity);
    return {buffer.data(), static_cast<std::size_t>(length)};
}

} // namespace ocuva
