#include "app/MainControls.h"

namespace ocuva {

MainControls::MainControls(QMainWindow& window, DisplayWindows& displays,
                           const std::function<void(const Command&)>& run)
    : client(new QWidget(&window))
    , tbMain(new MainToolbar(commandButtons(), client))
    , panels(displays, client)
    , upDown(client)
    , menu(*window.menuBar(), run)
    , sbMain(new StatusBar(&window))
    , information(new ImageInformation(*sbMain->panel(QStringLiteral("Info")), *panels.milDisp, &window)) {
    window.setCentralWidget(client);
    window.setStatusBar(sbMain);
    tbMain->move(0, 0);
}

} // namespace ocuva
