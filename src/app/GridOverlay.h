#pragma once
// The grid for judging distances.

#include "app/Overlay.h"
#include "display/OverlayFigure.h"

namespace ocuva {

/// Its pitch and the width of its bars are those of the sizing, at the present zoom.
class GridOverlay final : public Overlay {
public:
    /// See OverlayContext.
    explicit GridOverlay(const OverlayContext& context)
        : Overlay(context)
        , m_frGrid(QStringLiteral("frGrid"), context.panels.milDisp) {}

    const char* command() const override { return "mnuGrid"; }
    void start(const ViewOptions& view) override { show(view.ShowGrid != 0); }
    bool isOn() const override { return m_frGrid.isShown(); }
    void show(bool on) override { m_frGrid.show(on); }
    void draw(const ImagePoint& centre) override;
    void store() override { storeFlag(&ViewOptions::ShowGrid); }

    /// The figure on the display.
    const OverlayFigure& frGrid() const { return m_frGrid; }

private:
    OverlayFigure m_frGrid;
};

} // namespace ocuva
