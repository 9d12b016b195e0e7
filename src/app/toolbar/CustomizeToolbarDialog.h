#pragma once
// The dialog in which the user chooses and orders the toolbar's buttons.

#include "app/toolbar/ToolbarLayout.h"

#include <QDialog>
#include <QIcon>
#include <QListWidget>
#include <QPushButton>

#include <functional>

namespace ocuva {

/// A list of buttons whose rows can be dragged within the list and to the other list of the dialog. It
/// changes nothing by itself; it reports where a row was dropped.
class ButtonList final : public QListWidget {
    Q_OBJECT

public:
    /// The name is an argument of the other list's rowDropped.
    explicit ButtonList(const QString& name);

Q_SIGNALS:
    /// Row `row` of the list named `source` was dropped on this list, in the gap before row `gap` (0 to
    /// count).
    void rowDropped(const QString& source, int row, int gap);

protected:
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QList<QListWidgetItem*>& items) const override;
    Qt::DropActions supportedDropActions() const override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dropEvent(QDropEvent* event) override;
};

/// Works on a copy of the layout and reports every change at once. There is nothing to confirm; closing
/// only closes.
class CustomizeToolbarDialog final : public QDialog {
    Q_OBJECT

public:
    /// `iconOf` gives the icon of a button's or separator's key; it must stay callable while the dialog
    /// lives.
    CustomizeToolbarDialog(const ToolbarLayout& layout, std::function<QIcon(const QString&)> iconOf,
                           QWidget* parent);

    ButtonList* const lstAvailable; ///< row 0 is the separator, then the buttons that are not on the bar
    ButtonList* const lstCurrent;   ///< one row for each item of the bar
    QPushButton* const cmdAdd;      ///< the chosen available row goes behind the chosen current row
    QPushButton* const cmdRemove;   ///< takes the chosen current row off the bar
    /// The chosen current row goes by one.
    ///@{
    QPushButton* const cmdMoveUp;
    QPushButton* const cmdMoveDown;
    ///@}
    QPushButton* const cmdReset; ///< back to the default layout
    QPushButton* const cmdClose; ///< only closes

Q_SIGNALS:
    /// The user has changed the layout; sent after each single change.
    void layoutChanged(const ToolbarLayout& layout);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void arrange();
    void connectControls();
    void add(int availableRow, int gap);
    void remove(int row);
    void move(int row, int gap);
    void reset();
    void dropOnCurrent(const QString& source, int row, int gap);
    void dropOnAvailable(const QString& source, int row);
    void changed(int currentRow);
    void fillLists(int currentRow);
    void enableButtons();
    void addRow(ButtonList& list, const QString& key) const;

    ToolbarLayout m_layout;
    std::function<QIcon(const QString&)> m_iconOf;
};

} // namespace ocuva
