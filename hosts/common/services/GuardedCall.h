#pragma once
// No exception leaves the host.

#include "hosts/common/services/HostLog.h"

#include <exception>
#include <string>

namespace hosts {

inline void logFailure(HostLog& log, const char* name, const char* reason) noexcept {
    try {
        log.line(std::string(name) + " failed: " + reason);
    } catch (...) {
        log.line(name); // no memory for the sentence
    }
}

/// Runs a host function. When it throws, the reason goes to the log and the caller gets the answer of a
/// failure.
template <typename Answer, typename Function>
Answer guardedCall(HostLog& log, const char* name, Answer onFailure, Function function) noexcept {
    try {
        return static_cast<Answer>(function());
    } catch (const std::exception& problem) {
        logFailure(log, name, problem.what());
    } catch (...) {
        logFailure(log, name, "unknown");
    }
    return onFailure;
}

} // namespace hosts
