#pragma once
// Keeps the main window within its screen and in the camera's proportions, once the operator has let go of
// it, and tells the board by how much it may reduce the picture.

#include "display/MonitorFit.h"

#include <QObject>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>
#include <utility>

namespace ocuva {

/// What the fit needs of the main window; everything outlives it.
struct WindowFitContext {
    QWidget& window;             ///< the main window
    const QWidget& display;      ///< milDisp
    const MonitorSizing& sizing; ///< the picture's size, and what the window has around the display
    /// Sizes the image from the window, as after a resize by the operator.
    std::function<void()> fillWindow;
    /// Asks the board for the picture reduced so many times.
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
    /// The board was told by somebody else to reduce as the zoom says.
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
    Integer m_reduction = 0;                         // what the board was asked for; 0: as the zoom says
    std::optional<std::pair<Long, Long>> m_reported; // the implausible size that was logged
};

} // namespace ocuva
