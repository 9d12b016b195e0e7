#pragma once
// The choice of the frame-grabber board, its initialisation and its shutdown, as the operator's set-up does
// them.

#include "base/Types.h"
#include "settings/Settings.h"
#include "video/CTnVideoBoard.h"

namespace ocuva {

/// The boards that there are; the type is also the entry's index in the board list.
inline constexpr Long boardWithoutDisplay = 0;
/// The host draws live video into the program's display, and keeps default references for this board.
inline constexpr Long boardWithDisplay = 1;

/// Camera types run from 1 to this; their buttons optCam have the indices 0 to 3.
inline constexpr Long cameraTypeCount = 4;

/// Colours of the indicator shapes: red in the lowest byte, then green, then blue. Green marks the button
/// that can be used.
inline constexpr Long indicatorRed = 255;
inline constexpr Long indicatorGreen = 65280;

/// The controls of the board set-up, by their names.
class BoardSetupView {
public:
    virtual ~BoardSetupView() = default;
    virtual Long cbBoardIndex() const = 0; ///< of the chosen entry; -1 when none is
    /// A locked list shows the board in use and cannot be changed.
    virtual void lockCbBoard(bool locked) = 0;
    virtual Long VgaCheck() const = 0; ///< 0 unchecked, 1 checked, 2 neither
    /// The indicators beside the buttons Initialize and Shut down: indicatorRed or indicatorGreen.
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
    /// The line that tells how a board that was shut down can be used again, with its button cmdUnlock.
    virtual void showShutDown(bool on) = 0;
    virtual void enableCmdUnlock(bool on) = 0; ///< the button in that line
};

/// The handlers of the board page. A refusal of the host shows in the indicators alone.
class BoardSetup {
public:
    /// All three outlive it.
    BoardSetup(CTnVideoBoard& board, Settings& settings, BoardSetupView& view)
        : m_board(board)
        , m_settings(settings)
        , m_view(view) {}

    /// Stores the VGA mode that is ticked, tells the host the chosen board, initialises it, shows its state.
    void cmdInit_Click();

    /// Puts the board down and shows its state, which by the board's own rule still reads as initialised;
    /// cmdUnlock then leads on.
    void cmdShut_Click();

    /// Stores the VGA mode that is ticked, and shows which camera types can be chosen in it.
    void VgaCheck_Click();

    /// On a board that was shut down: lets the operator choose a board and initialise it.
    void cmdUnlock_Click();

    /// Shows whether the board is initialised, which button can be used, and, outside VGA mode and on an
    /// initialised board only, the camera types to choose from.
    void showState();

private:
    void storeVgaMode();
    void showCameraTypes();
    void showWhetherInUse(bool inUse);

    CTnVideoBoard& m_board;
    Settings& m_settings;
    BoardSetupView& m_view;
};

/// The board type that an index of the board list stands for: 0 for any index but 1.
constexpr Long boardTypeOfIndex(Long index) {
    return index == boardWithDisplay ? boardWithDisplay : boardWithoutDisplay;
}

} // namespace ocuva
