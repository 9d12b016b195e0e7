#pragma once
// One image of the video board: its buffer identifier, its grey-level statistics, and saving it to a file.

#include "base/Types.h"
#include "hostlink/Host.h"
#include "video/Automation.h"

#include <string>

namespace ocuva {

/// The displayed image. If the host refuses a measurement, the values of the last one stay.
class CTnVideoImage {
public:
    /// All outlive it.
    CTnVideoImage(TnVideo& video, TnVduti& vduti, Automation& automation)
        : m_video(video)
        , m_vduti(vduti)
        , m_automation(automation) {}

    /// Standard deviation of the grey levels at the last Refresh; 0 if the variance is negative.
    Single StdDev() const;
    /// Mean grey level at the last Refresh; 0 if no pixel was measured.
    Single Mean() const;

    /// The host's identifier of the image buffer; 0 until it is set. It does not choose what Refresh
    /// measures.
    ///@{
    void Buffer(Long buffer) { m_buffer = buffer; }
    Long Buffer() const { return m_buffer; }
    ///@}

    /// Lets the host save the current image to that file; the result is not checked.
    void Dump(const std::string& FileName);

    /// Proves that the imaging library can be started on the board: creates its system, buffer, digitiser
    /// and display objects and releases them again. Shows nothing; any failure ends it silently.
    void DisplayInObject(const void* Parent);

    /// Measures the whole current frame of the board. Values written by the host are kept even if the call
    /// fails.
    void Refresh();
    /// Whether the last Refresh measured anything: the host accepted it, there were pixels, and the values
    /// are numbers. False before the first one.
    bool isMeasured() const;

private:
    TnVideo& m_video;
    TnVduti& m_vduti;
    Automation& m_automation;
    Long m_buffer = 0;
    Long m_nPixelCount = 0;
    Long m_nPixelSum = 0;
    Double m_dVariance = 0.0;
    bool m_refreshed = false; // the host accepted the last Refresh
    std::unique_ptr<AutomationObject> m_system;
    std::unique_ptr<AutomationObject> m_imageBuffer;
    std::unique_ptr<AutomationObject> m_digitizer;
    std::unique_ptr<AutomationObject> m_display;
};

} // namespace ocuva
