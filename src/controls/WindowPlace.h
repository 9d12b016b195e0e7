#pragma once
// The places of the program's windows: remembered once the user has moved or resized them, and moved onto
// a present screen.

#include <QList>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

namespace ocuva {

/// The rectangle moved by the shortest distance so that all of it is on one screen: the one with the
/// largest common area, otherwise the nearest. A rectangle larger than that screen is cut at its right and
/// lower edge. Unchanged if there is no screen.
QRect broughtOnScreen(const QRect& rect, const QList<QRect>& screens);

/// The user's choice for a window.
struct RememberedPlace {
    QPoint corner;             ///< upper left, of the frame
    std::optional<QSize> size; ///< without the frame; nothing when the user has only moved the window
};

/// The places of windows by their object names, stored with the toolbar layout in the user's registry:
/// sub-key "WindowPlaces", a rectangle, or a point if the user did not set the size. A maximised window
/// has one more value, its name followed by "Maximised".
class WindowPlaceStore {
public:
    /// Nothing when none is stored, or a value that is neither rectangle nor point.
    std::optional<RememberedPlace> load(const QString& window) const;
    /// Replaces the stored place; written at once.
    void save(const QString& window, const RememberedPlace& place) const;

    /// Whether the window was maximised; false when nothing is stored.
    ///@{
    bool loadMaximised(const QString& window) const;
    void saveMaximised(const QString& window, bool maximised) const;
    ///@}
};

/// Gives the place of a window that the user has not placed: its size with the frame comes in, and the place
/// it has had in this session, if any, which is kept when it is still a good one.
using FirstPlace = std::function<QRect(QSize frameSize, const std::optional<QRect>& present)>;

/// Keeps one window's place. The window opens where the user left it, in this session or an earlier one. A
/// window that the user has neither moved nor resized opens at `firstPlace`, otherwise where it was in
/// this session, otherwise where the window system puts it. A place chosen by this class is entirely on a
/// screen; contents that need more room get scroll bars.
///
/// A change of place counts as the user's if the window system reports it while the program has not
/// touched the window for settleMs: earlier reports are the window system's answers. Nothing else is
/// remembered. Belongs to the window, whose object name is set already.
class WindowPlace final : public QObject {
    Q_OBJECT

public:
    /// firstPlace may be empty.
    explicit WindowPlace(QWidget& window, FirstPlace firstPlace = {});

    /// Gives a window that was maximised when its place was stored that state again, and its place before
    /// that to go back to. Before the window is shown.
    void restoreMaximised();

    /// As said above, in milliseconds.
    static constexpr int settleMs = 400;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void beforeShow();
    void afterHide();
    void changed(const QEvent& event);
    void stateChanged();
    void settle();
    void settled();
    void takeUsersChange();
    bool isNormal() const;
    bool isTheUsers() const { return m_moved || m_sized; }
    QRect presentPlace() const { return {m_window.pos(), m_window.size()}; }
    std::optional<QRect> wantedFrame(QSize margins) const;

    QWidget& m_window;
    FirstPlace m_firstPlace;
    std::optional<QRect>
        m_place;          // of this session or stored: upper left corner of the frame, size without it
    bool m_moved = false; // by the user, now or in an earlier session
    bool m_sized = false;
    bool m_maximised = false;
    bool m_opens = false; // shown, and not looked at since where the window system has put it
    QRect m_usersPlace;   // what m_usersChange is about
    QTimer m_settling;    // while it runs, changes are the window system's answers
    QTimer m_usersChange; // runs from the user's last change until it is taken
};

/// The first place of a dialog of that owner's main window, as dialogPlace says; with no owner none.
FirstPlace besideItsOwner(const QWidget* owner, QSize smallest = {});

/// What a window's frame adds to its size; of a window that has never been on the screen it is that of
/// another window of the program, or a guess.
QSize frameMargins(const QWidget& window);

/// Moves a window that is being shown so that its frame is there; with `resize` it gets that size too.
void placeFrame(QWidget& window, const QRect& frame, bool resize);

} // namespace ocuva
