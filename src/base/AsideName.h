#pragma once
// Temporary names: "<target>.ocuva-<hexadecimal digits><8 check digits>.<ending>".

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace ocuva {

/// The purpose of a temporary file.
struct AsideKind {
    std::string_view ending; ///< of the name
    std::size_t digits;      ///< before the check digits
};

inline constexpr AsideKind asideKind{".aside", 16};   ///< being prepared
inline constexpr AsideKind formerKind{".former", 16}; ///< moved out of the way
inline constexpr AsideKind swapKind{".swap", 32};     ///< exchanged with its target, see AsideFile

/// 64 bits, FNV-1a.
std::uint64_t hashOf(std::string_view first, std::string_view second = {});

/// The last `digits` hexadecimal digits of a number, 16 at most.
std::string hexadecimal(std::uint64_t number, std::size_t digits);

/// 16 hexadecimal digits that nobody can guess.
std::string randomDigits();

/// The temporary name next to the target with these digits; their number depends on the kind.
std::filesystem::path asideName(const std::filesystem::path& target, const AsideKind& kind,
                                std::string_view digits);

/// Whether a name (without folder) was made by asideName for that target, and not by accident; then
/// `digits` receives its digits.
bool isAsideNameOf(const std::filesystem::path& target, const AsideKind& kind,
                   const std::filesystem::path& name, std::string* digits = nullptr);

/// Visits the files in the target's folder that have a name of this kind, belong to the user and are not
/// locked by a running program.
void forEachLeftover(
    const std::filesystem::path& target, const AsideKind& kind,
    const std::function<void(const std::filesystem::path&, const std::string& digits)>& what);

} // namespace ocuva
