#pragma once
// Where the windows of the program stand, remembered from one opening to the next and brought on to a screen
// that is there.

#include <QList>
#include <QObject>
#include <QRect>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>

namespace ocuva {

/// The rectangle moved by the least distance so that all of it lies on one of the screens: the one that it
/// shares the most area with, or else the nearest. What is larger than that screen loses the surplus at its
/// right and lower edge. Unchanged when there is no screen.
QRect broughtOnScreen(const QRect& rect, const QList<QRect>& screens);

/// The place for a window of that size beside another, both on that screen: to its right, else to its left,
/// below or above, its upper (left) edges in line. Where there is room nowhere, as much smaller as it must be
/// on the side where most of it is left, but not below `smallest`; else, or with no `smallest`, in the
/// screen's right lower corner, which hides least.
QRect besideWindow(const QRect& other, QSize size, const QRect& screen, QSize smallest = {});

/// The rectangles of the windows by their object names, in the user's registry beside the toolbar's layout:
/// sub-key "WindowPlaces".
class WindowPlaceStore {
public:
    /// Nothing when none is stored, or one that is no rectangle.
    std::optional<QRect> load(const QString& window) const;
    /// Replaces the one before; written at once.
    void save(const QString& window, const QRect& place) const;
};

/// Keeps one window's place: shown for the first time it stands where it stood last, or else where
/// `firstPlace` says, or else where the window system puts it; each time all of it on a screen. The place is
/// stored when the window is hidden or closed, but not while it is maximised. Belongs to the window, which
/// has its object name already.
class WindowPlace final : public QObject {
    Q_OBJECT

public:
    /// Position: the size is the window's own business.
    enum class Keeps { Position, PositionAndSize };

    /// firstPlace is given the window's size with its frame.
    WindowPlace(QWidget& window, Keeps keeps, std::function<QRect(QSize frameSize)> firstPlace = {});

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void beforeShow();
    void afterHide();
    void note();
    QSize frameMargins() const;

    QWidget& m_window;
    Keeps m_keeps;
    std::function<QRect(QSize)> m_firstPlace;
    std::optional<QRect> m_place; // upper left corner of the frame, size without it
};

/// The first place of a dialog: beside its owner's window, as besideWindow says; with no owner none.
std::function<QRect(QSize)> besideItsOwner(const QWidget* owner, QSize smallest = {});

} // namespace ocuva
