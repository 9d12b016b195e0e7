#include "app/MainMenu.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCoreApplication>
#include <QLineEdit>

namespace ocuva {

namespace {

QAction* addEntry(QMenuBar& bar, QMenu* menu, MenuEntry entry, const QString& text) {
    if (menu == nullptr || entry == MenuEntry::BarItem) {
        return bar.addAction(text);
    }
    return entry == MenuEntry::Separator ? menu->addSeparator() : menu->addAction(text);
}

QString translated(const char* text) { return QCoreApplication::translate("Commands", text); }

bool somebodyTypes() {
    const QWidget* const focused = QApplication::focusWidget();
    return qobject_cast<const QLineEdit*>(focused) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(focused) != nullptr;
}

} // namespace

MainMenu::MainMenu(QMenuBar& bar, const std::function<void(const Command&)>& run) {
    QMenu* menu = nullptr;
    for (const Command& row : commands()) {
        if (row.entry == MenuEntry::Menu) {
            menu = bar.addMenu(translated(row.text));
            menu->setObjectName(QString::fromLatin1(row.name));
            continue;
        }
        QAction* action = addEntry(bar, menu, row.entry, translated(row.text));
        action->setObjectName(QString::fromLatin1(row.name));
        action->setCheckable(row.entry == MenuEntry::Check);
        action->setShortcut(QKeySequence(QString::fromLatin1(row.key)));
        action->setAutoRepeat(false);
        action->setEnabled(row.isAvailable());
        if (*row.tip != '\0') {
            action->setStatusTip(translated(row.tip));
        }
        QObject::connect(action, &QAction::triggered, &bar, [run, &row] {
            if (!row.drivesStage || !somebodyTypes()) {
                run(row);
            }
        });
        m_actions[row.name] = action;
    }
}

void MainMenu::lendFunctionKeys(QWidget& window) const {
    for (const auto& [name, action] : m_actions) {
        const QKeySequence key = action->shortcut();
        if (!key.isEmpty() && key[0].keyboardModifiers() == Qt::NoModifier) {
            window.addAction(action);
        }
    }
}

QAction* MainMenu::action(std::string_view name) const { return m_actions.at(name); }

} // namespace ocuva
