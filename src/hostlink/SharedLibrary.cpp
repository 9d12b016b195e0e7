#include "hostlink/SharedLibrary.h"

#ifdef _WIN32
#include <system_error>
#include <windows.h>
#else
#include <cstdint>
#include <cstring>
#include <dlfcn.h>
#include <fstream>
#include <link.h>
#include <system_error>
#endif

namespace ocuva {

#ifdef _WIN32

const char* const SharedLibrary::suffix = ".dll";

SharedLibrary::SharedLibrary(const std::filesystem::path& file)
    : m_file(file) {
    // Libraries next to the loaded one are found too; the working folder is never searched. The system
    // must not show a message box of its own.
    const DWORD where =
        file.has_parent_path() ? LOAD_WITH_ALTERED_SEARCH_PATH : LOAD_LIBRARY_SEARCH_DEFAULT_DIRS;
    DWORD mode = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &mode);
    const std::filesystem::path path = file.has_parent_path() ? std::filesystem::absolute(file) : file;
    m_handle = LoadLibraryExW(path.c_str(), nullptr, where);
    if (const DWORD error = GetLastError(); m_handle == nullptr) {
        // The system's own words have a gap for the file's name.
        m_error = error == ERROR_BAD_EXE_FORMAT ? "it is no library for 64-bit Windows, or it is cut off"
                                                : std::system_category().message(static_cast<int>(error));
    }
    SetThreadErrorMode(mode, nullptr);
}

SharedLibrary::~SharedLibrary() {
    if (m_handle != nullptr) {
        FreeLibrary(static_cast<HMODULE>(m_handle));
    }
}

void* SharedLibrary::find(const char* function) const {
    return isLoaded() ? reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(m_handle), function))
                      : nullptr;
}

#else

const char* const SharedLibrary::suffix = ".so";

namespace {

// The system maps a library without checking whether the file is as long as it claims, and the process
// dies at the first missing byte. Files that are not libraries for this machine are left to the system.
bool isCutOff(const std::filesystem::path& file) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    ElfW(Ehdr) header{};
    std::ifstream bytes(file, std::ios::binary);
    if (error || !bytes.read(reinterpret_cast<char*>(&header), sizeof header) ||
        std::memcmp(&header.e_ident, ELFMAG, SELFMAG) != 0 || header.e_phentsize != sizeof(ElfW(Phdr))) {
        return false;
    }
    bytes.seekg(static_cast<std::streamoff>(header.e_phoff));
    for (int i = 0; i < header.e_phnum; ++i) {
        ElfW(Phdr) part{};
        if (!bytes.read(reinterpret_cast<char*>(&part), sizeof part)) {
            return true;
        }
        if (part.p_type == PT_LOAD && (part.p_offset > size || part.p_filesz > size - part.p_offset)) {
            return true;
        }
    }
    return false;
}

} // namespace

SharedLibrary::SharedLibrary(const std::filesystem::path& file)
    : m_file(file) {
    std::error_code error;
    if (file.has_parent_path() && std::filesystem::exists(file, error) &&
        !std::filesystem::is_regular_file(file, error)) {
        m_error = "it is not a file"; // opening a pipe would block
        return;
    }
    if (file.has_parent_path() && isCutOff(file)) {
        m_error = "the file is cut off";
        return;
    }
    m_handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (m_handle == nullptr) {
        m_error = dlerror();
    }
}

SharedLibrary::~SharedLibrary() {
    if (m_handle != nullptr) {
        dlclose(m_handle);
    }
}

void* SharedLibrary::find(const char* function) const {
    return isLoaded() ? dlsym(m_handle, function) : nullptr;
}

#endif

} // namespace ocuva
