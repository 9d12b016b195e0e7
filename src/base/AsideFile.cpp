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

} // namespace ocuva
