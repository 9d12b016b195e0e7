#pragma once
// tbMain, the toolbar at the top of the main window.

#include "app/toolbar/ButtonMenus.h"
#include "app/toolbar/ImageList.h"
#include "app/toolbar/ToolbarDrag.h"
#include "app/toolbar/ToolbarLayout.h"

#include <QAction>
#include <QMap>
#include <QToolBar>
#include <QToolButton>

#include <map>

namespace ocuva {

/// The buttons in the user's order. Buttons are addressed by key. A button that the user has removed keeps
/// its value, enabled state and menu, and comes back with them. A key without a button changes nothing and
/// causes a warning in the log.
///
/// The user rearranges the bar by dragging with Shift or Alt, with the context menu, or in the dialog that
/// a double-click next to the buttons opens. The arrow keys, Home and End go from button to button, Space
/// and Enter click, Down opens the drop-down. Buttons without room are in the menu of the chevron at the
/// end.
class MainToolbar final : public QToolBar {
    Q_OBJECT

public:
    /// In the default layout, with the small images.
    explicit MainToolbar(const ToolbarButtons& buttons, QWidget* parent = nullptr);

    /// Takes over the images; their size becomes the size of the bar. Without it the bar has the small ones.
    void setImageLists(const ImageList& image, const ImageList& hot, const ImageList& disabled);

    /// Presses or releases a button of style Check and shows its On image or not; no click is reported.
    ///@{
    void setValue(const QString& key, bool pressed);
    bool value(const QString& key) const;
    ///@}

    using QWidget::isEnabled;
    using QWidget::setEnabled;
    /// Whether that button can be clicked.
    ///@{
    void setEnabled(const QString& key, bool enabled);
    bool isEnabled(const QString& key) const;
    ///@}

    /// The drop-down list of that button; null when it has none.
    ButtonMenus* buttonMenus(const QString& key);

    /// The button on the bar; null when it is not shown there. A change of the layout makes new ones.
    QToolButton* button(const QString& key) const;

    /// The keys on the bar as restoreLayout takes them.
    QString layoutText() const { return m_layout.text(); }

    /// Shows the layout of that text as far as it is valid. False, and the bar stays as it is, when the text
    /// names no button. Does not emit customized.
    bool restoreLayout(const QString& text);

    /// The buttons on the bar.
    const ToolbarLayout& buttonLayout() const { return m_layout; }

public Q_SLOTS:
    /// Opens the dialog (window modal) in which the user chooses the buttons; once only.
    void customize();

    /// Back to the default layout, as the user's wish.
    void reset();

Q_SIGNALS:
    /// The user has clicked a button. A button of style Check has already changed its value.
    void buttonClicked(const QString& key);

    /// The user has chosen an item of a button's drop-down.
    void buttonMenuClicked(const QString& buttonKey, const QString& itemKey);

    /// The user has changed the layout; sent after each single change.
    void customized();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeActions();
    void makeMenu(const QString& key);
    void setLayoutByUser(const ToolbarLayout& layout);
    void showLayout();
    void dress(const QString& key, QWidget* item);
    QAction* action(const QString& key) const;
    QAction* separator(const QString& key);
    bool keyOnButton(QToolButton& button, int key);
    bool focusNeighbour(const QToolButton& from, int key);
    void completeOverflowMenu();
    void dressChevron();
    QToolButton* chevron() const;

    QMap<QString, QAction*> m_actions; ///< of all buttons, and of separators as they are needed
    std::map<QString, ButtonMenus> m_menus;
    ToolbarButtons m_buttons;
    ToolbarLayout m_layout;
    ToolbarDrag m_drag{*this};
};

} // namespace ocuva
