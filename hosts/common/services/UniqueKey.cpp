#include "hosts/common/services/UniqueKey.h"

#include "hosts/common/services/PlatformFiles.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <random>

namespace hosts {

namespace {

/// Spreads every bit of the input over the output (finaliser of splitmix64).
std::uint64_t mixed(std::uint64_t x) {
    x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9u;
    x = (x ^ (x >> 27)) * 0x94d049bb133111ebu;
    return x ^ (x >> 31);
}

std::uint64_t randomBits() {
    try {
        std::random_device source;
        return (static_cast<std::uint64_t>(source()) << 32) | source();
    } catch (const std::exception&) {
        return 0; // no random source: time, process and count still make keys unique
    }
}

} // namespace

std::string uniqueKey() {
    static std::atomic<std::uint64_t> calls{0};
    const std::uint64_t count = ++calls;
    const auto time = static_cast<std::uint64_t>(wallClockNs());
    const std::uint64_t high = randomBits() ^ mixed(time + count);
    const std::uint64_t low =
        randomBits() ^ mixed((static_cast<std::uint64_t>(processId()) << 32) ^ count ^ ~time);
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%08llx-%04llx-4%03llx-%04llx-%012llx",
                  static_cast<unsigned long long>(high >> 32),
                  static_cast<unsigned long long>((high >> 16) & 0xffff),
                  static_cast<unsigned long long>(high & 0xfff),
                  static_cast<unsigned long long>(0x8000 | ((low >> 48) & 0x3fff)),
                  static_cast<unsigned long long>(low & 0xffffffffffff));
    return text.data();
}

} // namespace hosts
