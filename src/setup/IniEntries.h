#pragma once
// What a host lists in a section of one of its stores.

#include "hostlink/Host.h"

#include <QComboBox>

namespace ocuva {

/// Fills the combo box with the entries of a section, in their order: of "key=value" the value, of any other
/// entry all of it. False, and the box stays as it is, when the section has none. No more than a hundred are
/// taken.
bool fillFromIni(QComboBox& combo, TnLibProxy& libProxy, const char* section, const char* store);

} // namespace ocuva
