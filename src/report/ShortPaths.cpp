#include "report/ShortPaths.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace ocuva {

namespace {

constexpr std::array<std::string_view, 4> pictureEndings{".tiff", ".tif", ".bmp", ".pic"};

void replaceAll(std::string& text, std::string_view what, std::string_view by) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
        const std::size_t end = at + what.size();
        const bool isWhole = end == text.size() || std::isalnum(static_cast<unsigned char>(text[end])) == 0;
        if (isWhole) {
            text.replace(at, what.size(), by);
        } else {
            at = end - by.size();
        }
    }
}

std::string replaced(std::string_view text, char what, std::string_view by) {
    std::string result;
    for (const char c : text) {
        c == what ? result.append(by) : result.append(1, c);
    }
    return result;
}

/// The length of a picture's extension at that position; 0 if there is none.
std::size_t endingAt(std::string_view line, std::size_t at) {
    for (const std::string_view ending : pictureEndings) {
        const std::string_view found = line.substr(at, ending.size());
        const bool same =
            std::equal(found.begin(), found.end(), ending.begin(), ending.end(),
                       [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) == b; });
        const std::size_t end = at + ending.size();
        if (same && (end >= line.size() || std::isalnum(static_cast<unsigned char>(line[end])) == 0)) {
            return ending.size();
        }
    }
    return 0;
}

} // namespace

std::string withShortPaths(std::string_view line, std::string_view home) {
    constexpr std::string_view begins = "'\",=\t";
    constexpr std::string_view separators = "/\\";
    std::string result;
    for (std::size_t at = 0; at < line.size();) {
        const std::size_t ending = line[at] == '.' ? endingAt(line, at) : 0;
        if (ending == 0) {
            result += line[at++];
            continue;
        }
        // Inside quotation marks everything belongs to the path.
        const bool quoted = std::count(result.begin(), result.end(), '"') % 2 == 1;
        const std::size_t before = quoted ? result.rfind('"') : result.find_last_of(begins);
        const std::size_t begin = before == std::string::npos ? 0 : before + 1;
        const std::size_t first = result.find_first_of(separators, begin);
        const std::size_t last = result.find_last_of(separators);
        if (first != std::string::npos && last != std::string::npos && last >= begin) {
            // A drive letter belongs to the path, words before it do not.
            const bool drive = first >= begin + 2 && result[first - 1] == ':';
            result.replace(drive ? first - 2 : first, last + 1 - (drive ? first - 2 : first), ".../");
        }
        result.append(line.substr(at, ending));
        at += ending;
    }
    if (home.size() > 1) {
        for (const std::string& notation : {std::string(home), replaced(std::string(home), '/', "\\"),
                                            replaced(std::string(home), '/', "\\\\")}) {
            replaceAll(result, notation, "~");
        }
    }
    return result;
}

} // namespace ocuva
