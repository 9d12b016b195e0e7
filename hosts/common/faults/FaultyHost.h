#pragma once
// The host's libraries as they are when faults are wanted: each call first asks the plan whether its function
// fails or is slow. This is the one place where that happens; a function that is well goes straight through.

#include "hostlink/Host.h"
#include "hosts/common/clock/Clock.h"
#include "hosts/common/faults/FaultPlan.h"

namespace hosts {

/// Lets calls through, late or not at all.
class FaultGate {
public:
    /// All outlive the gate.
    FaultGate(FaultPlan& plan, Clock& clock, HostLog& log)
        : m_plan(plan)
        , m_clock(clock)
        , m_log(log) {}

    /// Calls the function of that name, or gives the failure in its place. No exception leaves it.
    template <typename Call> TarnLong pass(const char* name, TarnLong failure, Call call) noexcept;
    /// The failure is the one that HostFunctions.h has.
    template <typename Call> TarnLong pass(const char* name, Call call) noexcept;

private:
    bool admits(const char* name) noexcept;

    FaultPlan& m_plan;
    Clock& m_clock;
    HostLog& m_log;
};

class FaultySettings final : public ocuva::TnReg {
public:
    FaultySettings(FaultGate& gate, ocuva::TnReg& real)
        : m_gate(gate)
        , m_real(real) {}
    TarnLong TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                const char* store) override;
    TarnLong TarnRegisterSetString(const char* section, const char* key, const char* value,
                                   const char* store) override;
    TarnLong TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                   char* buffer, TarnLong bufferSize, const char* store) override;

private:
    FaultGate& m_gate;
    ocuva::TnReg& m_real;
};

class FaultyLog final : public ocuva::TnLog {
public:
    FaultyLog(FaultGate& gate, ocuva::TnLog& real)
        : m_gate(gate)
        , m_real(real) {}
    void TarnPrintfVB(const char* line) override;
    TarnLong TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style) override;

private:
    FaultGate& m_gate;
    ocuva::TnLog& m_real;
};

class FaultyLogKeys final : public ocuva::TnLogKeys {
public:
    FaultyLogKeys(FaultGate& gate, ocuva::TnLogKeys& real)
        : m_gate(gate)
        , m_real(real) {}
    TarnLong TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) override;

private:
    FaultGate& m_gate;
    ocuva::TnLogKeys& m_real;
};

class FaultyMessages final : public ocuva::TnOcuva {
public:
    FaultyMessages(FaultGate& gate, ocuva::TnOcuva& real)
        : m_gate(gate)
        , m_real(real) {}
    TarnLong TarnOcuvaSendMsgByName(const char* name) override;

private:
    FaultGate& m_gate;
    ocuva::TnOcuva& m_real;
};

class FaultyGeneral final : public ocuva::TnLibProxy {
public:
    FaultyGeneral(FaultGate& gate, ocuva::TnLibProxy& real)
        : m_gate(gate)
        , m_real(real) {}
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
    FaultGate& m_gate;
    ocuva::TnLibProxy& m_real;
};

class FaultyMicroscope final : public ocuva::TnMicroProxy {
public:
    FaultyMicroscope(FaultGate& gate, ocuva::TnMicroProxy& real)
        : m_gate(gate)
        , m_real(real) {}
    TarnLong TarnStartStage(TarnLong axis) override;
    TarnLong TarnLoadStageAbs(TarnLong axis, TarnSingle target) override;
    TarnLong TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) override;
    TarnLong TarnReadStagePos(TarnLong axis, TarnLong* position) override;
    TarnLong TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status) override;
    TarnLong TarnAutoFocusExt(TarnLong flag) override;
    TarnLong TarnBacklashStage(TarnLong axis) override;

private:
    FaultGate& m_gate;
    ocuva::TnMicroProxy& m_real;
};

class FaultyVideo final : public ocuva::TnVideo {
public:
    FaultyVideo(FaultGate& gate, ocuva::TnVideo& real)
        : m_gate(gate)
        , m_real(real) {}
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

private:
    FaultGate& m_gate;
    ocuva::TnVideo& m_real;
};

class FaultyStatistics final : public ocuva::TnVduti {
public:
    FaultyStatistics(FaultGate& gate, ocuva::TnVduti& real)
        : m_gate(gate)
        , m_real(real) {}
    TarnLong TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left, TarnLong top, TarnLong right,
                                              TarnLong bottom, TarnLong* pixelCount, TarnLong* pixelSum,
                                              TarnDouble* variance) override;

private:
    FaultGate& m_gate;
    ocuva::TnVduti& m_real;
};

} // namespace hosts
