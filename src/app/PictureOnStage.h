#pragma once
// The main window's operations on the calibration of picture against stage: its dialog, the position under
// the mouse, and clicks for it.

#include "app/StatusBar.h"
#include "display/MonitorView.h"
#include "display/PointMarks.h"
#include "pictures/ViewedCalibration.h"
#include "pictures/frmSetupStage.h"

#include <functional>
#include <memory>
#include <utility>

namespace ocuva {

/// Its surroundings; everything outlives it.
struct PictureOnStageContext {
    /// The calibration in use, host and stage behind the dialog, and the position panels.
    ///@{
    Calibration& calibration;
    Host& host;
    StageMover& fOcuva;
    StatusBar& sbMain;
    ///@}
    QWidget& window;                            ///< owns the dialog
    std::function<void(const QString&)> report; ///< shows an error and writes it to the log
    std::function<void(const QString&)> log;    ///< writes an error to the log only
    std::function<CalibrationView()> shownView; ///< the view on the monitor, as read last
    std::function<void()> changed;              ///< the calibration was accepted or restored
    QWidget& display;                           ///< carries the marks of picked points
    std::function<bool()> stageMoves;           ///< a watched move runs
    WalkSurroundings walk;                      ///< of the assistant
};

/// Places x, y are in twips on the display, which the picture fills. The first operation that needs the
/// calibration takes up the one that was accepted last.
class PictureOnStage {
public:
    /// Creates the dialog without showing it; the calibration is not loaded yet.
    explicit PictureOnStage(const PictureOnStageContext& context);
    ~PictureOnStage();

    /// The calibration; the one accepted last unless another was computed since the start.
    Calibration& calibration();

    /// The calibration as the view on the monitor sees it; does not take up the one accepted last.
    ViewedCalibration viewed() const { return {m_context.calibration, m_context.shownView()}; }

    /// Opens the calibration dialog next to the window.
    void openDialog();

    /// The calibration was changed elsewhere; the dialog shows its points if it is open.
    void calibrationChanged() { m_frmSetupStage->showPoints(); }

    /// Shows the stage position of a place of the picture in the position panels. If it cannot be computed
    /// they show a dash, and only the first failure of a series is logged, because it can happen with
    /// every mouse move.
    void showPointedPosition(Single x, Single y, const TwipsRect& display);

    /// The pointer has left the picture. True when the panels still show the place that it pointed at; the
    /// stage's own position belongs there then.
    bool endPointing() { return std::exchange(m_pointing, false); }

    /// Whether the next click on the image is a point for the dialog, in any mode.
    bool isSelecting() const { return m_frmSetupStage->isSelecting(); }
    /// Only takes the point for the dialog.
    void takePoint(Single x, Single y, const TwipsRect& display);

    /// The dialog's picture-click operation: takes the point and asks whether to move the stage there.
    void clickPicture(Single x, Single y, const TwipsRect& display);

    /// A watched move has begun or ended, or the view on the monitor is another: marks are shown only where
    /// they were picked.
    void viewChanged() { refreshMarks(); }
    /// A watched move has ended: the assistant continues with the operator's last request.
    void moveEnded() { m_frmSetupStage->assistant().moveEnded(); }

    /// The marks of picked points on the display.
    const PointMarks& marks() const { return *m_marks; }

    /// Closes the dialog.
    void unload();

    /// Shown or not.
    frmSetupStage& dialog() { return *m_frmSetupStage; }

private:
    void refreshMarks();
    void makeKeys();

    PictureOnStageContext m_context;
    std::unique_ptr<frmSetupStage> m_frmSetupStage;
    PointMarks* m_marks; // the display owns it
    bool m_takenUp = false;
    bool m_failing = false;
    bool m_pointing = false; // the panels show a place of the picture
};

} // namespace ocuva
