#pragma once
// The request on tarnsend's command line.

#include <chrono>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tarnsend {

/// How the process ends.
enum ExitCode : int {
    exitDone = 0,
    exitTrouble = 1, ///< the data folder or the bus cannot be used
    exitUsage = 2,
    exitTimeOut = 3, ///< the expected message did not arrive
    exitNobody = 4,  ///< no program listens: nobody received the message
};

struct Request {
    std::vector<std::string> messages; ///< identifiers, or names with byName, in the order of sending
    bool byName = false;
    bool listen = false;                ///< show traffic instead of sending
    std::string component;              ///< to send to; when listening, the only one to show, empty for all
    std::string subComponent;           ///< to send with
    std::optional<std::string> waitFor; ///< identifier of the answer
    std::optional<std::chrono::milliseconds> timeout; ///< none: as long as it takes
    std::optional<int> count;                         ///< messages to show, at least 1; none: all that come
    std::string dataFolder;                           ///< empty: the user's own
};

/// A text to print instead of doing anything, and where it goes and how the process ends after it.
struct Notice {
    std::string text;
    ExitCode exitCode = exitDone; ///< exitDone: to standard output, else to standard error
};

/// Understands the words of a command line, the program's name first, UTF-8.
std::variant<Request, Notice> understand(const std::vector<std::string>& words);

} // namespace tarnsend
