#pragma once
// One shared library, loaded for the life of the object.

#include <filesystem>
#include <string>

namespace ocuva {

/// The destructor unloads the library; its functions must not be called after that. For one thread.
class SharedLibrary {
public:
    /// The extension of library names: ".dll" or ".so".
    static const char* const suffix;

    /// A path with a folder is used as it is; a bare name is searched for by the system. On failure
    /// nothing is loaded, and error() has the system's reason.
    explicit SharedLibrary(const std::filesystem::path& file);
    ~SharedLibrary();
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;

    /// Set by the constructor.
    bool isLoaded() const { return m_handle != nullptr; }
    /// Empty if it is loaded.
    const std::string& error() const { return m_error; }
    /// As passed to the constructor.
    const std::filesystem::path& file() const { return m_file; }

    /// The address of an exported function, or null.
    void* find(const char* function) const;

private:
    std::filesystem::path m_file;
    void* m_handle = nullptr;
    std::string m_error;
};

} // namespace ocuva
