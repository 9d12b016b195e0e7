// A file in place of the registry. QSettings is not used for it: it waits for its lock forever, opens any
// kind of file, and replaces the target of a link.

#include "controls/UserRegistry.h"

#include "base/AsideFile.h"
#include "base/FileLock.h"
#include "controls/UserRegistryText.h"
#include "platform/PathOf.h"

#include <QFileInfo>
#include <QSettings>

#include <utility>

namespace ocuva {

namespace {

constexpr std::size_t largestFile = 1024 * 1024;

/// QSettings knows the folder of the user's files, also in tests; it does not open the file for this.
std::filesystem::path fileOf(const QString& title) {
    const QString none = QStringLiteral("no such organisation");
    const QString some = QSettings(QSettings::NativeFormat, QSettings::UserScope, none, none).fileName();
    const QString folder = QFileInfo(QFileInfo(some).path()).path();
    const QString name =
        folder + u'/' + QString::fromLatin1(registryOrganisation) + u'/' + title + QStringLiteral(".conf");
    return pathOf(name);
}

/// Nothing when there is something that cannot be read; then it must not be replaced either.
std::optional<std::string> textOf(const std::filesystem::path& file) {
    std::error_code error;
    const RegularFile opened = RegularFile::openToRead(file, error);
    if (error == std::errc::no_such_file_or_directory) {
        return std::string();
    }
    return opened.isOpen() ? opened.readAll(largestFile, error) : std::nullopt;
}

bool change(const QString& title, const QString& key, const QVariant& value) {
    const std::filesystem::path file = fileOf(title);
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    std::filesystem::path lockFile = file;
    lockFile += ".guard";
    const FileLock lock(lockFile, std::chrono::milliseconds(UserRegistry::lockPatienceMs));
    const std::optional<std::string> text = lock.held() ? textOf(file) : std::nullopt;
    if (!text) {
        qWarning("%s could not be written (%s)", file.c_str(),
                 lock.held() ? "what is there cannot be read" : lock.problem().c_str());
        return false;
    }
    const std::string changed = withRegistryValue(*text, key, value);
    if (changed == *text) {
        return true;
    }
    error = replaceFile(file, changed);
    if (error) {
        qWarning("%s could not be written (%s)", file.c_str(), error.message().c_str());
    }
    return !error;
}

} // namespace

UserRegistry::UserRegistry(QString title)
    : m_title(std::move(title)) {}

QVariant UserRegistry::value(const QString& key) const {
    return registryValue(textOf(fileOf(m_title)).value_or(std::string()), key);
}

bool UserRegistry::setValue(const QString& key, const QVariant& value) { return change(m_title, key, value); }

bool UserRegistry::remove(const QString& key) { return change(m_title, key, {}); }

} // namespace ocuva
