#pragma once
// The camera set-up: camera type, the display that the board draws into, and the camera's signal
// (references and gain).

#include "base/Types.h"
#include "hostlink/Host.h"
#include "video/CTnVideoBoard.h"
#include "video/CameraReferences.h"

#include <optional>

namespace ocuva {

/// Number of gain ranges, counted from 0; each has a label lblGainRange.
inline constexpr Long gainRangeCount = 5;
/// The host's value for automatic gain.
inline constexpr Long automaticGain = -1;

/// The parts of the main window that the camera set-up uses.
class CameraMainWindow {
public:
    virtual ~CameraMainWindow() = default;
    /// The handle of milDisp.
    virtual Long displayHandle() const = 0;
    /// Whether the menu entry "&Normal (1:1)", mnuZoom, is checked.
    virtual bool normalZoomIsChecked() const = 0;
    /// The toolbar button "Acq".
    virtual void enableAcq(bool on) = 0;
};

/// The controls of the camera page. The setters may report a change as if the operator had made it.
class CameraSetupView : public CameraReferencesView {
public:
    virtual void checkOptCam(Long index) = 0; ///< 0 to 3, camera type - 1

    virtual bool chkAutoGain() const = 0; ///< checked
    virtual Long sldGain() const = 0;     ///< the gain range, from 0; may be outside the scale
    /// With automatic gain its label replaces the slider.
    ///@{
    virtual void showSldGain(bool visible) = 0;
    virtual void showLblAutoGain(bool visible) = 0;
    ///@}
    virtual void showLblGainRange(Long index, bool visible) = 0; ///< 0 to 4
};

/// The handlers of the camera page.
class CameraSetup {
public:
    /// Without a view, while no camera page is open, only refresh does anything, for the main window.
    CameraSetup(TnVideo& video, CTnVideoBoard& board, CameraMainWindow& mainWindow,
                CameraSetupView* view = nullptr);

    /// Updates page and main window from board and host: checks the camera type's button if requested
    /// (none if the host has no type), hands milDisp to a board that draws itself and shows the
    /// references, and enables "Acq" for an initialised board.
    void refresh(bool checkCameraType);

    /// Chooses the camera of an optCam button and refreshes the page, so that it shows the camera that the
    /// host accepted.
    void optCam_Click(Long index);

    /// A slider was moved, a text box left: see CameraReferences.
    ///@{
    void sldReference_Change(CameraReference reference);
    void txtReference_LostFocus(CameraReference reference);
    ///@}

    /// sldGain was moved or chkAutoGain clicked: shows the controls for the choice and sets the gain.
    void gainChanged();
    /// Shows the controls for the choice without setting the gain.
    void showGain();

private:
    void checkCameraType();
    Long chosenGainRange() const;

    TnVideo& m_video;
    CTnVideoBoard& m_board;
    CameraMainWindow& m_mainWindow;
    CameraSetupView* m_view;
    std::optional<CameraReferences> m_references; // exists if there is a view
    bool m_checking = false;
};

} // namespace ocuva
