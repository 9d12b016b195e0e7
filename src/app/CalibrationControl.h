#pragma once
// The calibration of picture against stage in the main window: its dialog, and what its assistant does with
// image and settings.

#include "app/PictureOnStage.h"
#include "app/ShownImage.h"
#include "app/StageControl.h"

#include <functional>

namespace ocuva {

/// What it needs; everything outlives it.
struct CalibrationControlContext {
    QWidget& window;                    ///< owns the dialog
    HostReadings& readings;             ///< the scale that the assistant drives by and replaces
    MainControls& controls;             ///< where positions are shown
    HandlerGuard& guard;                ///< reports errors
    StageControl& stage;                ///< moves the stage
    ShownImage& image;                  ///< what is calibrated
    std::function<void()> doFocus;      ///< the main window's focus search
    std::function<void()> scaleChanged; ///< field or directions were replaced
};

/// One for the life of the main window.
class CalibrationControl {
public:
    /// The dialog is made and not shown.
    explicit CalibrationControl(CalibrationControlContext context);

    /// The calibration and its dialog.
    PictureOnStage& pictureOnStage() { return m_pictureOnStage; }

private:
    PictureOnStageContext pictureContext();
    WalkSurroundings walkSurroundings();
    QString whyNotToWalk() const;
    void takeOver(const CalibrationField& field);

    CalibrationControlContext m_context;
    Calibration m_calibration;
    PictureOnStage m_pictureOnStage;
};

} // namespace ocuva
