// The registry of Windows.

#include "controls/UserRegistry.h"

#include <QSettings>

#include <utility>

namespace ocuva {

namespace {

bool written(QSettings& store) {
    store.sync();
    return store.status() == QSettings::NoError;
}

QSettings registryOf(const QString& title) {
    return {QSettings::NativeFormat, QSettings::UserScope, QString::fromLatin1(registryOrganisation), title};
}

} // namespace

UserRegistry::UserRegistry(QString title)
    : m_title(std::move(title)) {}

QVariant UserRegistry::value(const QString& key) const { return registryOf(m_title).value(key); }

bool UserRegistry::setValue(const QString& key, const QVariant& value) {
    QSettings store = registryOf(m_title);
    store.setValue(key, value);
    return written(store);
}

bool UserRegistry::remove(const QString& key) {
    QSettings store = registryOf(m_title);
    store.remove(key);
    return written(store);
}

} // namespace ocuva
