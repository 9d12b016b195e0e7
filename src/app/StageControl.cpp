#include "app/StageControl.h"

#include <tuple>
#include <utility>

namespace ocuva {

namespace {

Long toColourNumber(const QColor& colour) { return colour.red() | colour.green() << 8 | colour.blue() << 16; }

QColor fromColourNumber(Long colour) { return {colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff}; }

QString stageMoves() { return QObject::tr("Stage moving"); }

} // namespace

StageControl::StageControl(StageControlContext context)
    : tStageMove(new QTimer(context.controls.client->window()))
    , m_context(std::move(context))
    , m_stage(m_context.readings.host.tn_lib_proxy(), m_context.readings.host.tn_micro_proxy())
    , m_watch(m_stage, *this, m_context.journal) {
    tStageMove->setObjectName(QStringLiteral("tStageMove"));
    tStageMove->setInterval(StageWatch::tickMs);
    tStageMove->setTimerType(Qt::PreciseTimer);
}

void StageControl::SyncStageMove(Integer axis) {
    m_watch.SyncStageMove(axis);
    m_stage.relieveSums();
}

void StageControl::stepZ(std::size_t index, bool up) {
    m_context.guard.run([this, index, up] {
        if (!m_context.readings.settings.readVgaMode()) {
            std::shared_ptr<void> waiting;
            ocuva::stepZ(m_stage, m_watch, index, up,
                         [&] { waiting = m_context.guard.holdInput(QObject::tr("Waiting for Z…")); });
        }
    });
}

void StageControl::takeUpBacklash() {
    const auto hold = m_context.guard.holdInput(QObject::tr("Taking up the backlash…"));
    m_context.readings.host.tn_micro_proxy().TarnBacklashStage(axisAll);
    SyncStageMove(axisAll);
}

void StageControl::moveToPoint(const ClickOnImage& click, bool pictureIsOld) {
    HostReadings& readings = m_context.readings;
    const Magnification magnification = readings.magnification.read();
    const StagePair move =
        ocuva::moveToPoint(click, magnification, readings.settings.readView(), readings.conversion);
    m_stage.DX(move.x);
    m_stage.DY(move.y);
    SyncStageMove(axisAll);
    if (pictureIsOld) {
        showMoveNote(QObject::tr("The picture is old: moved by %1, %2").arg(move.x).arg(move.y),
                     QObject::tr("It does not show the current field. Press Live (F7) for a new one."));
    }
}

void StageControl::showMoveNote(const QString& note, const QString& advice) {
    m_moveNote = note;
    m_context.controls.information->showNote(note, advice);
}

Long StageControl::monitorColour() const {
    return toColourNumber(m_context.controls.panels.frMonitor->fillColour());
}

void StageControl::setMonitorColour(Long colour) {
    m_context.controls.panels.frMonitor->setFillColour(fromColourNumber(colour));
}

void StageControl::enableMoveTimer(bool on) {
    if (!on) {
        tStageMove->stop();
    } else if (!tStageMove->isActive()) {
        tStageMove->start();
    }
}

void StageControl::showPosition(Integer axis, const std::string& text) {
    static constexpr const char* keys[]{"X", "Y", "Z"};
    m_context.controls.sbMain->panel(QString::fromLatin1(keys[axis - axisX]))
        ->setText(QString::fromStdString(text));
}

void StageControl::moveStarted(Integer axis, const std::optional<StagePosition>& from) {
    m_context.controls.information->takeOff(m_moveNote);
    m_farTarget.reset();
    m_context.events.moveStarted(axis, from);
}

void StageControl::moveTakesLong() {
    m_context.controls.information->showNote(stageMoves(), QObject::tr("X, Y and Z are shown when it stops"));
}

void StageControl::watchedMoveEnded() {
    m_context.controls.information->takeOff(stageMoves());
    m_context.events.moveEnded();
    const std::optional<StagePosition> target = std::exchange(m_farTarget, std::nullopt);
    if (!target) {
        return;
    }
    const StagePosition at = *m_watch.shownPosition();
    for (const auto& [axis, wanted, reached] :
         {std::tuple{u'X', target->x, at.x}, {u'Y', target->y, at.y}, {u'Z', target->z, at.z}}) {
        if (wanted != reached) {
            showMoveNote(QObject::tr("%1 %2 is out of reach").arg(QChar(axis)).arg(wanted),
                         QObject::tr("The stage did not go there: %1 is %2").arg(QChar(axis)).arg(reached));
            return;
        }
    }
}

} // namespace ocuva
