#pragma once
// The access letters of a window as the operator meets them.

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QShortcut>
#include <QTabBar>

#include <map>
#include <string>
#include <vector>

namespace ocuva {

inline bool isAccessLetter(const QKeySequence& keys) {
    return keys.count() == 1 && keys[0].keyboardModifiers() == Qt::AltModifier;
}

/// What each key does, in words; a key with two entries is a defect. Only what is on the screen counts.
inline std::map<std::string, std::vector<std::string>> accessLetters(const QWidget& window) {
    std::map<std::string, std::vector<std::string>> letters;
    const auto take = [&letters](const QKeySequence& keys, const QString& meaning) {
        if (isAccessLetter(keys)) {
            letters[keys.toString().toStdString()].push_back(meaning.toStdString());
        }
    };
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() != &window || !widget->isVisible()) {
            continue;
        }
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            take(button->shortcut(), button->text());
        } else if (const auto* label = qobject_cast<const QLabel*>(widget);
                   label != nullptr && label->buddy() != nullptr) {
            take(QKeySequence::mnemonic(label->text()), label->text());
        } else if (const auto* group = qobject_cast<const QGroupBox*>(widget)) {
            take(QKeySequence::mnemonic(group->title()), group->title());
        } else if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i) {
                take(QKeySequence::mnemonic(tabs->tabText(i)), tabs->tabText(i));
            }
        } else if (const auto* bar = qobject_cast<const QMenuBar*>(widget)) {
            for (const QAction* action : bar->actions()) {
                take(QKeySequence::mnemonic(action->text()), action->text());
            }
        }
        for (const QShortcut* shortcut :
             widget->findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly)) {
            take(shortcut->key(), widget->objectName());
        }
    }
    return letters;
}

/// The keys with more than one meaning, with the meanings.
inline std::vector<std::string> ambiguousLetters(const QWidget& window) {
    std::vector<std::string> ambiguous;
    for (const auto& [key, meanings] : accessLetters(window)) {
        if (meanings.size() > 1) {
            std::string line = key + ':';
            for (const std::string& meaning : meanings) {
                line += " \"" + meaning + '"';
            }
            ambiguous.push_back(line);
        }
    }
    return ambiguous;
}

} // namespace ocuva
