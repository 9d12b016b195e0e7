#include "standards/StageTarget.h"

#include "base/Numbers.h"
#include "base/TextNumber.h"

#include <stdexcept>
#include <tuple>

namespace ocuva {

namespace {

// Up to this number a Single, which the host takes, represents every whole number.
constexpr Long farthest = 1 << 24;

bool isFar(Long distance) { return distance > farthest || distance < -farthest; }

} // namespace

StagePosition typedPosition(const std::array<std::string, 3>& texts) {
    std::array<Long, 3> values{};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        try {
            values.at(i) = textToLong(texts.at(i));
        } catch (const std::runtime_error& error) {
            throw std::runtime_error(std::string(1, "XYZ"[i]) + ": " + error.what());
        }
    }
    return {values[0], values[1], values[2]};
}

namespace {

[[noreturn]] void refuse(Integer axis, Long target) {
    throw ArithmeticError(std::string(1, "?XYZ"[axis]) + ": " + std::to_string(target) +
                          " is too far away from where the stage is. Nothing was moved");
}

Long distanceTo(Integer axis, Long target, Long position) {
    try {
        return checkedSubtract(target, position);
    } catch (const ArithmeticError&) {
        refuse(axis, target);
    }
}

} // namespace

bool loadMovesTo(CTnStage& stage, const StagePosition& target) {
    const Long dx = distanceTo(axisX, target.x, stage.X());
    const Long dy = distanceTo(axisY, target.y, stage.Y());
    const Long dz = distanceTo(axisZ, target.z, stage.Z());
    // All before the first: a move that is loaded and not started would go with the next one.
    for (const auto& [axis, distance, wanted] :
         {std::tuple{axisX, dx, target.x}, {axisY, dy, target.y}, {axisZ, dz, target.z}}) {
        if (!stage.hasRoomFor(axis, distance)) {
            refuse(axis, wanted);
        }
    }
    stage.DX(dx);
    stage.DY(dy);
    stage.DZ(dz);
    return isFar(dx) || isFar(dy) || isFar(dz);
}

} // namespace ocuva
