#pragma once
// Keeps the main window within its screen and in the camera's proportions once the operator has let go of
// it, and tells the board the possible reduction.

#include "display/MonitorFit.h"

#include <QObject>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>
#include <utility>

namespace ocuva {

/// The parts of the main window that the fit uses; everything outlives it.
struct WindowFitContext {
    QWidget& window;             ///< the main window
    const QWidget& display;      ///< milDisp
    const MonitorSizing& sizing; ///< the picture's size, and the window's parts around the display
    /// Sizes the image from the window, as after a resize by the operator.
    std::function<void()> fillWindow;
    /// Requests this reduction from the board.
    std::function<void(Integer)> askBoard;
    std::function<void(const QString&)> log; ///< one line in the host's log
};

/// Window sizes are changed by QWidget::resize alone, so that the window takes the way of every other resize.
class WindowFit final : public QObject {
    Q_OBJECT

public:
    /// So long after the last change of size, with no mouse button held, the operator has let go.
    static constexpr int letGoMs = 300;

    /// Does nothing until start().
    explicit WindowFit(WindowFitContext context);

    /// The window is loaded: the first fit follows as soon as the event loop runs, and it is watched from now
    /// on.
    void start();
    /// The program ends: nothing is changed any more.
    void stop();

    /// The program has sized the image: the fit follows as soon as the event loop runs.
    void imageSized();
    /// Another class has set the board's reduction to that of the zoom.
    void boardReducesAsZoomSays();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watchScreen();
    void operatorLetGo();
    void settle();
    void fitMaximised();
    void fitNormal();
    void bringOnScreen();
    void askForNeededReduction();
    void noteImplausiblePicture();
    PixelSize picture() const;
    PixelSize around() const;
    QSize frameMargins() const;

    WindowFitContext m_context;
    QTimer m_tLetGo;
    QTimer m_tSized;
    bool m_started = false;
    PixelSize m_before;                              // the display as it was settled last
    std::optional<std::pair<QSize, QSize>> m_asked;  // from which size to which, last
    Integer m_reduction = 0;                         // requested from the board; 0: that of the zoom
    std::optional<std::pair<Long, Long>> m_reported; // the implausible size that was logged
};

} // namespace ocuva
