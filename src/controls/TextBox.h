#pragma once
// The text box of the program's dialogs.

#include <QLineEdit>

namespace ocuva {

/// Selects its whole text when it gets the focus, so that typing replaces it. Escape restores the text
/// from before the typing; if nothing was typed, the dialog gets the key.
class TextBox final : public QLineEdit {
    Q_OBJECT

public:
    /// Empty, as wide as a text box is.
    explicit TextBox(QWidget* parent = nullptr);

    /// A value that has changed elsewhere: shown unless the operator has typed something; Escape then
    /// restores this value.
    void follow(const QString& value);

    /// Makes the box wide enough for that many digits, instead of as wide as possible.
    void setDigits(int count);

    /// Room for the digits set by setDigits.
    ///@{
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    ///@}

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QString m_before;           // the text that Escape puts back
    int m_digits = 0;           // 0: as wide as any line edit
    bool m_justFocused = false; // the click that gave the focus must not take the selection away again
};

} // namespace ocuva
