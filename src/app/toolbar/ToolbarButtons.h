#pragma once
// What a toolbar knows of its buttons.

#include <QLatin1StringView>
#include <QString>

#include <span>

namespace ocuva {

enum class ButtonStyle {
    Push,     ///< acts on a click
    Check,    ///< stays pressed while its function is active
    Dropdown, ///< acts on a click and has a drop-down menu
    Separator
};

/// One row of the table.
struct ToolbarButton {
    QLatin1StringView key = {};            ///< names the button in events, layouts and image lists
    QLatin1StringView text = {};           ///< what lists, the overflow menu and screen readers call it
    QLatin1StringView tooltip = {};        ///< empty: the button has none
    ButtonStyle style = ButtonStyle::Push; ///< what a click does
};

/// A text of the table in the user's language.
QString shownText(QLatin1StringView text);

/// The buttons and separators of a toolbar, in the default order.
class ToolbarButtons {
public:
    /// The rows outlive this and its copies.
    explicit ToolbarButtons(std::span<const ToolbarButton> rows)
        : m_rows(rows) {}

    /// Every button and separator, in the default order.
    ///@{
    auto begin() const { return m_rows.begin(); }
    auto end() const { return m_rows.end(); }
    ///@}

    /// The button (not separator) of that key, or null.
    const ToolbarButton* find(const QString& key) const;

private:
    std::span<const ToolbarButton> m_rows;
};

/// True for "Sep1" to "Sep99". The default layout has the first four; the user may add more.
bool isSeparatorKey(const QString& key);

/// What a separator is called in lists.
inline constexpr QLatin1StringView separatorText{QT_TRANSLATE_NOOP("MainToolbar", "Separator")};

/// Separators are numbered from 1 to this.
inline constexpr int maxSeparators = 99;

} // namespace ocuva
