#include "standards/UnfinishedList.h"

#include <algorithm>
#include <fstream>
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
    std::ofstream file(m_file, std::ios::binary);
    file << firstLine << '\n';
    for (const std::string& name : names) {
        file << '+' << name << '\n';
    }
    file << lastLine << '\n';
    file.close();
    if (!file) {
        drop();
        return false;
    }
    return true;
}

std::optional<std::vector<std::string>> UnfinishedList::names() const {
    std::error_code error;
    if (m_file.empty() || !std::filesystem::is_regular_file(m_file, error)) {
        return {};
    }
    std::ifstream file(m_file, std::ios::binary);
    std::vector<std::string> names;
    std::string line;
    if (!std::getline(file, line) || line != firstLine) {
        return {};
    }
    while (std::getline(file, line) && line.starts_with('+')) {
        names.push_back(line.substr(1));
    }
    return file && line == lastLine ? std::optional(std::move(names)) : std::nullopt;
}

void UnfinishedList::drop() const {
    if (!m_file.empty()) {
        std::error_code ignored;
        std::filesystem::remove(m_file, ignored);
    }
}

} // namespace ocuva
