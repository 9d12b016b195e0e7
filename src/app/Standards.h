#pragma once
// The main window's operations on standards: the drop-down of the Stage button, choosing a file, driving
// to a standard, and the move dialog that all of this uses.

#include "app/toolbar/MainToolbar.h"
#include "standards/StandardList.h"
#include "standards/frmMove.h"

#include <filesystem>
#include <functional>
#include <memory>

namespace ocuva {

/// Its surroundings; everything outlives it.
struct StandardsContext {
    /// The list, its display, and the stage.
    ///@{
    TnReg& reg;
    TnLibProxy& libProxy;
    MainToolbar& tbMain;
    StageMover& fOcuva;
    ///@}
    QWidget& window;                            ///< owns the dialogs
    std::function<void(const QString&)> report; ///< shows an error
    /// Asks for the file of a standard in a folder; empty if the operator cancels.
    std::function<QString(const QString& folder)> chooseFile;
    std::filesystem::path unfinishedList = {}; ///< the program's own file for a list that is being stored
};

/// A choice from the drop-down drives there at once.
class Standards {
public:
    /// The drop-down is empty until FillStageMenu.
    explicit Standards(const StandardsContext& context);
    ~Standards();

    /// Opens the move dialog next to the window, with the stage position.
    void openMoveDialog();

    /// Lets the operator choose a standard, appends it to the list, rebuilds the drop-down and, with
    /// moveNow, drives there. False if he cancels, or if the name is too long for the list, which is
    /// reported.
    bool AddStandard(bool moveNow);

    /// Rebuilds the drop-down of the Stage button. A name that is stored twice has one item.
    void FillStageMenu();

    /// Drives to a standard; nothing happens if the host does not know its position.
    void goTo(const std::string& name);

    /// Closes the move dialog.
    void unload();

    /// For the dialog that edits it; FillStageMenu brings the drop-down up to it.
    StandardList& list() { return m_list; }
    /// Shown or not.
    frmMove& moveDialog() { return *m_frmMove; }

private:
    StandardsContext m_context;
    StandardList m_list;
    std::unique_ptr<frmMove> m_frmMove;
};

/// The common open-file dialog for standards.
QString chooseStandardFile(QWidget& owner, const QString& folder);

} // namespace ocuva
