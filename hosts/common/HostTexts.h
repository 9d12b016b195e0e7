#pragma once
// Texts on their way across the boundary, and the host's own sentences.

#include "hostlink/tarn_abi.h"

#include <string>
#include <string_view>

namespace hosts {

/// Writes at most size characters to the buffer, and a NUL if there is room. Returns the number of
/// characters without the NUL. Writes nothing to a missing buffer or with a size below 1.
TarnLong copyText(std::string_view text, char* buffer, TarnLong size);

/// A caller's text; a missing one counts as empty.
inline std::string_view textOf(const char* text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
}

/// The sentence for a message key; an unknown key is the sentence itself.
std::string messageText(std::string_view key);

} // namespace hosts
