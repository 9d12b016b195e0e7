#pragma once
// All overlays of the live image, and the commands that switch them.

#include "app/CrossOverlay.h"
#include "app/GridOverlay.h"
#include "app/MainMenu.h"
#include "app/MicroMarkerOverlay.h"
#include "app/toolbar/MainToolbar.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace ocuva {

/// The controls that show the switches.
struct OverlaySwitches {
    /// Outlive the overlays.
    ///@{
    const MainMenu& menu;
    MainToolbar& tbMain;
    ///@}
    /// Stores the toolbar's layout after its buttons have changed.
    std::function<void()> saveToolbar;
};

/// Lengths come in on the initial image in twips; the picture may be stretched, and the overlays with it.
class Overlays {
public:
    /// Nothing is shown yet.
    Overlays(OverlayContext context, OverlaySwitches switches);

    /// Shows the overlays according to the settings, and the micro marker.
    void showStartState(const ViewOptions& view);

    /// Draws all of them, in the order of their list; the first error ends it.
    void draw(const ImagePoint& centre);

    /// Runs a command: the overlay is switched, menu mark and toolbar button follow, and the setting is
    /// stored if there is one. Throws std::out_of_range if no overlay has such a command.
    void toggle(std::string_view command);

    /// Single overlays, as Overlay says.
    ///@{
    void DrawCross(Long centreY, Long centreX) { m_cross.draw({centreX, centreY}); }
    void DrawGrid(Long centreY, Long centreX) { m_grid.draw({centreX, centreY}); }
    void DrawMicroMarker() { m_microMarker.draw({}); }
    void ShowCross(bool bShow) { m_cross.show(bShow); }
    void ShowGrid(bool bShow) { m_grid.show(bShow); }
    bool bShowCross() const { return m_cross.isOn(); }
    bool bShowGrid() const { return m_grid.isOn(); }
    const OverlayFigure& frCross() const { return m_cross.frCross(); }
    const OverlayFigure& frGrid() const { return m_grid.frGrid(); }
    ///@}

private:
    template <typename Kind> Kind& add();
    void mark(const Overlay& overlay);

    OverlayContext m_context;
    OverlaySwitches m_switches;
    std::vector<std::unique_ptr<Overlay>> m_overlays;
    CrossOverlay& m_cross;
    GridOverlay& m_grid;
    MicroMarkerOverlay& m_microMarker;
};

} // namespace ocuva
