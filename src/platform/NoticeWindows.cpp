#include "platform/Notice.h"

#include <windows.h>

namespace ocuva {

bool showNotice(const std::string& program, const std::string& text) {
    SetEnvironmentVariableA(noticeVariable, text.c_str());
    std::string command = '"' + program + '"';
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &process) == 0) {
        return false;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

} // namespace ocuva
