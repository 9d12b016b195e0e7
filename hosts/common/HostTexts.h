#pragma once
// Texts on their way across the boundary, and the host's own sentences.

#include "hostlink/tarn_abi.h"

#include <string>
#include <string_view>

namespace hosts {

/// Fills the buffer with at most size characters, and a NUL where there is room for one. Result: characters
/// written without the NUL. A missing buffer or a size below 1 takes none.
TarnLong copyText(std::string_view text, char* buffer, TarnLong size);

/// A caller's text; a missing one counts as empty.
inline std::string_view textOf(const char* text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
}

/// The sentence that a message key stands for; a key that is not known is the sentence itself.
std::string messageText(std::string_view key);

} // namespace hosts
