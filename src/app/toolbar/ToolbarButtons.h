#pragma once
// The buttons of the main toolbar, as one table in design order.

#include <QLatin1StringView>
#include <QString>

#include <span>

namespace ocuva {

enum class ButtonStyle {
    Push,     ///< acts on a click
    Check,    ///< stays pressed while its function is active
    Dropdown, ///< acts on a click and carries a drop-down menu beside it
    Separator
};

/// One row of the table.
struct ToolbarButton {
    QLatin1StringView key;     ///< names the button in events, layouts and image lists
    QLatin1StringView text;    ///< what lists, the overflow menu and screen readers call it
    QLatin1StringView tooltip; ///< empty: the button has none
    ButtonStyle style;         ///< what a click does
};

/// A text of the table in the user's language.
QString shownText(QLatin1StringView text);

/// Every button and separator, in design order.
std::span<const ToolbarButton> designButtons();

/// The button (not separator) of that key, or null.
const ToolbarButton* findButton(const QString& key);

/// True for "Sep1" to "Sep99". The design has the first four; the user may add more.
bool isSeparatorKey(const QString& key);

/// What a separator is called in lists.
inline constexpr QLatin1StringView separatorText{QT_TRANSLATE_NOOP("MainToolbar", "Separator")};

/// Separators are numbered from 1 to this.
inline constexpr int maxSeparators = 99;

} // namespace ocuva
