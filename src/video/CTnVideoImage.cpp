#include "video/CTnVideoImage.h"

#include <array>
#include <cmath>

namespace ocuva {

Single CTnVideoImage::StdDev() const {
    return m_dVariance >= 0.0 ? static_cast<Single>(std::sqrt(m_dVariance)) : 0.0F;
}

Single CTnVideoImage::Mean() const {
    if (m_nPixelCount < 1) {
        return 0.0F;
    }
    return static_cast<Single>(static_cast<Double>(m_nPixelSum) / static_cast<Double>(m_nPixelCount));
}

void CTnVideoImage::Dump(const std::string& FileName) {
    TarnSaveRequest request{TARN_SAVE_SUB_CODE, FileName.c_str()};
    m_video.TarnVideoBoardFunction(TARN_BOARD_FUNCTION_SAVE, &request);
}

void CTnVideoImage::DisplayInObject(const void* /*Parent*/) {
    struct Step {
        std::unique_ptr<AutomationObject>& object;
        const char* programIdentifier;
        const char* systemType; ///< null for objects without one
    };
    const std::array<Step, 4> steps{{
        {m_system, "MILSYSTEM.System", "Meteor2"},
        {m_imageBuffer, "MILBUFFER.Buffer", nullptr},
        {m_digitizer, "MILDIGITIZER.Digitizer", nullptr},
        {m_display, "MILDISPLAY.Display", nullptr},
    }};
    for (const Step& step : steps) {
        step.object.reset();
        step.object = m_automation.create(step.programIdentifier);
        if (step.object == nullptr) {
            return;
        }
        if (step.systemType != nullptr && !step.object->setProperty("SystemType", step.systemType)) {
            return;
        }
    }
    for (const Step& step : steps) {
        step.object.reset();
    }
}

void CTnVideoImage::Refresh() {
    // Buffer 0 is the frame on the board, and this region all of it, whatever Buffer contains.
    Long buffer = 0;
    m_refreshed = m_vduti.TarnVideoBufferComputeStatistics(&buffer, 0, 0, -1, -1, &m_nPixelCount,
                                                           &m_nPixelSum, &m_dVariance) != 0;
}

bool CTnVideoImage::isMeasured() const {
    return m_refreshed && m_nPixelCount >= 1 && m_nPixelSum >= 0 && m_dVariance >= 0.0 &&
           std::isfinite(m_dVariance);
}

} // namespace ocuva
