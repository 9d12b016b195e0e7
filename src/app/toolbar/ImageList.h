#pragma once
// The image lists of the toolbar: small and large, each in three looks.

#include "app/toolbar/IconInk.h"
#include "base/Types.h"

#include <QIcon>
#include <QString>

#include <array>
#include <cstddef>

namespace ocuva {

/// Images of one size in one look, found by the button's key.
class ImageList {
public:
    /// sizePx: side of the images in logical pixels.
    ImageList(int sizePx, IconLook look)
        : m_sizePx(sizePx)
        , m_look(look) {}

    /// Side of the images in logical pixels; at a higher pixel ratio they are drawn finer, not enlarged.
    int size() const { return m_sizePx; }

    /// The image of that button, or of its active function. An unknown key gives a null icon.
    QIcon image(const QString& key, bool on) const;

private:
    int m_sizePx;
    IconLook m_look;
};

/// Sides of the toolbar's images in logical pixels.
///@{
inline constexpr int smallIconPx = 24;
inline constexpr int largeIconPx = 40;
///@}

/// Item 0 holds the small images, item 1 the large ones.
using ImageListArray = std::array<ImageList, 2>;

/// The three control arrays that the toolbar chooses from.
struct ToolbarImageLists {
    /// Plain, under the pointer, disabled.
    ///@{
    ImageListArray ilTbImage{ImageList(smallIconPx, IconLook::Normal),
                             ImageList(largeIconPx, IconLook::Normal)};
    ImageListArray ilTbHot{ImageList(smallIconPx, IconLook::Hot), ImageList(largeIconPx, IconLook::Hot)};
    ImageListArray ilTbDisabled{ImageList(smallIconPx, IconLook::Disabled),
                                ImageList(largeIconPx, IconLook::Disabled)};
    ///@}
};

/// The item of the arrays for the setting "LargeIcons": 0 for zero, 1 for any other value.
constexpr std::size_t imageListItem(Long largeIcons) { return largeIcons != 0 ? 1 : 0; }

} // namespace ocuva
