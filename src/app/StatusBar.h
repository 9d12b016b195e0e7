#pragma once
// The status bar sbMain: three panels with the stage position, and one for information.

#include <QLabel>
#include <QStatusBar>

#include <array>

namespace ocuva {

/// One panel; its text is read by its key.
class StatusPanel final : public QLabel {
    Q_OBJECT

public:
    StatusPanel(const QString& key, const QString& toolTip, QWidget* parent);

Q_SIGNALS:
    void clicked();
    void doubleClicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    bool m_doubleClick = false; // the release that ends a double click is not one more click
};

class StatusBar final : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusBar(QWidget* parent);

    /// The panel "X", "Y", "Z" or "Info"; null for any other key.
    StatusPanel* panel(const QString& key) const;

Q_SIGNALS:
    void panelClicked();
    void panelDoubleClicked();

private:
    std::array<StatusPanel*, 4> m_panels{};
};

} // namespace ocuva
