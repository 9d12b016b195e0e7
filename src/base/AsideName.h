#pragma once
// The names of files aside: "<target>.ocuva-<hexadecimal digits><8 digits of check>.<ending>".

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace ocuva {

/// What a file aside is for.
struct AsideKind {
    std::string_view ending; ///< of its name
    std::size_t digits;      ///< before the check
};

inline constexpr AsideKind asideKind{".aside", 16};   ///< being prepared
inline constexpr AsideKind formerKind{".former", 16}; ///< taken out of the way
inline constexpr AsideKind swapKind{".swap", 32};     ///< exchanged with its target, see AsideFile

/// 64 bits, FNV-1a.
std::uint64_t hashOf(std::string_view first, std::string_view second = {});

/// The last `digits` hexadecimal digits of a number, 16 at most.
std::string hexadecimal(std::uint64_t number, std::size_t digits);

/// 16 hexadecimal digits that nobody can guess.
std::string randomDigits();

/// The name aside, next to the target, that has these digits: as many as its kind has.
std::filesystem::path asideName(const std::filesystem::path& target, const AsideKind& kind,
                                std::string_view digits);

/// Whether a name (without folder) was made by asideName for that target; a file that is called like one of
/// ours by accident is not ours. Then `digits` are its digits.
bool isAsideNameOf(const std::filesystem::path& target, const AsideKind& kind,
                   const std::filesystem::path& name, std::string* digits = nullptr);

/// Goes through the files in the target's folder that have a name of this kind, are the user's own, and that
/// no program which runs has locked.
void forEachLeftover(
    const std::filesystem::path& target, const AsideKind& kind,
    const std::function<void(const std::filesystem::path&, const std::string& digits)>& what);

} // namespace ocuva
