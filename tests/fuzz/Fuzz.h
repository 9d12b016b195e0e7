#pragma once
// What every fuzz target needs: its entry point, fields out of the bytes, and a check that ends the run.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// Called by the fuzzer once per input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count);

namespace fuzz {

inline std::string_view textOf(const std::uint8_t* bytes, std::size_t count) {
    return {reinterpret_cast<const char*>(bytes), count};
}

/// Cuts an input into fields at the control character US, which is no part of any text that is tried: seeds
/// stay readable, and the fuzzer moves a border by moving one byte.
class Fields {
public:
    explicit Fields(std::string_view bytes)
        : m_rest(bytes) {}

    std::string_view next() {
        const std::size_t end = m_rest.find('\x1F');
        const std::string_view field = m_rest.substr(0, end);
        m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
        return field;
    }
    std::string_view rest() const { return m_rest; }

private:
    std::string_view m_rest;
};

/// Ends the run as a finding, with a sentence that says what did not hold.
inline void require(bool holds, const char* sentence) {
    if (!holds) {
        std::fprintf(stderr, "Does not hold: %s\n", sentence);
        std::abort();
    }
}

} // namespace fuzz
