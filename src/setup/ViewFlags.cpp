#include "setup/ViewFlags.h"

#include <array>

namespace ocuva {

void storeViewFlag(Settings& settings, Long ViewOptions::*flag, Long value) {
    constexpr std::array flags{&ViewOptions::LiveImage,   &ViewOptions::FullImage,
                               &ViewOptions::ShowCross,   &ViewOptions::ShowGrid,
                               &ViewOptions::LargeIcons,  &ViewOptions::MoveXInverse,
                               &ViewOptions::MoveYInverse};
    ViewOptions view = settings.readView();
    for (Long ViewOptions::*each : flags) {
        view.*each = view.*each != 0 ? 1 : 0; // as a check box or an option button has it
    }
    view.*flag = value;
    settings.writeView(view);
}

} // namespace ocuva
