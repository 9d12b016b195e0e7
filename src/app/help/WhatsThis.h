#pragma once
// What each control of the main window is for, in a sentence or two.

#include <QWidget>

namespace ocuva {

/// Gives the controls and commands of the window their explanations, by their names. Repeat it when controls
/// were made anew.
void explainControls(QWidget& window);

} // namespace ocuva
