#include "app/RunningCopies.h"

#include "base/Product.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

#include <chrono>

namespace ocuva {

namespace {

using namespace std::chrono_literals;

QString entriesFolder(const QString& scope) {
    // A session without a runtime folder is usual on a bare bench; Qt would complain of it on every start.
    const bool hasRuntimeFolder = !qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR");
    const QString base = QStandardPaths::writableLocation(hasRuntimeFolder ? QStandardPaths::RuntimeLocation
                                                                           : QStandardPaths::TempLocation);
    const QByteArray hash =
        QCryptographicHash::hash((QDir::homePath() + u'\n' + scope).toUtf8(), QCryptographicHash::Sha1);
    return base + u'/' + QString::fromLatin1(productTitle).toLower() + QStringLiteral("-copies/") +
           QString::fromLatin1(hash.toHex().left(16));
}

// A lock file that cannot be taken belongs to a process that still lives; one of a dead process is taken over
// at once.
bool belongsToLivingProcess(const QString& path) {
    QLockFile entry(path);
    entry.setStaleLockTime(0ms);
    return !entry.tryLock(0ms) && entry.error() == QLockFile::LockFailedError;
}

} // namespace

struct RunningCopies::Entry {
    explicit Entry(const QString& path)
        : file(path) {}

    QLockFile file;
};

RunningCopies::RunningCopies(const QString& scope) {
    const QString folder = entriesFolder(scope);
    QDir().mkpath(folder);
    QLockFile guard(folder + QStringLiteral("/guard"));
    guard.setStaleLockTime(0ms);
    guard.lock();
    const QStringList entries = QDir(folder).entryList({QStringLiteral("copy-*")}, QDir::Files);
    for (const QString& entry : entries) {
        m_anotherWasRunning = belongsToLivingProcess(folder + u'/' + entry) || m_anotherWasRunning;
    }
    m_ownEntry =
        std::make_unique<Entry>(folder + QStringLiteral("/copy-%1").arg(QCoreApplication::applicationPid()));
    m_ownEntry->file.setStaleLockTime(0ms);
    m_ownEntry->file.tryLock(0ms);
}

RunningCopies::~RunningCopies() = default;

} // namespace ocuva
