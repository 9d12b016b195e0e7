#include "app/KeepingWatch.h"

#include "base/AsideFile.h"
#include "platform/PathOf.h"

#include <QMetaObject>

#include <utility>

namespace ocuva {

std::string whyNotWritable(const std::filesystem::path& folder) {
    constexpr std::size_t smallFile = 4096;
    AsideFile probe(folder / "probe");
    std::error_code error = probe.create();
    if (!error) {
        probe.file().write(std::string(smallFile, '.'), error);
    }
    return error ? error.message() : std::string();
}

KeepingWatch::KeepingWatch(std::filesystem::path dataFolder,
                           std::function<void(const QString& note, const QString& advice)> show)
    : m_folder(std::move(dataFolder))
    , m_show(std::move(show)) {
    m_again.setInterval(tryAgainMs);
    connect(&m_again, &QTimer::timeout, this, &KeepingWatch::look);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &KeepingWatch::folderChanged);
    watchFolder();
}

void KeepingWatch::watchFolder() {
    if (const QStringList watched = m_watcher.directories(); !watched.isEmpty()) {
        m_watcher.removePaths(watched); // another folder may have come under that name
    }
    // Moving a folder is reported only in its parent folder.
    for (const std::filesystem::path& folder : {m_folder, m_folder.parent_path()}) {
        m_watcher.addPath(nameOf(folder));
    }
}

/// Files come and go in it all the time.
void KeepingWatch::folderChanged() {
    std::error_code error;
    if (!std::filesystem::is_directory(m_folder, error)) {
        lost();
    }
}

void KeepingWatch::lost() {
    if (!m_lost) {
        m_lost = true;
        QMetaObject::invokeMethod(this, &KeepingWatch::look, Qt::QueuedConnection);
    }
}

void KeepingWatch::look() {
    const QString reason = QString::fromLocal8Bit(whyNotWritable(m_folder));
    const QString folder = nameOf(m_folder);
    if (!reason.isEmpty()) {
        m_show(
            tr("Settings are not kept: %1").arg(reason),
            tr("Settings and journal cannot be written to the data folder \"%1\" (%2). Make it writable, or "
               "make room on its disk; then they are kept again")
                .arg(folder, reason));
        m_again.start();
    } else if (inTrouble()) {
        m_again.stop();
        watchFolder();
        m_show(tr("Settings are kept again"),
               tr("The data folder \"%1\" can be written again. Changes made in the meantime were not stored")
                   .arg(folder));
    } else if (m_lost) {
        m_show(tr("A setting was not kept"), tr("The host could not store it; its log says why"));
    }
    m_lost = false;
}

} // namespace ocuva
