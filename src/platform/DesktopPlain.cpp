#include "platform/Desktop.h"

#include <QWidget>

namespace ocuva {

void bringWindowToTop(QWidget& window) { window.raise(); }

bool runsInDevelopmentEnvironment(quintptr /*window*/) { return false; }

FrozenDrawing::FrozenDrawing(QWidget& widget)
    : m_widget(widget) {
    m_widget.setUpdatesEnabled(false);
}

FrozenDrawing::~FrozenDrawing() { m_widget.setUpdatesEnabled(true); }

} // namespace ocuva
