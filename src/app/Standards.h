#pragma once
// What the main window does with standards: the drop-down of the Stage button, choosing a file, driving to a
// standard, and the move dialog that all of it goes through.

#include "app/toolbar/MainToolbar.h"
#include "standards/StandardList.h"
#include "standards/frmMove.h"

#include <filesystem>
#include <functional>
#include <memory>

namespace ocuva {

/// What it needs; everything outlives it.
struct StandardsContext {
    /// Where the list is kept and shown, and what moves the stage.
    ///@{
    TnReg& reg;
    TnLibProxy& libProxy;
    MainToolbar& tbMain;
    StageMover& fOcuva;
    ///@}
    QWidget& window;                            ///< owns the dialogs
    std::function<void(const QString&)> report; ///< shows an error
    /// Asks for the file of a standard in a folder; empty when the operator cancels.
    std::function<QString(const QString& folder)> chooseFile;
    std::filesystem::path unfinishedList = {}; ///< the program's own file for a list that is being stored
};

/// A choice from the drop-down drives there at once.
class Standards {
public:
    /// The drop-down is empty until FillStageMenu.
    explicit Standards(const StandardsContext& context);
    ~Standards();

    /// Opens the move dialog beside the window, showing where the stage stands.
    void openMoveDialog();

    /// Lets the operator choose a standard, appends it to the list, rebuilds the drop-down and, with moveNow,
    /// drives there. False when he cancels, or when the name is too long for the list, which is reported.
    bool AddStandard(bool moveNow);

    /// Rebuilds the drop-down of the Stage button. A name that is stored twice has one item.
    void FillStageMenu();

    /// Drives to a standard; nothing happens when the host cannot tell where it is.
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
