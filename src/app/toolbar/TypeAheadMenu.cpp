#include "app/toolbar/TypeAheadMenu.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>

namespace ocuva {

bool TypeAhead::continues(qint64 nowMs, int patienceMs) const {
    return !m_typed.isEmpty() && nowMs - m_lastMs <= patienceMs;
}

std::optional<int> TypeAhead::type(const QString& text, qint64 nowMs, int patienceMs,
                                   const QStringList& entries, int current) {
    if (!continues(nowMs, patienceMs)) {
        m_typed.clear();
    }
    m_lastMs = nowMs;
    m_typed += text;
    const bool isOneLetter =
        std::all_of(m_typed.begin(), m_typed.end(), [this](QChar c) { return c == m_typed.front(); });
    const QString wanted = isOneLetter ? m_typed.first(1) : m_typed;
    // A longer text may still match the current entry; a single letter goes to the next one.
    const int first = std::max(current, -1) + (isOneLetter ? 1 : 0);
    const auto count = static_cast<int>(entries.size());
    for (int i = 0; i < count; ++i) {
        const int index = (std::max(first, 0) + i) % count;
        if (entries.at(index).startsWith(wanted, Qt::CaseInsensitive)) {
            return index;
        }
    }
    return {};
}

TypeAheadMenu::TypeAheadMenu() { m_clock.start(); }

void TypeAheadMenu::keyPressEvent(QKeyEvent* event) {
    const int patienceMs = QApplication::keyboardInputInterval() * 2;
    const qint64 nowMs = m_clock.elapsed();
    const QString text = event->text();
    const bool hasCommandKeys =
        (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    const bool isPrintable = text.size() == 1 && text.front().isPrint();
    if (hasCommandKeys || !isPrintable || (text == u' ' && !m_typeAhead.continues(nowMs, patienceMs))) {
        QMenu::keyPressEvent(event);
        return;
    }
    QStringList names;
    for (const QAction* action : actions()) {
        names.append(action->isEnabled() ? action->text().replace(QStringLiteral("&&"), QStringLiteral("&"))
                                         : QString());
    }
    const auto current = static_cast<int>(actions().indexOf(activeAction()));
    if (const auto index = m_typeAhead.type(text, nowMs, patienceMs, names, current)) {
        setActiveAction(actions().at(*index));
    }
}

} // namespace ocuva
