#pragma once
// Places of the microscope stage.

#include "base/Types.h"

namespace ocuva {

/// A place of the stage, or the way from one to another, in whole stage units.
struct StagePosition {
    /// Stage units.
    ///@{
    Long x = 0;
    Long y = 0;
    Long z = 0;
    ///@}

    bool operator==(const StagePosition&) const = default;
};

/// A place between whole units: where a moving, swinging or worn stage really is.
struct ExactStagePosition {
    /// Stage units.
    ///@{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    ///@}

    bool operator==(const ExactStagePosition&) const = default;
};

} // namespace ocuva
