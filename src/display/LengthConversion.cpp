#include "display/LengthConversion.h"

#include "base/Numbers.h"

namespace ocuva {

namespace {

double fieldInStageUnits(Long magnification, Single fieldFactor) {
    return checkedDivide(static_cast<double>(fieldFactor) * 100.0, magnification);
}

} // namespace

Long LengthConversion::frameToStage(Long magnification, Single fieldFactor, FrameLength frame) const {
    try {
        const double field = fieldInStageUnits(magnification, fieldFactor);
        return toLong(checkedDivide(frame.length * field, frame.fullLength));
    } catch (const ArithmeticError&) {
        m_log.TarnPrintfVB("Overflow in frame to stage conversion");
        return 0;
    }
}

Long LengthConversion::stageToFrame(Long magnification, Single fieldFactor, Long stageLength,
                                    Long fullFrameLength) const {
    try {
        const double field = fieldInStageUnits(magnification, fieldFactor);
        return toLong(checkedDivide(stageLength, field) * fullFrameLength);
    } catch (const ArithmeticError&) {
        m_log.TarnPrintfVB("Overflow in stage to frame conversion");
        return 0;
    }
}

StagePair PairConversion::frameToStage(FramePair frame, FramePair fullFrame) const {
    const Magnification m = m_magnification.read();
    return {m_conversion.frameToStage(m.magnification, m.x100, {frame.x, fullFrame.x}),
            m_conversion.frameToStage(m.magnification, m.y100, {frame.y, fullFrame.y})};
}

FramePair PairConversion::stageToFrame(StagePair stage, FramePair fullFrame) const {
    const Magnification m = m_magnification.read();
    return {m_conversion.stageToFrame(m.magnification, m.x100, stage.x, fullFrame.x),
            m_conversion.stageToFrame(m.magnification, m.y100, stage.y, fullFrame.y)};
}

} // namespace ocuva
