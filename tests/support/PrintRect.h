#pragma once
// So that a failure shows the rectangles.

#include <QRect>

#include <ostream>

inline void PrintTo(const QRect& rect, std::ostream* out) {
    *out << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x' << rect.height();
}
