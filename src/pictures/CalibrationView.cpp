#include "pictures/CalibrationView.h"

#include <cstdlib>

namespace ocuva {

ViewRelation relationTo(const CalibrationView& ofPoints, const CalibrationView& shown) {
    using Kind = ViewRelation::Kind;
    if (shown.isStored() && shown.picture == ofPoints.picture) {
        return {Kind::Same};
    }
    if (!ofPoints.place || !shown.place) {
        return {Kind::Unknown};
    }
    if (ofPoints.place->magnification != shown.place->magnification) {
        return {Kind::OtherMagnification};
    }
    const std::int64_t dx = std::int64_t{shown.place->stage.x} - ofPoints.place->stage.x;
    const std::int64_t dy = std::int64_t{shown.place->stage.y} - ofPoints.place->stage.y;
    if (std::abs(dx) <= sameViewUnits && std::abs(dy) <= sameViewUnits) {
        return {Kind::Same};
    }
    return {Kind::Moved, dx, dy};
}

bool PickedViews::agree(std::size_t count) const {
    const std::optional<CalibrationView>* first = nullptr;
    for (std::size_t i = 0; i < count; ++i) {
        const std::optional<CalibrationView>& view = m_views.at(i);
        if (!view) {
            continue;
        }
        if (first == nullptr) {
            first = &view;
        } else if (**first != *view && relationTo(**first, *view).kind != ViewRelation::Kind::Same) {
            return false;
        }
    }
    return true;
}

std::optional<CalibrationView> PickedViews::common(std::size_t count) const {
    if (!agree(count)) {
        return CalibrationView{};
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (m_views.at(i)) {
            return m_views.at(i);
        }
    }
    return {};
}

} // namespace ocuva
