#include "app/toolbar/ToolbarLayoutStore.h"

#include <QSettings>
#include <QStringList>
#include <QVariant>
#include <QtGlobal>

#include <utility>

namespace ocuva {

namespace {

const auto valuePath = QStringLiteral("CustomToolbar/MainToolbar");

} // namespace

ToolbarLayoutStore::ToolbarLayoutStore(QString title)
    : m_title(std::move(title)) {}

QString ToolbarLayoutStore::load() const {
    QSettings store(QSettings::NativeFormat, QSettings::UserScope, QString::fromLatin1(registryOrganisation),
                    m_title);
    // A settings file edited by hand may lack the quotes round the text; its commas then make it a list.
    return store.value(valuePath).toStringList().join(u',');
}

bool ToolbarLayoutStore::save(const QString& layoutText) const {
    QSettings store(QSettings::NativeFormat, QSettings::UserScope, QString::fromLatin1(registryOrganisation),
                    m_title);
    store.setValue(valuePath, layoutText);
    store.sync();
    const bool written = store.status() == QSettings::NoError;
    if (!written) {
        qWarning("The toolbar layout could not be written to %s", qUtf8Printable(store.fileName()));
    }
    return written;
}

} // namespace ocuva
