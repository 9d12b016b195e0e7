#pragma once
// Which buttons and separators a toolbar shows, in which order, and how that is written down as text.

#include "app/toolbar/ToolbarButtons.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace ocuva {

/// A plain value. Every key in it is the key of a button or a separator key, and none occurs twice.
class ToolbarLayout {
public:
    /// All buttons and separators, in the default order.
    static ToolbarLayout design(const ToolbarButtons& buttons);

    /// Keys separated by commas; blanks round a key do not matter. Unknown keys and repetitions are left out.
    /// Nothing when no button remains, since a bar without a button is of no use to anyone.
    static std::optional<ToolbarLayout> fromText(const QString& text, const ToolbarButtons& buttons);

    /// The buttons that there are, on the bar or not.
    const ToolbarButtons& buttons() const { return m_buttons; }

    /// The text that fromText reads back.
    QString text() const { return m_keys.join(u','); }

    /// In the order of the bar.
    const QStringList& keys() const { return m_keys; }

    /// The buttons that the layout does not show, in the default order.
    QStringList available() const;

    /// Puts a button that is not yet shown before the item at index; size() and beyond append, below 0 is 0.
    /// False and no change for an unknown key and one already shown.
    bool insertButton(int index, const QString& key);

    /// Puts one more separator before the item at index. False when all their numbers are taken.
    bool insertSeparator(int index);

    /// False when there is no such item.
    bool remove(int index);

    /// Moves the item to the gap before the item that is now at `gap` (0 to size()). False and no change
    /// if either number is out of range or the item is already there.
    bool move(int index, int gap);

    int size() const { return static_cast<int>(m_keys.size()); } ///< buttons and separators
    /// -1 for a key that is not shown.
    int indexOf(const QString& key) const { return static_cast<int>(m_keys.indexOf(key)); }

    friend bool operator==(const ToolbarLayout& a, const ToolbarLayout& b) { return a.m_keys == b.m_keys; }

private:
    explicit ToolbarLayout(const ToolbarButtons& buttons)
        : m_buttons(buttons) {}

    ToolbarButtons m_buttons;
    QStringList m_keys;
};

} // namespace ocuva
