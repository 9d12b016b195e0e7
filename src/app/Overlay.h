#pragma once
// What every overlay of the live image can do.

#include "app/MonitorPanels.h"
#include "display/CrossGeometry.h"
#include "display/LengthConversion.h"
#include "display/MonitorSizing.h"
#include "display/OverlayMapping.h"
#include "settings/Settings.h"
#include "video/Magnification.h"

#include <functional>
#include <optional>

namespace ocuva {

/// What overlays need; everything outlives them.
struct OverlayContext {
    /// The display of the overlays, and the image's sizes.
    ///@{
    const MonitorPanels& panels;
    const MonitorFields& fields;
    ///@}
    /// The magnification of the shown picture, read from the host; nothing if a stored picture does not
    /// contain it.
    std::function<std::optional<Magnification>()> magnification;
    /// The conversion of lengths, and the settings.
    ///@{
    const LengthConversion& conversion;
    Settings& settings;
    ///@}

    /// From the initial image to the picture as it is stretched now.
    OverlayMapping mapping() const;
};

/// One overlay with its settings, its geometry and its switch.
class Overlay {
public:
    /// Nothing is shown yet. The context outlives it.
    explicit Overlay(const OverlayContext& context)
        : m_context(context) {}
    virtual ~Overlay() = default;
    Overlay(const Overlay&) = delete;
    Overlay& operator=(const Overlay&) = delete;

    /// The name of the command that switches it; its menu entry and its button show the switch.
    virtual const char* command() const = 0;
    /// Takes the switch from the settings.
    virtual void start(const ViewOptions& /*view*/) {}
    /// Whether it is switched on.
    virtual bool isOn() const = 0;
    /// Shows it or hides it; nothing is stored.
    virtual void show(bool on) = 0;
    /// Places it for the image as it is now, switched on or not. The centre is on the initial image, in
    /// twips. Throws ArithmeticError where lengths leave their range.
    virtual void draw(const ImagePoint& centre) = 0;
    /// Keeps the switch for the next start.
    virtual void store() {}

protected:
    /// As passed to the constructor.
    const OverlayContext& context() const { return m_context; }
    /// Stores one of the view options; all are read and written, as they are one group.
    void storeFlag(Long ViewOptions::*flag) const;

private:
    const OverlayContext& m_context;
};

} // namespace ocuva
