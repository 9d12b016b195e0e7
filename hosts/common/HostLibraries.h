#pragma once
// The host's libraries, function by function, over the parts that do the work. tarn_abi.h says what each
// function means. None lets an exception out, none trusts a pointer to be there.

#include "hostlink/Host.h"
#include "hosts/common/HostParts.h"

namespace hosts {

class SettingsLibrary final : public ocuva::TnReg {
public:
    explicit SettingsLibrary(HostParts& parts)
        : m_parts(parts) {}
    TarnLong TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                const char* store) override;
    TarnLong TarnRegisterSetString(const char* section, const char* key, const char* value,
                                   const char* store) override;
    TarnLong TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                   char* buffer, TarnLong bufferSize, const char* store) override;

private:
    HostParts& m_parts;
};

/// The host has this library twice, under names that differ in one letter's case.
class LogLibrary final : public ocuva::TnLog, public ocuva::TnLogKeys {
public:
    explicit LogLibrary(HostParts& parts)
        : m_parts(parts) {}
    void TarnPrintfVB(const char* line) override;
    TarnLong TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style) override;
    TarnLong TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) override;

private:
    HostParts& m_parts;
};

class MessageLibrary final : public ocuva::TnOcuva {
public:
    explicit MessageLibrary(HostParts& parts)
        : m_parts(parts) {}
    TarnLong TarnOcuvaSendMsgByName(const char* name) override;

private:
    HostParts& m_parts;
};

class GeneralLibrary final : public ocuva::TnLibProxy {
public:
    explicit GeneralLibrary(HostParts& parts)
        : m_parts(parts) {}
    TarnLong TarnSetVideoBoardType(TarnLong boardType) override;
    TarnLong TarnSetVideoCameraType(TarnLong cameraType) override;
    TarnLong TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100) override;
    TarnLong TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100) override;
    TarnLong TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper) override;
    TarnLong TarnGetDirStd(char* buffer, TarnLong bufferSize) override;
    TarnLong TarnDbObjectNew(const char* typeName) override;
    TarnLong TarnDbObjectRead(TarnLong handle, const char* name) override;
    TarnLong TarnDbObjectDelete(TarnLong handle) override;
    TarnLong TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z) override;
    TarnLong TarnIniEnumNb(const char* section, const char* store) override;
    TarnLong TarnIniEnumString(const char* section, TarnLong number, char* buffer, TarnLong bufferSize,
                               const char* store) override;
    TarnLong TarnSolvePlan(TarnLong rows, const TarnDouble* matrix, const TarnDouble* rightSide,
                           TarnDouble* solution) override;

private:
    HostParts& m_parts;
};

class MicroscopeLibrary final : public ocuva::TnMicroProxy {
public:
    explicit MicroscopeLibrary(HostParts& parts)
        : m_parts(parts) {}
    TarnLong TarnStartStage(TarnLong axis) override;
    TarnLong TarnLoadStageAbs(TarnLong axis, TarnSingle target) override;
    TarnLong TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) override;
    TarnLong TarnReadStagePos(TarnLong axis, TarnLong* position) override;
    TarnLong TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status) override;
    TarnLong TarnAutoFocusExt(TarnLong flag) override;
    TarnLong TarnBacklashStage(TarnLong axis) override;

private:
    HostParts& m_parts;
};

class VideoLibrary final : public ocuva::TnVideo, public ocuva::TnVduti {
public:
    explicit VideoLibrary(HostParts& parts)
        : m_parts(parts) {}
    TarnLong TarnVideoBoardInit() override;
    TarnLong TarnVideoBoardShutdown() override;
    TarnLong TarnVideoBoardStartGrab(TarnLong continuous, TarnLong show) override;
    TarnLong TarnVideoBoardHaltGrab() override;
    TarnLong TarnVideoSetCurrentBoardType(TarnLong boardType) override;
    TarnLong TarnVideoGetCurrentBoardType() override;
    TarnLong TarnVideoBoardFunction(TarnLong functionCode, void* data) override;
    TarnLong TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent) override;
    TarnLong TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) override;
    TarnLong TarnVideoSetCurrentCameraType(TarnLong cameraType) override;
    TarnLong TarnVideoGetCurrentCameraType() override;
    TarnLong TarnVideoCameraSetReferences(TarnLong group, TarnDouble first, TarnDouble second) override;
    TarnLong TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first, TarnDouble* second) override;
    TarnLong TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left, TarnLong top, TarnLong right,
                                              TarnLong bottom, TarnLong* pixelCount, TarnLong* pixelSum,
                                              TarnDouble* variance) override;

private:
    bool save(const TarnSaveRequest& request);
    HostParts& m_parts;
};

} // namespace hosts
