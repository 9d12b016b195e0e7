#include "support/OwnRegistry.h"

#include <QSettings>

#ifdef _WIN32
#include <windows.h>
#endif

namespace ocuva {

#ifdef _WIN32

OwnRegistry::OwnRegistry()
    : m_key(L"Software\\Ocuva tests\\" + std::to_wstring(GetCurrentProcessId())) {
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, m_key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        nullptr) != ERROR_SUCCESS ||
        RegOverridePredefKey(HKEY_CURRENT_USER, key) != ERROR_SUCCESS) {
        qFatal("There is no registry for the tests");
    }
    RegCloseKey(key);
}

OwnRegistry::~OwnRegistry() {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, m_key.c_str());
}

#else

OwnRegistry::OwnRegistry() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
}

#endif

void emptyRegistry() {
    QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Brem"), QStringLiteral("Ocuva"))
        .clear();
}

} // namespace ocuva
