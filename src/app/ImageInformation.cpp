#include "app/ImageInformation.h"

#include "app/FittedText.h"

#include <QDateTime>
#include <QStringList>

namespace ocuva {

namespace {

// The lamp is visible at a glance, the text next to it is for everybody.
const QColor lampLive(38, 166, 91);
const QColor lampStill(140, 140, 140);
const QColor lampStopped(224, 60, 49);
const QColor lampStored(52, 120, 214);

} // namespace

ImageInformation::ImageInformation(StatusPanel& panel, MilDisplay& display, QObject* parent)
    : QObject(parent)
    , m_panel(panel)
    , m_display(display) {
    m_tLiveCheck.setObjectName(QStringLiteral("tLiveCheck"));
    m_tLiveCheck.setParent(this);
    m_tLiveCheck.setSingleShot(true);
    connect(&m_tLiveCheck, &QTimer::timeout, this, &ImageInformation::checkLive);
    m_clock.start();
    showText();
}

void ImageInformation::grabChanged() {
    m_watch.start(m_clock.elapsed());
    m_lastSeenFrame = m_display.shownFrame();
}

void ImageInformation::show(const ImageState& state) {
    if (state.grabbing != m_state.grabbing) {
        grabChanged();
    }
    m_state = state;
    m_note.clear();
    m_advice.clear();
    if (!m_state.grabbing || m_display.isDrawnByHost()) {
        m_tLiveCheck.stop();
    } else if (!m_tLiveCheck.isActive() && !m_watch.hasStopped()) {
        m_tLiveCheck.start(static_cast<int>(LiveWatch::patienceMs));
    }
    showText();
}

void ImageInformation::showMagnification(Long magnification) {
    m_magnification = magnification;
    show(m_state);
}

void ImageInformation::showCalibration(const CalibrationWords& words, bool first) {
    if (words != m_calibration || first != m_calibrationFirst) {
        m_calibration = words;
        m_calibrationFirst = first;
        showText();
    }
}

void ImageInformation::frameShown() {
    m_lastSeenFrame = m_display.shownFrame();
    if (!m_watch.frameCame(m_clock.elapsed()) || !m_state.grabbing) {
        return;
    }
    if (!m_tLiveCheck.isActive()) {
        m_tLiveCheck.start(static_cast<int>(LiveWatch::patienceMs));
    }
    showText();
}

void ImageInformation::checkLive() {
    if (m_lastSeenFrame != m_display.shownFrame()) {
        // Frames arrive without being shown: a minimised window draws none.
        m_lastSeenFrame = m_display.shownFrame();
        m_watch.frameCame(m_clock.elapsed());
    }
    const std::int64_t againMs = m_watch.check(m_clock.elapsed());
    if (againMs > 0) {
        m_tLiveCheck.start(static_cast<int>(againMs));
        return;
    }
    m_note.clear();
    m_advice.clear();
    showText();
}

void ImageInformation::showGreyLevels(double mean, double standardDeviation) {
    showNote(tr("mean %1, sd %2").arg(mean, 0, 'f', 1).arg(standardDeviation, 0, 'f', 1));
}

void ImageInformation::showNotMeasured() {
    showNote(tr("not measured"), tr("The host gave no grey levels: start the live image (F7) and try again"));
}

void ImageInformation::showNote(const QString& note, const QString& advice) {
    m_note = note;
    m_advice = advice;
    showText();
}

void ImageInformation::showBusy(const QString& what) {
    m_busy = what;
    m_panel.setTip({}); // of a menu that has just closed
    showText();
    m_panel.repaint(); // nothing else is drawn until the call returns
}

void ImageInformation::takeOff(const QString& note) {
    if (!m_note.isEmpty() && m_note == note) {
        m_note.clear();
        m_advice.clear();
        showText();
    }
}

QString ImageInformation::liveText() const {
    if (!m_state.grabbing) {
        return m_state.boardReady ? tr("Still") : tr("Board not ready");
    }
    if (m_watch.hasStopped()) {
        const qint64 silentMs = m_clock.elapsed() - m_watch.lastSignMs();
        const QDateTime since = QDateTime::currentDateTime().addMSecs(-silentMs);
        return tr("Not live since %1").arg(since.toString(QStringLiteral("HH:mm:ss")));
    }
    const double rate = m_watch.framesPerSecond();
    return rate > 0.0 ? tr("Live %1 frames/s").arg(rate, 0, 'f', 1) : tr("Live");
}

QString ImageInformation::zoomText() const {
    if (!m_state.scale) {
        return tr("1:%1").arg(m_state.zoomDivisor);
    }
    const QString x = QString::fromStdString(scaleText(m_state.scale->x));
    const QString y = QString::fromStdString(scaleText(m_state.scale->y));
    return m_state.scale->stretched && x != y ? tr("stretched %1 x %2").arg(x, y) : x;
}

QString ImageInformation::nextStep() const {
    if (!m_state.grabbing) {
        return m_state.boardReady ? tr("Live (F7) starts the live image")
                                  : tr("Initialize the video board: Setup (Alt+T), tab Board");
    }
    return m_watch.hasStopped() ? tr("Check the camera; press F7 twice to restart the live image")
                                : tr("Click a point of the image to bring it to the centre");
}

// Before the first image, the display says how to get one.
void ImageInformation::showPrompt() {
    const bool isAsked = m_state.grabbing && !m_watch.hasStopped();
    m_display.setPrompt(isAsked ? tr("Waiting for the first image") : nextStep());
}

void ImageInformation::showStoredText() {
    const QString what = tr("Picture %1").arg(m_state.storedPicture);
    const QString stretched = m_state.scale && m_state.scale->stretched ? zoomText() : QString();
    // Neither the zoom nor the magnification says anything about it.
    m_panel.setLamp(lampStored);
    QStringList shown = m_note.isEmpty() ? QStringList{what, m_calibration.panel, stretched}
                                         : QStringList{tr("Picture"), m_note};
    shown.removeAll(QString());
    m_panel.setText(shown.join(partSeparator()));
    QStringList all{tr("Stored picture %1").arg(m_state.storedPicture), m_calibration.tip,
                    tr("Live (F7) brings the live image back")};
    all << m_note << m_advice;
    all.removeAll(QString());
    m_panel.setToolTip(all.join(u'\n'));
}

void ImageInformation::showText() {
    if (!m_busy.isEmpty()) {
        m_panel.setText(m_busy);
        return;
    }
    if (!m_state.storedPicture.isEmpty()) {
        showStoredText();
        return;
    }
    const QString live = liveText();
    const QString zoom = zoomText();
    const QString magnification = tr("%1x").arg(m_magnification);
    // A note takes the place of the rest, which would otherwise push it out of sight.
    QStringList shown = m_note.isEmpty() ? QStringList{live, zoom, magnification}
                                         : QStringList{m_state.grabbing ? tr("Live") : live, m_note};
    if (m_note.isEmpty() && !m_calibration.panel.isEmpty()) {
        shown.insert(m_calibrationFirst ? 1 : shown.size(), m_calibration.panel);
    }
    if (!m_note.isEmpty() && !m_panel.hasRoomFor(shown.join(partSeparator()))) {
        shown.removeFirst(); // the lamp says it too
    }
    const bool failing = m_state.grabbing ? m_watch.hasStopped() : !m_state.boardReady;
    m_panel.setLamp(failing ? lampStopped : m_state.grabbing ? lampLive : lampStill);
    m_panel.setText(shown.join(partSeparator()));
    QStringList all{live, tr("Zoom %1").arg(zoom), tr("Magnification %1").arg(magnification),
                    m_calibration.panel, m_calibration.tip};
    all.removeAll(QString());
    if (m_note.isEmpty()) {
        all << nextStep() << tr("Click here to measure the grey levels");
    } else {
        all << m_note << m_advice;
        all.removeAll(QString());
    }
    m_panel.setToolTip(all.join(u'\n'));
    showPrompt();
}

} // namespace ocuva
