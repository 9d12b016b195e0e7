#include "journal/JournalLine.h"

#include <algorithm>

namespace ocuva {

namespace {

bool needsQuotes(std::string_view text) {
    return text.find_first_of(",\"") != std::string_view::npos ||
           (!text.empty() && (text.front() == ' ' || text.back() == ' '));
}

std::string field(std::string_view text) {
    std::string oneLine(text);
    std::replace_if(
        oneLine.begin(), oneLine.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    if (!needsQuotes(oneLine)) {
        return oneLine;
    }
    std::string quoted = "\"";
    for (const char c : oneLine) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + '"';
}

std::string fields(const std::optional<StagePosition>& position) {
    return position ? std::to_string(position->x) + ',' + std::to_string(position->y) + ',' +
                          std::to_string(position->z)
                    : ",,";
}

} // namespace

std::string journalLine(std::string_view time, const JournalEntry& entry) {
    return field(time) + ',' + field(entry.what) + ',' + fields(entry.from) + ',' + fields(entry.to) + ',' +
           field(entry.result) + '\n';
}

} // namespace ocuva
