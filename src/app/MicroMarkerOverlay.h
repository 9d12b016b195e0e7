#pragma once
// The scale bar.

#include "app/Overlay.h"

namespace ocuva {

/// Switched on at each start; the switch is not stored. Shown only while its length is true.
class MicroMarkerOverlay final : public Overlay {
public:
    using Overlay::Overlay;

    const char* command() const override { return "mnuMicroMarker"; }
    bool isOn() const override { return m_on; }
    void show(bool on) override;
    /// Reads the magnification afresh; without one no marker is shown. Throws ArithmeticError when there is
    /// no field to draw a scale for; no marker is shown then, since its length would be wrong.
    void draw(const ImagePoint& centre) override;

private:
    void showPanel();

    bool m_on = true;
    bool m_isTrue = false; // whether the last draw came to its end
};

} // namespace ocuva
