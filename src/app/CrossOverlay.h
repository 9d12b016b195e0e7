#pragma once
// The centre cross.

#include "app/Overlay.h"
#include "display/OverlayFigure.h"

namespace ocuva {

/// Marks where a clicked point arrives.
class CrossOverlay final : public Overlay {
public:
    /// See OverlayContext.
    explicit CrossOverlay(const OverlayContext& context)
        : Overlay(context)
        , m_frCross(QStringLiteral("frCross"), context.panels.milDisp) {}

    const char* command() const override { return "mnuCross"; }
    void start(const ViewOptions& view) override { show(view.ShowCross != 0); }
    bool isOn() const override { return m_frCross.isShown(); }
    void show(bool on) override { m_frCross.show(on); }
    void draw(const ImagePoint& centre) override;
    void store() override { storeFlag(&ViewOptions::ShowCross); }

    /// The figure on the display.
    const OverlayFigure& frCross() const { return m_frCross; }

private:
    OverlayFigure m_frCross;
};

} // namespace ocuva
