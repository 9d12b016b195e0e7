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

/// Whether a file can be made and written in that folder, by trying it: the system's words for why not, empty
/// when it can. Rights alone tell neither a full disk nor a read-only one.
std::string whyNotWritable(const std::filesystem::path& folder);

/// One for the life of the window. It looks when something was lost or the folder has changed, and every two
/// seconds while nothing can be kept; else nothing wakes it. User-interface thread.
class KeepingWatch final : public QObject {
    Q_OBJECT

public:
    /// `show` puts a note and an advice on the screen, where the next change of state takes them off.
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
