#pragma once
// The up-down control of the program's dialogs.

#include <QSpinBox>

namespace ocuva {

/// Escape discards typed text that has not been applied yet; otherwise the dialog gets the key.
class UpDownBox final : public QSpinBox {
    Q_OBJECT

public:
    using QSpinBox::QSpinBox;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace ocuva
