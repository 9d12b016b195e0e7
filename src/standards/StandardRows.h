#pragma once
// The rows of the standard list dialog and the one routine behind its Up, Down, Delete and Insert buttons.

#include <array>
#include <cstddef>
#include <string>
#include <unordered_set>
#include <vector>

namespace ocuva {

/// One standard as the dialog lists it.
struct StandardRow {
    std::string key;                     ///< the standard's full name
    std::string text;                    ///< as shown in the column "File"
    std::array<std::string, 3> subItems; ///< X, Y, Z in decimal
    bool selected = false;               ///< in the list view

    bool operator==(const StandardRow&) const = default;
};

/// The rows that MoveStdItems visits and what it does to them. Rows count from 1.
struct RowWalk {
    /// The first and the last row walked, both included.
    ///@{
    int start = 1;
    int end = 1;
    ///@}
    int step = 1;        ///< 1 or -1
    bool down = false;   ///< rows move down; their selection goes with them
    bool force = false;  ///< every row walked is treated as selected
    bool remove = false; ///< rows vanish instead of moving
};

/// The rows in their order, counted from 1; no key twice. An index that is no row throws std::out_of_range.
class StandardRows {
public:
    /// The rows of the list; rows()[0] is row 1.
    ///@{
    int count() const { return static_cast<int>(m_rows.size()); }
    const StandardRow& row(int index) const { return m_rows.at(static_cast<std::size_t>(index) - 1); }
    const std::vector<StandardRow>& rows() const { return m_rows; }
    ///@}

    /// Takes all rows off.
    void clear();
    /// Whether a row has that key.
    bool has(const std::string& key) const { return m_keys.count(key) != 0; }
    /// False, and no row, when its key is in the list already.
    bool add(StandardRow row);
    /// The selection is kept here, and is the same in the list view after each operation.
    void select(int index, bool selected) { at(index).selected = selected; }
    /// The first selected row, or 0.
    int firstSelected() const;

    /// Refuses the whole move if the row at the boundary is selected. A row moved down stays selected; a
    /// row moved up or by force is deselected. If a row is removed, the one that takes its place is
    /// selected.
    void MoveStdItems(const RowWalk& walk);

    /// The buttons: the selected rows go up or down by one, or off the list.
    ///@{
    void up();
    void down();
    void removeSelected();
    ///@}
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
