#include "display/PointMove.h"

#include "base/Numbers.h"

namespace ocuva {

namespace {

Long offsetFrom(Long reference, Single click) { return toLong(static_cast<double>(click) - reference); }

Long directed(Long stageLength, bool inverse) { return inverse ? stageLength : checkedNegate(stageLength); }

} // namespace

StagePair moveToPoint(const ClickOnImage& click, const Magnification& magnification, const ViewOptions& view,
                      const LengthConversion& conversion) {
    const Long dx = offsetFrom(click.reference.x, click.x);
    const Long sx =
        conversion.frameToStage(magnification.magnification, magnification.x100, {dx, click.fullFrame.x});
    const Long dy = offsetFrom(click.reference.y, click.y);
    const Long sy =
        conversion.frameToStage(magnification.magnification, magnification.y100, {dy, click.fullFrame.y});
    return {directed(sx, view.MoveXInverse != 0), directed(sy, view.MoveYInverse != 0)};
}

} // namespace ocuva
