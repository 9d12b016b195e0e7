#pragma once
// A menu whose entries are found by typing the beginning of their names.

#include <QElapsedTimer>
#include <QMenu>
#include <QString>
#include <QStringList>

#include <optional>

namespace ocuva {

/// What has been typed so far. Letters that follow each other quickly are one beginning; the same letter
/// again and again goes through the entries that begin with it.
class TypeAhead {
public:
    /// Takes the text of a key press, at a time in milliseconds that never decreases. Returns the index of
    /// the entry to go to; nothing if none begins with the typed text. `current` is the selected entry, -1
    /// for none.
    std::optional<int> type(const QString& text, qint64 nowMs, int patienceMs, const QStringList& entries,
                            int current);

    /// Whether a key at that time continues the typed text, so that a blank belongs to the name.
    bool continues(qint64 nowMs, int patienceMs) const;

private:
    QString m_typed;
    qint64 m_lastMs = 0;
};

/// Typing chooses an entry, Enter runs it as in any menu.
class TypeAheadMenu final : public QMenu {
    Q_OBJECT

public:
    TypeAheadMenu();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    TypeAhead m_typeAhead;
    QElapsedTimer m_clock;
};

} // namespace ocuva
