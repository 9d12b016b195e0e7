#pragma once
// What the main window does with the calibration of picture against stage.

#include "app/StatusBar.h"
#include "display/MonitorView.h"
#include "pictures/Calibration.h"

#include <functional>

namespace ocuva {

struct PictureOnStageContext {
    Calibration& calibration;
    StatusBar& sbMain;
    std::function<void(const QString&)> log; ///< writes an error to the log, and nothing else
};

class PictureOnStage {
public:
    explicit PictureOnStage(const PictureOnStageContext& context)
        : m_context(context) {}

    /// Shows the stage position of the place x, y of the picture on the display, in twips, in the position
    /// panels. Where it cannot be computed they show a dash, and the first failure of a run of them is
    /// logged: it happens with every move of the mouse.
    void showPointedPosition(Single x, Single y, const TwipsRect& display);

private:
    PictureOnStageContext m_context;
    bool m_failing = false;
};

} // namespace ocuva
