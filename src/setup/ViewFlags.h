#pragma once
// One of the view options is changed in the dialog.

#include "settings/Settings.h"

namespace ocuva {

/// Stores all seven options, that one with the given value (0 or 1), the others as they are stored: commands
/// of the main window may have changed them while the dialog was open.
void storeViewFlag(Settings& settings, Long ViewOptions::*flag, Long value);

} // namespace ocuva
