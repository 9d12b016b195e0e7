#pragma once
// The splash window of the start; opened later, with its OK button, it is the about box.

#include <QDialog>

class QPushButton;

namespace ocuva {

/// Made once. It names the product and its version.
class frmSplash final : public QDialog {
    Q_OBJECT

public:
    frmSplash();

    /// From now on every opening shows the OK button.
    void EnableOkButton();

    /// Shows and paints the window in front of the others, without waiting for the message loop.
    void showAndRepaint();

    /// As about box: modal to that window until the user closes it.
    void showModal(QWidget* owner);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QPushButton* cmdOk = nullptr;
};

} // namespace ocuva
