#pragma once
// A panel of the main window: a filled rounded frame whose upper edge is half a caption line below its
// top, so that neighbouring panels line up with and without a caption.

#include <QColor>
#include <QString>
#include <QWidget>

namespace ocuva {

/// Paints itself; its contents are children placed by their owner.
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

    /// The fill colour: its own, otherwise the palette's.
    QColor fillColour() const;
    /// Sets the fill colour; the palette's colour removes it again.
    void setFillColour(const QColor& colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor paletteColour() const;

    QString m_caption;
    QColor m_ownColour; // invalid: the palette's
};

} // namespace ocuva
