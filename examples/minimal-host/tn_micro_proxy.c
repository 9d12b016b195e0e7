/* A stage that is where it was sent as soon as it is started. */
#include "minimal_host.h"

#include <math.h>

static TarnLong position[4]; /* by axis, 1 to 3 */
static TarnLong target[4];
static int loaded[4];

static TarnLong is_axis(TarnLong axis) { return axis >= 1 && axis <= 3; }

static TarnLong load(TarnLong axis, double wanted) {
    const double reach = axis == 3 ? 2000.0 : 50000.0;
    if (!is_axis(axis) || !(fabs(wanted) <= reach)) {
        return 0;
    }
    target[axis] = (TarnLong)lrint(wanted);
    loaded[axis] = 1;
    return 1;
}

HOST_FUNCTION TarnLong TARN_CALL TarnStartStage(TarnLong axis) {
    TarnLong moved = 0;
    for (TarnLong each = 1; each <= 3; ++each) {
        if ((axis == 0 || axis == each) && loaded[each]) {
            position[each] = target[each];
            loaded[each] = 0;
            moved = 1;
        }
    }
    return moved;
}

HOST_FUNCTION TarnLong TARN_CALL TarnLoadStageAbs(TarnLong axis, TarnSingle wanted) {
    return load(axis, wanted);
}

HOST_FUNCTION TarnLong TARN_CALL TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) {
    if (!is_axis(axis)) {
        return 0;
    }
    return load(axis, (double)position[axis] + distance);
}

HOST_FUNCTION TarnLong TARN_CALL TarnReadStagePos(TarnLong axis, TarnLong* read) {
    if (!is_axis(axis)) {
        return 0;
    }
    *read = position[axis];
    return 1;
}

HOST_FUNCTION TarnLong TARN_CALL TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status) {
    (void)zero;
    if (!is_axis(axis)) {
        return 0;
    }
    *status = 0;
    return 1;
}

HOST_FUNCTION TarnLong TARN_CALL TarnAutoFocusExt(TarnLong flag) {
    (void)flag;
    return 0;
}

HOST_FUNCTION TarnLong TARN_CALL TarnBacklashStage(TarnLong axis) {
    (void)axis;
    return 0;
}
