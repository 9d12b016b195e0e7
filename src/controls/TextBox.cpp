#include "controls/TextBox.h"

#include <QFocusEvent>
#include <QMouseEvent>

namespace ocuva {

void TextBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    m_justFocused = event->reason() == Qt::MouseFocusReason;
    selectAll();
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (m_justFocused) {
        m_justFocused = false;
        selectAll();
    }
}

} // namespace ocuva
