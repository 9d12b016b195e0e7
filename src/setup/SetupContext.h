#pragma once
// The surroundings of the set-up pages; everything outlives them.

#include "display/LengthConversion.h"
#include "hostlink/Host.h"
#include "settings/Settings.h"
#include "setup/SetupMainWindow.h"
#include "standards/StandardList.h"
#include "video/CTnVideoBoard.h"
#include "video/CameraSetup.h"
#include "video/Magnification.h"

#include <QString>

#include <functional>

namespace ocuva {

/// Choices in the dialog that no host call returns: kept until the program ends.
struct SetupMemory {
    int courseType = 1; ///< index of cbCourseType; the parameters that the page shows are the fine ones
    bool courseIsFixed = false;  ///< chkCourseFix
    bool gainIsAutomatic = true; ///< as boards begin
    Long gainRange = 2;          ///< index of lblGainRange
};

/// One for the dialog and all its pages.
struct SetupContext {
    /// The stores that the pages read and write.
    ///@{
    Host& host;
    Settings& settings;
    MagnificationStore& magnification;
    const LengthConversion& conversion;
    CTnVideoBoard& board;
    SetupMainWindow& mainWindow;
    CameraMainWindow& cameraWindow;
    SetupMemory& memory;
    StandardList& standards;
    ///@}
    /// Lets the operator choose a standard and appends it to the list; false if he cancels.
    std::function<bool()> addStandard;
    /// Brings the drop-down of standards up to the list.
    std::function<void()> fillStageMenu;
    /// The general error report.
    std::function<void(const QString&)> report;
};

} // namespace ocuva
