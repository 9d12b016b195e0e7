#pragma once
// The status bar sbMain: three panels with the stage position, and one for information.

#include <QColor>
#include <QLabel>
#include <QStatusBar>

#include <array>

namespace ocuva {

/// One panel; its text is read by its key. A text that is too long for one line is drawn smaller on two, as
/// FittedText says. Tab reaches it: Space is a click, Enter a double click.
class StatusPanel final : public QLabel {
    Q_OBJECT

public:
    /// The key is its object name; the tooltip is its name for screen readers too.
    StatusPanel(const QString& key, const QString& toolTip, QWidget* parent);

    /// Also informs screen readers, which read a panel's name and not its text.
    void setText(const QString& text);

    /// A letter at the left end of the panel, which belongs to it. The text is then at the right end, and
    /// the panel has room for the longest position. text() does not change.
    void setCaption(const QString& caption);

    /// A round lamp of that colour before the text.
    void setLamp(const QColor& colour);
    /// Invalid for none.
    const QColor& lamp() const { return m_lamp; }

    /// Whether all of a text would be shown.
    bool hasRoomFor(const QString& text) const;

    /// Shows another text in place of its own as long as it is not empty; text() does not change.
    void setTip(const QString& tip);
    /// Empty while it shows its own text.
    const QString& tip() const { return m_tip; }

Q_SIGNALS:
    /// By the left button, let go over it, or by Space.
    void clicked();
    /// By the left button, or by Enter. No clicked follows.
    void doubleClicked();
    /// Its own text is another one; tips do not count.
    void textChanged();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRect roomForText() const;

    QColor m_lamp; // invalid: none
    QString m_tip;
    QString m_caption;
    bool m_doubleClick = false; // the release that ends a double click is not one more click
};

/// Fixed panels, always shown.
class StatusBar final : public QStatusBar {
    Q_OBJECT

public:
    /// All panels are empty.
    explicit StatusBar(QWidget* parent);

    /// The panel "X", "Y", "Z" or "Info"; null for any other key.
    StatusPanel* panel(const QString& key) const;

    /// All panels in one line, as one would read them aloud.
    QString spokenText() const;

Q_SIGNALS:
    /// Of any panel.
    ///@{
    void panelClicked();
    void panelTextChanged();
    void panelDoubleClicked();
    ///@}
    /// The information panel, after panelClicked.
    void informationClicked();

private:
    std::array<StatusPanel*, 4> m_panels{};
};

} // namespace ocuva
