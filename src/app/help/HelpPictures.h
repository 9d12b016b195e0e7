#pragma once
// The pictures of the help: as wide as there is room, sharp on any screen, and read from the disk only when
// they come into sight.

#include <QDir>
#include <QMap>
#include <QObject>
#include <QPixmap>
#include <QTextObjectInterface>

namespace ocuva {

/// Draws the images of a text; register it with the text's layout for QTextFormat::ImageObject. A picture
/// that is not there shows its description.
class HelpPictures : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    using QObject::QObject;

    /// Names of pictures are relative to this folder.
    void setFolder(const QDir& folder);

    /// In units of the text's layout. No picture is shown wider, and none larger than it was taken. After a
    /// change the text has to be laid out again.
    void setRoom(qreal width) { m_roomWidth = width; }

    /// QTextObjectInterface: the first looks only for the size, the second reads the picture.
    ///@{
    QSizeF intrinsicSize(QTextDocument* text, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* text, int position,
                    const QTextFormat& format) override;
    ///@}

private:
    QSize sizeOnDisk(const QString& name);
    const QPixmap& fitted(const QString& name, const QSize& sizePx);

    QDir m_folder;
    qreal m_roomWidth = 0;
    QMap<QString, QSize> m_sizes; // empty for missing pictures
    QMap<QString, QPixmap> m_fitted;
};

} // namespace ocuva
