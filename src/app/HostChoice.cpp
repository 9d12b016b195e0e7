#include "app/HostChoice.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace ocuva {

namespace {

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string given(const std::optional<std::string>& text) { return text.value_or(""); }

} // namespace

HostChoice chooseHost(const HostSurroundings& surroundings) {
    const std::string wanted = lower(given(surroundings.wantedHost));
    if (!wanted.empty() && wanted != "library" && wanted != "sim") {
        throw std::invalid_argument("OCUVA_HOST is \"" + *surroundings.wantedHost +
                                    "\"; it can be \"library\" or \"sim\".");
    }
    if (wanted == "sim") {
        return {};
    }
    const std::string folder = given(surroundings.wantedFolder);
    if (!folder.empty()) {
        return {true, folder};
    }
    if (surroundings.allIn(surroundings.programFolder)) {
        return {true, surroundings.programFolder};
    }
    return {wanted == "library", {}};
}

} // namespace ocuva
