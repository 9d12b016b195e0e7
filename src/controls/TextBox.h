#pragma once
// The text box of the program's dialogs.

#include <QLineEdit>

namespace ocuva {

/// Selects its whole text when it gets the focus, so that typing replaces it.
class TextBox final : public QLineEdit {
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool m_justFocused = false; // the click that gave the focus must not take the selection away again
};

} // namespace ocuva
