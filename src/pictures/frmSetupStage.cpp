#include "pictures/frmSetupStage.h"

#include "base/Numbers.h"
#include "controls/AccessLetter.h"
#include "controls/WindowPlace.h"
#include "pictures/CalibrationStep.h"
#include "pictures/CalibrationWords.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QMessageBox>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace ocuva {

namespace {

constexpr const char* selectMessageKey = "TnOcuvaSelect";
constexpr const char* selectMessageTitle = "Point Selection";
constexpr int marginPixels = 15;
constexpr int spacingPixels = 9;

QString positionText(const StagePosition& at) {
    return QStringLiteral(" X:%1 Y:%2 Z:%3").arg(at.x).arg(at.y).arg(at.z);
}

QFrame* makeLine(QWidget* parent) {
    auto* line = new QFrame(parent);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

QString moveQuestion(const StagePosition& target) {
    return QStringLiteral(" Move Stage to") + positionText(target) + QStringLiteral(" ? ");
}

frmSetupStage::frmSetupStage(const SetupStageContext& context, QWidget* parent)
    : QDialog(parent)
    , m_context(context)
    , m_store(context.reg)
    , m_assistant({context.fOcuva, context.walk.offsetTo, context.walk.focus, context.walk.whyNot}, this)
    , m_wait(context.microProxy) {
    setObjectName(QStringLiteral("frmSetupStage"));
    setWindowTitle(tr("Calibrate Picture against Stage"));
    makeControls();
    layOut();
    connectControls();
    choice_Click();
    new WindowPlace(*this, besideItsOwner(parent));
}

void frmSetupStage::makeControls() {
    FramePoint = new PointRows(this);
    verdict = new CalibrationVerdict(this);
    optThreePoints = new LetteredRadioButton(tr("3 &Points"), this);
    optTwoPoints = new LetteredRadioButton(tr("2 P&oints"), this);
    optThreePoints->setChecked(true);
    LabelHint = new QLabel(this);
    LabelHint->setWordWrap(true);
    LabelHint->setTextFormat(Qt::PlainText);
    constexpr int lines = 2; // of the longest hint; the rows above must not give way to it
    LabelHint->setMinimumHeight(lines * LabelHint->fontMetrics().lineSpacing());
    LabelHint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    const auto button = [this](const QString& caption) {
        auto* made = new LetteredButton(caption, this);
        made->setAutoDefault(false);
        return made;
    };
    CmdPt = button(tr("&Hide Points"));
    cmdRestore = button(tr("&Restore Last"));
    cmdRestore->setToolTip(tr("Put the points of the calibration that was accepted last into the boxes"));
    OKPicture = button(tr("O&K"));
    OKPicture->setDefault(true);
    CancelPicture = button(tr("&Cancel"));
    makeWalkControls();
    tMoveWait = new QTimer(this);
    tMoveWait->setInterval(AxisWait::tickMs);
    const std::array<std::pair<QObject*, const char*>, 9> names{{{optThreePoints, "optThreePoints"},
                                                                 {optTwoPoints, "optTwoPoints"},
                                                                 {LabelHint, "LabelHint"},
                                                                 {CmdPt, "CmdPt"},
                                                                 {cmdRestore, "cmdRestore"},
                                                                 {OKPicture, "OKPicture"},
                                                                 {CancelPicture, "CancelPicture"},
                                                                 {verdict, "verdict"},
                                                                 {tMoveWait, "tMoveWait"}}};
    for (const auto& [object, name] : names) {
        object->setObjectName(QString::fromLatin1(name));
    }
}

void frmSetupStage::layOut() {
    auto* choices = new QHBoxLayout;
    choices->setSpacing(2 * spacingPixels);
    choices->addWidget(optThreePoints);
    choices->addWidget(optTwoPoints);
    choices->addStretch(1);
    choices->addWidget(cmdWalk);
    choices->addWidget(CmdPt);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(spacingPixels);
    buttons->addWidget(cmdRestore);
    buttons->addStretch(1);
    buttons->addWidget(OKPicture);
    buttons->addWidget(CancelPicture);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(marginPixels, marginPixels, marginPixels, marginPixels);
    column->setSpacing(spacingPixels);
    column->addLayout(choices);
    column->addWidget(FramePoint);
    column->addWidget(LabelHint);
    column->addWidget(makeLine(this));
    column->addWidget(verdict);
    column->addWidget(chkTakeOver);
    column->addStretch(1);
    column->addLayout(buttons);
}

void frmSetupStage::connectControls() {
    const auto pointed = [this](void (frmSetupStage::*handler)(std::size_t)) {
        return [this, handler](int point) {
            guarded([this, handler, point] { (this->*handler)(static_cast<std::size_t>(point)); });
        };
    };
    connect(FramePoint, &PointRows::edited, this, &frmSetupStage::edited);
    connect(FramePoint, &PointRows::pickPressed, this, pointed(&frmSetupStage::ButI_Click));
    connect(FramePoint, &PointRows::readPressed, this, pointed(&frmSetupStage::ButX_Click));
    connect(optTwoPoints, &QRadioButton::toggled, this, &frmSetupStage::choice_Click);
    connect(CmdPt, &QPushButton::clicked, this, &frmSetupStage::CmdPt_Click);
    connect(cmdRestore, &QPushButton::clicked, this, &frmSetupStage::cmdRestore_Click);
    connect(OKPicture, &QPushButton::clicked, this, [this] { guarded([this] { OKPicture_Click(); }); });
    connect(CancelPicture, &QPushButton::clicked, this, [this] {
        endWalk();
        reject();
    });
    connect(cmdWalk, &QPushButton::clicked, this, [this] { guarded([this] { cmdWalk_Click(); }); });
    connect(&m_assistant, &CalibrationAssistant::changed, this, &frmSetupStage::showWalk);
    connect(tMoveWait, &QTimer::timeout, this, &frmSetupStage::tMoveWait_Timer);
}

void frmSetupStage::openModeless() {
    if (!isVisible()) {
        // The points of another view are not those of a stored picture.
        if (ViewedCalibration(m_context.calibration, m_context.shownView()).givesPositions()) {
            fillFromCalibration();
        } else {
            fill({}, {});
        }
        hint(tr("Pick each point on the image, then drive the stage to it and read the position."));
        FramePoint->row(0).ButI->setFocus();
    }
    show();
    raise();
    activateWindow();
}

void frmSetupStage::showPoints() {
    if (isVisible()) {
        fillFromCalibration();
        hint(tr("These are the points of the picture that was opened. They are in use already."));
    }
}

void frmSetupStage::fillFromCalibration() { fill(m_context.calibration.points, m_context.calibration.view); }

void frmSetupStage::edited(int point, PointField field) {
    // A place on the picture is one of the view that is shown while it is entered, by a click or by hand.
    if (field == PointField::XI || field == PointField::YI) {
        m_picked.pick(static_cast<std::size_t>(point), m_context.shownView());
        Q_EMIT pickedChanged();
    }
    refreshVerdict();
    if (!m_selected && !m_wait.isWaiting() && !m_assistant.walk().isUnderWay()) {
        hint(nextStep());
    }
}

void frmSetupStage::fill(const CalibrationPoints& points, const std::optional<CalibrationView>& view) {
    optTwoPoints->setChecked(points.twoPoints);
    optThreePoints->setChecked(!points.twoPoints);
    FramePoint->clear();
    // A program that was never calibrated has no points to show, not even zeros.
    for (std::size_t i = 0; points != CalibrationPoints{} && i < points.count(); ++i) {
        FramePoint->setPoint(i, pointTexts(points.points.at(i)));
    }
    m_picked.takeOver(view);
    Q_EMIT pickedChanged();
}

void frmSetupStage::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    if (!event->spontaneous()) {
        endWalk();
        select({});
        Q_EMIT pickedChanged();
    }
}

void frmSetupStage::unload() {
    tMoveWait->stop();
    m_wait.cancel();
    close();
}

void frmSetupStage::select(std::optional<std::size_t> point) {
    m_selected = point;
    FramePoint->showSelected(point);
    hint(point ? tr("Click point %1 on the image.").arg(*point + 1) : nextStep());
}

QString frmSetupStage::nextStep() const {
    using Kind = CalibrationStep::Kind;
    const CalibrationStep step = nextCalibrationStep(optTwoPoints->isChecked(), FramePoint->texts());
    switch (step.kind) {
    case Kind::Correct:
        return tr("Correct %1.").arg(FramePoint->box(step.point, step.field)->accessibleName());
    case Kind::Pick:
        return tr("Pick point %1 on the image.").arg(step.point + 1);
    case Kind::Read:
        return tr("Drive the stage to point %1 and read its position.").arg(step.point + 1);
    case Kind::Unusable:
        return tr("These points cannot be used: see below.");
    case Kind::Accept:
        break;
    }
    return tr("All points are there. If the lines below are good, press OK.");
}

void frmSetupStage::ButI_Click(std::size_t point) {
    if (m_selected == point) { // pressed again: cancel
        select({});
        return;
    }
    m_context.log.TarnMessageBoxVB(selectMessageKey, selectMessageTitle, TARN_BOX_OK);
    if (isVisible()) { // and not closed meanwhile
        select(point);
    }
}

void frmSetupStage::ButX_Click(std::size_t point) {
    const std::shared_ptr<void> hold = m_context.fOcuva.holdInput();
    const CTnStage& stage = m_context.fOcuva.cxsStage();
    const std::array<std::pair<PointField, Long>, 3> read{
        {{PointField::XS, stage.X()}, {PointField::YS, stage.Y()}, {PointField::ZS, stage.Z()}}};
    for (const auto& [field, value] : read) {
        FramePoint->box(point, field)->setText(QString::number(value));
    }
    hint(stage.IsMoving() ? tr("Point %1 was read while the stage was moving. Read it again.").arg(point + 1)
                          : nextStep());
}

void frmSetupStage::CmdPt_Click() {
    const bool open = FramePoint->isHidden();
    if (!open) {
        select({});
    }
    FramePoint->setVisible(open);
    CmdPt->setCaption(open ? tr("&Hide Points") : tr("S&how Points"));
    adjustSize();
}

void frmSetupStage::choice_Click() {
    const bool twoPoints = optTwoPoints->isChecked();
    FramePoint->setTwoPoints(twoPoints);
    if (twoPoints && m_selected == 2U) {
        select({});
    }
    refreshVerdict();
    Q_EMIT pickedChanged();
}

void frmSetupStage::cmdRestore_Click() {
    if (const std::optional<KeptCalibration> last = m_store.load()) {
        fill(last->points, CalibrationView{{}, last->place});
        hint(tr("These are the points accepted last. Press OK to use them."));
    } else {
        hint(tr("No calibration has been kept yet."));
    }
}

void frmSetupStage::refreshVerdict() {
    if (FramePoint->hasEmptyBoxes()) {
        FramePoint->showResiduals({});
        verdict->showReason(tr("Fill in the points to see how good the calibration is."));
        return;
    }
    try {
        const CalibrationPoints points = typedPoints(optTwoPoints->isChecked(), FramePoint->texts());
        const CalibrationQuality quality = calibrationQuality(points);
        FramePoint->showResiduals(quality);
        verdict->showQuality(quality, m_picked.agree(points.count())
                                          ? QString()
                                          : tr("The points were picked on different views: pick them again "
                                               "while the stage stays at one place."));
    } catch (const PointFieldError& error) {
        FramePoint->showResiduals({});
        verdict->showReason(QString::fromStdString(error.what()));
    }
}

void frmSetupStage::OKPicture_Click() {
    CalibrationPoints points;
    try {
        points = typedPoints(optTwoPoints->isChecked(), FramePoint->texts());
    } catch (const PointFieldError& error) {
        if (FramePoint->isHidden()) {
            CmdPt_Click();
        }
        FramePoint->box(error.point(), error.field())->setFocus();
        throw;
    }
    const std::optional<CalibrationView> view = m_picked.common(points.count());
    compute(points, view);
    if (!m_store.save({points, view ? view->place : std::nullopt})) {
        m_context.note(tr("the calibration is in use, but could not be kept for the next start"));
    }
    m_context.changed();
    takeOver(points, view);
    close();
}

void frmSetupStage::takeUpLast() {
    try {
        if (const std::optional<KeptCalibration> last = m_store.load()) {
            compute(last->points, CalibrationView{{}, last->place});
            m_context.changed();
        }
    } catch (const std::exception& error) {
        m_context.note(
            tr("the calibration kept last cannot be used: %1").arg(QString::fromLocal8Bit(error.what())));
    }
}

void frmSetupStage::compute(const CalibrationPoints& points, const std::optional<CalibrationView>& view) {
    Calibration& calibration = m_context.calibration;
    const CalibrationPoints before = std::exchange(calibration.points, points);
    try {
        calibration.ComputePicturePlan();
    } catch (...) {
        calibration.points = before;
        throw;
    }
    calibration.view = view;
    calibration.ComputeStagePlan();
    const bool levelAtZero = std::all_of(points.points.begin(), points.points.end(),
                                         [](const CalibrationPoint& point) { return point.ZS == 0; });
    if (calibration.stagePlan() == StagePlan{} && !levelAtZero) {
        m_context.note(tr("the host found no plane through the calibration points: every Z is 0"));
    }
}

void frmSetupStage::takePoint(const PicturePoint& at) {
    if (!m_selected) {
        return;
    }
    const Integer x = toInteger(at.XPic);
    const Integer y = toInteger(at.YPic);
    FramePoint->box(*m_selected, PointField::XI)->setText(QString::number(x));
    FramePoint->box(*m_selected, PointField::YI)->setText(QString::number(y));
    m_picked.pick(*m_selected, m_context.shownView()); // even if the texts have not changed
    select({});
    if (m_assistant.walk().state() == CalibrationWalk::State::Picking) {
        m_assistant.pick(at);
    }
}

void frmSetupStage::clickPicture(const PicturePoint& at) {
    takePoint(at);
    const StagePosition target =
        ViewedCalibration(m_context.calibration, m_context.shownView()).position(at.XPic, at.YPic);
    if (!m_wait.isWaiting() && askToMove(target)) {
        moveTo(target);
    }
}

bool frmSetupStage::askToMove(const StagePosition& target) {
    QMessageBox box(QMessageBox::Question, tr("Move Stage to Cursor position"), moveQuestion(target),
                    QMessageBox::Yes | QMessageBox::No, isVisible() ? this : parentWidget());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    const Calibration& calibration = m_context.calibration;
    box.setInformativeText(
        moveQuestionNote(calibration, ViewedCalibration(calibration, m_context.shownView())));
    return box.exec() == QMessageBox::Yes;
}

void frmSetupStage::moveTo(const StagePosition& target) {
    const std::shared_ptr<void> hold = m_context.fOcuva.holdInput();
    CTnStage& stage = m_context.fOcuva.cxsStage();
    stage.X(target.x);
    stage.Y(target.y);
    stage.Z(target.z);
    m_context.fOcuva.SyncStageMove(axisAll);
    m_target = target;
    FramePoint->setBusy(true);
    hint(tr("The stage is moving to%1.").arg(positionText(target)));
    m_wait.begin();
    showMoveEnd();
}

void frmSetupStage::tMoveWait_Timer() {
    m_wait.tick();
    showMoveEnd();
}

void frmSetupStage::showMoveEnd() {
    if (m_wait.isWaiting()) {
        tMoveWait->start();
        return;
    }
    tMoveWait->stop();
    FramePoint->setBusy(false);
    const CTnStage& stage = m_context.fOcuva.cxsStage();
    const StagePosition reached{stage.X(), stage.Y(), stage.Z()};
    if (m_wait.state() == AxisWait::State::Arrived && reached == m_target) {
        hint(tr("The stage is at%1.").arg(positionText(reached)));
        return;
    }
    const QString text =
        m_wait.state() == AxisWait::State::Stalled
            ? tr("Axis %1 reports motion but is not advancing. The program no longer waits for the stage.")
                  .arg(QChar::fromLatin1("?XYZ"[m_wait.axis()]))
            : tr("The stage is at%1, not where it was sent.").arg(positionText(reached));
    hint(text);
    m_context.note(text);
}

void frmSetupStage::guarded(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::exception& error) {
        m_context.report(QString::fromLocal8Bit(error.what()));
    }
}

} // namespace ocuva
