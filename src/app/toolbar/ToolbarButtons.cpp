#include "app/toolbar/ToolbarButtons.h"

#include <QCoreApplication>

#include <algorithm>

namespace ocuva {

namespace {

constexpr QLatin1StringView separatorPrefix{"Sep"};

} // namespace

QString shownText(QLatin1StringView text) {
    return text.isEmpty() ? QString() : QCoreApplication::translate("MainToolbar", text.data());
}

const ToolbarButton* ToolbarButtons::find(const QString& key) const {
    const auto found = std::find_if(begin(), end(), [&](const ToolbarButton& button) {
        return button.style != ButtonStyle::Separator && key == button.key;
    });
    return found == end() ? nullptr : &*found;
}

bool isSeparatorKey(const QString& key) {
    if (!key.startsWith(separatorPrefix)) {
        return false;
    }
    const QString digits = key.mid(separatorPrefix.size());
    const int number = digits.toInt();
    // Comparing the texts refuses signs, blanks and leading zeros, so that a separator has one spelling only.
    return number >= 1 && number <= maxSeparators && digits == QString::number(number);
}

} // namespace ocuva
