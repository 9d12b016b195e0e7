#pragma once
// Choosing, initialising and shutting down the frame-grabber board in the set-up dialog.

#include "base/Types.h"
#include "settings/Settings.h"
#include "video/CTnVideoBoard.h"

namespace ocuva {

/// The board types, which are also the indices in the board list.
inline constexpr Long boardWithoutDisplay = 0;
/// The host draws live video into the program's display, and keeps default references for this board.
inline constexpr Long boardWithDisplay = 1;

/// Camera types are 1 to this number; their buttons optCam have the indices 0 to 3.
inline constexpr Long cameraTypeCount = 4;

/// Colours of the indicators: red in the lowest byte, then green, then blue. Green marks a button that can
/// be used.
inline constexpr Long indicatorRed = 255;
inline constexpr Long indicatorGreen = 65280;

/// The controls of the board set-up, by their names.
class BoardSetupView {
public:
    virtual ~BoardSetupView() = default;
    virtual Long cbBoardIndex() const = 0; ///< of the chosen entry, or -1
    /// A locked list shows the board in use and cannot be changed.
    virtual void lockCbBoard(bool locked) = 0;
    virtual Long VgaCheck() const = 0; ///< 0 unchecked, 1 checked, 2 neither
    /// The indicators next to the buttons Initialize and Shut down: indicatorRed or indicatorGreen.
    ///@{
    virtual void setShInit(Long colour) = 0;
    virtual void setShShut(Long colour) = 0;
    ///@}
    /// The buttons Initialize and Shut down.
    ///@{
    virtual void enableCmdInit(bool on) = 0;
    virtual void enableCmdShut(bool on) = 0;
    ///@}
    virtual void enableOptCam(Long index, bool on) = 0; ///< 0 to 3
    /// The line that explains how to use a board again after a shutdown, with its button cmdUnlock.
    virtual void showShutDown(bool on) = 0;
    virtual void enableCmdUnlock(bool on) = 0; ///< the button in that line
};

/// The handlers of the board page. Only the indicators show a refusal by the host.
class BoardSetup {
public:
    /// All three outlive it.
    BoardSetup(CTnVideoBoard& board, Settings& settings, BoardSetupView& view)
        : m_board(board)
        , m_settings(settings)
        , m_view(view) {}

    /// Stores the checked VGA mode, sends the chosen board to the host, initialises it and shows its
    /// state.
    void cmdInit_Click();

    /// Shuts the board down and shows its state, which by the board's own rule still reads as initialised;
    /// cmdUnlock allows its use again.
    void cmdShut_Click();

    /// Stores the checked VGA mode and shows which camera types can be chosen with it.
    void VgaCheck_Click();

    /// After a shutdown, lets the operator choose a board and initialise it.
    void cmdUnlock_Click();

    /// Shows whether the board is initialised, which buttons can be used and, only outside VGA mode and on
    /// an initialised board, the camera types.
    void showState();

private:
    void storeVgaMode();
    void showCameraTypes();
    void showWhetherInUse(bool inUse);

    CTnVideoBoard& m_board;
    Settings& m_settings;
    BoardSetupView& m_view;
};

/// The board type of an index in the board list: 0 for any index except 1.
constexpr Long boardTypeOfIndex(Long index) {
    return index == boardWithDisplay ? boardWithDisplay : boardWithoutDisplay;
}

} // namespace ocuva
