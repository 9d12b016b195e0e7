#pragma once
// The window of the manual: contents on the left, the text on the right, a search above.

#include "app/help/HelpView.h"
#include "app/help/ManualText.h"

#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QTreeWidget>
#include <QWidget>

#include <vector>

namespace ocuva {

/// Modeless and without a parent, so that it can be next to the main window or behind it. It remembers
/// size and place for the user.
class HelpWindow : public QWidget {
    Q_OBJECT

public:
    /// Opens next to that window the first time; null leaves the place to the window system.
    HelpWindow(const QDir& manual, const std::vector<KeyRow>& keys, const QWidget* beside = nullptr);

    /// Brings the chapter with that title to the top; without such a chapter the text does not move.
    void showChapter(const QString& title);

    /// The controls: text, contents, the search and how many places it found.
    ///@{
    HelpView* const view;
    QTreeWidget* const contents;
    QLineEdit* const txtSearch;
    QLabel* const lblFound;
    ///@}

private:
    QWidget* makeSearchRow();
    QToolButton* makeStep(Qt::ArrowType arrow, const QString& name, bool forward);
    void makeKeys();
    void fillContents();
    void followView();
    void search();
    void step(bool forward);
    void showFound();
    void escape();

    std::vector<QTreeWidgetItem*>
        m_items; // one for each heading of the view, in its order; none for deep ones
};

} // namespace ocuva
