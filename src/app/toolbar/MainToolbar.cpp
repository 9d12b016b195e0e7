#include "app/toolbar/MainToolbar.h"

#include "app/toolbar/CustomizeToolbarDialog.h"
#include "app/toolbar/IconArt.h"
#include "app/toolbar/ToolbarButtons.h"
#include "app/toolbar/VectorIcon.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QtGlobal>

namespace ocuva {

MainToolbar::MainToolbar(const ToolbarButtons& buttons, QWidget* parent)
    : QToolBar(parent)
    , m_buttons(buttons)
    , m_layout(ToolbarLayout::design(buttons)) {
    setObjectName(QStringLiteral("tbMain"));
    setAccessibleName(tr("Main toolbar"));
    setMovable(false);
    setFloatable(false);
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    makeActions();
    const ToolbarImageLists lists;
    setImageLists(lists.ilTbImage[0], lists.ilTbHot[0], lists.ilTbDisabled[0]);
    showLayout();

    dressChevron();
    connect(&m_drag, &ToolbarDrag::moved, this, [this](int index, int gap) {
        ToolbarLayout layout = m_layout;
        layout.move(index, gap);
        setLayoutByUser(layout);
    });
    connect(&m_drag, &ToolbarDrag::removed, this, [this](int index) {
        ToolbarLayout layout = m_layout;
        layout.remove(index);
        setLayoutByUser(layout);
    });
}

void MainToolbar::makeActions() {
    for (const ToolbarButton& definition : m_buttons) {
        const QString key = definition.key;
        if (definition.style == ButtonStyle::Separator) {
            separator(key);
            continue;
        }
        auto* const made = new QAction(shownText(definition.text), this);
        made->setToolTip(shownText(definition.tooltip));
        made->setCheckable(definition.style == ButtonStyle::Check);
        connect(made, &QAction::triggered, this, [this, key] { Q_EMIT buttonClicked(key); });
        m_actions.insert(key, made);
        if (definition.style == ButtonStyle::Dropdown) {
            makeMenu(key);
        }
    }
}

void MainToolbar::makeMenu(const QString& key) {
    QMenu* const menu = m_menus[key].menu();
    menu->setTitle(tr("%1 list").arg(shownText(m_buttons.find(key)->text)));
    connect(menu, &QMenu::triggered, this, [this, key](const QAction* item) {
        const QString itemKey = item->data().toString();
        Q_EMIT buttonMenuClicked(key, itemKey);
    });
}

void MainToolbar::setImageLists(const ImageList& image, const ImageList& hot, const ImageList& disabled) {
    setIconSize({image.size(), image.size()});
    for (auto item = m_actions.cbegin(); item != m_actions.cend(); ++item) {
        const QString& key = item.key();
        if (m_buttons.find(key) != nullptr) {
            item.value()->setIcon(buttonIcon({.normalOff = image.image(key, false),
                                              .normalOn = image.image(key, true),
                                              .hotOff = hot.image(key, false),
                                              .hotOn = hot.image(key, true),
                                              .disabledOff = disabled.image(key, false),
                                              .disabledOn = disabled.image(key, true)}));
        }
    }
}

QAction* MainToolbar::action(const QString& key) const {
    QAction* const found = m_buttons.find(key) != nullptr ? m_actions.value(key) : nullptr;
    if (found == nullptr) {
        qWarning("The toolbar has no button \"%s\"", qUtf8Printable(key));
    }
    return found;
}

QAction* MainToolbar::separator(const QString& key) {
    QAction*& made = m_actions[key];
    if (made == nullptr) {
        made = new QAction(this);
        made->setSeparator(true);
    }
    return made;
}

void MainToolbar::setValue(const QString& key, bool pressed) {
    QAction* const target = action(key);
    if (target != nullptr && !target->isCheckable()) {
        qWarning("The toolbar button \"%s\" cannot stay pressed", qUtf8Printable(key));
    } else if (target != nullptr) {
        target->setChecked(pressed);
    }
}

bool MainToolbar::value(const QString& key) const {
    const QAction* const target = action(key);
    return target != nullptr && target->isChecked();
}

void MainToolbar::setEnabled(const QString& key, bool enabled) {
    if (QAction* const target = action(key); target != nullptr) {
        target->setEnabled(enabled);
    }
}

bool MainToolbar::isEnabled(const QString& key) const {
    const QAction* const target = action(key);
    return target != nullptr && target->isEnabled();
}

ButtonMenus* MainToolbar::buttonMenus(const QString& key) {
    const auto found = m_menus.find(key);
    return found == m_menus.end() ? nullptr : &found->second;
}

QToolButton* MainToolbar::button(const QString& key) const {
    QAction* const shown = m_layout.keys().contains(key) ? m_actions.value(key) : nullptr;
    return shown == nullptr ? nullptr : qobject_cast<QToolButton*>(widgetForAction(shown));
}

bool MainToolbar::restoreLayout(const QString& text) {
    const std::optional<ToolbarLayout> restored = ToolbarLayout::fromText(text, m_buttons);
    if (!restored) {
        return false;
    }
    m_layout = *restored;
    showLayout();
    return true;
}

void MainToolbar::setLayoutByUser(const ToolbarLayout& layout) {
    if (layout == m_layout) {
        return;
    }
    m_layout = layout;
    showLayout();
    Q_EMIT customized();
}

void MainToolbar::reset() { setLayoutByUser(ToolbarLayout::design(m_buttons)); }

void MainToolbar::customize() {
    if (findChild<CustomizeToolbarDialog*>() != nullptr) {
        return;
    }
    const auto iconOf = [this](const QString& key) {
        return m_buttons.find(key) != nullptr ? m_actions.value(key)->icon()
                                              : vectorIcon(separatorText, false, IconLook::Normal);
    };
    auto* const dialog = new CustomizeToolbarDialog(m_layout, iconOf, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &CustomizeToolbarDialog::layoutChanged, this, &MainToolbar::setLayoutByUser);
    dialog->open();
}

// All items are created again, so that Tab visits them in their order on the bar.
void MainToolbar::showLayout() {
    m_drag.cancel();
    const QWidget* const focused = focusWidget();
    const QString focusedKey = focused != nullptr && focused->hasFocus() ? focused->objectName() : QString();
    for (QAction* shown : actions()) {
        // It exists until the next turn of the event loop; it must not be found by its name meanwhile.
        widgetForAction(shown)->setObjectName(QString());
    }
    clear();
    for (const QString& key : m_layout.keys()) {
        QAction* const item = isSeparatorKey(key) ? separator(key) : m_actions.value(key);
        addAction(item);
        dress(key, widgetForAction(item));
    }
    if (QToolButton* const again = focusedKey.isEmpty() ? nullptr : button(focusedKey); again != nullptr) {
        again->setFocus();
    }
}

void MainToolbar::dress(const QString& key, QWidget* item) {
    item->setObjectName(key);
    m_drag.watch(item);
    auto* const button = qobject_cast<QToolButton*>(item);
    const ToolbarButton* const definition = m_buttons.find(key);
    if (button == nullptr || definition == nullptr) {
        return;
    }
    button->setAccessibleName(shownText(definition->text));
    button->setAccessibleDescription(shownText(definition->tooltip));
    button->setFocusPolicy(Qt::TabFocus);
    button->installEventFilter(this);
    if (ButtonMenus* const menus = buttonMenus(key); menus != nullptr) {
        button->setMenu(menus->menu());
        button->setPopupMode(QToolButton::MenuButtonPopup);
    }
    if (definition->tooltip.isEmpty()) {
        // An action without a tooltip lends the button its text, again at every change of the action.
        const auto dropTooltip = [button] { button->setToolTip(QString()); };
        dropTooltip();
        connect(button->defaultAction(), &QAction::changed, button, dropTooltip);
    }
}

void MainToolbar::contextMenuEvent(QContextMenuEvent* event) {
    auto* const menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuToolbar"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* const customizeItem = menu->addAction(tr("&Customize…"));
    connect(customizeItem, &QAction::triggered, this, &MainToolbar::customize);
    QAction* const resetItem = menu->addAction(tr("&Reset"));
    resetItem->setEnabled(!(m_layout == ToolbarLayout::design(m_buttons)));
    connect(resetItem, &QAction::triggered, this, &MainToolbar::reset);
    menu->popup(event->globalPos());
    event->accept();
}

void MainToolbar::mouseDoubleClickEvent(QMouseEvent* event) {
    // A disabled button passes the double-click on, but it is not an empty place.
    const QWidget* const under = childAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && qobject_cast<const QToolButton*>(under) == nullptr) {
        customize();
    }
    event->accept();
}

void MainToolbar::changeEvent(QEvent* event) {
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::StyleChange) {
        dressChevron();
    }
}

bool MainToolbar::eventFilter(QObject* watched, QEvent* event) {
    auto* const button = qobject_cast<QToolButton*>(watched);
    const bool isKey = event->type() == QEvent::KeyPress;
    if (button != nullptr && button == chevron() && (isKey || event->type() == QEvent::MouseButtonPress)) {
        completeOverflowMenu();
    }
    if (button != nullptr && isKey && keyOnButton(*button, static_cast<QKeyEvent*>(event)->key())) {
        return true;
    }
    return QToolBar::eventFilter(watched, event);
}

bool MainToolbar::keyOnButton(QToolButton& button, int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        button.click();
        return true;
    case Qt::Key_Down:
        if (button.menu() != nullptr) {
            button.showMenu();
        }
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
        return focusNeighbour(button, key);
    default:
        return false;
    }
}

bool MainToolbar::focusNeighbour(const QToolButton& from, int key) {
    QList<QToolButton*> row;
    for (const QString& shownKey : m_layout.keys()) {
        QToolButton* const candidate = button(shownKey);
        if (candidate != nullptr && candidate->isVisible() && candidate->isEnabled()) {
            row.append(candidate);
        }
    }
    if (QToolButton* const overflow = chevron(); overflow != nullptr && overflow->isVisible()) {
        row.append(overflow);
    }
    const int last = static_cast<int>(row.size()) - 1;
    const int here = static_cast<int>(row.indexOf(&from));
    const int step = (key == Qt::Key_Right) != isRightToLeft() ? 1 : -1;
    const int wanted = key == Qt::Key_Home ? 0 : key == Qt::Key_End ? last : here + step;
    if (here >= 0 && wanted >= 0 && wanted <= last) {
        row.at(wanted)->setFocus(Qt::TabFocusReason);
    }
    return true;
}

// The base class puts the actions that find no room into the chevron's menu, but an action does not know of
// its button's drop-down, which would be out of reach.
void MainToolbar::completeOverflowMenu() {
    QMenu* const overflow = chevron()->menu();
    if (overflow == nullptr) {
        return;
    }
    for (auto& [key, menus] : m_menus) {
        const QList<QAction*> shown = overflow->actions();
        const qsizetype at = shown.indexOf(m_actions.value(key));
        if (at >= 0 && !shown.contains(menus.menu()->menuAction())) {
            overflow->insertAction(at + 1 < shown.size() ? shown.at(at + 1) : nullptr,
                                   menus.menu()->menuAction());
        }
    }
}

void MainToolbar::dressChevron() {
    if (QToolButton* const overflow = chevron(); overflow != nullptr) {
        overflow->setFocusPolicy(Qt::TabFocus);
        overflow->setAccessibleName(tr("More buttons"));
        // Styles bring an image of their own, which some of them leave black on a dark bar.
        overflow->setIcon(vectorIcon(overflowIconKey, false, IconLook::Normal));
        overflow->installEventFilter(this);
    }
}

QToolButton* MainToolbar::chevron() const {
    return findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"), Qt::FindDirectChildrenOnly);
}

} // namespace ocuva
