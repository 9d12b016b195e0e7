#pragma once
// One image of the video board: its buffer identifier, its grey-level statistics, saving it to a file.

#include "base/Types.h"
#include "hostlink/Host.h"
#include "video/Automation.h"

#include <string>

namespace ocuva {

/// The shown image. What the host refuses leaves the values of the last measurement.
class CTnVideoImage {
public:
    /// All outlive it.
    CTnVideoImage(TnVideo& video, TnVduti& vduti, Automation& automation)
        : m_video(video)
        , m_vduti(vduti)
        , m_automation(automation) {}

    /// Standard deviation of the grey levels at the last Refresh; 0 for a negative variance.
    Single StdDev() const;
    /// Mean grey level at the last Refresh; 0 when no pixel was measured.
    Single Mean() const;

    /// The host's identifier of the image buffer, kept for whoever asks; 0 until set. It does not choose what
    /// Refresh measures.
    ///@{
    void Buffer(Long buffer) { m_buffer = buffer; }
    Long Buffer() const { return m_buffer; }
    ///@}

    /// Lets the host save the current image to that file; the result is not examined.
    void Dump(const std::string& FileName);

    /// Proves that the imaging library can be started on the board: makes its system, buffer, digitiser and
    /// display objects and releases them again. Shows nothing; any failure ends it quietly.
    void DisplayInObject(const void* Parent);

    /// Measures the whole current frame of the board. What the host writes is kept, also on its failure.
    void Refresh();
    /// Whether the last Refresh measured anything: the host did not refuse, there were pixels, and what it
    /// wrote are numbers. False before the first one.
    bool isMeasured() const;

private:
    TnVideo& m_video;
    TnVduti& m_vduti;
    Automation& m_automation;
    Long m_buffer = 0;
    Long m_nPixelCount = 0;
    Long m_nPixelSum = 0;
    Double m_dVariance = 0.0;
    bool m_refreshed = false; // the host took the last Refresh
    std::unique_ptr<AutomationObject> m_system;
    std::unique_ptr<AutomationObject> m_imageBuffer;
    std::unique_ptr<AutomationObject> m_digitizer;
    std::unique_ptr<AutomationObject> m_display;
};

} // namespace ocuva
