#pragma once
// How the program looks: one style on every system, in a light or a dark palette.

#include <QApplication>

namespace ocuva {

/// Sets style and palette. The environment variable OCUVA_PALETTE (light or dark) overrides the system's
/// palette: in a darkened laboratory a bright window blinds.
void setAppearance(QApplication& application);

} // namespace ocuva
