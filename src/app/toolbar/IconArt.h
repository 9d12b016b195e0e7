#pragma once
// The program's icons as drawings: one function per icon, in a table.

#include "app/toolbar/IconInk.h"

#include <QImage>
#include <QLatin1StringView>
#include <QPainter>
#include <QString>
#include <QStringList>

namespace ocuva {

/// The chevron of a bar that is too narrow.
inline constexpr QLatin1StringView overflowIconKey{"Overflow"};

/// The keys that have a drawing: every button of the toolbar, separatorText (for separators in lists) and
/// overflowIconKey.
QStringList iconKeys();

/// A square transparent image of sizePx (1 or more) device pixels with that icon. `on` gives the image of
/// an active function if the icon has one. An unknown key gives an empty (fully transparent) image.
QImage drawIcon(const QString& key, bool on, const IconInk& ink, int sizePx);

/// The program's own emblem, an eyepiece with its reticle on a badge; it does not follow the palette.
QImage drawEmblem(int sizePx);

/// The same for any paint device: into the square from (0, 0) to (side, side). Leaves the painter scaled.
void paintEmblem(QPainter& painter, qreal side);

} // namespace ocuva
