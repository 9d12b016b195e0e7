#include "pictures/Calibration.h"

#include "base/Numbers.h"

#include <cstdlib>
#include <limits>
#include <span>

namespace ocuva {

namespace {

struct AxisPoint {
    Integer image = 0;
    Long stage = 0;
};

struct AxisMap {
    double scale = 0.0;
    double offset = 0.0;
};

// 16-bit arithmetic with its overflow, for the difference and for its absolute value.
Integer distance16(Integer from, Integer to) { return toInteger(std::abs(Long{toInteger(Long{to} - from)})); }

AxisMap axisMap(std::span<const AxisPoint> points) {
    std::size_t bestA = 0;
    std::size_t bestB = 1;
    Integer best = -1;
    for (std::size_t a = 0; a < points.size(); ++a) {
        for (std::size_t b = a + 1; b < points.size(); ++b) {
            const Integer distance = distance16(points[a].image, points[b].image);
            if (distance > best) {
                best = distance;
                bestA = a;
                bestB = b;
            }
        }
    }
    const AxisPoint& pointA = points[bestA];
    const AxisPoint& pointB = points[bestB];
    AxisMap map;
    map.scale = checkedDivide(checkedSubtract(pointB.stage, pointA.stage), Long{pointB.image} - pointA.image);
    map.offset = pointB.stage - map.scale * pointB.image;
    return map;
}

} // namespace

PicturePlan picturePlanThrough(const CalibrationPoints& points) {
    std::array<AxisPoint, 3> x;
    std::array<AxisPoint, 3> y;
    for (std::size_t i = 0; i < points.count(); ++i) {
        const CalibrationPoint& point = points.points.at(i);
        x.at(i) = {point.XI, point.XS};
        y.at(i) = {point.YI, point.YS};
    }
    const AxisMap mapX = axisMap(std::span(x).first(points.count()));
    const AxisMap mapY = axisMap(std::span(y).first(points.count()));
    return {mapX.scale, mapX.offset, mapY.scale, mapY.offset};
}

void Calibration::ComputePicturePlan() { m_picturePlan = picturePlanThrough(points); }

void Calibration::ComputeStagePlan() {
    constexpr Long rows = 3;
    std::array<double, 9> matrix{};
    std::array<double, 3> rightSide{};
    for (std::size_t i = 0; i < points.count(); ++i) {
        const CalibrationPoint& point = points.points.at(i);
        matrix.at(3 * i) = point.XS;
        matrix.at(3 * i + 1) = point.YS;
        matrix.at(3 * i + 2) = 1.0;
        rightSide.at(i) = point.ZS;
    }
    if (points.twoPoints) {
        // No slope at right angles to the line through the points: -dy * a + dx * b = 0.
        const CalibrationPoint& first = points.points[0];
        const CalibrationPoint& second = points.points[1];
        matrix[6] = static_cast<double>(first.YS) - second.YS;
        matrix[7] = static_cast<double>(second.XS) - first.XS;
    }
    std::array<double, 3> solution{};
    const bool solved = m_libProxy.TarnSolvePlan(rows, matrix.data(), rightSide.data(), solution.data()) != 0;
    m_stagePlan = solved ? StagePlan{solution[0], solution[1], solution[2]} : StagePlan{};
}

StagePosition Calibration::ComputeStagePosition(Single XPic, Single YPic) const {
    StagePosition result;
    result.x = toLong(static_cast<double>(XPic) * m_picturePlan.scaleX + m_picturePlan.offsetX);
    result.y = toLong(static_cast<double>(YPic) * m_picturePlan.scaleY + m_picturePlan.offsetY);
    result.z = heightAt(result.x, result.y);
    return result;
}

StagePosition Calibration::movedPosition(Single XPic, Single YPic, std::int64_t dx, std::int64_t dy) const {
    StagePosition result = ComputeStagePosition(XPic, YPic);
    result.x = toLong(result.x + static_cast<double>(dx));
    result.y = toLong(result.y + static_cast<double>(dy));
    result.z = heightAt(result.x, result.y);
    return result;
}

Long Calibration::heightAt(Long XSt, Long YSt) const {
    return toLong(m_stagePlan.a * XSt + m_stagePlan.b * YSt + m_stagePlan.c);
}

} // namespace ocuva
