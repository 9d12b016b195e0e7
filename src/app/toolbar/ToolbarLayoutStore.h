#pragma once
// Where the user's toolbar layout is kept between runs.

#include "base/Product.h"

#include <QString>

namespace ocuva {

/// The layout lives in the user's registry under "Software\Brem\" + title, sub-key "CustomToolbar", value
/// "MainToolbar"; where there is no registry, in the native per-user settings file of the same names.
class ToolbarLayoutStore {
public:
    /// The title names the program's part of the registry.
    explicit ToolbarLayoutStore(QString title = QString::fromLatin1(productTitle));

    /// The stored text, empty when there is none. It is not checked here; MainToolbar::restoreLayout does.
    QString load() const;

    /// True when the text has reached the store. On false the store may still hold the former text.
    bool save(const QString& layoutText) const;

private:
    QString m_title;
};

} // namespace ocuva
