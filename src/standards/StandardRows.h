#pragma once
// The rows of the standard list dialog and the one routine behind its Up, Down, Delete and Insert buttons.

#include <array>
#include <cstddef>
#include <string>
#include <unordered_set>
#include <vector>

namespace ocuva {

struct StandardRow {
    std::string key;                     ///< the standard's full name
    std::string text;                    ///< as shown in the column "File"
    std::array<std::string, 3> subItems; ///< X, Y, Z in decimal
    bool selected = false;

    bool operator==(const StandardRow&) const = default;
};

/// Which rows MoveStdItems walks and what it does to them. Rows count from 1.
struct RowWalk {
    int start = 1;
    int end = 1;
    int step = 1;        ///< 1 or -1
    bool down = false;   ///< rows move down; their selection goes with them
    bool force = false;  ///< every row walked is treated as selected
    bool remove = false; ///< rows vanish instead of moving
};

class StandardRows {
public:
    int count() const { return static_cast<int>(m_rows.size()); }
    const StandardRow& row(int index) const { return m_rows.at(static_cast<std::size_t>(index) - 1); }
    const std::vector<StandardRow>& rows() const { return m_rows; }

    void clear();
    bool has(const std::string& key) const { return m_keys.count(key) != 0; }
    /// False, and no row, when its key is in the list already.
    bool add(StandardRow row);
    void select(int index, bool selected) { at(index).selected = selected; }
    /// The first selected row, 0 when there is none.
    int firstSelected() const;

    /// Refuses the whole move when the row at the boundary is selected. A row moved down stays selected; a
    /// row moved up, and one moved by force, is left unselected. Where a row vanishes, the one that moves
    /// into its place is selected.
    void MoveStdItems(const RowWalk& walk);

    void up();
    void down();
    void removeSelected();
    /// Brings the last row to that place, pushing the rows from there on down, and selects it alone of the
    /// two that the insertion touched.
    void insertLastAt(int index);

private:
    StandardRow& at(int index) { return m_rows.at(static_cast<std::size_t>(index) - 1); }
    void treatRow(int index, int target, const RowWalk& walk);

    std::vector<StandardRow> m_rows;
    std::unordered_set<std::string> m_keys;
};

} // namespace ocuva
