#pragma once
// The controls of the main window.

#include "app/ImageInformation.h"
#include "app/MainMenu.h"
#include "app/MonitorPanels.h"
#include "app/StatusBar.h"
#include "app/toolbar/MainToolbar.h"

#include <QMainWindow>

#include <functional>

namespace ocuva {

/// Made in their design geometry; none of them does anything by itself. The window owns the widgets.
struct MainControls {
    /// `run` is called for each command that is chosen from the menus.
    MainControls(QMainWindow& window, DisplayWindows& displays,
                 const std::function<void(const Command&)>& run);

    /// From the outermost to the innermost, by their names.
    ///@{
    QWidget* client;
    MainToolbar* tbMain;
    MonitorPanels panels;
    UpDownPanel upDown;
    MainMenu menu;
    StatusBar* sbMain;
    ImageInformation* information;
    ///@}
};

} // namespace ocuva
