#include "controls/DialogPlace.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace ocuva {

namespace {

constexpr int gapPixels = 6; // distance from areas to be kept clear

int area(const QRect& rect) { return rect.isEmpty() ? 0 : rect.width() * rect.height(); }

int overlap(const QRect& rect, const QList<QRect>& others) {
    int sum = 0;
    for (const QRect& other : others) {
        sum += area(rect & other);
    }
    return sum;
}

bool touchesAny(const QRect& rect, const QList<QRect>& others) {
    return std::any_of(others.begin(), others.end(),
                       [&rect](const QRect& other) { return rect.intersects(other); });
}

// The parts of a rectangle on each side of another one.
QList<QRect> sidesOf(const QRect& rect, const QRect& taken) {
    QRect right = rect;
    right.setLeft(taken.right() + 1);
    QRect left = rect;
    left.setRight(taken.left() - 1);
    QRect below = rect;
    below.setTop(taken.bottom() + 1);
    QRect above = rect;
    above.setBottom(taken.top() - 1);
    return {right, left, below, above};
}

void addMaximal(QList<QRect>& rects, const QRect& added) {
    const auto contains = [&added](const QRect& other) { return other.contains(added); };
    if (added.isEmpty() || std::any_of(rects.begin(), rects.end(), contains)) {
        return;
    }
    rects.removeIf([&added](const QRect& other) { return added.contains(other); });
    rects.append(added);
}

// Along one axis: next to the anchor, or with the lower ends in line.
int nextTo(int anchor, int anchorLength, int length, int freeStart, int freeLength) {
    const int last = freeStart + freeLength - length;
    if (freeStart >= anchor + anchorLength) {
        return freeStart;
    }
    return freeStart + freeLength <= anchor ? last : std::clamp(anchor, freeStart, last);
}

QRect placedIn(const QRect& free, QSize size, const QRect& anchor) {
    return {QPoint(nextTo(anchor.left(), anchor.width(), size.width(), free.left(), free.width()),
                   nextTo(anchor.top(), anchor.height(), size.height(), free.top(), free.height())),
            size};
}

int gapBetween(const QRect& a, const QRect& b) {
    const int x = std::max({0, a.left() - b.right(), b.left() - a.right()});
    const int y = std::max({0, a.top() - b.bottom(), b.top() - a.bottom()});
    return x + y;
}

struct Sizes {
    QSize wanted;
    QSize smallest; ///< invalid: the dialog keeps its size
};

// The best place that does not overlap any occupied rectangle.
std::optional<QRect> freePlace(const Surroundings& around, const QList<QRect>& taken, const Sizes& sizes) {
    const QRect anchor = around.mainWindow.isEmpty() ? around.screen : around.mainWindow;
    const auto cost = [&](const QRect& place) {
        return std::tuple(-area(place), area(place & around.mainWindow), overlap(place, around.dialogs),
                          gapBetween(place, anchor));
    };
    std::optional<QRect> best;
    for (const QRect& free : freeRectangles(around.screen, taken)) {
        const QSize size = sizes.wanted.boundedTo(free.size());
        const bool fits =
            size == sizes.wanted || (sizes.smallest.isValid() && size == size.expandedTo(sizes.smallest));
        if (!fits) {
            continue;
        }
        const QRect place = placedIn(free, size, anchor);
        if (!best || cost(place) < cost(*best)) {
            best = place;
        }
    }
    return best;
}

// Full size first, with a gap and without; then smaller.
std::optional<QRect> freePlaceOfAnySize(const Surroundings& around, const QList<QRect>& taken,
                                        const Sizes& sizes) {
    QList<QRect> withGap;
    for (const QRect& rect : taken) {
        if (!rect.isEmpty()) {
            withGap.append(rect.adjusted(-gapPixels, -gapPixels, gapPixels, gapPixels));
        }
    }
    for (const Sizes& tried : {Sizes{sizes.wanted, {}}, sizes}) {
        for (const QList<QRect>& rects : {withGap, taken}) {
            if (const auto place = freePlace(around, rects, tried)) {
                return place;
            }
        }
    }
    return {};
}

QList<int> ends(int screenStart, int screenLength, int length, const QList<std::pair<int, int>>& others) {
    const int last = screenStart + screenLength - length;
    QList<int> starts{last, screenStart};
    for (const auto& [start, end] : others) {
        starts.append(std::clamp(end + 1, screenStart, last));
        starts.append(std::clamp(start - length, screenStart, last));
    }
    return starts;
}

// If overlap cannot be avoided, it is least where the dialog's edges meet those of the others or of the
// screen.
QRect leastCovering(const Surroundings& around, QSize size) {
    QList<QRect> others = around.watched;
    others.append({around.hint, around.mainWindow});
    QList<std::pair<int, int>> columns;
    QList<std::pair<int, int>> rows;
    for (const QRect& other : others) {
        columns.append({other.left(), other.right()});
        rows.append({other.top(), other.bottom()});
    }
    const auto cost = [&around](const QRect& place) {
        return std::tuple(area(place & around.hint), overlap(place, around.watched),
                          area(place & around.mainWindow));
    };
    std::optional<QRect> best;
    for (const int x : ends(around.screen.left(), around.screen.width(), size.width(), columns)) {
        for (const int y : ends(around.screen.top(), around.screen.height(), size.height(), rows)) {
            const QRect place(QPoint(x, y), size);
            if (!best || cost(place) < cost(*best)) {
                best = place;
            }
        }
    }
    return *best;
}

} // namespace

QList<QRect> freeRectangles(const QRect& screen, const QList<QRect>& taken) {
    QList<QRect> free{screen};
    for (const QRect& rect : taken) {
        QList<QRect> left;
        for (const QRect& whole : free) {
            for (const QRect& piece : rect.intersects(whole) ? sidesOf(whole, rect) : QList<QRect>{whole}) {
                addMaximal(left, piece);
            }
        }
        free = left;
    }
    return free;
}

QRect dialogPlace(const Surroundings& around, QSize size, QSize smallest) {
    const Sizes sizes{size.boundedTo(around.screen.size()), smallest};
    // It is not made smaller for the sake of other dialogs.
    const QList<QRect> windows = around.dialogs + QList<QRect>{around.mainWindow};
    if (const auto place = freePlaceOfAnySize(around, windows, {sizes.wanted, {}})) {
        return *place;
    }
    QList<QRect> watchedAndHint = around.watched;
    watchedAndHint.append(around.hint);
    for (const QList<QRect>& taken : {QList<QRect>{around.mainWindow}, watchedAndHint, around.watched}) {
        if (const auto place = freePlaceOfAnySize(around, taken, sizes)) {
            return *place;
        }
    }
    return leastCovering(around, sizes.wanted);
}

bool isClear(const QRect& dialog, const Surroundings& around) {
    return around.screen.contains(dialog) && !dialog.intersects(around.hint) &&
           !touchesAny(dialog, around.watched);
}

QRect clearOfHint(const QRect& dialog, const Surroundings& around) {
    if (!dialog.intersects(around.hint)) {
        return dialog;
    }
    std::optional<QRect> best;
    for (const QRect& free : freeRectangles(around.screen, {around.hint})) {
        if (dialog.size() != dialog.size().boundedTo(free.size())) {
            continue;
        }
        const QPoint corner(
            std::clamp(dialog.left(), free.left(), free.left() + free.width() - dialog.width()),
            std::clamp(dialog.top(), free.top(), free.top() + free.height() - dialog.height()));
        const auto distance = [&dialog](const QPoint& to) {
            return (to - dialog.topLeft()).manhattanLength();
        };
        if (!best || distance(corner) < distance(best->topLeft())) {
            best = QRect(corner, dialog.size());
        }
    }
    return best.value_or(dialog);
}

} // namespace ocuva
