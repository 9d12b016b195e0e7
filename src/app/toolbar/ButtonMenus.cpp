#include "app/toolbar/ButtonMenus.h"

#include "app/toolbar/TypeAheadMenu.h"

#include <QAction>

namespace ocuva {

namespace {

// The property with an item's original text, before "&" was doubled for the menu.
constexpr char givenText[] = "givenText";

} // namespace

ButtonMenus::ButtonMenus()
    : m_menu(std::make_unique<TypeAheadMenu>()) {
    showEmptyLine();
}

void ButtonMenus::showEmptyLine() {
    m_emptyLine = m_menu->addAction(QStringLiteral("(empty)"));
    m_emptyLine->setEnabled(false);
}

void ButtonMenus::clear() {
    // Deleted later: an action of one of the items may clear the list.
    for (QAction* item : m_menu->actions()) {
        m_menu->removeAction(item);
        item->deleteLater();
    }
    m_keys.clear();
    showEmptyLine();
}

bool ButtonMenus::add(const QString& key, const QString& text) {
    if (key.isEmpty() || m_keys.contains(key)) {
        return false;
    }
    m_keys.insert(key);
    if (m_emptyLine != nullptr) {
        m_menu->removeAction(m_emptyLine);
        m_emptyLine->deleteLater();
        m_emptyLine = nullptr;
    }
    QAction* item = m_menu->addAction(QString(text).replace(u'&', QStringLiteral("&&")));
    item->setData(key);
    item->setProperty(givenText, text);
    return true;
}

int ButtonMenus::count() const {
    return m_emptyLine != nullptr ? 0 : static_cast<int>(m_menu->actions().size());
}

QString ButtonMenus::key(int index) const {
    return index >= 0 && index < count() ? m_menu->actions().at(index)->data().toString() : QString();
}

QString ButtonMenus::text(int index) const {
    return index >= 0 && index < count() ? m_menu->actions().at(index)->property(givenText).toString()
                                         : QString();
}

} // namespace ocuva
