#include "pictures/CalibrationQuality.h"

#include "base/Numbers.h"
#include "pictures/PicturePoint.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ocuva {

namespace {

using Kind = CalibrationRemark::Kind;

struct Place {
    double x = 0.0;
    double y = 0.0;

    bool operator==(const Place&) const = default;
};
Place operator-(const Place& a, const Place& b) { return {a.x - b.x, a.y - b.y}; }
double cross(const Place& a, const Place& b) { return a.x * b.y - a.y * b.x; }
double length(const Place& a) { return std::hypot(a.x, a.y); }

using Triangle = std::array<Place, 3>;

Triangle onPicture(const CalibrationPoints& points) {
    Triangle places;
    for (std::size_t i = 0; i < points.count(); ++i) {
        places.at(i) = {double(points.points.at(i).XI), double(points.points.at(i).YI)};
    }
    return places;
}

Triangle onStage(const CalibrationPoints& points) {
    Triangle places;
    for (std::size_t i = 0; i < points.count(); ++i) {
        places.at(i) = {double(points.points.at(i).XS), double(points.points.at(i).YS)};
    }
    return places;
}

// Height over the longest side: 0 for three points on a line, at most 0.87.
double flatness(const Triangle& t) {
    const double longest = std::max({length(t[1] - t[0]), length(t[2] - t[0]), length(t[2] - t[1])});
    return longest > 0.0 ? std::abs(cross(t[1] - t[0], t[2] - t[0])) / (longest * longest) : 0.0;
}

double degrees(double radians) { return radians * 180.0 / std::numbers::pi; }

class Judge {
public:
    explicit Judge(const CalibrationPoints& points)
        : m_points(points)
        , m_picture(onPicture(points))
        , m_stage(onStage(points)) {}

    CalibrationQuality judge() {
        judgePlan();
        judgePlaces(m_picture, Kind::SameOnPicture, Kind::LineOnPicture, Kind::NearLineOnPicture);
        judgePlaces(m_stage, Kind::SameOnStage, Kind::LineOnStage, Kind::NearLineOnStage);
        if (!m_points.twoPoints) {
            judgeAngles();
        }
        return m_quality;
    }

private:
    void remark(Kind kind, std::size_t first = 0, std::size_t second = 0) {
        m_quality.remarks.push_back({kind, first, second});
    }

    bool allEqual(double Place::*coordinate) const {
        const auto end = m_picture.begin() + static_cast<std::ptrdiff_t>(m_points.count());
        return std::all_of(m_picture.begin(), end, [&](const Place& place) {
            return place.*coordinate == m_picture.front().*coordinate;
        });
    }

    void judgePlan() {
        const bool noX = allEqual(&Place::x);
        const bool noY = allEqual(&Place::y);
        if (noX) {
            remark(Kind::NoXScale);
        }
        if (noY) {
            remark(Kind::NoYScale);
        }
        if (noX || noY) {
            return;
        }
        try {
            judgeScales(picturePlanThrough(m_points));
        } catch (const ArithmeticError&) {
            remark(Kind::OutOfRange);
        }
    }

    void judgeScales(const PicturePlan& plan) {
        m_quality.unitsPerWidth = plan.scaleX * pictureUnits;
        m_quality.unitsPerHeight = plan.scaleY * pictureUnits;
        if (plan.scaleX == 0.0) {
            remark(Kind::FlatX);
        }
        if (plan.scaleY == 0.0) {
            remark(Kind::FlatY);
        }
        if (!m_points.twoPoints) {
            judgeResiduals(plan);
        }
    }

    void judgeResiduals(const PicturePlan& plan) {
        auto& residuals = m_quality.residuals.emplace();
        for (std::size_t i = 0; i < residuals.size(); ++i) {
            const Place& picture = m_picture.at(i);
            residuals.at(i) = {plan.scaleX * picture.x + plan.offsetX - m_stage.at(i).x,
                               plan.scaleY * picture.y + plan.offsetY - m_stage.at(i).y};
        }
        const auto worst =
            std::max_element(residuals.begin(), residuals.end(),
                             [](const auto& a, const auto& b) { return a.length() < b.length(); });
        if (worst->length() >= 0.5) { // below that it is the rounding of the stage
            m_quality.worst = static_cast<std::size_t>(worst - residuals.begin());
        }
    }

    void judgePlaces(const Triangle& places, Kind same, Kind line, Kind nearLine) {
        bool anySame = false;
        for (std::size_t a = 0; a < m_points.count(); ++a) {
            for (std::size_t b = a + 1; b < m_points.count(); ++b) {
                if (places.at(a) == places.at(b)) {
                    remark(same, a, b);
                    anySame = true;
                }
            }
        }
        if (m_points.twoPoints || anySame) {
            return;
        }
        const double flat = flatness(places);
        if (flat == 0.0) {
            remark(line);
        } else if (flat < nearLineRatio) {
            remark(nearLine);
        }
    }

    // The affine map: stage difference = U * picture x + V * picture y.
    void judgeAngles() {
        const Place p1 = m_picture[1] - m_picture[0];
        const Place p2 = m_picture[2] - m_picture[0];
        const Place s1 = m_stage[1] - m_stage[0];
        const Place s2 = m_stage[2] - m_stage[0];
        const double determinant = cross(p1, p2);
        if (determinant == 0.0 || cross(s1, s2) == 0.0) {
            return;
        }
        const Place u{(s1.x * p2.y - s2.x * p1.y) / determinant, (s1.y * p2.y - s2.y * p1.y) / determinant};
        const Place v{(s2.x * p1.x - s1.x * p2.x) / determinant, (s2.y * p1.x - s1.y * p2.x) / determinant};
        m_quality.axesAngleDegrees = degrees(std::atan2(std::abs(cross(u, v)), u.x * v.x + u.y * v.y));
        // A picture whose X runs opposite to the stage's is mirrored, not rotated by 180 degrees.
        const double mirror = u.x < 0.0 ? -1.0 : 1.0;
        m_quality.turnDegrees = degrees(std::atan2(mirror * u.y, mirror * u.x));
    }

    const CalibrationPoints& m_points;
    Triangle m_picture;
    Triangle m_stage;
    CalibrationQuality m_quality;
};

} // namespace

bool leavesNoPlane(const CalibrationRemark& remark) {
    return remark.kind == Kind::SameOnStage || remark.kind == Kind::LineOnStage;
}

double CalibrationResidual::length() const { return std::hypot(x, y); }

CalibrationQuality calibrationQuality(const CalibrationPoints& points) { return Judge(points).judge(); }

} // namespace ocuva
