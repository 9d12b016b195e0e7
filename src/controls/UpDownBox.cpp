#include "controls/UpDownBox.h"

#include <QKeyEvent>

namespace ocuva {

void UpDownBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && cleanText() != textFromValue(value())) {
        setValue(value()); // writes it into the field again
        selectAll();
        event->accept();
        return;
    }
    QSpinBox::keyPressEvent(event);
}

} // namespace ocuva
