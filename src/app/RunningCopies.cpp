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

const QString copyEntry = QStringLiteral("copy-");
const QString startEntry = QStringLiteral("starting-"); // of a copy that has not started up yet

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
        : file(path) {
        file.setStaleLockTime(0ms);
        file.tryLock(0ms);
    }

    QLockFile file;
};

RunningCopies::RunningCopies(const QString& scope)
    : m_scope(scope) {
    m_anotherWasRunning = look(Enter::Always).run;
}

RunningCopies::Others RunningCopies::look(Enter enter) {
    const QString folder = entriesFolder(m_scope);
    QDir().mkpath(folder);
    QLockFile guard(folder + QStringLiteral("/guard"));
    guard.setStaleLockTime(0ms);
    guard.lock();
    const auto anyLives = [&folder](const QString& kind) {
        bool found = false;
        for (const QString& entry : QDir(folder).entryList({kind + u'*'}, QDir::Files)) {
            found = belongsToLivingProcess(folder + u'/' + entry) || found;
        }
        return found;
    };
    const Others others{anyLives(copyEntry), anyLives(startEntry)};
    if (enter == Enter::Always || !others.run) {
        const QString own = QString::number(QCoreApplication::applicationPid());
        m_ownEntry = std::make_unique<Entry>(folder + u'/' + copyEntry + own);
        m_ownStart = std::make_unique<Entry>(folder + u'/' + startEntry + own);
    }
    return others;
}

RunningCopies::~RunningCopies() = default;

void RunningCopies::startedUp() { m_ownStart.reset(); }

void RunningCopies::leave() {
    m_ownEntry.reset();
    m_ownStart.reset();
}

} // namespace ocuva
