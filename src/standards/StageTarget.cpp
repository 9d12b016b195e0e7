#include "standards/StageTarget.h"

#include "base/Numbers.h"
#include "base/TextNumber.h"

#include <stdexcept>

namespace ocuva {

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

void loadMovesTo(CTnStage& stage, const StagePosition& target) {
    const Long dx = checkedSubtract(target.x, stage.X());
    const Long dy = checkedSubtract(target.y, stage.Y());
    const Long dz = checkedSubtract(target.z, stage.Z());
    stage.DX(dx);
    stage.DY(dy);
    stage.DZ(dz);
}

} // namespace ocuva
