#pragma once
// The image on the monitor: live, still or stored, its scale and its age.

#include "app/HandlerGuard.h"
#include "app/MagnificationWatch.h"
#include "app/MainControls.h"
#include "app/MainWindowContext.h"
#include "app/MonitorControl.h"
#include "app/PictureAge.h"
#include "app/PictureOnStage.h"
#include "app/Pictures.h"
#include "app/StageControl.h"
#include "autofocus/DoFocus.h"
#include "video/CTnVideoBoard.h"
#include "video/CTnVideoImage.h"

#include <functional>
#include <memory>
#include <optional>

namespace ocuva {

/// Asks the operator about pictures; dialogs of the main window unless set otherwise.
struct PictureQuestions {
    /// For the file of a picture; empty when the operator cancels.
    ///@{
    std::function<QString(const QString& folder)> choosePictureToOpen;
    std::function<QString(const QString& folder)> choosePictureToSave;
    ///@}
    /// What to do if a save would lose data or write a wrong description.
    std::function<DescriptionChoice(const SaveQuestion&)> askBeforeSave;
};

/// What it needs; everything outlives it.
struct ShownImageContext {
    QWidget& window;                       ///< its title names a stored picture
    const MainWindowContext& world;        ///< host, automation, title, journal
    HostReadings& readings;                ///< the magnification
    MainControls& controls;                ///< where the image and its state are shown
    HandlerGuard& guard;                   ///< holds the input during long calls
    MonitorControl& monitor;               ///< the image's size
    std::function<bool()> windowIsUp;      ///< loaded and not exiting
    std::function<void()> drawMicroMarker; ///< the scale has changed
};

/// One for the life of the main window. Before load() there is no board, and nothing is live.
class ShownImage {
public:
    /// Nothing is asked of the host yet.
    explicit ShownImage(ShownImageContext context);

    /// The stage that the image shows, the calibration of picture against stage, and a function to call when
    /// the host has another magnification than the one shown. Before any other call.
    void connectTo(StageControl& stage, PictureOnStage& pictureOnStage,
                   std::function<void()> magnificationChanged);
    /// Makes what reads the magnification at its moments. Once, when all controls are there.
    void makeMagnificationWatch();
    /// Makes board, image and pictures; the questions outlive them. Once.
    void load(const PictureQuestions& ask);
    /// The program ends: nothing is read any more.
    void stop() { m_magnificationWatch->stop(); }

    /// There after load().
    ///@{
    CTnVideoBoard& cxvbBoard() { return *m_board; }
    CTnVideoImage& vimage() { return *m_image; }
    Pictures& pictures() { return *m_pictures; }
    ///@}

    /// Starts or stops the live image.
    void toggleLive();
    /// One focus search of the host from begin to end; an error goes to the log alone.
    void DoFocus();
    /// Measures the grey levels of the camera's image and shows them.
    void measureGreyLevels();

    /// Shows whether the image is live, in menu, toolbar and status bar.
    void showAcquisition();
    /// Shows a magnification that has just been read.
    void showMagnification(Long magnification);
    /// Shows what is known of the calibration.
    void showCalibration();

    /// The scale of what is shown; nothing for a stored picture that has none. Reads the host for the camera's
    /// image.
    std::optional<Magnification> magnification() const;
    /// The view on the monitor according to the panels; no host call is made.
    CalibrationView view() const;
    /// Whether a stored picture is shown.
    bool isStored() const { return m_pictures != nullptr && m_pictures->stored().has_value(); }
    /// Whether the picture does not show where the stage is.
    bool isOld() const { return m_age.isOld() || m_context.controls.information->hasStopped(); }
    /// The VGA mode as taken at the start.
    bool vgaMouse() const { return m_vgaMouse; }
    /// Taken once.
    void readVgaMouse() { m_vgaMouse = m_context.readings.settings.readVgaModeForMouse(); }

    /// The moments at which the rest of the window has changed something.
    ///@{
    void moveStarted(Integer axis, const std::optional<StagePosition>& from);
    void positionShown(const StagePosition& at);
    void moveEnded();
    void windowActivated() { m_magnificationWatch->readSoon(); }
    ///@}

private:
    void imageChanged();
    void showInformation();
    void showFocusCourse(const FocusCourse& course);
    std::optional<ShownScale> scaleOf(const QSize& picture) const;
    bool cameraImageIsSeen() const;
    bool isGrabbing() const { return m_board != nullptr && m_board->IsGrabbing(); }

    ShownImageContext m_context;
    StageControl* m_stage = nullptr;
    PictureOnStage* m_pictureOnStage = nullptr;
    std::function<void()> m_magnificationChanged;
    std::unique_ptr<CTnVideoBoard> m_board;
    std::unique_ptr<CTnVideoImage> m_image;
    std::unique_ptr<Pictures> m_pictures;
    PictureAge m_age;
    MagnificationWatch* m_magnificationWatch = nullptr; // the window owns it
    bool m_vgaMouse = false;
};

} // namespace ocuva
