#pragma once
// What a run that crashed leaves for the next start: which host function was running.

#include "hostlink/CallMark.h"

#include <filesystem>
#include <string>

namespace ocuva {

/// While it lives, a fault of the process (a bad address, an abort, a floating-point or illegal instruction)
/// writes a small file before the process ends as it would have ended anyway. Nothing is written in a run
/// without a fault, so a process that is ended from outside leaves no note, and neither does a library that
/// ends the process by itself: neither can be told from an ordinary end. One at a time in a process.
class CrashNote {
public:
    /// Where the note is written, and what is read of it then; the mark outlives it. A handler for such
    /// faults that is there already (a sanitizer's) is left alone.
    CrashNote(const std::filesystem::path& file, const CallMark& mark);
    ~CrashNote();
    CrashNote(const CrashNote&) = delete;
    CrashNote& operator=(const CrashNote&) = delete;

    /// Reads and removes a note that an earlier run left: sentences for the operator, empty when there is
    /// none. Only a regular file is read.
    static std::string take(const std::filesystem::path& file);
};

} // namespace ocuva
