#include "app/toolbar/ToolbarLayout.h"

#include <algorithm>

namespace ocuva {

ToolbarLayout ToolbarLayout::design(const ToolbarButtons& buttons) {
    ToolbarLayout layout(buttons);
    for (const ToolbarButton& button : buttons) {
        layout.m_keys.append(button.key);
    }
    return layout;
}

std::optional<ToolbarLayout> ToolbarLayout::fromText(const QString& text, const ToolbarButtons& buttons) {
    ToolbarLayout layout(buttons);
    bool hasButton = false;
    for (const QString& part : text.split(u',')) {
        const QString key = part.trimmed();
        const bool isButton = buttons.find(key) != nullptr;
        if ((isButton || isSeparatorKey(key)) && !layout.m_keys.contains(key)) {
            layout.m_keys.append(key);
            hasButton = hasButton || isButton;
        }
    }
    return hasButton ? std::optional(layout) : std::nullopt;
}

QStringList ToolbarLayout::available() const {
    QStringList keys;
    for (const ToolbarButton& button : m_buttons) {
        if (button.style != ButtonStyle::Separator && !m_keys.contains(button.key)) {
            keys.append(button.key);
        }
    }
    return keys;
}

bool ToolbarLayout::insertButton(int index, const QString& key) {
    if (m_buttons.find(key) == nullptr || m_keys.contains(key)) {
        return false;
    }
    m_keys.insert(std::clamp(index, 0, size()), key);
    return true;
}

bool ToolbarLayout::insertSeparator(int index) {
    for (int number = 1; number <= maxSeparators; ++number) {
        const QString key = QStringLiteral("Sep%1").arg(number);
        if (!m_keys.contains(key)) {
            m_keys.insert(std::clamp(index, 0, size()), key);
            return true;
        }
    }
    return false;
}

bool ToolbarLayout::remove(int index) {
    if (index < 0 || index >= size()) {
        return false;
    }
    m_keys.removeAt(index);
    return true;
}

bool ToolbarLayout::move(int index, int gap) {
    const bool inRange = index >= 0 && index < size() && gap >= 0 && gap <= size();
    if (!inRange || gap == index || gap == index + 1) {
        return false;
    }
    m_keys.move(index, gap > index ? gap - 1 : gap);
    return true;
}

} // namespace ocuva
