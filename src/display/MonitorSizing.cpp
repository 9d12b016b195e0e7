#include "display/MonitorSizing.h"

#include "base/Numbers.h"
#include "video/DisplayHandOver.h"

#include <algorithm>
#include <functional>
#include <string>

namespace ocuva {

namespace {

// The frames' insets in twips. frImage leaves 45 on either side of the display, and above and below it room
// for a caption line and its lower border; frMonitor leaves 360 on every side of frImage.
constexpr Long imageInsetLeft = 45;
constexpr Long imageInsetTop = 135;
constexpr Long imageInsetBottom = 35;
constexpr Long monitorInset = 360;
// From the display to frMonitor: both insets of both frames.
constexpr Long aroundImageWidth = 2 * imageInsetLeft + 2 * monitorInset;
constexpr Long aroundImageHeight = 2 * monitorInset;
static_assert(aroundImageWidth == 810);
// Distance between the toolbar and the controls below it.
constexpr Long belowToolbar = 135;

} // namespace

void MonitorSizing::ComputeInitialSize() {
    const TwipsRect monitor = m_view.rect(MonitorPart::frMonitor);
    m_extraWidth = m_view.windowWidth() - monitor.width - monitor.left;
    m_extraHeight = m_view.windowHeight() - monitor.height - monitor.top;
    constexpr Integer startDivisor = 2;
    ComputeImageSize(true, startDivisor);
}

void MonitorSizing::ComputeImageSize(bool bInit, Integer nZoom) {
    if (m_busy) {
        return;
    }
    try {
        if (bInit) {
            sizeFromBuffer(nZoom);
        } else {
            sizeFromWindow();
        }
    } catch (const std::exception& error) {
        m_log.TarnPrintfVB((std::string("ERROR computing image size: ") + error.what() + "\r\n").c_str());
    }
}

void MonitorSizing::sizeFromWindow() {
    const TwipsRect monitor = m_view.rect(MonitorPart::frMonitor);
    const Long width = m_view.windowWidth() - m_extraWidth - aroundImageWidth - monitor.left;
    const Long height = m_view.windowHeight() - m_extraHeight - aroundImageHeight - imageInsetTop -
                        imageInsetBottom - monitor.top;
    m_fields.ImageSizeX = std::max(width, smallestImage);
    m_fields.ImageSizeY = std::max(height, smallestImage);
}

void MonitorSizing::sizeFromBuffer(Integer nZoom) {
    readBufferSize(nZoom);
    handDisplayToBoard(m_video, m_view.displayHandle(), nZoom, m_view.normalZoomIsChecked());
    m_fields.GrabZoom = nZoom;
    const ScreenMetrics screen = m_view.screen();
    m_fields.ImageSizeX = toLong(checkedDivide(m_fields.GrabSizeX, nZoom) * screen.TwipsPerPixelX);
    m_fields.ImageSizeY = toLong(checkedDivide(m_fields.GrabSizeY, nZoom) * screen.TwipsPerPixelY);
    m_fields.InitImageSizeX = m_fields.ImageSizeX;
    m_fields.InitImageSizeY = m_fields.ImageSizeY;
    const CrossLengths cross = m_settings.readCross();
    const GridLengths grid = m_settings.readGrid();
    setCrossLengths(cross);
    setGridLengths(grid);
}

void MonitorSizing::readBufferSize(Integer nZoom) {
    TarnBufferDesc descriptor{sizeof(TarnBufferDesc), 0, 0, 0, 0};
    const Long handle = m_video.TarnVideoBufferAlloc(&descriptor, TARN_BUFFER_CURRENT);
    if (handle != TARN_BUFFER_NONE) {
        m_video.TarnVideoGetBufferDesc(handle, &descriptor);
        m_fields.GrabSizeX = descriptor.width;
        m_fields.GrabSizeY = descriptor.height;
    }
    if (handle == TARN_BUFFER_NONE || m_fields.GrabSizeX == 0 || m_fields.GrabSizeY == 0) {
        const TwipsRect display = m_view.rect(MonitorPart::milDisp);
        const ScreenMetrics screen = m_view.screen();
        m_fields.GrabSizeX = toLong(static_cast<double>(display.width) * nZoom / screen.TwipsPerPixelX);
        m_fields.GrabSizeY = toLong(static_cast<double>(display.height) * nZoom / screen.TwipsPerPixelY);
    }
}

Long MonitorSizing::aroundImageX() const {
    return m_extraWidth + aroundImageWidth + m_view.rect(MonitorPart::frMonitor).left;
}

Long MonitorSizing::aroundImageY() const {
    return m_extraHeight + aroundImageHeight + imageInsetTop + imageInsetBottom +
           m_view.rect(MonitorPart::frMonitor).top;
}

bool MonitorSizing::bufferHasChanged() {
    TarnBufferDesc descriptor{sizeof(TarnBufferDesc), 0, 0, 0, 0};
    const Long handle = m_video.TarnVideoBufferAlloc(&descriptor, TARN_BUFFER_CURRENT);
    if (handle == TARN_BUFFER_NONE || m_video.TarnVideoGetBufferDesc(handle, &descriptor) == 0) {
        return false;
    }
    return descriptor.width != m_fields.GrabSizeX || descriptor.height != m_fields.GrabSizeY;
}

void MonitorSizing::setCrossLengths(const CrossLengths& cross) {
    m_fields.CrossSize = toLong(checkedDivide(cross.CrossSize, m_fields.GrabZoom));
    m_fields.CrossWidth = cross.CrossWidth;
}

void MonitorSizing::setGridLengths(const GridLengths& grid) {
    m_fields.GridSizeX = toLong(checkedDivide(grid.GridSizeX, m_fields.GrabZoom));
    m_fields.GridSizeY = toLong(checkedDivide(grid.GridSizeY, m_fields.GrabZoom));
    m_fields.GridLineWidth = grid.GridLineWidth;
}

void MonitorSizing::ResizeAll(bool bResizeForm) {
    const auto trapped = [this](const std::function<void()>& step) {
        try {
            step();
        } catch (const std::exception& error) {
            m_log.TarnPrintfVB((std::string("ERROR resizing: ") + error.what() + "\r\n").c_str());
        }
    };
    trapped([&] {
        placeMonitor();
        if (bResizeForm && !m_view.windowIsMaximised()) {
            fitWindow();
        }
        placeUpDown();
        placeMicroMarker();
        m_view.redrawOverlays(toLong(m_fields.InitImageSizeY / 2.0), toLong(m_fields.InitImageSizeX / 2.0));
    });
    // The position panels must not stay empty because, say, there is no scale to draw.
    trapped([this] { m_view.refreshState(); });
}

void MonitorSizing::placeMonitor() {
    const ScreenMetrics screen = m_view.screen();
    // Less one screen pixel, so that the display's border falls on the frame's.
    m_view.setRect(MonitorPart::milDisp,
                   {toLong(imageInsetLeft - screen.TwipsPerPixelX),
                    toLong(imageInsetTop - screen.TwipsPerPixelY), m_fields.ImageSizeX, m_fields.ImageSizeY});
    const TwipsRect image{monitorInset, monitorInset, checkedAdd(m_fields.ImageSizeX, 2 * imageInsetLeft),
                          checkedAdd(m_fields.ImageSizeY, imageInsetTop + imageInsetBottom)};
    m_view.setRect(MonitorPart::frImage, image);
    const TwipsRect toolbar = m_view.rect(MonitorPart::tbMain);
    m_view.setRect(MonitorPart::frMonitor,
                   {m_view.rect(MonitorPart::frMonitor).left, toolbar.top + toolbar.height + belowToolbar,
                    checkedAdd(image.width, 2 * monitorInset), checkedAdd(image.height, 2 * monitorInset)});
}

void MonitorSizing::fitWindow() {
    const TwipsRect monitor = m_view.rect(MonitorPart::frMonitor);
    // The window's own resize event must not size the image from a window that is only just being fitted to
    // it.
    const bool wasBusy = m_busy;
    m_busy = true;
    m_view.setWindowSize(monitor.left + monitor.width + m_extraWidth,
                         monitor.top + monitor.height + m_extraHeight);
    m_busy = wasBusy;
}

void MonitorSizing::placeUpDown() {
    const TwipsRect monitor = m_view.rect(MonitorPart::frMonitor);
    TwipsRect upDown = m_view.rect(MonitorPart::frUpDown);
    upDown.top = m_view.rect(MonitorPart::tbMain).height + belowToolbar;
    upDown.left = monitor.left + monitor.width + toLong((m_extraWidth - upDown.width) / 2.0);
    upDown.height = monitor.height;
    m_view.setRect(MonitorPart::frUpDown, upDown);
}

void MonitorSizing::placeMicroMarker() {
    TwipsRect marker = m_view.rect(MonitorPart::frMicroMarker);
    marker.left = 0;
    marker.width = m_fields.InitImageSizeX;
    marker.top = m_fields.ImageSizeY - marker.height;
    const bool fits = marker.top + marker.height <= m_fields.InitImageSizeY;
    if (!fits) {
        marker.top = m_fields.InitImageSizeY - marker.height;
    }
    m_view.setRect(MonitorPart::frMicroMarker, marker);
}

} // namespace ocuva
