#include "app/toolbar/ToolbarDrag.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace ocuva {

namespace {

constexpr int markWidthPx = 2;

} // namespace

ToolbarDrag::ToolbarDrag(QToolBar& bar)
    : m_bar(bar)
    , m_mark(new QWidget(&bar)) {
    m_mark->setObjectName(QStringLiteral("insertionMark"));
    m_mark->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_mark->setAutoFillBackground(true);
    m_mark->setBackgroundRole(QPalette::Highlight);
    m_mark->hide();
}

ToolbarDrag::~ToolbarDrag() { endDragging(State::Idle); }

void ToolbarDrag::watch(QWidget* item) { item->installEventFilter(this); }

void ToolbarDrag::cancel() {
    endDragging(State::Idle);
    m_item.clear();
}

bool ToolbarDrag::eventFilter(QObject* watched, QEvent* event) {
    if (m_state == State::Dragging &&
        (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        endDragging(State::Cancelled);
        return true;
    }
    auto* const item = qobject_cast<QWidget*>(watched);
    const bool isItem = item != nullptr && item->parentWidget() == &m_bar && item != m_mark;
    return (isItem && mouseEvent(item, event)) || QObject::eventFilter(watched, event);
}

bool ToolbarDrag::mouseEvent(QWidget* item, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove && type != QEvent::MouseButtonRelease) {
        return false;
    }
    const auto& mouse = *static_cast<QMouseEvent*>(event);
    const QPoint barPos = item->mapTo(&m_bar, mouse.position().toPoint());
    if (m_state == State::Idle) {
        const bool starts = type == QEvent::MouseButtonPress && mouse.button() == Qt::LeftButton &&
                            (mouse.modifiers() & (Qt::ShiftModifier | Qt::AltModifier)) != 0;
        if (starts) {
            press(item, barPos);
        }
        return starts;
    }
    if (item != m_item) {
        return false;
    }
    if (type == QEvent::MouseMove) {
        drag(barPos);
    } else if (type == QEvent::MouseButtonRelease && mouse.button() == Qt::LeftButton) {
        drop(barPos);
    }
    return true;
}

void ToolbarDrag::press(QWidget* item, QPoint barPos) {
    m_item = item;
    m_pressPos = barPos;
    m_state = State::Pressed;
}

void ToolbarDrag::drag(QPoint barPos) {
    if (m_state == State::Pressed &&
        (barPos - m_pressPos).manhattanLength() >= QApplication::startDragDistance()) {
        m_state = State::Dragging;
        QApplication::setOverrideCursor(Qt::SizeAllCursor);
        // Escape goes to whichever widget has the keyboard, hardly ever to the bar.
        qApp->installEventFilter(this);
    }
    if (m_state != State::Dragging) {
        return;
    }
    if (isOverBar(barPos)) {
        QApplication::changeOverrideCursor(Qt::SizeAllCursor);
        placeMark(gapAt(barPos));
    } else {
        QApplication::changeOverrideCursor(Qt::ForbiddenCursor);
        m_mark->hide();
    }
}

void ToolbarDrag::drop(QPoint barPos) {
    const bool wasDragging = m_state == State::Dragging;
    int index = -1;
    for (int i = 0; i < m_bar.actions().size(); ++i) {
        if (m_bar.widgetForAction(m_bar.actions().at(i)) == m_item) {
            index = i;
        }
    }
    cancel();
    if (!wasDragging || index < 0) {
        return;
    }
    if (isOverBar(barPos)) {
        Q_EMIT moved(index, gapAt(barPos));
    } else {
        Q_EMIT removed(index);
    }
}

void ToolbarDrag::endDragging(State next) {
    if (m_state == State::Dragging) {
        m_mark->hide();
        qApp->removeEventFilter(this);
        QApplication::restoreOverrideCursor();
    }
    m_state = next;
}

// A hand that strays over the edge by a hair does not mean to throw the button away.
bool ToolbarDrag::isOverBar(QPoint barPos) const {
    const int slackPx = QApplication::startDragDistance();
    return m_bar.rect().adjusted(-slackPx, -slackPx, slackPx, slackPx).contains(barPos);
}

int ToolbarDrag::gapAt(QPoint barPos) const {
    const QList<QAction*> actions = m_bar.actions();
    const bool mirrored = m_bar.isRightToLeft();
    int gap = 0;
    for (int i = 0; i < actions.size(); ++i) {
        const QWidget* const item = m_bar.widgetForAction(actions.at(i));
        const int middle = item->geometry().center().x();
        // Items without room are hidden and have places behind the visible ones.
        if (item->isVisible() && (mirrored ? barPos.x() < middle : barPos.x() > middle)) {
            gap = i + 1;
        }
    }
    return gap;
}

void ToolbarDrag::placeMark(int gap) {
    const QList<QAction*> actions = m_bar.actions();
    const bool afterItem = gap > 0;
    const QRect beside = m_bar.widgetForAction(actions.at(afterItem ? gap - 1 : 0))->geometry();
    const int edge = afterItem != m_bar.isRightToLeft() ? beside.right() + 1 : beside.left();
    m_mark->setGeometry(edge - markWidthPx / 2, beside.top(), markWidthPx, beside.height());
    m_mark->raise();
    m_mark->show();
}

} // namespace ocuva
