#pragma once
// The user's settings of the program itself, apart from the host's: toolbar layout, window places, the
// folder used last.

#include "base/Product.h"

#include <QString>
#include <QVariant>

namespace ocuva {

/// The user's registry, "Software\Brem\" + title. On systems without a registry, the settings file of the
/// same names in the user's folder for settings ("Brem/Ocuva.conf"), in QSettings' format.
///
/// Each call reads the file, or reads, changes and replaces it as a whole. It waits only for another copy
/// that is writing, at most for lockPatience. A file that is not regular or cannot be read counts as empty
/// and is not written.
class UserRegistry {
public:
    /// The title names the program's part of the registry.
    explicit UserRegistry(QString title = QString::fromLatin1(productTitle));

    /// How long a write waits for another copy.
    static constexpr int lockPatienceMs = 500;

    /// The stored text (or list of texts, if it was edited by hand), rectangle or point; invalid if there
    /// is none. The key is "Section/Name".
    QVariant value(const QString& key) const;
    /// True when it has reached the store. Texts, truth values, whole numbers, rectangles and points.
    bool setValue(const QString& key, const QVariant& value);
    /// True if there is no such value afterwards.
    bool remove(const QString& key);

private:
    QString m_title;
};

} // namespace ocuva
