#pragma once
// The drop-down list of a toolbar button.

#include <QMenu>
#include <QSet>
#include <QString>

#include <memory>

namespace ocuva {

/// An ordered list of items, each with a key that is unique in the list. While it is empty the drop-down
/// shows one greyed line that says so and is not an item.
class ButtonMenus {
public:
    ButtonMenus();

    /// Takes all items off.
    void clear();

    /// Appends an item; `text` is shown as it is (an "&" is no mnemonic). False and no change when the key is
    /// empty or already in the list.
    bool add(const QString& key, const QString& text);

    /// Of the items, without the greyed line.
    int count() const;
    QString key(int index) const;  ///< empty when there is no such item
    QString text(int index) const; ///< as passed to add; empty if there is no such item

    /// The menu that shows the list. Typing the beginning of a text goes to
    /// its item. Its triggered signal gives actions whose data() is the item's key.
    QMenu* menu() const { return m_menu.get(); }

private:
    void showEmptyLine();

    std::unique_ptr<QMenu> m_menu;
    QSet<QString> m_keys;           ///< of the items, so that a long list is filled in one pass
    QAction* m_emptyLine = nullptr; ///< in the menu only while there is no item
};

} // namespace ocuva
