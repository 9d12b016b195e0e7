// The calibration dialog while the assistant walks.

#include "pictures/frmSetupStage.h"

#include <QKeyEvent>
#include <QShowEvent>

#include <algorithm>

namespace ocuva {

using State = CalibrationWalk::State;

void frmSetupStage::makeWalkControls() {
    cmdWalk = new LetteredButton(m_assistant.buttonText(), this);
    cmdWalk->setObjectName(QStringLiteral("cmdWalk"));
    cmdWalk->setAutoDefault(false);
    cmdWalk->setToolTip(tr("Pick the points, then let the stage drive to each of them, focus and come back"));
    chkTakeOver = new QCheckBox(this);
    chkTakeOver->setObjectName(QStringLiteral("chkTakeOver"));
    chkTakeOver->setToolTip(tr("OK puts the width and height of the field and the directions of the axes "
                               "into the set-up, tab Stage"));
    chkTakeOver->hide();
    for (QWidget* button : {static_cast<QWidget*>(cmdWalk), static_cast<QWidget*>(OKPicture)}) {
        button->installEventFilter(this);
    }
}

void frmSetupStage::cmdWalk_Click() {
    if (m_assistant.walk().isUnderWay() && m_assistant.walk().state() != State::Done) {
        m_assistant.enter();
        return;
    }
    m_assistant.leave(); // of a walk that is done
    m_assistant.start(optTwoPoints->isChecked() ? 2 : 3);
    if (m_assistant.walk().state() == State::Picking) {
        FramePoint->clear();
    }
}

void frmSetupStage::showWalk() {
    const CalibrationWalk& walk = m_assistant.walk();
    for (std::size_t i = 0; walk.isUnderWay() && i < walk.readings().size(); ++i) {
        const StagePosition& read = walk.readings().at(i);
        FramePoint->box(i, PointField::XS)->setText(QString::number(read.x));
        FramePoint->box(i, PointField::YS)->setText(QString::number(read.y));
        FramePoint->box(i, PointField::ZS)->setText(QString::number(read.z));
    }
    showWalkControls();
    select(walk.state() == State::Picking ? std::optional(walk.point()) : std::nullopt);
    if (const QString text = m_assistant.hint(); !text.isEmpty()) {
        hint(text);
    }
    if (m_assistant.isFocusing()) {
        LabelHint->repaint(); // nothing else is drawn during the search
        cmdWalk->repaint();
    }
    offerTakeOver();
}

void frmSetupStage::showWalkControls() {
    const CalibrationWalk& walk = m_assistant.walk();
    const bool busy = walk.isUnderWay() && walk.state() != State::Done;
    FramePoint->setLocked(busy);
    for (QWidget* control : {static_cast<QWidget*>(optThreePoints), static_cast<QWidget*>(optTwoPoints),
                             static_cast<QWidget*>(CmdPt), static_cast<QWidget*>(cmdRestore),
                             static_cast<QWidget*>(OKPicture)}) {
        control->setEnabled(!busy);
    }
    cmdWalk->setCaption(m_assistant.buttonText());
    (busy ? cmdWalk : OKPicture)->setDefault(true);
    if (isVisible() && (walk.waitsForEnter() || walk.state() == State::Done)) {
        raise();
        activateWindow(); // the last click was on the image, and Enter belongs here
        (busy ? cmdWalk : OKPicture)->setFocus();
    }
}

void frmSetupStage::offerTakeOver() {
    std::optional<CalibrationField> field;
    if (m_assistant.walk().state() == State::Done) {
        try {
            const CalibrationPoints points = typedPoints(optTwoPoints->isChecked(), FramePoint->texts());
            const std::optional<CalibrationView> view = m_picked.common(points.count());
            field = view && view->place ? fieldOf(points, view->place->magnification) : std::nullopt;
        } catch (const PointFieldError&) {
            field.reset(); // the verdict names the box
        }
    }
    chkTakeOver->setVisible(field.has_value());
    if (!field) {
        chkTakeOver->setChecked(false);
        return;
    }
    const auto direction = [](bool inverse) { return inverse ? tr("inverted") : tr("not inverted"); };
    chkTakeOver->setText(tr("&Take over into the set-up: field %1 x %2 at 100x, X %3, Y %4")
                             .arg(qRound(field->x100))
                             .arg(qRound(field->y100))
                             .arg(direction(field->MoveXInverse), direction(field->MoveYInverse)));
}

void frmSetupStage::takeOver(const CalibrationPoints& points, const std::optional<CalibrationView>& view) {
    if (!chkTakeOver->isChecked() || !view || !view->place) {
        return;
    }
    if (const std::optional<CalibrationField> field = fieldOf(points, view->place->magnification)) {
        m_context.walk.takeOver(*field);
    }
}

void frmSetupStage::endWalk() {
    while (m_assistant.walk().isUnderWay()) {
        m_assistant.leave(); // called twice if the stage is moving
    }
}

void frmSetupStage::escape() {
    const CalibrationWalk& walk = m_assistant.walk();
    if (walk.isUnderWay() && walk.state() != State::Done) {
        m_assistant.leave();
    } else {
        reject();
    }
}

void frmSetupStage::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        escape();
    } else {
        QDialog::keyPressEvent(event);
    }
}

std::vector<PickedPoint> frmSetupStage::pickedPoints() const {
    std::vector<PickedPoint> points;
    const std::size_t count = optTwoPoints->isChecked() ? 2 : 3;
    for (std::size_t i = 0; isVisible() && i < count; ++i) {
        bool isX = false;
        bool isY = false;
        const float x = FramePoint->box(i, PointField::XI)->text().toFloat(&isX);
        const float y = FramePoint->box(i, PointField::YI)->text().toFloat(&isY);
        if (isX && isY) {
            points.push_back({i, {x, y}, m_picked.of(i)});
        }
    }
    return points;
}

void frmSetupStage::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Q_EMIT pickedChanged();
}

// Enter that is held down must not walk on by itself.
bool frmSetupStage::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    return (isKey && static_cast<QKeyEvent*>(event)->isAutoRepeat()) || QDialog::eventFilter(watched, event);
}

} // namespace ocuva
