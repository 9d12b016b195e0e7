#include "app/toolbar/ToolbarLayoutStore.h"

#include "controls/UserRegistry.h"

#include <QStringList>
#include <QVariant>

#include <utility>

namespace ocuva {

namespace {

const auto valuePath = QStringLiteral("CustomToolbar/MainToolbar");

} // namespace

ToolbarLayoutStore::ToolbarLayoutStore(QString title)
    : m_title(std::move(title)) {}

QString ToolbarLayoutStore::load() const {
    // A settings file edited by hand may lack the quotes around the text; its commas then make it a list.
    return UserRegistry(m_title).value(valuePath).toStringList().join(u',');
}

bool ToolbarLayoutStore::save(const QString& layoutText) const {
    return UserRegistry(m_title).setValue(valuePath, layoutText);
}

} // namespace ocuva
