#pragma once
// The set-up dialog in the main window: opening it, and what it changes there.

#include "app/MonitorControl.h"
#include "app/Overlays.h"
#include "app/ShownImage.h"
#include "app/Standards.h"
#include "setup/SetupContext.h"

#include <memory>

namespace ocuva {

class frmSetup;

/// What it needs; everything outlives it.
struct SetupControlContext {
    QWidget& window;         ///< the dialog's parent
    HostReadings& readings;  ///< what the pages read and write
    MainControls& controls;  ///< lends its keys to the dialog
    HandlerGuard& guard;     ///< holds the input, reports errors
    MonitorControl& monitor; ///< sizes the monitor again after a change
    Overlays& overlays;      ///< are drawn with changed lengths
    ShownImage& image;       ///< shows magnification and acquisition
    Standards& standards;    ///< the list that the dialog edits
};

/// One for the life of the main window.
class SetupControl final : private SetupMainWindow {
public:
    /// No dialog is made yet.
    explicit SetupControl(const SetupControlContext& context);
    ~SetupControl() override;

    /// Opens the dialog next to the window; one that is open comes to the front.
    void open();
    /// Closes the dialog if it is open.
    void close();
    /// The magnification has changed: an open dialog shows it.
    void followMagnification();
    /// As it was opened last; null before that.
    frmSetup* dialog() { return m_frmSetup.get(); }

private:
    const MonitorFields& fields() const override { return m_context.monitor.fields(); }
    void setCrossLengths(const CrossLengths& cross) override {
        m_context.monitor.sizing().setCrossLengths(cross);
    }
    void setGridLengths(const GridLengths& grid) override { m_context.monitor.sizing().setGridLengths(grid); }
    void DrawCross(Long centreY, Long centreX) override { m_context.overlays.DrawCross(centreY, centreX); }
    void DrawGrid(Long centreY, Long centreX) override { m_context.overlays.DrawGrid(centreY, centreX); }
    void DrawMicroMarker() override { m_context.overlays.DrawMicroMarker(); }
    void showMagnification(Long magnification) override { m_context.image.showMagnification(magnification); }
    std::shared_ptr<void> holdInput(const QString& what) override { return m_context.guard.holdInput(what); }
    void cameraChanged() override { m_context.monitor.cameraChanged(); }
    void showAcquisition() override { m_context.image.showAcquisition(); }

    SetupControlContext m_context;
    SetupMemory m_memory;
    std::unique_ptr<frmSetup> m_frmSetup;
};

} // namespace ocuva
