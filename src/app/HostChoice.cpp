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

/// "a" or "b".
std::string namesOf(std::span<const NamedHost> hosts) {
    std::string names;
    for (const NamedHost& host : hosts) {
        names += (names.empty() ? "\"" : " or \"") + host.name + '"';
    }
    return names;
}

} // namespace

std::optional<std::filesystem::path> findLibraries(const HostSurroundings& surroundings) {
    const std::string folder = given(surroundings.wantedFolder);
    if (!folder.empty()) {
        return folder;
    }
    return surroundings.allIn(surroundings.programFolder) ? std::optional(surroundings.programFolder)
                                                          : std::nullopt;
}

HostChoice chooseHost(std::span<const NamedHost> hosts, const HostSurroundings& surroundings) {
    const std::string wanted = lower(given(surroundings.wantedHost));
    for (const NamedHost& host : hosts) {
        if (!wanted.empty() && host.name != wanted) {
            continue;
        }
        const std::optional<std::filesystem::path> folder = host.find(surroundings);
        if (folder || !wanted.empty()) {
            return {&host, folder.value_or(std::filesystem::path())};
        }
    }
    throw std::invalid_argument("OCUVA_HOST is \"" + given(surroundings.wantedHost) + "\"; it can be " +
                                namesOf(hosts) + ".");
}

} // namespace ocuva
