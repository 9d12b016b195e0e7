#include "app/toolbar/ToolbarLayout.h"

#include "app/toolbar/ToolbarButtons.h"

#include <algorithm>

namespace ocuva {

ToolbarLayout ToolbarLayout::design() {
    ToolbarLayout layout;
    for (const ToolbarButton& button : designButtons()) {
        layout.m_keys.append(button.key);
    }
    return layout;
}

std::optional<ToolbarLayout> ToolbarLayout::fromText(const QString& text) {
    ToolbarLayout layout;
    bool hasButton = false;
    for (const QString& part : text.split(u',')) {
        const QString key = part.trimmed();
        const bool isButton = findButton(key) != nullptr;
        if ((isButton || isSeparatorKey(key)) && !layout.m_keys.contains(key)) {
            layout.m_keys.append(key);
            hasButton = hasButton || isButton;
        }
    }
    return hasButton ? std::optional(layout) : std::nullopt;
}

QStringList ToolbarLayout::available() const {
    QStringList keys;
    for (const ToolbarButton& button : designButtons()) {
        if (button.style != ButtonStyle::Separator && !m_keys.contains(button.key)) {
            keys.append(button.key);
        }
    }
    return keys;
}

bool ToolbarLayout::insertButton(int index, const QString& key) {
    if (findButton(key) == nullptr || m_keys.contains(key)) {
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
