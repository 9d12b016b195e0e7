#pragma once
// The calibration dialog: relates two or three points of the picture to stage positions.

#include "controls/AccessLetter.h"
#include "pictures/Calibration.h"
#include "pictures/CalibrationAssistant.h"
#include "pictures/CalibrationField.h"
#include "pictures/CalibrationStore.h"
#include "pictures/CalibrationVerdict.h"
#include "pictures/CalibrationView.h"
#include "pictures/PicturePoint.h"
#include "pictures/PointRows.h"
#include "stage/AxisWait.h"
#include "stage/StageMover.h"

#include <QCheckBox>
#include <QDialog>
#include <QRadioButton>
#include <QTimer>

#include <functional>
#include <optional>

namespace ocuva {

/// The surroundings of the dialog's assistant.
struct WalkSurroundings {
    /// As CalibrationAssistantContext says.
    ///@{
    std::function<StagePosition(const PicturePoint&)> offsetTo;
    std::function<void()> focus;
    std::function<QString()> whyNot;
    ///@}
    std::function<void(const CalibrationField&)> takeOver; ///< puts field and directions into the set-up
};

/// A place on the picture as it is in the boxes.
struct PickedPoint {
    std::size_t point = 0;               ///< from 0
    PicturePoint at;                     ///< on the picture
    std::optional<CalibrationView> view; ///< on which it was picked
};

/// The surroundings of the dialog; everything outlives it.
struct SetupStageContext {
    Calibration& calibration; ///< what OK replaces
    /// Of the host, and of the main window, which moves the stage.
    ///@{
    TnReg& reg;
    TnLog& log;
    TnMicroProxy& microProxy;
    StageMover& fOcuva;
    ///@}
    std::function<void(const QString&)> report; ///< shows an error that leaves a handler
    std::function<void(const QString&)> note;   ///< writes a line to the log
    /// The view on the monitor, as read last; no host call is made.
    std::function<CalibrationView()> shownView;
    /// The calibration was accepted or restored.
    std::function<void()> changed;
    WalkSurroundings walk = {}; ///< of the assistant
};

/// Modeless; it lives as long as the main window, shown or not. User-interface thread.
class frmSetupStage final : public QDialog {
    Q_OBJECT

public:
    /// Hidden until openModeless.
    frmSetupStage(const SetupStageContext& context, QWidget* parent);

    /// Shows the dialog with the calibration's points.
    void openModeless();

    /// Shows the calibration's points, which were changed from elsewhere, if the dialog is open.
    void showPoints();

    /// Whether the next click on the image is the point that is being selected.
    bool isSelecting() const { return m_selected.has_value(); }

    /// Takes a clicked place of the picture for the point being picked, if any. Throws ArithmeticError if
    /// a coordinate exceeds 16 bits.
    void takePoint(const PicturePoint& at);

    /// The picture-click operation: takes the point being picked, computes the stage position of the place
    /// and asks whether to move there. Works whether or not the dialog is shown; it does not ask while the
    /// stage is moving to such a place. Throws ArithmeticError if there is no such position.
    void clickPicture(const PicturePoint& at);

    /// Takes up the calibration that was accepted last, in an earlier run or in this one. Does nothing but
    /// write a log line when it cannot be computed.
    void takeUpLast();

    /// The assistant, which drives the stage while the dialog is open.
    CalibrationAssistant& assistant() { return m_assistant; }

    /// The places on the picture of the points in use, as far as they are numbers; none while it is closed.
    std::vector<PickedPoint> pickedPoints() const;

    /// Escape: ends the assistant's walk, or closes the dialog.
    void escape();

    /// Closes the dialog; a move is no longer waited for.
    void unload();

    /// The controls, by their names.
    ///@{
    PointRows* FramePoint = nullptr;
    CalibrationVerdict* verdict = nullptr;
    QRadioButton* optThreePoints = nullptr;
    QRadioButton* optTwoPoints = nullptr;
    ///@}
    LetteredButton* CmdPt = nullptr; ///< closes the point frame, and opens it again
    /// The controls, by their names.
    ///@{
    LetteredButton* cmdWalk = nullptr; ///< starts the assistant and continues with it
    QCheckBox* chkTakeOver = nullptr;  ///< OK puts the measured field and directions into the set-up
    QPushButton* cmdRestore = nullptr;
    QPushButton* OKPicture = nullptr;
    QPushButton* CancelPicture = nullptr;
    QLabel* LabelHint = nullptr;
    QTimer* tMoveWait = nullptr;
    ///@}

Q_SIGNALS:
    /// pickedPoints() gives others.
    void pickedChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeControls();
    void layOut();
    void connectControls();

    void ButI_Click(std::size_t point);
    void ButX_Click(std::size_t point);
    void CmdPt_Click();
    void choice_Click();
    void cmdRestore_Click();
    void cmdWalk_Click();
    void OKPicture_Click();
    void tMoveWait_Timer();

    void guarded(const std::function<void()>& handler);
    void fill(const CalibrationPoints& points, const std::optional<CalibrationView>& view);
    void fillFromCalibration();
    void edited(int point, PointField field);
    void select(std::optional<std::size_t> point);
    void compute(const CalibrationPoints& points, const std::optional<CalibrationView>& view);
    void refreshVerdict();
    bool askToMove(const StagePosition& target);
    void moveTo(const StagePosition& target);
    void showMoveEnd();
    /// What is still missing, in the order of work: all points are picked first, then read.
    QString nextStep() const;
    void makeWalkControls();
    void showWalk();
    void showWalkControls();
    void endWalk();
    void offerTakeOver();
    void takeOver(const CalibrationPoints& points, const std::optional<CalibrationView>& view);
    void hint(const QString& text) { LabelHint->setText(text); }

    SetupStageContext m_context;
    CalibrationStore m_store;
    PickedViews m_picked;
    CalibrationAssistant m_assistant;
    AxisWait m_wait;
    StagePosition m_target; // of the move that is waited for
    std::optional<std::size_t> m_selected;
};

/// The question whether the stage shall go to a position.
QString moveQuestion(const StagePosition& target);

} // namespace ocuva
