#pragma once
// Work in processes of its own.

#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

/// Starts the work; the process's exit code is 0 when it returned true.
inline pid_t startProcess(const std::function<bool()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(work() ? 0 : 1);
    }
    return child;
}

inline bool succeeded(pid_t child) {
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

inline void killProcess(pid_t child) {
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

/// Runs the work in so many processes at once, each with its number from 0; true when all returned true.
inline bool inProcesses(int count, const std::function<bool(int)>& work) {
    std::vector<pid_t> children;
    children.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        children.push_back(startProcess([&work, i] { return work(i); }));
    }
    bool all = true;
    for (const pid_t child : children) {
        all = succeeded(child) && all;
    }
    return all;
}
