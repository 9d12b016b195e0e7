#pragma once
// Says on the screen that settings and journal cannot be kept, and when they are kept again.

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <string>

namespace ocuva {

/// Tries to create and write a file in the folder. Returns the system's reason if that fails, otherwise an
/// empty text. Access rights alone show neither a full nor a read-only disk.
std::string whyNotWritable(const std::filesystem::path& folder);

/// One for the life of the window. It checks the folder when something was lost or the folder has changed,
/// and every two seconds while nothing can be stored; otherwise it causes no wake-ups. User-interface
/// thread.
class KeepingWatch final : public QObject {
    Q_OBJECT

public:
    /// `show` displays a note and an advice until the next change of state.
    KeepingWatch(std::filesystem::path dataFolder,
                 std::function<void(const QString& note, const QString& advice)> show);

    /// How often the folder is tried while nothing can be kept.
    static constexpr int tryAgainMs = 2000;

    /// Something could not be kept. May be called within a host call: it is looked into afterwards.
    void lost();

    /// Whether nothing can be kept.
    bool inTrouble() const { return m_again.isActive(); }

private:
    void look();
    void folderChanged();
    void watchFolder();

    std::filesystem::path m_folder;
    std::function<void(const QString&, const QString&)> m_show;
    QFileSystemWatcher m_watcher;
    QTimer m_again;
    bool m_lost = false;
};

} // namespace ocuva
