#include "base/AsideFile.h"

#include "base/AsideName.h"

#include <string>
#include <utility>

namespace ocuva {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds movePatience{500};

void removeLeftovers(const fs::path& target) {
    for (const AsideKind& kind : {asideKind, formerKind}) {
        forEachLeftover(target, kind, [](const fs::path& file, const std::string& /*digits*/) {
            std::error_code ignored;
            fs::remove(file, ignored);
        });
    }
}

} // namespace

AsideFile::AsideFile(fs::path target)
    : m_target(std::move(target)) {}

AsideFile::~AsideFile() {
    if (!m_path.empty()) {
        std::error_code ignored;
        m_file.close();
        fs::remove(m_path, ignored);
    }
}

std::error_code AsideFile::create() {
    if (const std::error_code refusal = replaceable(m_target)) {
        return refusal;
    }
    removeLeftovers(m_target);
    std::error_code error;
    const bool replacesOne = fs::exists(fs::symlink_status(m_target, error));
    constexpr int mostTrials = 8;
    for (int trial = 0; trial < mostTrials; ++trial) {
        m_path = asideName(m_target, asideKind, randomDigits());
        m_file = RegularFile::createNew(m_path, replacesOne, error);
        if (m_file.isOpen()) {
            std::error_code noLock; // on a disk without locks nobody removes leftovers
            m_file.tryLock(noLock);
            if (m_file.hasName()) {
                return m_file.takeRightsOf(m_target);
            }
            error = std::make_error_code(std::errc::no_such_file_or_directory);
        } else if (error != std::errc::file_exists) {
            break;
        }
    }
    m_path.clear();
    return error;
}

std::error_code AsideFile::moveIntoPlace() {
    if (const std::error_code refusal = replaceable(m_target)) {
        return refusal;
    }
    closeToMove();
    const std::error_code error = moveFile(m_path, m_target, movePatience);
    if (!error) {
        m_file.close();
        m_path.clear();
    }
    return error;
}

void AsideFile::closeToMove() {
#ifdef _WIN32
    m_file.close(); // not every file system renames open files
#endif
}

FormerFile::FormerFile(fs::path target)
    : m_target(std::move(target)) {}

FormerFile::~FormerFile() {
    if (!m_path.empty()) {
        moveFile(m_path, m_target, movePatience);
    }
}

std::error_code FormerFile::moveAway() {
    if (const std::error_code refusal = replaceable(m_target)) {
        return refusal;
    }
    removeLeftovers(m_target);
    std::error_code error;
    // Checked first: on Windows, rename reports a missing file like a failing disk.
    if (!fs::exists(fs::symlink_status(m_target, error))) {
        return {};
    }
#ifndef _WIN32
    m_file = RegularFile::openToRead(m_target, error);
    if (m_file.isOpen()) {
        m_file.tryLock(error);
    }
#endif
    const fs::path path = asideName(m_target, formerKind, randomDigits());
    error = moveFile(m_target, path, movePatience);
    if (!error) {
        m_path = path;
    }
    return error;
}

void FormerFile::drop() {
    if (!m_path.empty()) {
        std::error_code ignored;
        fs::remove(m_path, ignored);
        m_path.clear();
    }
}

namespace {

std::error_code fill(AsideFile& aside, std::string_view content) {
    std::error_code error = aside.create();
    if (!error) {
        aside.file().write(content, error);
    }
    return error ? error : aside.file().flushToDisk();
}

} // namespace

std::error_code replaceFile(const fs::path& file, std::string_view content) {
    AsideFile aside(file);
    const std::error_code error = fill(aside, content);
    return error ? error : aside.moveIntoPlace();
}

std::error_code replaceFileThatHolds(const std::optional<std::string>& former, const fs::path& file,
                                     std::string_view content) {
    finishSwaps(file);
    AsideFile aside(file);
    const std::error_code error = fill(aside, content);
    return error ? error : aside.moveIntoPlaceOf(former, content);
}

} // namespace ocuva
