/* Limits, magnification factors, standards and the plane solver. */
#include "minimal_host.h"

static TarnSingle field_width = 30000.0F; /* stage units at magnification 100 */
static TarnSingle field_height = 22500.0F;

HOST_FUNCTION TarnLong TARN_CALL TarnSetVideoBoardType(TarnLong boardType) {
    return boardType == 0 || boardType == 1;
}

HOST_FUNCTION TarnLong TARN_CALL TarnSetVideoCameraType(TarnLong cameraType) {
    return cameraType >= 1 && cameraType <= 4;
}

HOST_FUNCTION TarnLong TARN_CALL TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100) {
    *x100 = field_width;
    *y100 = field_height;
    return 1;
}

HOST_FUNCTION TarnLong TARN_CALL TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100) {
    field_width = *x100;
    field_height = *y100;
    return 1;
}

HOST_FUNCTION TarnLong TARN_CALL TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper) {
    const TarnLong reach = axis == 3 ? 2000 : 50000;
    if (axis < 1 || axis > 3) {
        return 0;
    }
    *lower = -reach;
    *upper = reach;
    return 1;
}

HOST_FUNCTION TarnLong TARN_CALL TarnGetDirStd(char* buffer, TarnLong bufferSize) {
    return fill_text("", buffer, bufferSize);
}

/* No database: no object can be opened. */
HOST_FUNCTION TarnLong TARN_CALL TarnDbObjectNew(const char* typeName) {
    (void)typeName;
    return 0;
}

HOST_FUNCTION TarnLong TARN_CALL TarnDbObjectRead(TarnLong handle, const char* name) {
    (void)handle, (void)name;
    return 0;
}

HOST_FUNCTION TarnLong TARN_CALL TarnDbObjectDelete(TarnLong handle) {
    (void)handle;
    return 0;
}

HOST_FUNCTION TarnLong TARN_CALL TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z) {
    (void)handle, (void)x, (void)y, (void)z;
    return 0;
}

HOST_FUNCTION TarnLong TARN_CALL TarnIniEnumNb(const char* section, const char* store) {
    (void)section, (void)store;
    return 0;
}

HOST_FUNCTION TarnLong TARN_CALL TarnIniEnumString(const char* section, TarnLong number, char* buffer,
                                                   TarnLong bufferSize, const char* store) {
    (void)section, (void)number, (void)store;
    return fill_text("", buffer, bufferSize);
}

/* No solver: the program then takes the flat plane at Z 0. */
HOST_FUNCTION TarnLong TARN_CALL TarnSolvePlan(TarnLong rows, const TarnDouble* matrix,
                                               const TarnDouble* rightSide, TarnDouble* solution) {
    (void)rows, (void)matrix, (void)rightSide, (void)solution;
    return 0;
}
