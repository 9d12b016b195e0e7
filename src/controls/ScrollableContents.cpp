#include "controls/ScrollableContents.h"

#include <QMainWindow>
#include <QPointer>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

namespace ocuva {

void scrollWhatDoesNotFit(QWidget& window, QSize room) {
    QLayout* const contents = window.layout();
    if (contents == nullptr || qobject_cast<QMainWindow*>(&window) != nullptr ||
        contents->totalMinimumSize().boundedTo(room) == contents->totalMinimumSize()) {
        return;
    }
    const QSize needed = contents->totalMinimumSize();
    const QPointer<QWidget> focused = window.focusWidget();
    // In the window before it gets the controls, which keep their order then.
    auto* const area = new QScrollArea(&window);
    auto* const page = new QWidget;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(page);
    page->setLayout(contents);
    auto* const whole = new QVBoxLayout(&window);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(area);
    area->show();
    whole->activate(); // the window may be smaller from now on
    // A scroll bar in one direction must not make one necessary in the other.
    const int bar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    window.resize(window.size().expandedTo(needed) +
                  QSize(needed.height() > room.height() ? bar : 0, needed.width() > room.width() ? bar : 0));
    if (focused != nullptr) {
        focused->setFocus();
    }
}

} // namespace ocuva
