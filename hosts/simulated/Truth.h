#pragma once
// The true state behind the host's reports: for tests, benchmarks and trainers. No real host can provide
// it.

#include "hosts/common/FieldOfView.h"
#include "hosts/simulated/mechanics/StageMechanics.h"
#include "hosts/simulated/world/SurfaceShape.h"

#include <functional>

namespace hosts::simulated {

/// Computed afresh at each question, at the clock's time.
class Truth {
public:
    /// All outlive the truth.
    Truth(const StageMechanics& stage, const SurfaceShape& surface, std::function<FieldSize()> field)
        : m_stage(stage)
        , m_surface(surface)
        , m_field(std::move(field)) {}

    /// The true Z at which the place (x, y) is sharp.
    double surfaceHeight(double x, double y) const { return m_surface.at(x, y); }

    /// The true position of the sample, in stage units.
    ocuva::ExactStagePosition position() const { return m_stage.truePosition(); }

    /// Stage units across the whole picture.
    FieldSize field() const { return m_field(); }

    /// The true Z at which the place that is seen now is sharp.
    double bestFocusZ() const {
        const ocuva::ExactStagePosition at = position();
        return surfaceHeight(at.x, at.y);
    }

    /// How far the sample is above the focus, stage units of Z; 0 is sharp.
    double defocus() const { return position().z - bestFocusZ(); }

private:
    const StageMechanics& m_stage;
    const SurfaceShape& m_surface;
    std::function<FieldSize()> m_field;
};

} // namespace hosts::simulated
