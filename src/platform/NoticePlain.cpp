#include "platform/Notice.h"

#include <spawn.h>
#include <unistd.h>
#include <vector>

namespace ocuva {

bool showNotice(const std::string& program, const std::string& text) {
    std::string variable = std::string(noticeVariable) + '=' + text;
    std::vector<char*> environment;
    for (char** one = environ; *one != nullptr; ++one) {
        environment.push_back(*one);
    }
    environment.push_back(variable.data());
    environment.push_back(nullptr);
    std::string name = program;
    char* arguments[] = {name.data(), nullptr};
    pid_t process = 0;
    return ::posix_spawn(&process, program.c_str(), nullptr, nullptr, arguments, environment.data()) == 0;
}

} // namespace ocuva
