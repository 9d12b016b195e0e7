#include "standards/UnfinishedList.h"

#include "base/AsideFile.h"
#include "base/RegularFile.h"

#include <algorithm>
#include <sstream>
#include <system_error>
#include <utility>

namespace ocuva {

namespace {

constexpr const char* firstLine = "Ocuva list of standards";
// Without it the file was not written to its end.
constexpr const char* lastLine = "End of the list";

} // namespace

UnfinishedList::UnfinishedList(std::filesystem::path file)
    : m_file(std::move(file)) {}

bool UnfinishedList::keep(const std::vector<std::string>& names) const {
    drop();
    const bool isText = std::none_of(names.begin(), names.end(), [](const std::string& name) {
        return name.find_first_of("\r\n") != std::string::npos;
    });
    if (m_file.empty() || !isText) {
        return false;
    }
    std::string text = std::string(firstLine) + '\n';
    for (const std::string& name : names) {
        text += '+' + name + '\n';
    }
    text += std::string(lastLine) + '\n';
    return !replaceFile(m_file, text);
}

std::optional<std::vector<std::string>> UnfinishedList::names() const {
    if (m_file.empty()) {
        return {};
    }
    constexpr std::size_t mostBytes = std::size_t{16} * 1024 * 1024; // the longest list needs a third of it
    std::error_code error;
    const RegularFile file = RegularFile::openToRead(m_file, error);
    std::optional<std::string> text;
    if (!error) {
        text = file.readAll(mostBytes, error);
    }
    if (!text) {
        return {};
    }
    std::istringstream lines(*text);
    std::vector<std::string> names;
    std::string line;
    if (!std::getline(lines, line) || line != firstLine) {
        return {};
    }
    while (std::getline(lines, line) && line.starts_with('+')) {
        names.push_back(line.substr(1));
    }
    return lines && line == lastLine ? std::optional(std::move(names)) : std::nullopt;
}

void UnfinishedList::drop() const {
    if (!m_file.empty()) {
        std::error_code ignored;
        std::filesystem::remove(m_file, ignored);
    }
}

} // namespace ocuva
