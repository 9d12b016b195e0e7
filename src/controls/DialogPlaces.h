#pragma once
// Places the dialogs that have no place of their own: message boxes, file dialogs, the about box.

#include <QObject>
#include <QWidget>

namespace ocuva {

/// Each time such a dialog opens while the main window is on the screen, it goes where dialogPlace says.
/// Belongs to the main window. Dialogs that the system itself shows are not reached.
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
