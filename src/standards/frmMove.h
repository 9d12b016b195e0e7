#pragma once
// The move dialog: an absolute stage position is typed, and the stage drives there.

#include "controls/TextBox.h"
#include "stage/StageMover.h"
#include "standards/StandardList.h"

#include <QDialog>
#include <QPushButton>

#include <array>
#include <functional>

namespace ocuva {

/// Modeless, opened next to the main window. Each time it is opened it shows the stage position.
class frmMove final : public QDialog {
    Q_OBJECT

public:
    /// addStandard lets the operator choose a standard and drives there; report shows an error that leaves
    /// a handler.
    frmMove(StageMover& fOcuva, std::function<void()> addStandard, std::function<void(const QString&)> report,
            QWidget* parent);

    /// Moves the stage to the typed position by three relative moves. Throws std::runtime_error that names
    /// the field when a text is no number or a distance does not fit; nothing moves then.
    void DoMove(StageMover& fOcuva);

    /// Into the text boxes; nothing moves.
    void setPosition(const StagePosition& position);

    /// The controls, by their names; txtMove are X, Y and Z.
    ///@{
    std::array<TextBox*, 3> txtMove{};
    QPushButton* cmdMove = nullptr;
    QPushButton* cmdStandard = nullptr;
    QPushButton* cmdClose = nullptr;
    ///@}

protected:
    void showEvent(QShowEvent* event) override;

private:
    void cmdMove_Click();

    StageMover& m_fOcuva;
    std::function<void(const QString&)> m_report;
};

/// Drives to a standard through the move dialog, which need not be visible. Nothing happens when the host's
/// database has no such object or it has no position.
void GotoStandard(TnLibProxy& libProxy, const std::string& name, frmMove& dialog, StageMover& fOcuva);

} // namespace ocuva
