#pragma once
// The single host of a process that loads it as shared libraries. It is in a library that the seven host
// libraries share.

#include "hostlink/Host.h"

#include <functional>
#include <memory>

#ifdef _WIN32
#define HOSTS_SHARED __declspec(dllexport)
#else
#define HOSTS_SHARED __attribute__((visibility("default")))
#endif
#define HOSTS_EXPORT extern "C" HOSTS_SHARED

namespace hosts {

struct HostOptions;

/// Created at the first call, with the user's data folder; lives until the process ends. Null if the
/// folder cannot be used, which is reported once on standard error.
HOSTS_SHARED ocuva::Host* processHost();

/// The result of the call; without a host a value that every function treats as its failure.
template <class Call> auto withHost(const Call& call) {
    ocuva::Host* host = processHost();
    using Result = decltype(call(*host));
    return host != nullptr ? call(*host) : Result();
}

/// Creates the host of these libraries; each set of libraries defines it once. May throw.
std::unique_ptr<ocuva::Host> makeProcessHost(HostOptions options);

/// Ends the host of the process, if there is one, and puts another in its place. What making it throws goes
/// to standard error, and the process has no host then.
void replaceProcessHost(const std::function<std::unique_ptr<ocuva::Host>()>& make);

} // namespace hosts

/// Exports the functions of a library: `TN_REG(HOSTS_EXPORT_FUNCTION)`.
#define HOSTS_EXPORT_FUNCTION(library, result, name, failure, ...)                                           \
    HOSTS_EXPORT result TARN_CALL name(TARN_PARAMETERS(__VA_ARGS__)) {                                       \
        return hosts::withHost(                                                                              \
            [&](ocuva::Host& host) { return host.library().name(TARN_ARGUMENTS(__VA_ARGS__)); });            \
    }
