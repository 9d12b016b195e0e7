#include "base/RegularFile.h"

#include <algorithm>
#include <array>
#include <utility>

namespace ocuva {

namespace {

class Refusals final : public std::error_category {
public:
    const char* name() const noexcept override { return "file refusal"; }
    std::string message(int number) const override {
        switch (static_cast<FileRefusal>(number)) {
        case FileRefusal::notRegular:
            return "It is not a regular file";
        case FileRefusal::link:
            return "It is a link";
        case FileRefusal::writeProtected:
            return "It is write-protected";
        case FileRefusal::tooLarge:
            return "It is too large";
        }
        return "It is left unchanged";
    }
};

} // namespace

std::error_code make_error_code(FileRefusal refusal) {
    static const Refusals category;
    return {static_cast<int>(refusal), category};
}

RegularFile::RegularFile(RegularFile&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

RegularFile& RegularFile::operator=(RegularFile&& other) noexcept {
    if (this != &other) {
        close();
        m_descriptor = std::exchange(other.m_descriptor, -1);
    }
    return *this;
}

std::optional<std::string> RegularFile::readAll(std::size_t maxBytes, std::error_code& error) const {
    std::string text;
    std::array<char, 65536> piece{};
    for (;;) {
        const std::size_t count = read(piece.data(), piece.size(), error);
        if (error) {
            return std::nullopt;
        }
        text.append(piece.data(), count);
        if (text.size() > maxBytes) {
            error = FileRefusal::tooLarge;
            return std::nullopt;
        }
        if (count == 0) {
            return text;
        }
    }
}

} // namespace ocuva
