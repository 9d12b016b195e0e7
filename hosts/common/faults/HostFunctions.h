#pragma once
// Every host function by name, with the answer that it gives when it fails.

#include "hostlink/tarn_abi.h"

#include <array>
#include <string_view>

namespace hosts {

struct HostFunction {
    std::string_view name;
    /// Unless the answer of a failure depends on what was asked: the given default of TarnRegisterGetInt, the
    /// answer that changes least of TarnMessageBoxVB.
    TarnLong failure = 0;
};

inline constexpr std::array<HostFunction, 41> hostFunctions{{
    {"TarnRegisterGetInt"},
    {"TarnRegisterSetString"},
    {"TarnRegisterGetString"},
    {"TarnPrintfVB"},
    {"TarnMessageBoxVB"},
    {"TarnGetUniqueObjectKey"},
    {"TarnOcuvaSendMsgByName"},
    {"TarnSetVideoBoardType"},
    {"TarnSetVideoCameraType"},
    {"TarnGetVideoMag100Factors"},
    {"TarnSetVideoMag100Factors"},
    {"TarnGetStageLimits"},
    {"TarnGetDirStd"},
    {"TarnDbObjectNew"},
    {"TarnDbObjectRead"},
    {"TarnDbObjectDelete"},
    {"TarnDbGetStagePos"},
    {"TarnIniEnumNb"},
    {"TarnIniEnumString"},
    {"TarnSolvePlan"},
    {"TarnStartStage"},
    {"TarnLoadStageAbs"},
    {"TarnLoadStageRelSecure"},
    {"TarnReadStagePos"},
    {"TarnReadStageStatus"},
    {"TarnAutoFocusExt"},
    {"TarnBacklashStage"},
    {"TarnVideoBoardInit"},
    {"TarnVideoBoardShutdown"},
    {"TarnVideoBoardStartGrab"},
    {"TarnVideoBoardHaltGrab"},
    {"TarnVideoSetCurrentBoardType"},
    {"TarnVideoGetCurrentBoardType"},
    {"TarnVideoBoardFunction"},
    {"TarnVideoBufferAlloc", TARN_BUFFER_NONE},
    {"TarnVideoGetBufferDesc"},
    {"TarnVideoSetCurrentCameraType"},
    {"TarnVideoGetCurrentCameraType"},
    {"TarnVideoCameraSetReferences"},
    {"TarnVideoCameraGetReferences"},
    {"TarnVideoBufferComputeStatistics"},
}};

/// The function of that name, without regard to letter case; null when there is none.
const HostFunction* findHostFunction(std::string_view name);

} // namespace hosts
