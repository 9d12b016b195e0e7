#include "app/Overlays.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace ocuva {

template <typename Kind> Kind& Overlays::add() {
    auto made = std::make_unique<Kind>(m_context);
    Kind& overlay = *made;
    m_overlays.push_back(std::move(made));
    return overlay;
}

// The micro marker comes last: without a magnification it ends the drawing.
Overlays::Overlays(OverlayContext context, OverlaySwitches switches)
    : m_context(std::move(context))
    , m_switches(std::move(switches))
    , m_cross(add<CrossOverlay>())
    , m_grid(add<GridOverlay>())
    , m_microMarker(add<MicroMarkerOverlay>()) {
    m_context.panels.milDisp->setStyleSheet(overlayStyleSheet());
}

void Overlays::showStartState(const ViewOptions& view) {
    for (const auto& overlay : m_overlays) {
        overlay->start(view);
        mark(*overlay);
    }
}

void Overlays::draw(const ImagePoint& centre) {
    for (const auto& overlay : m_overlays) {
        overlay->draw(centre);
    }
}

namespace {

bool hasButton(const Overlay& overlay) { return !command(overlay.command()).button.key.isEmpty(); }

} // namespace

// The new state is that of the overlay turned round, not that of the mark or of the button: the one that was
// clicked has already changed its own.
void Overlays::toggle(std::string_view command) {
    const auto found = std::find_if(m_overlays.begin(), m_overlays.end(),
                                    [command](const auto& overlay) { return overlay->command() == command; });
    if (found == m_overlays.end()) {
        throw std::out_of_range("there is no overlay for this command");
    }
    Overlay& overlay = **found;
    overlay.show(!overlay.isOn());
    mark(overlay);
    if (hasButton(overlay)) {
        m_switches.saveToolbar();
    }
    overlay.store();
}

void Overlays::mark(const Overlay& overlay) {
    m_switches.menu.action(overlay.command())->setChecked(overlay.isOn());
    if (hasButton(overlay)) {
        m_switches.tbMain.setValue(command(overlay.command()).button.key, overlay.isOn());
    }
}

} // namespace ocuva
