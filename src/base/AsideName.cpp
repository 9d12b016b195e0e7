#include "base/AsideName.h"

#include "base/RegularFile.h"

#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <random>
#include <vector>

namespace ocuva {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view mark = ".ocuva-";
constexpr std::size_t checkDigits = 8;
constexpr std::size_t longestStem = 200; // file systems allow names of 255 bytes

std::uint64_t randomNumber() {
    static std::atomic<std::uint64_t> calls{0};
    const auto time = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
    try {
        std::random_device source;
        return ((static_cast<std::uint64_t>(source()) << 32) | source()) ^ time;
    } catch (const std::exception&) {
        return time * 0x9e3779b97f4a7c15u + ++calls; // different for each attempt
    }
}

std::string utf8(const fs::path& name) {
    const std::u8string text = name.u8string();
    return {text.begin(), text.end()};
}

std::string checkOf(const std::string& target, std::string_view digits) {
    return hexadecimal(hashOf(target, digits), checkDigits);
}

/// The beginning of all temporary names of a target.
std::string headOf(const std::string& target) {
    std::size_t length = target.size();
    if (length > longestStem) {
        length = longestStem;
        while (length > 0 && (static_cast<unsigned char>(target[length]) & 0xc0u) == 0x80u) {
            --length; // not within a character
        }
    }
    return target.substr(0, length) + std::string(mark);
}

bool isLeftBehind(const fs::path& file) {
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(file, error))) {
        return false;
    }
    const RegularFile opened = RegularFile::openToRead(file, error);
    return opened.isOpen() && opened.isOwn() && opened.tryLock(error);
}

} // namespace

std::uint64_t hashOf(std::string_view first, std::string_view second) {
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const std::string_view text : {first, second}) {
        for (const char byte : text) {
            hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3u;
        }
    }
    return hash;
}

std::string hexadecimal(std::uint64_t number, std::size_t digits) {
    std::array<char, 17> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(number));
    return {text.data() + (16 - digits), digits};
}

std::string randomDigits() { return hexadecimal(randomNumber(), 16); }

fs::path asideName(const fs::path& target, const AsideKind& kind, std::string_view digits) {
    const std::string name = utf8(target.filename());
    const std::string whole =
        headOf(name) + std::string(digits) + checkOf(name, digits) + std::string(kind.ending);
    return target.parent_path() / fs::path(std::u8string(whole.begin(), whole.end()));
}

bool isAsideNameOf(const fs::path& target, const AsideKind& kind, const fs::path& name, std::string* digits) {
    const std::string stem = utf8(target.filename());
    const std::string head = headOf(stem);
    const std::string whole = utf8(name);
    if (whole.size() != head.size() + kind.digits + checkDigits + kind.ending.size() ||
        !whole.starts_with(head) || !whole.ends_with(kind.ending)) {
        return false;
    }
    const std::string found = whole.substr(head.size(), kind.digits);
    if (digits != nullptr) {
        *digits = found;
    }
    return whole.substr(head.size() + kind.digits, checkDigits) == checkOf(stem, found);
}

void forEachLeftover(const fs::path& target, const AsideKind& kind,
                     const std::function<void(const fs::path&, const std::string&)>& what) {
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::error_code error;
    std::string digits;
    std::vector<std::pair<fs::path, std::string>> found; // collected first, because `what` changes the folder
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (isAsideNameOf(target, kind, entry->path().filename(), &digits) && isLeftBehind(entry->path())) {
            found.emplace_back(entry->path(), digits);
        }
    }
    for (const auto& [file, itsDigits] : found) {
        what(file, itsDigits);
    }
}

bool isAsideName(std::string_view name) {
    return name.rfind(mark) != std::string_view::npos &&
           (name.ends_with(asideKind.ending) || name.ends_with(formerKind.ending) ||
            name.ends_with(swapKind.ending));
}

} // namespace ocuva
