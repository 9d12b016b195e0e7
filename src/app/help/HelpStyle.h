#pragma once
// How the text of the help looks, in the colours of a palette.

#include <QBrush>
#include <QFont>
#include <QPalette>
#include <QTextDocument>

namespace ocuva {

/// Gives headings, tables and examples their looks. Can be repeated after a change of palette or font.
void styleHelp(QTextDocument& text, const QPalette& palette, const QFont& font);

/// The ground of what a search has found, readable under the palette's text.
QBrush searchMarkBrush(const QPalette& palette);

} // namespace ocuva
