#pragma once
// The view that a calibration belongs to: what was visible when its points were picked.

#include "base/StagePosition.h"
#include "base/Types.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace ocuva {

/// Stage position and magnification of a picture.
struct ViewPlace {
    StagePosition stage;    ///< under the centre of the picture
    Long magnification = 0; ///< 400 means 400 times

    bool operator==(const ViewPlace&) const = default;
};

/// The contents of the monitor: the live image at some place, or a stored picture.
struct CalibrationView {
    std::string picture;            ///< full name of the stored picture; empty for the live image
    std::optional<ViewPlace> place; ///< nothing when it is not known

    /// Whether it is a stored picture.
    bool isStored() const { return !picture.empty(); }
    bool operator==(const CalibrationView&) const = default;
};

/// How a view differs from the one on which the points were picked.
struct ViewRelation {
    /// Same: positions hold as they are. Moved: they hold when they are moved by dx, dy. Otherwise they do
    /// not hold at all.
    enum class Kind { Same, Moved, OtherMagnification, Unknown };

    Kind kind = Kind::Unknown; ///< which of them
    /// This view less the one of the points, stage units; 0 unless Moved.
    ///@{
    std::int64_t dx = 0;
    std::int64_t dy = 0;
    ///@}

    bool operator==(const ViewRelation&) const = default;
};

/// A stage that has returned to within this many units shows the same view; this is less than a pixel.
inline constexpr std::int64_t sameViewUnits = 1;

/// The relation of a view to the one of the points. A stored picture is the same view as itself, wherever it
/// was taken. Z does not count: focusing changes it, and the picture shows the same.
ViewRelation relationTo(const CalibrationView& ofPoints, const CalibrationView& shown);

/// The views on which the points of a calibration in the making were picked, one by one.
class PickedViews {
public:
    /// Records that the point, counted from 0, was picked on this view; nothing if the view is unknown.
    void pick(std::size_t point, const std::optional<CalibrationView>& view) { m_views.at(point) = view; }
    /// All points have been taken from one calibration with that view.
    void takeOver(const std::optional<CalibrationView>& view) { m_views.fill(view); }

    /// Of that point.
    const std::optional<CalibrationView>& of(std::size_t point) const { return m_views.at(point); }

    /// Whether the first `count` points were picked on one view. Points with an unknown view agree with
    /// every other.
    bool agree(std::size_t count) const;

    /// The view of the first `count` points: without a place if they do not agree, and nothing if none of
    /// them has a view.
    std::optional<CalibrationView> common(std::size_t count) const;

private:
    std::array<std::optional<CalibrationView>, 3> m_views;
};

} // namespace ocuva
