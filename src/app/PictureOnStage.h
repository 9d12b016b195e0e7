#pragma once
// What the main window does with the calibration of picture against stage: the dialog that makes it, the
// position under the mouse, and clicks that are meant for it.

#include "app/StatusBar.h"
#include "display/MonitorView.h"
#include "display/PointMarks.h"
#include "pictures/ViewedCalibration.h"
#include "pictures/frmSetupStage.h"

#include <functional>
#include <memory>
#include <utility>

namespace ocuva {

/// What it needs; everything outlives it.
struct PictureOnStageContext {
    /// The calibration in force, host and stage behind the dialog, and the panels that tell positions.
    ///@{
    Calibration& calibration;
    Host& host;
    StageMover& fOcuva;
    StatusBar& sbMain;
    ///@}
    QWidget& window;                            ///< owns the dialog
    std::function<void(const QString&)> report; ///< shows an error and writes it to the log
    std::function<void(const QString&)> log;    ///< writes an error to the log, and nothing else
    std::function<CalibrationView()> shownView; ///< what is on the monitor, as it was read last
    std::function<void()> changed;              ///< the calibration was accepted or taken up
    QWidget& display;                           ///< carries the marks of picked points
    std::function<bool()> stageMoves;           ///< a watched move runs
    WalkSurroundings walk;                      ///< of the assistant
};

/// Places x, y are in twips on the display, which the picture fills. The first operation that needs the
/// calibration takes up the one that was accepted last.
class PictureOnStage {
public:
    /// The dialog is made and not shown; the calibration is not taken up yet.
    explicit PictureOnStage(const PictureOnStageContext& context);
    ~PictureOnStage();

    /// The calibration; the one accepted last unless another was computed since the start.
    Calibration& calibration();

    /// The calibration as the view on the monitor sees it; does not take up the one accepted last.
    ViewedCalibration viewed() const { return {m_context.calibration, m_context.shownView()}; }

    /// Opens the calibration dialog beside the window.
    void openDialog();

    /// The calibration was changed by something else than the dialog, which shows its points if it is open.
    void calibrationChanged() { m_frmSetupStage->showPoints(); }

    /// Shows the stage position of a place of the picture in the position panels. Where it cannot be computed
    /// they show a dash, and the first failure of a run of them is logged: it happens with every move of the
    /// mouse.
    void showPointedPosition(Single x, Single y, const TwipsRect& display);

    /// The pointer has left the picture. True when the panels still show the place that it pointed at; the
    /// stage's own position belongs there then.
    bool endPointing() { return std::exchange(m_pointing, false); }

    /// Whether the next click on the image is a point for the dialog, in whatever mode.
    bool isSelecting() const { return m_frmSetupStage->isSelecting(); }
    /// Takes the point for the dialog, and nothing else.
    void takePoint(Single x, Single y, const TwipsRect& display);

    /// The dialog's picture-click operation: takes the point, and asks whether the stage shall go there.
    void clickPicture(Single x, Single y, const TwipsRect& display);

    /// A watched move has begun or ended, or the view on the monitor is another: marks are shown only where
    /// they were picked.
    void viewChanged() { refreshMarks(); }
    /// A watched move has ended: the assistant goes on with what the operator asked for.
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
