#pragma once
// The surroundings of the main window and its parts.

#include "app/PackReport.h"
#include "display/LengthConversion.h"
#include "hostlink/DisplayWindow.h"
#include "hostlink/Host.h"
#include "hostlink/modServer.h"
#include "journal/JournalEntry.h"
#include "settings/Settings.h"
#include "video/Automation.h"
#include "video/Magnification.h"

#include <QString>

#include <functional>

namespace ocuva {

class frmSplash;

/// The surroundings of the main window; everything outlives it.
struct MainWindowContext {
    /// The host, and the state of the process.
    ///@{
    Host& host;
    DisplayWindows& displayWindows;
    Automation& automation;
    ProcessFlags& flags;
    ///@}
    frmSplash& splash;                    ///< serves as about box
    QString windowTitle;                  ///< says so when the host is simulated
    std::function<void()> endProcess;     ///< the last step of the exit operation
    int minuteMs = modServer::idleTickMs; ///< a minute of the idle clock, in milliseconds on the wall
    JournalSink journal = {};             ///< receives the actions on the instrument
    ReportSurroundings report = {};       ///< for a packed report, from the start of the program
};

/// The host, and what is read from it and stored there.
struct HostReadings {
    /// Asks the host nothing yet.
    explicit HostReadings(Host& hostOfProgram)
        : host(hostOfProgram)
        , settings(host.tn_reg())
        , magnification(settings, host.tn_lib_proxy())
        , conversion(host.tn_log()) {}

    /// Each reads afresh.
    ///@{
    Host& host;
    Settings settings;
    MagnificationStore magnification;
    LengthConversion conversion;
    ///@}
};

} // namespace ocuva
