#pragma once
// A key that is held is pressed once.

#include <QObject>

class QKeyEvent;

namespace ocuva {

/// Whether a held key may repeat: keys that move a cursor, a selection or a value by steps, and in a text
/// field also those that write and delete.
bool mayRepeat(int key, Qt::KeyboardModifiers modifiers, bool somebodyTypes);

/// Drops the repetitions of all other held keys, in all windows of the program and as shortcuts too, for as
/// long as it lives. User-interface thread.
class HeldKeys final : public QObject {
    Q_OBJECT

public:
    HeldKeys();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isRepetition(const QKeyEvent& press) const;

    quint32 m_releasedKey = 0;  // scan code of the last release
    quint64 m_releasedAtMs = 0; // its time, as the window system stamps it
};

} // namespace ocuva
