#include "base/AsideFile.h"

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <utility>

namespace ocuva {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view mark = ".ocuva-";
constexpr std::string_view asideEnding = ".aside";
constexpr std::string_view formerEnding = ".former";
constexpr std::size_t randomDigits = 16;
constexpr std::size_t checkDigits = 8;
constexpr std::size_t longestStem = 200; // file systems take names of 255 bytes

std::uint64_t randomNumber() {
    static std::atomic<std::uint64_t> calls{0};
    const auto time = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
    try {
        std::random_device source;
        return ((static_cast<std::uint64_t>(source()) << 32) | source()) ^ time;
    } catch (const std::exception&) {
        return time * 0x9e3779b97f4a7c15u + ++calls; // a name that is taken is tried again
    }
}

std::string hexadecimal(std::uint64_t number, std::size_t digits) {
    std::array<char, 17> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(number));
    return {text.data() + (16 - digits), digits};
}

/// Ties the digits to the target: a file that is called like one of ours by accident is not ours.
std::uint64_t checkOf(const std::string& target, std::string_view digits) {
    std::uint64_t hash = 0xcbf29ce484222325u; // FNV-1a
    const auto add = [&hash](std::string_view text) {
        for (const char byte : text) {
            hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3u;
        }
    };
    add(target);
    add(digits);
    return hash;
}

std::string utf8(const fs::path& name) {
    const std::u8string text = name.u8string();
    return {text.begin(), text.end()};
}

/// All names aside of a target begin with it.
std::string headOf(const std::string& target) {
    std::size_t length = target.size();
    if (length > longestStem) {
        length = longestStem;
        while (length > 0 && (static_cast<unsigned char>(target[length]) & 0xc0u) == 0x80u) {
            --length; // not within a letter
        }
    }
    return target.substr(0, length) + std::string(mark);
}

fs::path newName(const fs::path& target, std::string_view ending) {
    const std::string name = utf8(target.filename());
    const std::string digits = hexadecimal(randomNumber(), randomDigits);
    const std::string whole =
        headOf(name) + digits + hexadecimal(checkOf(name, digits), checkDigits) + std::string(ending);
    return target.parent_path() / fs::path(std::u8string(whole.begin(), whole.end()));
}

bool isNameOf(const std::string& target, const std::string& name) {
    const std::string head = headOf(target);
    if (name.compare(0, head.size(), head) != 0) {
        return false;
    }
    const std::string_view rest = std::string_view(name).substr(head.size());
    const std::string_view digits = rest.substr(0, randomDigits);
    if (rest.size() < randomDigits + checkDigits) {
        return false;
    }
    const std::string_view ending = rest.substr(randomDigits + checkDigits);
    return (ending == asideEnding || ending == formerEnding) &&
           rest.substr(randomDigits, checkDigits) == hexadecimal(checkOf(target, digits), checkDigits);
}

/// Whether it is the user's own and no program that runs has it.
bool isLeftBehind(const fs::path& file) {
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(file, error))) {
        return false;
    }
    const RegularFile opened = RegularFile::openToRead(file, error);
    return opened.isOpen() && opened.isOwn() && opened.tryLock(error);
}

void removeLeftovers(const fs::path& target) {
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    const std::string name = utf8(target.filename());
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (isNameOf(name, utf8(entry->path().filename())) && isLeftBehind(entry->path())) {
            std::error_code ignored;
            fs::remove(entry->path(), ignored);
        }
    }
}

} // namespace

bool isAsideName(std::string_view name) {
    const std::size_t at = name.rfind(mark);
    return at != std::string_view::npos && (name.ends_with(asideEnding) || name.ends_with(formerEnding));
}

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
        m_path = newName(m_target, asideEnding);
        m_file = RegularFile::createNew(m_path, replacesOne, error);
        if (m_file.isOpen()) {
            std::error_code noLock; // a disk without locks: then nobody removes what is left behind
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
#ifdef _WIN32
    m_file.close(); // not every file system there renames an open file
#endif
    std::error_code error;
    fs::rename(m_path, m_target, error);
    if (!error) {
        m_file.close();
        m_path.clear();
    }
    return error;
}

FormerFile::FormerFile(fs::path target)
    : m_target(std::move(target)) {}

FormerFile::~FormerFile() {
    if (!m_path.empty()) {
        std::error_code ignored;
        fs::rename(m_path, m_target, ignored);
    }
}

std::error_code FormerFile::moveAway() {
    if (const std::error_code refusal = replaceable(m_target)) {
        return refusal;
    }
    removeLeftovers(m_target);
    std::error_code error;
    // Asked beforehand: Windows' rename tells a file that is not there like a disk that fails.
    if (!fs::exists(fs::symlink_status(m_target, error))) {
        return {};
    }
#ifndef _WIN32
    m_file = RegularFile::openToRead(m_target, error);
    if (m_file.isOpen()) {
        m_file.tryLock(error);
    }
#endif
    const fs::path path = newName(m_target, formerEnding);
    error.clear();
    fs::rename(m_target, path, error);
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

std::error_code replaceFile(const fs::path& file, std::string_view content,
                            const std::function<bool()>& mayReplace) {
    AsideFile aside(file);
    std::error_code error = aside.create();
    if (!error) {
        aside.file().write(content, error);
    }
    if (!error) {
        error = aside.file().flushToDisk();
    }
    if (!error && mayReplace && !mayReplace()) {
        error = std::make_error_code(std::errc::operation_canceled);
    }
    return error ? error : aside.moveIntoPlace();
}

} // namespace ocuva
