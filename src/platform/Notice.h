#pragma once
// Shows a message in a second process, for a program that can no longer show a window.

#include <string>

namespace ocuva {

/// Starts the program again only to show the text (in the platform's 8-bit encoding), without waiting for
/// it. May be called on any thread, even if the others are blocked. False if the program could not be
/// started.
bool showNotice(const std::string& program, const std::string& text);

/// The environment variable that passes the text to the second process.
inline constexpr const char* noticeVariable = "OCUVA_NOTICE";

} // namespace ocuva
