#include "hostlink/TracedCall.h"

#include <array>
#include <charconv>

namespace ocuva {

void Trace::write(const std::string& body) {
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - m_start;
    std::array<char, 64> digits{};
    char* const first = digits.data();
    char* const last = first + digits.size();
    std::string line;
    line.reserve(body.size() + 64);
    line += "{\"seq\":";
    line.append(first, std::to_chars(first, last, ++m_lastNumber).ptr);
    line += ",\"ms\":";
    line.append(first, std::to_chars(first, last, elapsed.count(), std::chars_format::fixed, 3).ptr);
    line += ',';
    line += body;
    line += "}\n";
    m_writer.writeLine(line);
}

} // namespace ocuva
