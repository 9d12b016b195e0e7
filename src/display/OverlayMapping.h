#pragma once
// From the image's own lengths to the display: overlays are computed on the picture as it was fitted at the
// last start or zoom change, and the display shows that picture at any size.

#include "display/MonitorView.h"

#include <optional>

namespace ocuva {

/// A straight bar on the initial image. Only its width is in screen pixels: it stays as thick as it was set
/// when the picture is stretched.
struct OverlayBar {
    /// Of the bar's middle line.
    enum class Direction { Horizontal, Vertical };

    Direction direction = Direction::Horizontal; ///< which of the two
    double at = 0.0;      ///< its middle line: y of a horizontal, x of a vertical bar, twips
    double from = 0.0;    ///< the near end along its direction, twips
    double to = 0.0;      ///< the far end, twips
    Long widthPixels = 1; ///< screen pixels
};

/// In screen pixels from the display's top left corner.
struct PixelRect {
    /// Screen pixels.
    ///@{
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    ///@}

    bool operator==(const PixelRect&) const = default;
};

/// The size of the display.
struct PixelSize {
    /// Screen pixels.
    ///@{
    int width = 0;
    int height = 0;
    ///@}
};

/// The one owner of the stretch between the initial image and the display.
class OverlayMapping {
public:
    /// An initial size below 1 means an image that has not been sized yet; it is not stretched.
    OverlayMapping(Long initialWidthTwips, Long initialHeightTwips, PixelSize display, ScreenMetrics screen);

    /// A length on the initial image in pixels of the display, not rounded.
    ///@{
    double pixelsX(double twips) const { return twips * m_pixelsPerTwipX; }
    double pixelsY(double twips) const { return twips * m_pixelsPerTwipY; }
    ///@}

    /// The bar on the display, clipped at its edges; nothing if no part of it is on the display or it has
    /// no length. Its width is at least one pixel.
    std::optional<PixelRect> toDisplay(const OverlayBar& bar) const;

    /// As passed to the constructor.
    PixelSize display() const { return m_display; }

private:
    PixelSize m_display;
    double m_pixelsPerTwipX = 0.0;
    double m_pixelsPerTwipY = 0.0;
};

} // namespace ocuva
