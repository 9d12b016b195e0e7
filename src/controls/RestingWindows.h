#pragma once
// The windows beside the main window while that one is put to sleep.

#include <QPointer>
#include <QWidget>

#include <vector>

namespace ocuva {

/// A program that its host puts to sleep leaves nothing on the screen, and no dialog waits for an answer that
/// nobody can give. User-interface thread.
class RestingWindows {
public:
    /// Closes open menus, refuses every modal dialog as Escape does, the uppermost first, and hides all other
    /// windows of the program but `main`. Whoever waits for a refused dialog gets its answer as soon as the
    /// present event is over. What rests already goes on resting.
    void layDown(const QWidget& main);

    /// Shows the windows again that were hidden, with what was in them. One that has been deleted meanwhile
    /// stays away.
    void bringBack();

private:
    std::vector<QPointer<QWidget>> m_windows;
};

} // namespace ocuva
