#pragma once
// The up-down control of the program's dialogs.

#include <QSpinBox>

namespace ocuva {

/// Escape takes back what is typed and not taken over yet; where there is nothing of the kind it goes on to
/// the dialog.
class UpDownBox final : public QSpinBox {
    Q_OBJECT

public:
    using QSpinBox::QSpinBox;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace ocuva
