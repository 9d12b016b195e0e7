#pragma once
// What each control of the main window is for, in a sentence or two; commands have theirs in their own table.

#include <QWidget>

namespace ocuva {

/// Gives the controls of the window their explanations, by their names.
void explainControls(QWidget& window);

} // namespace ocuva
