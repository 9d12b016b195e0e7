#pragma once
// The other windows of the program while the main window sleeps.

#include <QPointer>
#include <QWidget>

#include <vector>

namespace ocuva {

/// A sleeping program leaves nothing on the screen, and no dialog waits for an answer that nobody can
/// give. User-interface thread.
class RestingWindows {
public:
    /// Closes open menus, cancels every modal dialog like Escape, the topmost first, and hides all other
    /// windows of the program except `main`. The caller of a cancelled dialog gets its answer after the
    /// current event. Windows hidden before stay hidden.
    void layDown(const QWidget& main);

    /// Shows the hidden windows again with their contents. A window that has been deleted meanwhile is
    /// skipped.
    void bringBack();

private:
    std::vector<QPointer<QWidget>> m_windows;
};

} // namespace ocuva
