#include "app/RunningCopies.h"
#include "base/Product.h"

#include <QCryptographicHash>
#include <QDir>

#include <windows.h>

namespace ocuva {

namespace {

// The system keeps the names of a logon apart from those of others, and drops one with its last process.
std::wstring mutexName(const QString& scope) {
    const QByteArray hash =
        QCryptographicHash::hash(QDir::cleanPath(scope).toLower().toUtf8(), QCryptographicHash::Sha1);
    return (QStringLiteral("Local\\") + QString::fromLatin1(productTitle) + u'-' +
            QString::fromLatin1(hash.toHex().left(16)))
        .toStdWString();
}

} // namespace

struct RunningCopies::Entry {
    explicit Entry(const QString& scope)
        : mutex(CreateMutexW(nullptr, FALSE, mutexName(scope).c_str()))
        , wasThere(GetLastError() == ERROR_ALREADY_EXISTS || GetLastError() == ERROR_ACCESS_DENIED) {}
    ~Entry() {
        if (mutex != nullptr) {
            CloseHandle(mutex);
        }
    }
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

    const HANDLE mutex;
    const bool wasThere;
};

RunningCopies::RunningCopies(const QString& scope)
    : m_ownEntry(std::make_unique<Entry>(scope))
    , m_anotherWasRunning(m_ownEntry->wasThere) {}

RunningCopies::~RunningCopies() = default;

} // namespace ocuva
