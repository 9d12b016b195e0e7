#pragma once
// What lies on the live image: centre cross, grid and micro marker, and the commands that switch them.

#include "app/MainMenu.h"
#include "app/MonitorPanels.h"
#include "app/toolbar/MainToolbar.h"
#include "display/LengthConversion.h"
#include "display/MonitorSizing.h"
#include "display/OverlayFigure.h"
#include "settings/Settings.h"
#include "video/Magnification.h"

#include <functional>
#include <optional>

namespace ocuva {

/// What the overlays need; everything outlives them.
struct OverlaysContext {
    /// Where the overlays lie, what is marked with them, and the image's sizes.
    ///@{
    const MonitorPanels& panels;
    const MainMenu& menu;
    MainToolbar& tbMain;
    const MonitorFields& fields;
    ///@}
    /// Of what is shown, read afresh; nothing when a stored picture does not tell its own.
    std::function<std::optional<Magnification>()> magnification;
    /// How lengths are converted, and where the choice is kept.
    ///@{
    const LengthConversion& conversion;
    Settings& settings;
    ///@}
    /// Keeps the toolbar's layout, whose buttons changed.
    std::function<void()> saveToolbar;
};

/// Lengths come in on the initial image in twips; the picture may be stretched, and the overlays with it.
class Overlays {
public:
    /// Nothing is shown yet.
    explicit Overlays(OverlaysContext context);

    /// Shows what the settings say, and the micro marker.
    void showStartState(const ViewOptions& view);

    /// The centre on the initial image, twips. What is switched off is placed and stays hidden.
    ///@{
    void DrawCross(Long centreY, Long centreX);
    void DrawGrid(Long centreY, Long centreX);
    ///@}
    /// Reads the magnification afresh; without one no marker is shown. Throws ArithmeticError when there is
    /// no field to draw a scale for; no marker is shown then, for it would tell a lie.
    void DrawMicroMarker();

    /// Shows it or hides it; menu, toolbar and setting stay as they are.
    ///@{
    void ShowCross(bool bShow) { m_frCross.show(bShow); }
    void ShowGrid(bool bShow) { m_frGrid.show(bShow); }
    ///@}

    /// The commands: menu mark, toolbar button and setting follow together, where there are such.
    ///@{
    void toggleCross();
    void toggleGrid();
    void toggleMicroMarker();
    ///@}

    /// Whether it is switched on.
    ///@{
    bool bShowCross() const { return m_frCross.isShown(); }
    bool bShowGrid() const { return m_frGrid.isShown(); }
    ///@}

    /// The figures on the display.
    ///@{
    const OverlayFigure& frCross() const { return m_frCross; }
    const OverlayFigure& frGrid() const { return m_frGrid; }
    ///@}

private:
    OverlayMapping mapping() const;
    void markCross();
    void markGrid();
    void store(Long ViewOptions::*flag, bool on);
    void showMicroMarker();

    OverlaysContext m_context;
    OverlayFigure m_frGrid;
    OverlayFigure m_frCross;
    bool m_showMicroMarker = true;
    bool m_microMarkerIsTrue = false; // whether the last DrawMicroMarker came to its end
};

} // namespace ocuva
