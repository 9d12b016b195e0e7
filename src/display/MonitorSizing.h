#pragma once
// Computes the size of the image and the place of every frame around it.
//
// frMonitor > frImage > milDisp: the frame that takes the window's free room, the sunken frame, the
// display. Next to them frUpDown, and frMicroMarker on the display. All lengths are in twips, rounded half
// to even, unless pixels are named.

#include "base/Types.h"
#include "display/MonitorView.h"
#include "hostlink/Host.h"
#include "settings/Settings.h"

namespace ocuva {

/// The main window's public fields about its image.
struct MonitorFields {
    Long GrabSizeX = 0;   ///< width of the video buffer, pixels
    Long GrabSizeY = 0;   ///< height of the video buffer, pixels
    Integer GrabZoom = 0; ///< zoom divisor: one screen pixel shows that many image pixels, 1 or 2
    Long ImageSizeX = 0;  ///< width given to milDisp, twips
    Long ImageSizeY = 0;  ///< height given to milDisp, twips
    /// The image size at the last start or zoom change, twips; the overlays centre on half of it.
    ///@{
    Long InitImageSizeX = 0;
    Long InitImageSizeY = 0;
    ///@}
    /// Screen pixels. The cross size and the two grid steps are those of the present zoom.
    ///@{
    Long CrossSize = 0;
    Long CrossWidth = 0;
    Long GridSizeX = 0;
    Long GridSizeY = 0;
    Long GridLineWidth = 0;
    ///@}
};

/// Computes the sizes and applies them to the window. A failure is a line in the host's log, never a
/// message box.
class MonitorSizing {
public:
    /// The smallest image in either direction, twips.
    static constexpr Long smallestImage = 360;

    /// All arguments outlive it. Calls no host function yet.
    MonitorSizing(TnVideo& video, TnLog& log, const Settings& settings, MonitorView& view)
        : m_video(video)
        , m_log(log)
        , m_settings(settings)
        , m_view(view) {}

    /// Takes the margins around the monitor frame from the window's initial layout, then sizes the image
    /// for divisor 2. Called once, before the window is shown.
    void ComputeInitialSize();

    /// With bInit: sizes the image from the video buffer and the zoom divisor, and informs the board.
    /// Without: from the window as the user has sized it. Does nothing while the busy flag is set. An
    /// error ends it with a line in the host's log; what has been set already stays.
    void ComputeImageSize(bool bInit, Integer nZoom);

    /// Places every frame for the current image size, fits the window around them if bResizeForm is set,
    /// and redraws the overlays. An error ends this with a line in the host's log. The state of stage and
    /// video is refreshed in any case.
    void ResizeAll(bool bResizeForm);

    /// While busy, ComputeImageSize does nothing: the window changes because this object changes it.
    ///@{
    void setBusy(bool busy) { m_busy = busy; }
    bool isBusy() const { return m_busy; }
    ///@}

    /// Take over the lengths that a zoom change would read from the settings: screen pixels at 1:1, of which
    /// the cross size and the grid steps are divided by the present zoom divisor. Nothing is redrawn.
    ///@{
    void setCrossLengths(const CrossLengths& cross);
    void setGridLengths(const GridLengths& grid);
    ///@}

    /// The window's width and height around the image, twips; constant as long as the frames do not
    /// change.
    ///@{
    Long aroundImageX() const;
    Long aroundImageY() const;
    ///@}

    /// Whether the board's image has another size than the one used last. False if the board reports none.
    bool bufferHasChanged();

    /// As the last computation left them.
    const MonitorFields& fields() const { return m_fields; }

private:
    void sizeFromWindow();
    void sizeFromBuffer(Integer nZoom);
    void readBufferSize(Integer nZoom);
    void placeMonitor();
    void fitWindow();
    void placeUpDown();
    void placeMicroMarker();

    TnVideo& m_video;
    TnLog& m_log;
    const Settings& m_settings;
    MonitorView& m_view;
    MonitorFields m_fields;
    Long m_extraWidth = 0;
    Long m_extraHeight = 0;
    bool m_busy = false;
};

} // namespace ocuva
