#pragma once
// The user's registry as tests want it: empty, and not the developer's own.

#include <QTemporaryDir>

#ifdef _WIN32
#include <string>
#endif

namespace ocuva {

/// Gives this process a user's registry of its own, which goes with the object. One in a process, made before
/// anything reads the registry.
class OwnRegistry {
public:
    OwnRegistry();
#ifdef _WIN32
    ~OwnRegistry();
    OwnRegistry(const OwnRegistry&) = delete;
    OwnRegistry& operator=(const OwnRegistry&) = delete;

private:
    std::wstring m_key;
#else
private:
    QTemporaryDir m_folder;
#endif
};

/// Removes all of the program's values from the registry: its toolbar and the places of its windows.
void emptyRegistry();

} // namespace ocuva
