#include "hostlink/SharedLibrary.h"

#ifdef _WIN32
#include <system_error>
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace ocuva {

#ifdef _WIN32

const char* const SharedLibrary::suffix = ".dll";

SharedLibrary::SharedLibrary(const std::filesystem::path& file)
    : m_file(file) {
    // A library beside the one that is loaded is found too; the working folder is never searched. The system
    // must not put up a box of its own meanwhile.
    const DWORD where =
        file.has_parent_path() ? LOAD_WITH_ALTERED_SEARCH_PATH : LOAD_LIBRARY_SEARCH_DEFAULT_DIRS;
    DWORD mode = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &mode);
    const std::filesystem::path path = file.has_parent_path() ? std::filesystem::absolute(file) : file;
    m_handle = LoadLibraryExW(path.c_str(), nullptr, where);
    if (m_handle == nullptr) {
        m_error = std::system_category().message(static_cast<int>(GetLastError()));
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

SharedLibrary::SharedLibrary(const std::filesystem::path& file)
    : m_file(file)
    , m_handle(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL)) {
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
