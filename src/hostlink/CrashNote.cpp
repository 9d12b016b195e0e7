#include "hostlink/CrashNote.h"

#include "base/RegularFile.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <iterator>
#include <sstream>
#include <system_error>
#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace ocuva {

namespace {

constexpr std::size_t longestNote = 1024;

#ifdef _WIN32
using FileName = std::array<wchar_t, 1024>;
#else
using FileName = std::array<char, 4096>;
#endif

// A signal handler gets no argument from the program; it finds its data here.
struct Armed {
    FileName file{};
    const CallMark* mark = nullptr;
};
Armed armed; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

// Builds a text without allocating memory and without the C library, as a signal handler must.
class NoteText {
public:
    void add(const char* text) {
        for (; *text != '\0' && m_length < m_text.size(); ++text) {
            m_text[m_length++] = *text;
        }
    }
    void add(unsigned long long number) {
        std::array<char, 24> digits{};
        std::size_t first = digits.size() - 1;
        do {
            digits[--first] = static_cast<char>('0' + number % 10);
            number /= 10;
        } while (number != 0);
        add(&digits[first]);
    }
    const char* data() const { return m_text.data(); }
    std::size_t length() const { return m_length; }

private:
    std::array<char, longestNote> m_text{};
    std::size_t m_length = 0;
};

// Three lines: time, fault, running function.
NoteText noteOf(unsigned long long fault) {
    NoteText text;
    text.add(static_cast<unsigned long long>(std::time(nullptr)));
    text.add("\n");
    text.add(fault);
    text.add("\n");
    const char* running = armed.mark != nullptr ? armed.mark->current() : nullptr;
    text.add(running != nullptr ? running : "");
    text.add("\n");
    return text;
}

#ifdef _WIN32

// The system's number for a program that gives itself up. The C library's abort does not pass the filter.
constexpr unsigned long abortFault = 0xC0000409;

void writeNote(unsigned long fault) {
    const NoteText text = noteOf(fault);
    // A file that is made new never goes where a link leads.
    DeleteFileW(armed.file.data());
    const HANDLE file = CreateFileW(armed.file.data(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        DWORD written = 0;
        WriteFile(file, text.data(), static_cast<DWORD>(text.length()), &written, nullptr);
        CloseHandle(file);
    }
}

// The filter that was there before, mostly the C library's, ends the process as it would have.
LPTOP_LEVEL_EXCEPTION_FILTER formerFilter =
    nullptr; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

LONG WINAPI noteFault(EXCEPTION_POINTERS* about) {
    writeNote(about->ExceptionRecord->ExceptionCode);
    return formerFilter != nullptr ? formerFilter(about) : EXCEPTION_CONTINUE_SEARCH;
}

void noteAbort(int /*signal*/) { writeNote(abortFault); }

void arm() {
    // Room for the filter: the fault may be that the stack is used up.
    ULONG room = 64 * 1024;
    SetThreadStackGuarantee(&room);
    formerFilter = SetUnhandledExceptionFilter(noteFault);
    if (const auto former = std::signal(SIGABRT, noteAbort); former != SIG_DFL) {
        std::signal(SIGABRT, former);
    }
}

void disarm() {
    SetUnhandledExceptionFilter(formerFilter);
    if (const auto present = std::signal(SIGABRT, SIG_DFL); present != noteAbort) {
        std::signal(SIGABRT, present);
    }
}

#else

constexpr std::array<int, 5> faults{SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL};

void writeNote(int fault) {
    const NoteText text = noteOf(static_cast<unsigned long long>(fault));
    const int file = ::open(armed.file.data(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK, 0600);
    if (file >= 0) {
        [[maybe_unused]] const ssize_t written = ::write(file, text.data(), text.length());
        ::close(file);
    }
    // The handler has been reset on entry, so this ends the process as the fault would have.
    ::raise(fault);
}

// Stack for the handler: the fault may be a stack overflow.
std::array<char, 64 * 1024> handlerStack; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

void arm() {
    stack_t stack{};
    stack.ss_sp = handlerStack.data();
    stack.ss_size = handlerStack.size();
    ::sigaltstack(&stack, nullptr);
    for (const int fault : faults) {
        struct sigaction present {};
        if (::sigaction(fault, nullptr, &present) == 0 && present.sa_handler == SIG_DFL) {
            struct sigaction ours {};
            ours.sa_handler = writeNote;
            ours.sa_flags = static_cast<int>(SA_RESETHAND | SA_ONSTACK);
            ::sigaction(fault, &ours, nullptr);
        }
    }
}

void disarm() {
    for (const int fault : faults) {
        struct sigaction present {};
        if (::sigaction(fault, nullptr, &present) == 0 && present.sa_handler == writeNote) {
            ::signal(fault, SIG_DFL);
        }
    }
}

#endif

std::string whenText(const std::string& seconds) {
    const std::time_t when = std::strtoll(seconds.c_str(), nullptr, 10);
    std::array<char, 32> text{};
    const std::tm* local = std::localtime(&when);
    const std::size_t length =
        local != nullptr ? std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", local) : 0;
    return {text.data(), length};
}

std::string faultText(const std::string& number) {
#ifdef _WIN32
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%08lX", std::strtoul(number.c_str(), nullptr, 10));
    return std::string("fault ") + text.data();
#else
    const char* name = ::sigabbrev_np(static_cast<int>(std::strtol(number.c_str(), nullptr, 10)));
    return name != nullptr ? "fault SIG" + std::string(name) : "fault " + number;
#endif
}

// One line of printable characters, whatever a damaged or planted note contains.
std::string plainLine(std::istream& lines) {
    std::string line;
    std::getline(lines, line);
    std::replace_if(
        line.begin(), line.end(), [](unsigned char c) { return c < ' '; }, '?');
    return line;
}

} // namespace

CrashNote::CrashNote(const std::filesystem::path& file, const CallMark& mark) {
    const auto& name = file.native();
    if (name.size() >= armed.file.size()) {
        return;
    }
    armed.file = {};
    std::copy(name.begin(), name.end(), armed.file.begin());
    armed.mark = &mark;
    arm();
}

CrashNote::~CrashNote() {
    disarm();
    armed.mark = nullptr;
}

std::string CrashNote::take(const std::filesystem::path& file) {
    std::error_code error;
    if (std::filesystem::symlink_status(file, error).type() != std::filesystem::file_type::regular) {
        return {};
    }
    std::string text(longestNote, '\0');
    RegularFile note = RegularFile::openToRead(file, error);
    text.resize(note.isOpen() ? note.read(text.data(), text.size(), error) : 0);
    note.close();
    std::filesystem::remove(file, error);
    std::istringstream lines(text);
    const std::string when = whenText(plainLine(lines));
    const std::string fault = faultText(plainLine(lines));
    const std::string running = plainLine(lines);
    return "Ocuva crashed on " + when + " (" + fault + "). " +
           (running.empty() ? "No function of the host's libraries was running at that moment."
                            : "This was running at that moment: " + running + ".") +
           " This is not necessarily the cause: an earlier call may have done the damage. If it happens "
           "again, pass this text on to the person who maintains the host.";
}

} // namespace ocuva
