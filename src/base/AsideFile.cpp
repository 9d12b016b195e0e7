#include "base/AsideFile.h"

#include <utility>

namespace ocuva {

AsideFile::AsideFile(std::filesystem::path target)
    : m_target(std::move(target))
    , m_path(m_target) {
    m_path += ".aside";
}

AsideFile::~AsideFile() {
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
}

std::error_code AsideFile::moveIntoPlace() {
    std::error_code error;
    std::filesystem::rename(m_path, m_target, error);
    return error;
}

FormerFile::FormerFile(std::filesystem::path target)
    : m_target(std::move(target))
    , m_path(m_target) {
    m_path += ".former";
}

FormerFile::~FormerFile() {
    if (m_movedAway) {
        std::error_code ignored;
        std::filesystem::rename(m_path, m_target, ignored);
    }
}

std::error_code FormerFile::moveAway() {
    std::error_code error;
    // Asked beforehand: Windows' rename tells a file that is not there like a disk that fails.
    const auto type = std::filesystem::symlink_status(m_target, error).type();
    if (type == std::filesystem::file_type::not_found || std::filesystem::is_directory(m_target, error)) {
        return {};
    }
    std::filesystem::rename(m_target, m_path, error);
    m_movedAway = !error;
    return error;
}

void FormerFile::drop() {
    m_movedAway = false;
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
}

} // namespace ocuva
