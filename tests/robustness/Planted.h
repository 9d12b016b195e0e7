#pragma once
// Objects that an attacker, or an accident, puts in place of a program's file.

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

/// What is no regular file, and can be made by any user.
enum class Planted { pipe, danglingLink, linkToDevice, linkToPipe, folder };
inline constexpr Planted plantedKinds[] = {Planted::pipe, Planted::danglingLink, Planted::linkToDevice,
                                           Planted::linkToPipe, Planted::folder};

inline const char* nameOf(Planted kind) {
    switch (kind) {
    case Planted::pipe:
        return "pipe";
    case Planted::danglingLink:
        return "dangling link";
    case Planted::linkToDevice:
        return "link to a device";
    case Planted::linkToPipe:
        return "link to a pipe";
    case Planted::folder:
        return "folder";
    }
    return "";
}

/// Puts it there in place of what is there.
inline void plant(Planted kind, const std::filesystem::path& at) {
    std::filesystem::remove_all(at);
    std::filesystem::path pipe = at;
    pipe += ".pipe";
    switch (kind) {
    case Planted::pipe:
        ASSERT_EQ(::mkfifo(at.c_str(), 0600), 0);
        break;
    case Planted::danglingLink:
        std::filesystem::create_symlink("nowhere", at);
        break;
    case Planted::linkToDevice:
        std::filesystem::create_symlink("/dev/null", at);
        break;
    case Planted::linkToPipe:
        std::filesystem::remove(pipe);
        ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
        std::filesystem::create_symlink(pipe, at);
        break;
    case Planted::folder:
        std::filesystem::create_directory(at);
        break;
    }
}

/// What a name stands for: kind, and where a link leads.
inline std::string standing(const std::filesystem::path& at) {
    const auto type = std::filesystem::symlink_status(at).type();
    return std::to_string(static_cast<int>(type)) +
           (type == std::filesystem::file_type::symlink ? std::filesystem::read_symlink(at).string() : "");
}

/// Runs the checks in a process of their own, which is killed when they are not done within that time: what
/// hangs must not hang the tests. Whether they passed.
inline bool passesWithin(std::chrono::seconds limit, const std::function<void()>& checks) {
    const pid_t child = ::fork();
    if (child == 0) {
        checks();
        std::fflush(stdout);
        ::_exit(testing::Test::HasFailure() ? 1 : 0);
    }
    const auto end = std::chrono::steady_clock::now() + limit;
    int status = 0;
    while (::waitpid(child, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > end) {
            ::kill(child, SIGKILL);
            ::waitpid(child, &status, 0);
            ADD_FAILURE() << "still waiting after " << limit.count() << " s";
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
