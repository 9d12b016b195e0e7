#pragma once
// Stores the user's toolbar layout between runs.

#include "base/Product.h"

#include <QString>

namespace ocuva {

/// The layout is in the user's registry under "Software\Brem\" + title, sub-key "CustomToolbar", value
/// "MainToolbar"; on systems without a registry, in the user's settings file of the same names.
class ToolbarLayoutStore {
public:
    /// The title names the program's part of the registry.
    explicit ToolbarLayoutStore(QString title = QString::fromLatin1(productTitle));

    /// The stored text, or an empty one. It is checked by MainToolbar::restoreLayout.
    QString load() const;

    /// True when the text has reached the store. On false the store may still hold the former text.
    bool save(const QString& layoutText) const;

private:
    QString m_title;
};

} // namespace ocuva
