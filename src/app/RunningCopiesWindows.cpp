#include "app/RunningCopies.h"
#include "base/Product.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>

#include <string>
#include <utility>
#include <windows.h>

namespace ocuva {

namespace {

// The system keeps the names of a logon apart from those of others, and drops one with its last process.
std::wstring mutexName(const QString& scope) {
    const QByteArray hash =
        QCryptographicHash::hash(QDir::cleanPath(scope).toLower().toUtf8(), QCryptographicHash::Sha1);
    const QString name = QStringLiteral("Local\\") + QString::fromLatin1(productTitle) + u'-' +
                         QString::fromLatin1(hash.toHex().left(16));
    return name.toStdWString();
}

// Its mutex is there while a copy has not started up yet.
std::wstring startName(const QString& scope) { return mutexName(scope) + L"-starting"; }

} // namespace

struct RunningCopies::Entry {
    // Nothing may come between the call and the question for its error.
    explicit Entry(const std::wstring& name)
        : mutex(CreateMutexW(nullptr, FALSE, name.c_str()))
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

RunningCopies::RunningCopies(const QString& scope, std::chrono::milliseconds patience)
    : m_scope(scope)
    , m_patience(patience) {
    m_anotherWasRunning = look(Enter::Always).run;
}

RunningCopies::Others RunningCopies::look(Enter enter) {
    // A copy announces its start before itself, so that nobody takes a running copy for one that has
    // started up.
    auto start = std::make_unique<Entry>(startName(m_scope));
    auto entry = std::make_unique<Entry>(mutexName(m_scope));
    const Others others{entry->wasThere, start->wasThere};
    const bool unknown = entry->mutex == nullptr && !others.run;
    m_problem =
        unknown
            ? QCoreApplication::translate("main", "Ocuva cannot determine whether another copy is running.")
            : QString();
    if (enter == Enter::Always || !others.run) {
        m_ownStart.push_back(std::move(start));
        m_ownEntry.push_back(std::move(entry));
    }
    return others;
}

RunningCopies::~RunningCopies() = default;

void RunningCopies::startedUp() { m_ownStart.clear(); }

void RunningCopies::leave() {
    m_ownEntry.clear();
    m_ownStart.clear();
}

} // namespace ocuva
