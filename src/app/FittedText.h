#pragma once
// A text in the room that a status panel has for it: on one line, or smaller on two.

#include <QFont>
#include <QSize>
#include <QString>
#include <QStringList>

namespace ocuva {

/// A text with the font and the line breaks that make it fit.
struct FittedText {
    QFont font;          ///< of the size that fits
    QStringList lines;   ///< one or two; the last one ends in an ellipsis as a last resort
    bool isWhole = true; ///< nothing was left out
};

/// What separates the parts of a panel's text; a second line begins with a part if it can.
QString partSeparator();

/// The text in the largest size, not above that of the font and not below smallestText of it, in which it
/// fits on one line or on two.
FittedText fittedText(const QString& text, const QFont& font, const QSize& room);

/// Height of two lines of a text that is a little smaller than the font.
int heightOfTwoLines(const QFont& font);

/// Fractions of the font's size: text below the first one cannot be read from a chair; at the second one
/// two lines fit into a status bar.
///@{
constexpr double smallestText = 0.75;
constexpr double twoLineText = 0.85;
///@}

} // namespace ocuva
