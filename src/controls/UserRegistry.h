#pragma once
// What the program keeps for the user from run to run, apart from the host's settings: the toolbar's layout,
// the places of windows, the folder used last.

#include "base/Product.h"

#include <QString>
#include <QVariant>

namespace ocuva {

/// The user's registry, "Software\Brem\" + title. Where there is none, the settings file of the same names in
/// the user's folder for such files ("Brem/Ocuva.conf"), in the form that QSettings gives it.
///
/// Each call reads the file, or reads, changes and replaces it as a whole. Nothing is waited for but another
/// copy that is writing, and for it not longer than lockPatience: a file that is no regular one, or cannot be
/// read, is like an empty one, and is not written.
class UserRegistry {
public:
    /// The title names the program's part of the registry.
    explicit UserRegistry(QString title = QString::fromLatin1(productTitle));

    /// How long a write waits for another copy.
    static constexpr int lockPatienceMs = 500;

    /// A text (a list of texts, where a hand edited it into one), rectangle or point, as it was stored;
    /// invalid when there is none. The key is "Section/Name".
    QVariant value(const QString& key) const;
    /// True when it has reached the store. Texts, truth values, whole numbers, rectangles and points.
    bool setValue(const QString& key, const QVariant& value);
    /// True when there is none any more.
    bool remove(const QString& key);

private:
    QString m_title;
};

} // namespace ocuva
