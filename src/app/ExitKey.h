#pragma once
// The key of Exit works in every window of the program.

#include <QAction>
#include <QObject>

namespace ocuva {

/// Adds the command to each window when it opens: dialogs, message boxes and file dialogs of the toolkit too,
/// but not menus and tooltips.
class ExitKey final : public QObject {
    Q_OBJECT

public:
    /// Both end together; windows that are open then lose the key.
    explicit ExitKey(QAction& exit);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAction& m_exit;
};

} // namespace ocuva
