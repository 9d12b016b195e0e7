#pragma once
// The seam between the program and its host: one abstract class per host library, its functions under their
// host names. What each function does, its units and its results stand in tarn_abi.h; nothing here or in any
// class that only hands on (LibraryHost, TracingHost) decides anything.

#include "hostlink/Notifier.h"
#include "hostlink/tarn_abi.h"

namespace ocuva {

/// tn_reg: settings stores.
class TnReg {
public:
    virtual ~TnReg() = default;
    virtual TarnLong TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                        const char* store) = 0;
    virtual TarnLong TarnRegisterSetString(const char* section, const char* key, const char* value,
                                           const char* store) = 0;
    virtual TarnLong TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                           char* buffer, TarnLong bufferSize, const char* store) = 0;
};

/// tn_log: log and message boxes.
class TnLog {
public:
    virtual ~TnLog() = default;
    virtual void TarnPrintfVB(const char* line) = 0;
    virtual TarnLong TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style) = 0;
};

/// Tn_log: unique object keys.
class TnLogKeys {
public:
    virtual ~TnLogKeys() = default;
    virtual TarnLong TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) = 0;
};

/// tn_ocuva: messages by name.
class TnOcuva {
public:
    virtual ~TnOcuva() = default;
    virtual TarnLong TarnOcuvaSendMsgByName(const char* name) = 0;
};

/// tn_lib_proxy: host settings, stage limits, database, plane solver.
class TnLibProxy {
public:
    virtual ~TnLibProxy() = default;
    virtual TarnLong TarnSetVideoBoardType(TarnLong boardType) = 0;
    virtual TarnLong TarnSetVideoCameraType(TarnLong cameraType) = 0;
    virtual TarnLong TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100) = 0;
    virtual TarnLong TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100) = 0;
    virtual TarnLong TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper) = 0;
    virtual TarnLong TarnGetDirStd(char* buffer, TarnLong bufferSize) = 0;
    virtual TarnLong TarnDbObjectNew(const char* typeName) = 0;
    virtual TarnLong TarnDbObjectRead(TarnLong handle, const char* name) = 0;
    virtual TarnLong TarnDbObjectDelete(TarnLong handle) = 0;
    virtual TarnLong TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z) = 0;
    virtual TarnLong TarnIniEnumNb(const char* section, const char* store) = 0;
    virtual TarnLong TarnIniEnumString(const char* section, TarnLong number, char* buffer,
                                       TarnLong bufferSize, const char* store) = 0;
    virtual TarnLong TarnSolvePlan(TarnLong rows, const TarnDouble* matrix, const TarnDouble* rightSide,
                                   TarnDouble* solution) = 0;
};

/// tn_micro_proxy: stage and focus.
class TnMicroProxy {
public:
    virtual ~TnMicroProxy() = default;
    virtual TarnLong TarnStartStage(TarnLong axis) = 0;
    virtual TarnLong TarnLoadStageAbs(TarnLong axis, TarnSingle target) = 0;
    virtual TarnLong TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) = 0;
    virtual TarnLong TarnReadStagePos(TarnLong axis, TarnLong* position) = 0;
    virtual TarnLong TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status) = 0;
    virtual TarnLong TarnAutoFocusExt(TarnLong flag) = 0;
    virtual TarnLong TarnBacklashStage(TarnLong axis) = 0;
};

/// tn_video: board, camera, buffers.
class TnVideo {
public:
    virtual ~TnVideo() = default;
    virtual TarnLong TarnVideoBoardInit() = 0;
    virtual TarnLong TarnVideoBoardShutdown() = 0;
    virtual TarnLong TarnVideoBoardStartGrab(TarnLong continuous, TarnLong show) = 0;
    virtual TarnLong TarnVideoBoardHaltGrab() = 0;
    virtual TarnLong TarnVideoSetCurrentBoardType(TarnLong boardType) = 0;
    virtual TarnLong TarnVideoGetCurrentBoardType() = 0;
    virtual TarnLong TarnVideoBoardFunction(TarnLong functionCode, void* data) = 0;
    virtual TarnLong TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent) = 0;
    virtual TarnLong TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) = 0;
    virtual TarnLong TarnVideoSetCurrentCameraType(TarnLong cameraType) = 0;
    virtual TarnLong TarnVideoGetCurrentCameraType() = 0;
    virtual TarnLong TarnVideoCameraSetReferences(TarnLong group, TarnDouble first, TarnDouble second) = 0;
    virtual TarnLong TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first, TarnDouble* second) = 0;
};

/// tn_vduti: image statistics.
class TnVduti {
public:
    virtual ~TnVduti() = default;
    virtual TarnLong TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left, TarnLong top,
                                                      TarnLong right, TarnLong bottom, TarnLong* pixelCount,
                                                      TarnLong* pixelSum, TarnDouble* variance) = 0;
};

/// A whole host: its libraries and its notifier. Implementations own what they hand out and outlive every
/// user.
class Host {
public:
    virtual ~Host() = default;
    virtual TnReg& tn_reg() = 0;
    virtual TnLog& tn_log() = 0;
    virtual TnLogKeys& Tn_log() = 0;
    virtual TnOcuva& tn_ocuva() = 0;
    virtual TnLibProxy& tn_lib_proxy() = 0;
    virtual TnMicroProxy& tn_micro_proxy() = 0;
    virtual TnVideo& tn_video() = 0;
    virtual TnVduti& tn_vduti() = 0;
    /// Makes the host's notifier object; the caller owns it.
    virtual std::unique_ptr<Notifier> createNotifier() = 0;
};

} // namespace ocuva
