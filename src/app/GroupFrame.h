#pragma once
// A panel of the main window: a filled rounded frame whose upper edge stands half a caption line below its
// top, so that panels beside each other line up whether they carry a caption or not.

#include <QColor>
#include <QString>
#include <QWidget>

namespace ocuva {

/// Paints itself; what is inside it are its children, placed by their owner.
class GroupFrame final : public QWidget {
    Q_OBJECT

public:
    /// Distance from the widget's top to the frame's upper edge, pixels.
    static constexpr int captionInset = 6;

    /// An empty caption leaves the upper edge unbroken.
    GroupFrame(const QString& objectName, const QString& caption, QWidget* parent);

    /// Repaints; the size stays.
    void setCaption(const QString& caption);
    /// Empty for none.
    const QString& caption() const { return m_caption; }

    /// The colour the frame is filled with: its own, or else the palette's.
    QColor fillColour() const;
    /// Gives the frame a colour of its own; the palette's colour takes it away again.
    void setFillColour(const QColor& colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor paletteColour() const;

    QString m_caption;
    QColor m_ownColour; // invalid: the palette's
};

} // namespace ocuva
