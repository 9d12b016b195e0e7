#pragma once
// The window as the sizing of the monitor sees it: lengths in twips in, lengths in twips out.

#include "base/Types.h"

namespace ocuva {

/// A rectangle in twips, relative to the part that contains it.
struct TwipsRect {
    /// Twips.
    ///@{
    Long left = 0;
    Long top = 0;
    Long width = 0;
    Long height = 0;
    ///@}

    bool operator==(const TwipsRect&) const = default;
};

/// Twips per screen pixel: 1440 twips are one inch, and the screen has 96 pixels an inch; a denser screen
/// scales the pixel, not this number.
struct ScreenMetrics {
    /// Above 0.
    ///@{
    double TwipsPerPixelX = 15.0;
    double TwipsPerPixelY = 15.0;
    ///@}
};

enum class MonitorPart {
    milDisp,       ///< the display, in frImage
    frImage,       ///< in frMonitor
    frMonitor,     ///< in the window, below the toolbar
    frUpDown,      ///< the Z buttons, right of frMonitor
    frMicroMarker, ///< the scale bar's panel, on the display
    tbMain,        ///< the toolbar, at the top of the window
};

/// The window that is sized; lengths in twips.
class MonitorView {
public:
    virtual ~MonitorView() = default;

    /// Of the screen that the window is on.
    virtual ScreenMetrics screen() const = 0;

    /// The rectangle of a part, relative to the part that contains it.
    ///@{
    virtual TwipsRect rect(MonitorPart part) const = 0;
    virtual void setRect(MonitorPart part, const TwipsRect& rect) = 0;
    ///@}

    /// Of the client window with menu and status bar, without the window manager's frame.
    ///@{
    virtual Long windowWidth() const = 0;
    virtual Long windowHeight() const = 0;
    ///@}
    /// Or full screen: its size is not the program's to change then.
    virtual bool windowIsMaximised() const = 0;
    /// Of the same kind as windowWidth and windowHeight.
    virtual void setWindowSize(Long width, Long height) = 0;

    /// The handle of milDisp as it crosses the seam.
    virtual Long displayHandle() const = 0;
    /// The mark of the menu entry "&Normal (1:1)".
    virtual bool normalZoomIsChecked() const = 0;

    /// DrawCross and DrawGrid round this centre (twips on the display), then the micro marker.
    virtual void redrawOverlays(Long centreY, Long centreX) = 0;
    /// Status bar panels and toolbar buttons that show the state of stage and video.
    virtual void refreshState() = 0;
};

} // namespace ocuva
