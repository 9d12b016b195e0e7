#pragma once
// The standard list dialog: shows the stored standards with their positions and edits their order. Every edit
// is written at once; there is no cancel.

#include "standards/StandardList.h"
#include "standards/StandardReading.h"
#include "standards/StandardRows.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace ocuva {

/// The list view: report view with multiple selection. Something dragged over it highlights the row under the
/// pointer; dropping it does nothing but take the highlight away.
class StdListView final : public QTreeWidget {
    Q_OBJECT

public:
    /// Has no columns until they are set.
    explicit StdListView(QWidget* parent);
    /// The row under the dragged item; null if nothing is dragged.
    const QTreeWidgetItem* dropHighlight() const { return m_dropHighlight; }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                 const QModelIndex& index) const override;

private:
    void setDropHighlight(QTreeWidgetItem* item);

    QTreeWidgetItem* m_dropHighlight = nullptr;
};

/// Modal. Reads the stored list when it is shown, and writes it with each change. While the host's
/// database cannot be used, the stored list does not change.
class frmStdList final : public QDialog {
    Q_OBJECT

public:
    /// addStandard lets the operator choose a file, appends it to the stored list and returns whether he
    /// did; fillStageMenu runs when the dialog closes. holdInput blocks pointer and keys and shows a text
    /// for the life of the returned object, because the host may need long to read or store thousands of
    /// standards.
    frmStdList(StandardList& list, TnLibProxy& libProxy, std::function<bool()> addStandard,
               std::function<void()> fillStageMenu,
               std::function<std::shared_ptr<void>(const QString& what)> holdInput, QWidget* owner);

    /// File, X, Y and Z.
    void SetupStdColumns();
    /// Standards that the host's database cannot read, and further ones of a name, get no row.
    void FillStdList();
    /// Writes the rows as the list; without rows the list becomes empty. Reports what could not be
    /// written.
    void SaveStdList();

    /// The rows shown in the list view.
    const StandardRows& rows() const { return m_rows; }

    /// The controls, by their names.
    ///@{
    QLabel* lblStdEntries = nullptr;
    StdListView* lvwStdEntries = nullptr;
    QWidget* frStdListCmds = nullptr;
    QPushButton* cmdInsert = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdUp = nullptr;
    QPushButton* cmdDown = nullptr;
    QPushButton* cmdOk = nullptr;
    QLabel* lblStdNote = nullptr; ///< below the list: what could not be read or stored; empty when all was
    ///@}

protected:
    void showEvent(QShowEvent* event) override;
    void done(int result) override;

private:
    void makeControls();
    void takeSelection();
    void showRows();
    std::vector<std::string> keys() const;
    void readStandards();
    void edit(void (StandardRows::*operation)());
    void cmdDelete_Click();
    void cmdInsert_Click();
    void note(const QString& text);
    QString readingNote() const;
    QString insertNote(int countBefore) const;

    StandardList& m_list;
    TnLibProxy& m_libProxy;
    std::function<bool()> m_addStandard;
    std::function<void()> m_fillStageMenu;
    std::function<std::shared_ptr<void>(const QString& what)> m_holdInput;
    StandardRows m_rows;
    StandardReading m_reading;
};

} // namespace ocuva
