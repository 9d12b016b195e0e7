#include "standards/StandardRows.h"

#include <algorithm>
#include <utility>

namespace ocuva {

void StandardRows::clear() {
    m_rows.clear();
    m_keys.clear();
}

bool StandardRows::add(StandardRow row) {
    if (!m_keys.insert(row.key).second) {
        return false;
    }
    m_rows.push_back(std::move(row));
    return true;
}

int StandardRows::firstSelected() const {
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [](const StandardRow& row) { return row.selected; });
    return found == m_rows.end() ? 0 : static_cast<int>(found - m_rows.begin()) + 1;
}

void StandardRows::MoveStdItems(const RowWalk& walk) {
    if (count() == 0) {
        return;
    }
    const bool boundarySelected = row(walk.down ? count() : 1).selected;
    if (boundarySelected && !walk.force && !walk.remove) {
        return;
    }
    for (int i = walk.start; walk.step > 0 ? i <= walk.end : i >= walk.end; i += walk.step) {
        const int looked = walk.down ? i : i + 1;
        if (row(looked).selected || walk.force) {
            treatRow(looked, walk.down ? i + 1 : i, walk);
        }
    }
}

void StandardRows::treatRow(int index, int target, const RowWalk& walk) {
    StandardRow moved = std::move(at(index));
    m_rows.erase(m_rows.begin() + (index - 1));
    if (walk.remove) {
        m_keys.erase(moved.key);
        if (index <= count()) {
            select(index, true);
        }
        return;
    }
    moved.selected = walk.down;
    m_rows.insert(m_rows.begin() + (target - 1), std::move(moved));
}

void StandardRows::up() { MoveStdItems({.start = 1, .end = count() - 1, .step = 1}); }

void StandardRows::down() { MoveStdItems({.start = count() - 1, .end = 1, .step = -1, .down = true}); }

void StandardRows::removeSelected() {
    MoveStdItems({.start = count(), .end = 1, .step = -1, .down = true, .remove = true});
}

void StandardRows::insertLastAt(int index) {
    if (count() == 0) {
        return;
    }
    select(1, false);
    MoveStdItems({.start = count() - 1, .end = index, .step = -1, .force = true});
    select(std::min(index, count()), true);
}

} // namespace ocuva
