#pragma once
// The camera set-up: the type of the camera, the display that the board draws into, and the camera's signal
// (references and gain).

#include "base/Types.h"
#include "hostlink/Host.h"
#include "video/CTnVideoBoard.h"
#include "video/CameraReferences.h"

#include <optional>

namespace ocuva {

/// The gain ranges, from 0, each with its label lblGainRange.
inline constexpr Long gainRangeCount = 5;
/// What the host takes in place of a range for automatic gain.
inline constexpr Long automaticGain = -1;

/// What the camera set-up needs of the main window and changes there.
class CameraMainWindow {
public:
    virtual ~CameraMainWindow() = default;
    /// The handle of milDisp as it crosses the seam.
    virtual Long displayHandle() const = 0;
    /// The mark of the menu entry "&Normal (1:1)", mnuZoom.
    virtual bool normalZoomIsChecked() const = 0;
    /// The toolbar button "Acq".
    virtual void enableAcq(bool on) = 0;
};

/// The controls of the camera page. The setters may report a change as if the operator had made it.
class CameraSetupView : public CameraReferencesView {
public:
    virtual void checkOptCam(Long index) = 0; ///< 0 to 3, camera type - 1

    virtual bool chkAutoGain() const = 0; ///< checked
    virtual Long sldGain() const = 0;     ///< the gain range, from 0; a slider may stand beyond the ends
    /// With automatic gain its label stands in the place of the slider.
    ///@{
    virtual void showSldGain(bool visible) = 0;
    virtual void showLblAutoGain(bool visible) = 0;
    ///@}
    virtual void showLblGainRange(Long index, bool visible) = 0; ///< 0 to 4
};

/// The handlers of the camera page.
class CameraSetup {
public:
    /// Without a view, as long as no camera page is open, only the main window is kept right, by refresh; the
    /// other operations are the page's own and do nothing.
    CameraSetup(TnVideo& video, CTnVideoBoard& board, CameraMainWindow& mainWindow,
                CameraSetupView* view = nullptr);

    /// Brings page and main window to what board and host have: checks the camera's type when asked to (none
    /// when the host has none), hands milDisp to the board and shows the references when the board draws
    /// itself, and enables "Acq" for an initialised board.
    void refresh(bool checkCameraType);

    /// Chooses the camera of optCam's index and refreshes the page, so that the page shows the camera that
    /// the host took.
    void optCam_Click(Long index);

    /// A slider was moved, a text box left: as CameraReferences does it.
    ///@{
    void sldReference_Change(CameraReference reference);
    void txtReference_LostFocus(CameraReference reference);
    ///@}

    /// sldGain was moved or chkAutoGain clicked: shows what belongs to the choice and sets the gain.
    void gainChanged();
    /// Shows what belongs to the choice and leaves the gain alone.
    void showGain();

private:
    void checkCameraType();
    Long chosenGainRange() const;

    TnVideo& m_video;
    CTnVideoBoard& m_board;
    CameraMainWindow& m_mainWindow;
    CameraSetupView* m_view;
    std::optional<CameraReferences> m_references; // there with the view
    bool m_checking = false;
};

} // namespace ocuva
