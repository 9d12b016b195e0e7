#pragma once
// The status bar's panel about the image: live or still, frames per second, zoom, magnification, and grey
// levels on request.

#include "app/LiveWatch.h"
#include "app/StatusBar.h"
#include "base/Types.h"
#include "display/MilDisplay.h"
#include "display/MonitorFit.h"
#include "pictures/CalibrationWords.h"

#include <QElapsedTimer>
#include <QTimer>

#include <optional>

namespace ocuva {

/// The image's state as shown in the panel.
struct ImageState {
    bool grabbing = false;   ///< a grab was started and not ended
    Integer zoomDivisor = 2; ///< 1 or 2
    QString storedPicture;   ///< its bare name; empty while the camera's image is shown
    bool boardReady = true;  ///< a grab can be expected to start
    /// The scale of the image; nothing before it is known.
    std::optional<ShownScale> scale = {};

    bool operator==(const ImageState&) const = default;
};

/// If the host draws the image itself, no frame is seen here, and "Live" only means that a grab is
/// running.
class ImageInformation final : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    ImageInformation(StatusPanel& panel, MilDisplay& display, QObject* parent);

    /// Every call is a change of state: it takes a note off the panel.
    void show(const ImageState& state);
    /// The same, with the magnification as it has just been read.
    void showMagnification(Long magnification);
    /// Whether frames should come and do not.
    bool hasStopped() const { return m_state.grabbing && m_watch.hasStopped(); }
    /// The text about the calibration of the shown picture; a note stays. first: right after the state of
    /// the image, if positions are computed from the calibration.
    void showCalibration(const CalibrationWords& words, bool first);
    /// The magnification as it was shown last; 0 before that.
    Long magnification() const { return m_magnification; }
    /// A frame was drawn: counts for the rate and as a sign of life.
    void frameShown();
    /// Shows measured grey levels until the state changes.
    void showGreyLevels(double mean, double standardDeviation);
    /// Says that the host could not measure them.
    void showNotMeasured();
    /// Shows a note until the state changes; the tip of the panel has the advice.
    void showNote(const QString& note, const QString& advice = {});
    /// Shows on the screen, before it returns, what the program is waiting for, in place of everything
    /// else; empty: shows the rest again.
    void showBusy(const QString& what);
    /// Takes that note off the panel if it is still there.
    void takeOff(const QString& note);

private:
    void grabChanged();
    void checkLive();
    void showText();
    QString liveText() const;
    /// "1:2", or both scales when they differ.
    QString zoomText() const;
    void showStoredText();
    /// The next step for the operator to get an image.
    QString nextStep() const;
    void showPrompt();

    StatusPanel& m_panel;
    MilDisplay& m_display;
    QTimer m_tLiveCheck; // runs only while frames are expected
    QElapsedTimer m_clock;
    LiveWatch m_watch;
    ImageState m_state;
    Long m_magnification = 0;
    CalibrationWords m_calibration;
    bool m_calibrationFirst = false;
    FramePtr m_lastSeenFrame;
    QString m_note;
    QString m_advice;
    QString m_busy; // empty unless the program cannot answer
};

} // namespace ocuva
