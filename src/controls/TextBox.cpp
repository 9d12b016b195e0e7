#include "controls/TextBox.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace ocuva {

TextBox::TextBox(QWidget* parent)
    : QLineEdit(parent) {
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!isModified()) { // set by the program
            m_before = text;
        }
    });
    connect(this, &QLineEdit::editingFinished, this, [this] { m_before = text(); });
}

void TextBox::follow(const QString& value) {
    m_before = value;
    if (isModified() || text() == value) {
        return;
    }
    setText(value);
    if (hasFocus()) {
        selectAll();
    }
}

void TextBox::setDigits(int count) {
    m_digits = count;
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    updateGeometry();
}

QSize TextBox::sizeHint() const {
    const QSize usual = QLineEdit::sizeHint();
    if (m_digits == 0) {
        return usual;
    }
    // Keeps the margins of the usual size hint, which assumes a text of 17 letters.
    constexpr int usualLetters = 17;
    const QFontMetrics metrics(font());
    const int aroundText = usual.width() - usualLetters * metrics.horizontalAdvance(u'x');
    return {aroundText + (m_digits + 1) * metrics.horizontalAdvance(u'0'), usual.height()};
}

QSize TextBox::minimumSizeHint() const { return m_digits == 0 ? QLineEdit::minimumSizeHint() : sizeHint(); }

void TextBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    m_justFocused = event->reason() == Qt::MouseFocusReason;
    selectAll();
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && text() != m_before) {
        setText(m_before); // no longer modified: leaving the box stores nothing
        selectAll();
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (m_justFocused) {
        m_justFocused = false;
        selectAll();
    }
}

} // namespace ocuva
