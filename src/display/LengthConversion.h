#pragma once
// Lengths on the displayed image against lengths on the stage.

#include "base/Types.h"
#include "hostlink/Host.h"
#include "video/Magnification.h"

namespace ocuva {

/// A length on the displayed image, in any unit, and the length of the whole field in the same unit.
struct FrameLength {
    /// In one and the same unit.
    ///@{
    Long length = 0;
    Long fullLength = 0;
    ///@}
};

/// The two conversions, for one axis. At magnification m the whole field spans fieldFactor * 100 / m stage
/// units. Both round half to even; neither raises an error: a failure (magnification or field 0, a result
/// that leaves 32 bits) is one line in the host's log and the result 0.
class LengthConversion {
public:
    /// The log outlives it.
    explicit LengthConversion(TnLog& log)
        : m_log(log) {}

    /// Stage units that the length spans. fieldFactor: stage units across the field at magnification 100.
    Long frameToStage(Long magnification, Single fieldFactor, FrameLength frame) const;
    /// The length on the image, in the unit of fullFrameLength, of this many stage units.
    Long stageToFrame(Long magnification, Single fieldFactor, Long stageLength, Long fullFrameLength) const;

private:
    TnLog& m_log;
};

/// Lengths on the two axes of the image.
struct FramePair {
    /// In a unit that the user of the struct chooses.
    ///@{
    Long x = 0;
    Long y = 0;
    ///@}
};
/// Lengths on two axes of the stage.
struct StagePair {
    /// Stage units.
    ///@{
    Long x = 0;
    Long y = 0;
    ///@}
};

/// Converts a pair of lengths with the present magnification, read afresh on every call.
class PairConversion {
public:
    /// Both outlive it.
    PairConversion(const MagnificationStore& magnification, const LengthConversion& conversion)
        : m_magnification(magnification)
        , m_conversion(conversion) {}

    /// As LengthConversion does it, on each axis with its own field factor; fullFrame is the whole field.
    ///@{
    StagePair frameToStage(FramePair frame, FramePair fullFrame) const;
    FramePair stageToFrame(StagePair stage, FramePair fullFrame) const;
    ///@}

private:
    const MagnificationStore& m_magnification;
    const LengthConversion& m_conversion;
};

} // namespace ocuva
