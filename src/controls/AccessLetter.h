#pragma once
// Access letters for controls with fixed captions: the letter is underlined and works with Alt, while
// text() stays the caption without "&".

#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QString>
#include <QStyleOptionButton>

namespace ocuva {

/// "Move" for "&Move", "A & B" for "A && B".
QString withoutAccessLetter(const QString& caption);

/// A push button or radio button with an access letter.
template <class Button> class WithAccessLetter final : public Button {
public:
    /// As setCaption.
    WithAccessLetter(const QString& caption, QWidget* parent)
        : Button(parent) {
        setCaption(caption);
    }

    /// The letter after "&" is underlined and, with Alt, clicks the button; text() has no "&".
    void setCaption(const QString& caption) {
        m_caption = caption;
        this->setText(withoutAccessLetter(caption));
        this->setShortcut(QKeySequence::mnemonic(caption)); // after setText, which takes it away
    }

protected:
    /// Adds the underline.
    void initStyleOption(QStyleOptionButton* option) const override {
        Button::initStyleOption(option);
        if (this->text() == withoutAccessLetter(m_caption)) {
            option->text = m_caption;
        }
    }

private:
    QString m_caption;
};

/// The two kinds of buttons that dialogs have.
///@{
using LetteredButton = WithAccessLetter<QPushButton>;
using LetteredRadioButton = WithAccessLetter<QRadioButton>;
///@}

/// Underlines a label of one letter; Alt and that letter give the focus to the label's buddy, which is set
/// already. The label's text stays as it is.
void makeAccessLetter(QLabel& label);

} // namespace ocuva
