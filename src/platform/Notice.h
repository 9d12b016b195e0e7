#pragma once
// Words in a window of their own, for a program that is about to end and cannot show a window any more.

#include <string>

namespace ocuva {

/// Starts the program of that name once more, only to show the text (the program's own 8-bit text), and does
/// not wait for it. May be called in any thread, whatever the other threads are held by. False when it could
/// not be started.
bool showNotice(const std::string& program, const std::string& text);

/// The variable of the environment in which the other process finds the text.
inline constexpr const char* noticeVariable = "OCUVA_NOTICE";

} // namespace ocuva
