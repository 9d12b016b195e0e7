#include "pictures/CalibrationAssistant.h"

#include <QScopedValueRollback>
#include <QTimer>

#include <utility>

namespace ocuva {

namespace {

using State = CalibrationWalk::State;

QString words(const StagePosition& at) {
    return QStringLiteral("X:%1 Y:%2 Z:%3").arg(at.x).arg(at.y).arg(at.z);
}

} // namespace

CalibrationAssistant::CalibrationAssistant(CalibrationAssistantContext context, QObject* parent)
    : QObject(parent)
    , m_context(std::move(context))
    , m_walk(*this) {}

StagePosition CalibrationAssistant::position() {
    const CTnStage& stage = m_context.fOcuva.cxsStage();
    const Long x = stage.X();
    const Long y = stage.Y();
    return {x, y, stage.Z()};
}

void CalibrationAssistant::driveBy(const StagePosition& distance) {
    CTnStage& stage = m_context.fOcuva.cxsStage();
    stage.DX(distance.x);
    stage.DY(distance.y);
    if (distance.z != 0) {
        stage.DZ(distance.z);
    }
    m_context.fOcuva.SyncStageMove(axisAll);
}

void CalibrationAssistant::focus() {
    const QScopedValueRollback focusing(m_focusing, true);
    Q_EMIT changed();
    m_context.focus();
}

bool CalibrationAssistant::isRefused() {
    m_refusal = m_context.fOcuva.cxsStage().IsMoving() ? tr("The stage is moving. Wait until it stops.")
                                                       : m_context.whyNot();
    return !m_refusal.isEmpty();
}

void CalibrationAssistant::start(std::size_t count) {
    const std::shared_ptr<void> hold = m_context.fOcuva.holdInput();
    if (!m_walk.isUnderWay() && !isRefused()) {
        m_walk.start(count);
        m_hasWalked = true;
    }
    Q_EMIT changed();
}

void CalibrationAssistant::pick(const PicturePoint& at) {
    m_walk.pick(at);
    Q_EMIT changed();
}

void CalibrationAssistant::enter() {
    const std::shared_ptr<void> hold = m_context.fOcuva.holdInput();
    if (m_walk.waitsForEnter() && !isRefused()) {
        m_walk.enter();
    }
    Q_EMIT changed();
}

void CalibrationAssistant::leave() {
    m_refusal.clear();
    m_walk.leave();
    m_leftOnTheWay = !m_walk.isUnderWay() && m_context.fOcuva.cxsStage().IsMoving();
    Q_EMIT changed();
}

void CalibrationAssistant::moveEnded() {
    if (!m_walk.isUnderWay() && !m_leftOnTheWay && m_refusal.isEmpty()) {
        return;
    }
    // Not from inside the watch of the move, which has still to be done with it: a search may follow.
    QTimer::singleShot(0, this, [this] {
        m_refusal.clear();
        m_leftOnTheWay = false;
        m_walk.arrived();
        Q_EMIT changed();
    });
}

QString CalibrationAssistant::hint() const {
    if (!m_refusal.isEmpty()) {
        return m_refusal;
    }
    const QString point = QString::number(m_walk.point() + 1);
    switch (m_walk.state()) {
    case State::Idle:
        if (!m_hasWalked || m_walk.readings().size() == m_walk.count()) {
            return {};
        }
        if (m_leftOnTheWay) {
            return tr("The assistant has ended. The move that runs goes on to its end.");
        }
        return tr("The assistant has ended. The stage is at %1.")
            .arg(words(const_cast<CalibrationAssistant*>(this)->position()));
    case State::Picking:
        return m_walk.wasMoved() ? tr("The stage was moved. Click point %1 of %2 on the image again.")
                                       .arg(point)
                                       .arg(m_walk.count())
                                 : tr("Click point %1 of %2 on the image, near another corner each time.")
                                       .arg(point)
                                       .arg(m_walk.count());
    case State::Ready:
        return tr("Press Enter: the stage drives to point 1 and focuses. Escape ends.");
    case State::DrivingThere:
        if (m_focusing) {
            return tr("The focus is searched at point %1. Keys and clicks do nothing meanwhile.").arg(point);
        }
        return tr("The stage drives to point %1 and focuses there. Escape ends.").arg(point);
    case State::AtPoint:
        if (m_walk.hasMissed()) {
            return tr("The stage is at %1, not at point %2. Click the point to centre it, or press Enter to "
                      "try again.")
                .arg(words(m_walk.place()), point);
        }
        return tr("Is point %1 under the cross? If not, click it. Enter reads its position and %2.")
            .arg(point, m_walk.point() + 1 < m_walk.count() ? tr("drives to point %1").arg(m_walk.point() + 2)
                                                            : tr("drives back"));
    case State::DrivingBack:
        return tr("The stage drives back to %1. Escape ends.").arg(words(m_walk.home()));
    case State::Done:
        return m_walk.hasMissed()
                   ? tr("All points are read. The stage is at %1, not back at %2.")
                         .arg(words(m_walk.place()), words(m_walk.home()))
                   : tr("All points are read, and the stage is back. If the lines below are good, press OK.");
    case State::Left:
        break;
    }
    return m_context.fOcuva.cxsStage().IsMoving()
               ? tr("The assistant has ended. The current move continues to its end; the assistant started "
                    "at %1.")
                     .arg(words(m_walk.home()))
               : tr("The assistant has ended. The stage is at %1; the assistant started at %2. Enter drives "
                    "back.")
                     .arg(words(const_cast<CalibrationAssistant*>(this)->position()), words(m_walk.home()));
}

QString CalibrationAssistant::buttonText() const {
    switch (m_walk.state()) {
    case State::Ready:
        return tr("&Drive to Point 1");
    case State::AtPoint:
        return m_walk.hasMissed() ? tr("Try &Again") : tr("Re&ad Point %1").arg(m_walk.point() + 1);
    case State::DrivingThere:
    case State::DrivingBack:
        return m_focusing ? tr("Focusing\u2026") : tr("Driving\u2026");
    case State::Left:
        return tr("&Drive Back");
    default:
        return tr("&Assistant");
    }
}

} // namespace ocuva
