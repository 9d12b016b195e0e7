#include "app/RunningCopies.h"

#include "base/FileLock.h"
#include "base/Product.h"
#include "platform/PathOf.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QStandardPaths>
#include <QStringList>
#include <QSysInfo>

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace ocuva {

namespace {

namespace fs = std::filesystem;

const auto copyEntry = QStringLiteral("copy-");
const auto startEntry = QStringLiteral("starting-"); // of a copy that has not started up yet

QString folderName() { return QString::fromLatin1(productTitle).toLower() + QStringLiteral("-copies"); }

/// Includes the machine: a home folder may be on a disk that several machines share.
QString nameOf(const QString& scope) {
    const QStringList parts{QSysInfo::machineHostName(), QDir::homePath(), scope};
    const QByteArray hash = QCryptographicHash::hash(parts.join(u'\n').toUtf8(), QCryptographicHash::Sha1);
    return QString::fromLatin1(hash.toHex().left(16));
}

/// A name in a folder that all users share is the user's own by his number.
QStringList usualPlaces() {
    const QString user = QString::number(::geteuid());
    QStringList places;
    for (const QString& runtime :
         {qEnvironmentVariable("XDG_RUNTIME_DIR"), QStringLiteral("/run/user/") + user}) {
        if (QDir::isAbsolutePath(runtime) && QDir(runtime).exists()) {
            places += QDir(runtime).filePath(folderName());
        }
    }
    places += QDir(QDir::tempPath()).filePath(folderName() + u'-' + user);
    places.removeDuplicates();
    return places;
}

/// Creates the folder if necessary. Somebody else may have created it, or put a link there.
QString whyNotOwn(const QString& folder) {
    const fs::path path = pathOf(folder);
    if (::mkdir(path.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
        return QCoreApplication::translate("main", "the folder \"%1\" cannot be created (%2)")
            .arg(folder, QString::fromLocal8Bit(std::generic_category().message(errno)));
    }
    struct stat about {};
    const bool own = ::lstat(path.c_str(), &about) == 0 && S_ISDIR(about.st_mode) &&
                     about.st_uid == ::geteuid() && (about.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    return own ? QString()
               : QCoreApplication::translate(
                     "main", "\"%1\" is not a private folder of yours; remove it or have it removed")
                     .arg(folder);
}

/// A living process keeps its entry locked. That of a dead one is removed.
bool belongsToLivingProcess(const fs::path& entry) {
    std::error_code error;
    const RegularFile file = RegularFile::openToLock(entry, error);
    if (!file.isOpen()) {
        return false; // not an entry
    }
    if (file.tryLock(error)) {
        fs::remove(entry, error);
        return false;
    }
    return !error;
}

/// A folder in which the copies of a scope find each other, with its guard; `problem` if it cannot be
/// used.
struct Meeting {
    QString folder;
    std::unique_ptr<FileLock> guard;
    QString problem;
};

Meeting meetingIn(const QString& place, const QString& name, std::chrono::milliseconds patience) {
    Meeting meeting{place + u'/' + name, nullptr, whyNotOwn(place)};
    if (meeting.problem.isEmpty()) {
        meeting.problem = whyNotOwn(meeting.folder);
    }
    if (meeting.problem.isEmpty()) {
        const QString guard = meeting.folder + QStringLiteral("/guard");
        meeting.guard = std::make_unique<FileLock>(pathOf(guard), patience);
        if (!meeting.guard->held()) {
            meeting.problem = QCoreApplication::translate("main", "the lock \"%1\" cannot be obtained (%2)")
                                  .arg(guard, QString::fromLocal8Bit(meeting.guard->problem()));
        }
    }
    return meeting;
}

/// The usable folders; the reasons against the others.
std::vector<Meeting> meetings(const QString& name, std::chrono::milliseconds patience,
                              QStringList& problems) {
    std::vector<Meeting> found;
    const auto join = [&](const QString& place) {
        Meeting meeting = meetingIn(place, name, patience);
        if (meeting.problem.isEmpty()) {
            found.push_back(std::move(meeting));
        } else {
            problems += meeting.problem;
        }
    };
    for (const QString& place : usualPlaces()) {
        join(place);
    }
    if (found.empty()) {
        const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
        QDir().mkpath(cache);
        join(QDir(cache).filePath(folderName()));
    }
    return found;
}

bool anyLives(const QString& folder, const QString& kind) {
    const QString own = kind + QString::number(QCoreApplication::applicationPid());
    bool found = false;
    for (const QString& entry : QDir(folder).entryList({kind + u'*'}, QDir::Files)) {
        found = (entry != own && belongsToLivingProcess(pathOf(folder + u'/' + entry))) || found;
    }
    return found;
}

} // namespace

struct RunningCopies::Entry {
    explicit Entry(fs::path file)
        : path(std::move(file))
        , lock(path, std::chrono::milliseconds(0)) {}
    ~Entry() {
        std::error_code ignored;
        fs::remove(path, ignored);
    }
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

    fs::path path;
    FileLock lock;
};

RunningCopies::RunningCopies(const QString& scope, std::chrono::milliseconds patience)
    : m_scope(scope)
    , m_patience(patience) {
    m_anotherWasRunning = look(Enter::Always).run;
}

RunningCopies::Others RunningCopies::look(Enter enter) {
    QStringList problems;
    const std::vector<Meeting> found = meetings(nameOf(m_scope), m_patience, problems);
    m_problem = found.empty() ? QCoreApplication::translate(
                                    "main", "Ocuva cannot determine whether another copy is running: %1.")
                                    .arg(problems.join(QStringLiteral("; ")))
                              : QString();
    Others others;
    for (const Meeting& meeting : found) {
        others.run = anyLives(meeting.folder, copyEntry) || others.run;
        others.start = anyLives(meeting.folder, startEntry) || others.start;
    }
    if (enter == Enter::Always || !others.run) {
        const QString own = QString::number(QCoreApplication::applicationPid());
        for (const Meeting& meeting : found) {
            m_ownEntry.push_back(std::make_unique<Entry>(pathOf(meeting.folder + u'/' + copyEntry + own)));
            m_ownStart.push_back(std::make_unique<Entry>(pathOf(meeting.folder + u'/' + startEntry + own)));
        }
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
