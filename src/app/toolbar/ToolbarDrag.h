#pragma once
// Rearranging a toolbar with the mouse: Shift or Alt and a drag.

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QToolBar>
#include <QWidget>

namespace ocuva {

/// Watches the items of a horizontal bar. An item pressed with Shift or Alt held is dragged instead of
/// clicked: a mark shows its new place. Released over the bar it is moved there, released elsewhere it is
/// removed, and Escape cancels. It only reports; the owner changes the bar. Item and gap numbers count the
/// bar's actions.
class ToolbarDrag final : public QObject {
    Q_OBJECT

public:
    /// Watches nothing yet; the bar outlives it.
    explicit ToolbarDrag(QToolBar& bar);
    ~ToolbarDrag() override;

    /// To be called for each item's widget, new ones included.
    void watch(QWidget* item);

    /// Ends a drag without effect.
    void cancel();

Q_SIGNALS:
    /// The item at index is to go to the gap before the item now at `gap` (the number of actions: the end).
    void moved(int index, int gap);
    /// The item at index is to go off the bar.
    void removed(int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class State { Idle, Pressed, Dragging, Cancelled };

    bool mouseEvent(QWidget* item, QEvent* event);
    void press(QWidget* item, QPoint barPos);
    void drag(QPoint barPos);
    void drop(QPoint barPos);
    void endDragging(State next);
    bool isOverBar(QPoint barPos) const;
    int gapAt(QPoint barPos) const;
    void placeMark(int gap);

    QToolBar& m_bar;
    QWidget* m_mark;
    QPointer<QWidget> m_item;
    QPoint m_pressPos;
    State m_state = State::Idle;
};

} // namespace ocuva
