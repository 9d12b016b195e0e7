#pragma once
// A lamp next to a button: its colour shows whether the button can be used.

#include "base/Types.h"

#include <QColor>
#include <QWidget>

namespace ocuva {

/// A round lamp that takes no focus.
class IndicatorShape final : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Red in the lowest byte, then green, then blue.
    void setColour(Long colour);
    /// As set last; invalid before that.
    QColor colour() const { return m_colour; }

    /// The size of the lamp, independent of the available room.
    ///@{
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    ///@}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_colour;
};

} // namespace ocuva
