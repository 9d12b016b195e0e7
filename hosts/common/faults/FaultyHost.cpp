#include "hosts/common/faults/FaultyHost.h"

#include "hosts/common/GuardedCall.h"
#include "hosts/common/HostTexts.h"
#include "hosts/common/faults/HostFunctions.h"

namespace hosts {

// The time passes before the answer is fetched, so that a slow status tells of the moment at which it
// arrives.
bool FaultGate::admits(const char* name) noexcept {
    return guardedCall(m_log, name, true, [&] {
        const FunctionFault fault = m_plan.function(name);
        if (fault.slowMs > 0.0) {
            m_clock.spend(fault.slowMs);
        }
        return !fault.fails;
    });
}

template <typename Call> TarnLong FaultGate::pass(const char* name, TarnLong failure, Call call) noexcept {
    return admits(name) ? call() : failure;
}

template <typename Call> TarnLong FaultGate::pass(const char* name, Call call) noexcept {
    const HostFunction* const function = findHostFunction(name);
    return pass(name, function == nullptr ? 0 : function->failure, call);
}

TarnLong FaultySettings::TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                            const char* store) {
    return m_gate.pass("TarnRegisterGetInt", defaultValue,
                       [&] { return m_real.TarnRegisterGetInt(section, key, defaultValue, store); });
}

TarnLong FaultySettings::TarnRegisterSetString(const char* section, const char* key, const char* value,
                                               const char* store) {
    return m_gate.pass("TarnRegisterSetString",
                       [&] { return m_real.TarnRegisterSetString(section, key, value, store); });
}

TarnLong FaultySettings::TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                               char* buffer, TarnLong bufferSize, const char* store) {
    return m_gate.pass("TarnRegisterGetString", [&] {
        return m_real.TarnRegisterGetString(section, key, defaultValue, buffer, bufferSize, store);
    });
}

void FaultyLog::TarnPrintfVB(const char* line) {
    m_gate.pass("TarnPrintfVB", [&] {
        m_real.TarnPrintfVB(line);
        return TarnLong{0};
    });
}

TarnLong FaultyLog::TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style) {
    return m_gate.pass("TarnMessageBoxVB", answerOfNobody(style),
                       [&] { return m_real.TarnMessageBoxVB(messageKey, title, style); });
}

TarnLong FaultyLogKeys::TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) {
    return m_gate.pass("TarnGetUniqueObjectKey",
                       [&] { return m_real.TarnGetUniqueObjectKey(buffer, bufferSize); });
}

TarnLong FaultyMessages::TarnOcuvaSendMsgByName(const char* name) {
    return m_gate.pass("TarnOcuvaSendMsgByName", [&] { return m_real.TarnOcuvaSendMsgByName(name); });
}

TarnLong FaultyGeneral::TarnSetVideoBoardType(TarnLong boardType) {
    return m_gate.pass("TarnSetVideoBoardType", [&] { return m_real.TarnSetVideoBoardType(boardType); });
}

TarnLong FaultyGeneral::TarnSetVideoCameraType(TarnLong cameraType) {
    return m_gate.pass("TarnSetVideoCameraType", [&] { return m_real.TarnSetVideoCameraType(cameraType); });
}

TarnLong FaultyGeneral::TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100) {
    return m_gate.pass("TarnGetVideoMag100Factors",
                       [&] { return m_real.TarnGetVideoMag100Factors(x100, y100); });
}

TarnLong FaultyGeneral::TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100) {
    return m_gate.pass("TarnSetVideoMag100Factors",
                       [&] { return m_real.TarnSetVideoMag100Factors(x100, y100); });
}

TarnLong FaultyGeneral::TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper) {
    return m_gate.pass("TarnGetStageLimits", [&] { return m_real.TarnGetStageLimits(axis, lower, upper); });
}

TarnLong FaultyGeneral::TarnGetDirStd(char* buffer, TarnLong bufferSize) {
    return m_gate.pass("TarnGetDirStd", [&] { return m_real.TarnGetDirStd(buffer, bufferSize); });
}

TarnLong FaultyGeneral::TarnDbObjectNew(const char* typeName) {
    return m_gate.pass("TarnDbObjectNew", [&] { return m_real.TarnDbObjectNew(typeName); });
}

TarnLong FaultyGeneral::TarnDbObjectRead(TarnLong handle, const char* name) {
    return m_gate.pass("TarnDbObjectRead", [&] { return m_real.TarnDbObjectRead(handle, name); });
}

TarnLong FaultyGeneral::TarnDbObjectDelete(TarnLong handle) {
    return m_gate.pass("TarnDbObjectDelete", [&] { return m_real.TarnDbObjectDelete(handle); });
}

TarnLong FaultyGeneral::TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z) {
    return m_gate.pass("TarnDbGetStagePos", [&] { return m_real.TarnDbGetStagePos(handle, x, y, z); });
}

TarnLong FaultyGeneral::TarnIniEnumNb(const char* section, const char* store) {
    return m_gate.pass("TarnIniEnumNb", [&] { return m_real.TarnIniEnumNb(section, store); });
}

TarnLong FaultyGeneral::TarnIniEnumString(const char* section, TarnLong number, char* buffer,
                                          TarnLong bufferSize, const char* store) {
    return m_gate.pass("TarnIniEnumString",
                       [&] { return m_real.TarnIniEnumString(section, number, buffer, bufferSize, store); });
}

TarnLong FaultyGeneral::TarnSolvePlan(TarnLong rows, const TarnDouble* matrix, const TarnDouble* rightSide,
                                      TarnDouble* solution) {
    return m_gate.pass("TarnSolvePlan",
                       [&] { return m_real.TarnSolvePlan(rows, matrix, rightSide, solution); });
}

TarnLong FaultyMicroscope::TarnStartStage(TarnLong axis) {
    return m_gate.pass("TarnStartStage", [&] { return m_real.TarnStartStage(axis); });
}

TarnLong FaultyMicroscope::TarnLoadStageAbs(TarnLong axis, TarnSingle target) {
    return m_gate.pass("TarnLoadStageAbs", [&] { return m_real.TarnLoadStageAbs(axis, target); });
}

TarnLong FaultyMicroscope::TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) {
    return m_gate.pass("TarnLoadStageRelSecure",
                       [&] { return m_real.TarnLoadStageRelSecure(axis, distance); });
}

TarnLong FaultyMicroscope::TarnReadStagePos(TarnLong axis, TarnLong* position) {
    return m_gate.pass("TarnReadStagePos", [&] { return m_real.TarnReadStagePos(axis, position); });
}

TarnLong FaultyMicroscope::TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status) {
    return m_gate.pass("TarnReadStageStatus", [&] { return m_real.TarnReadStageStatus(axis, zero, status); });
}

TarnLong FaultyMicroscope::TarnAutoFocusExt(TarnLong flag) {
    return m_gate.pass("TarnAutoFocusExt", [&] { return m_real.TarnAutoFocusExt(flag); });
}

TarnLong FaultyMicroscope::TarnBacklashStage(TarnLong axis) {
    return m_gate.pass("TarnBacklashStage", [&] { return m_real.TarnBacklashStage(axis); });
}

TarnLong FaultyVideo::TarnVideoBoardInit() {
    return m_gate.pass("TarnVideoBoardInit", [&] { return m_real.TarnVideoBoardInit(); });
}

TarnLong FaultyVideo::TarnVideoBoardShutdown() {
    return m_gate.pass("TarnVideoBoardShutdown", [&] { return m_real.TarnVideoBoardShutdown(); });
}

TarnLong FaultyVideo::TarnVideoBoardStartGrab(TarnLong continuous, TarnLong show) {
    return m_gate.pass("TarnVideoBoardStartGrab",
                       [&] { return m_real.TarnVideoBoardStartGrab(continuous, show); });
}

TarnLong FaultyVideo::TarnVideoBoardHaltGrab() {
    return m_gate.pass("TarnVideoBoardHaltGrab", [&] { return m_real.TarnVideoBoardHaltGrab(); });
}

TarnLong FaultyVideo::TarnVideoSetCurrentBoardType(TarnLong boardType) {
    return m_gate.pass("TarnVideoSetCurrentBoardType",
                       [&] { return m_real.TarnVideoSetCurrentBoardType(boardType); });
}

TarnLong FaultyVideo::TarnVideoGetCurrentBoardType() {
    return m_gate.pass("TarnVideoGetCurrentBoardType", [&] { return m_real.TarnVideoGetCurrentBoardType(); });
}

TarnLong FaultyVideo::TarnVideoBoardFunction(TarnLong functionCode, void* data) {
    return m_gate.pass("TarnVideoBoardFunction",
                       [&] { return m_real.TarnVideoBoardFunction(functionCode, data); });
}

TarnLong FaultyVideo::TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent) {
    return m_gate.pass("TarnVideoBufferAlloc",
                       [&] { return m_real.TarnVideoBufferAlloc(descriptor, parent); });
}

TarnLong FaultyVideo::TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) {
    return m_gate.pass("TarnVideoGetBufferDesc",
                       [&] { return m_real.TarnVideoGetBufferDesc(handle, descriptor); });
}

TarnLong FaultyVideo::TarnVideoSetCurrentCameraType(TarnLong cameraType) {
    return m_gate.pass("TarnVideoSetCurrentCameraType",
                       [&] { return m_real.TarnVideoSetCurrentCameraType(cameraType); });
}

TarnLong FaultyVideo::TarnVideoGetCurrentCameraType() {
    return m_gate.pass("TarnVideoGetCurrentCameraType",
                       [&] { return m_real.TarnVideoGetCurrentCameraType(); });
}

TarnLong FaultyVideo::TarnVideoCameraSetReferences(TarnLong group, TarnDouble first, TarnDouble second) {
    return m_gate.pass("TarnVideoCameraSetReferences",
                       [&] { return m_real.TarnVideoCameraSetReferences(group, first, second); });
}

TarnLong FaultyVideo::TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first, TarnDouble* second) {
    return m_gate.pass("TarnVideoCameraGetReferences",
                       [&] { return m_real.TarnVideoCameraGetReferences(group, first, second); });
}

TarnLong FaultyStatistics::TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left, TarnLong top,
                                                            TarnLong right, TarnLong bottom,
                                                            TarnLong* pixelCount, TarnLong* pixelSum,
                                                            TarnDouble* variance) {
    return m_gate.pass("TarnVideoBufferComputeStatistics", [&] {
        return m_real.TarnVideoBufferComputeStatistics(buffer, left, top, right, bottom, pixelCount, pixelSum,
                                                       variance);
    });
}

} // namespace hosts
