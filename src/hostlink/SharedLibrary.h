#pragma once
// One shared library of the system: loaded while the object lives.

#include <filesystem>
#include <string>

namespace ocuva {

/// Unloads at its end, so no function found in it may be called after that. One thread.
class SharedLibrary {
public:
    /// What the system puts behind a library's name: ".dll" or ".so".
    static const char* const suffix;

    /// A path with a folder is taken as it is; a bare name is looked for as the system does it. Nothing is
    /// loaded when it cannot be; error() then says why, in the system's words.
    explicit SharedLibrary(const std::filesystem::path& file);
    ~SharedLibrary();
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;

    /// Settled by the constructor.
    bool isLoaded() const { return m_handle != nullptr; }
    /// Empty when it is loaded.
    const std::string& error() const { return m_error; }
    /// As it was given.
    const std::filesystem::path& file() const { return m_file; }

    /// Address of an exported function; null when there is none of that name.
    void* find(const char* function) const;

private:
    std::filesystem::path m_file;
    void* m_handle = nullptr;
    std::string m_error;
};

} // namespace ocuva
