#pragma once
// The note of a crash for the next start: which host function was running.

#include "hostlink/CallMark.h"

#include <filesystem>
#include <string>

namespace ocuva {

/// While this object lives, a fault of the process (a bad address, an abort, a floating-point or illegal
/// instruction) writes a small file before the process ends. Nothing is written in a run without a fault:
/// a process that is ended from outside leaves no note, and neither does a library that ends the process
/// by itself, because neither differs from an ordinary end. One object per process.
class CrashNote {
public:
    /// `file` is the note to write, `mark` supplies the running function and outlives the object. If a
    /// handler for such faults is installed already (a sanitizer's), it stays.
    CrashNote(const std::filesystem::path& file, const CallMark& mark);
    ~CrashNote();
    CrashNote(const CrashNote&) = delete;
    CrashNote& operator=(const CrashNote&) = delete;

    /// Reads and removes the note of an earlier run. Returns sentences for the operator, or an empty text.
    /// Only a regular file is read.
    static std::string take(const std::filesystem::path& file);
};

} // namespace ocuva
