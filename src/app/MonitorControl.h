#pragma once
// The size of the image in the main window: its frames, the window around them, the zoom.

#include "app/HandlerGuard.h"
#include "app/MainControls.h"
#include "app/MainWindowContext.h"
#include "app/WindowFit.h"
#include "display/MonitorSizing.h"
#include "video/CameraSetup.h"

#include <functional>

namespace ocuva {

/// What it needs; everything outlives it.
struct MonitorControlContext {
    QMainWindow& window;              ///< the window that is sized
    MainControls& controls;           ///< its parts
    HostReadings& readings;           ///< the board, and lengths of the settings
    HandlerGuard& guard;              ///< writes to the log
    std::function<bool()> windowIsUp; ///< loaded and not exiting
    std::function<void(Long centreY, Long centreX)> redrawOverlays; ///< as MonitorView::redrawOverlays
    std::function<void()> refreshState;                             ///< as MonitorView::refreshState
};

/// One for the life of the main window.
class MonitorControl final : public CameraMainWindow, private MonitorView {
public:
    /// Nothing is asked of the host yet.
    explicit MonitorControl(MonitorControlContext context);
    /// Makes what watches the window's size. Once, when all controls are there.
    void makeFit();
    /// The window is loaded.
    void start() { m_fit->start(); }
    /// The program ends: nothing is changed any more.
    void stop() { m_fit->stop(); }

    /// The sizing, and what it has computed.
    ///@{
    MonitorSizing& sizing() { return m_sizing; }
    const MonitorFields& fields() const { return m_sizing.fields(); }
    ///@}

    /// Changes between 1:1 and 1:2.
    void toggleZoom();
    /// Shows the zoom in menu and toolbar.
    void showZoom();
    /// The operator or the window system has changed the window's size.
    void windowResized();
    /// Sizes the image from the window again.
    void fillWindow();
    /// The picture may have another size; it is sized for it once the present handler has ended.
    void cameraChanged();

    /// Where milDisp is in frImage, twips.
    TwipsRect display() const { return rect(MonitorPart::milDisp); }

    // CameraMainWindow, and the same of MonitorView
    Long displayHandle() const override;
    bool normalZoomIsChecked() const override { return m_normalZoom; }
    void enableAcq(bool on) override;

private:
    ScreenMetrics screen() const override;
    TwipsRect rect(MonitorPart part) const override;
    void setRect(MonitorPart part, const TwipsRect& rect) override;
    Long windowWidth() const override;
    Long windowHeight() const override;
    bool windowIsMaximised() const override;
    void setWindowSize(Long width, Long height) override;
    void redrawOverlays(Long centreY, Long centreX) override { m_context.redrawOverlays(centreY, centreX); }
    void refreshState() override { m_context.refreshState(); }
    QWidget* partWidget(MonitorPart part) const;

    MonitorControlContext m_context;
    MonitorSizing m_sizing;
    WindowFit* m_fit = nullptr;
    bool m_normalZoom = false; // the mark of "&Normal (1:1)"; not set at start, where the divisor is 2
};

} // namespace ocuva
