#pragma once
// Places the dialogs that have no place of their own: message boxes, file dialogs, the about box.

#include <QObject>
#include <QWidget>

namespace ocuva {

/// Moves such a dialog to the place computed by dialogPlace each time it opens while the main window is on
/// the screen. Belongs to the main window. Does not affect dialogs of the operating system.
class DialogPlaces final : public QObject {
    Q_OBJECT

public:
    /// From now on.
    explicit DialogPlaces(QWidget& mainWindow);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isToBePlaced(const QWidget& dialog) const;
    void place(QWidget& dialog) const;

    QWidget& m_mainWindow;
};

} // namespace ocuva
