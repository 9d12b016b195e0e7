#pragma once
// The one table of the host functions. Whatever repeats their signatures is generated from it: the abstract
// classes, the loader, the tracer, the fault gate, the exported functions of our own host libraries, and the
// host of the tests. What a function does is said in tarn_abi.h; Host.h checks the table against it.
//
// A row is  F(library, result, name, failure, arguments...)
//   library    which of TARN_LIBRARIES has it
//   failure    the result of a call that fails; it may depend on the arguments
//   arguments  (direction, type, name) or (direction, type, name, extent), in order
//   direction  in, out or inout: whether the host reads what is passed, writes it, or both
//   extent     how many elements there are behind a pointer to several, or the function code that says which
//              record a void* points at; HostArguments.h has the kinds of arguments
//
// To generate something, write a macro for one row and hand it to one of the lists:
//
//     #define DECLARE(library, result, name, failure, ...) result name(TARN_PARAMETERS(__VA_ARGS__));
//     TARN_FUNCTIONS(DECLARE)

#include "hostlink/tarn_abi.h"

// clang-format off

/// The libraries: L(class, name in the program, file without suffix, functions).
#define TARN_LIBRARIES(L)                                         \
    L(TnReg,        tn_reg,         tn_reg,         TN_REG)         \
    L(TnLog,        tn_log,         tn_log,         TN_LOG)         \
    L(TnLogKeys,    Tn_log,         tn_log,         TN_LOG_KEYS)    \
    L(TnOcuva,      tn_ocuva,       tn_ocuva,       TN_OCUVA)       \
    L(TnLibProxy,   tn_lib_proxy,   tn_lib_proxy,   TN_LIB_PROXY)   \
    L(TnMicroProxy, tn_micro_proxy, tn_micro_proxy, TN_MICRO_PROXY) \
    L(TnVideo,      tn_video,       tn_video,       TN_VIDEO)       \
    L(TnVduti,      tn_vduti,       tn_vduti,       TN_VDUTI)

/// Settings stores.
#define TN_REG(F) \
    F(tn_reg, TarnLong, TarnRegisterGetInt, defaultValue, (in, const char*, section), \
      (in, const char*, key), (in, TarnLong, defaultValue), (in, const char*, store)) \
    F(tn_reg, TarnLong, TarnRegisterSetString, 0, (in, const char*, section), (in, const char*, key), \
      (in, const char*, value), (in, const char*, store)) \
    F(tn_reg, TarnLong, TarnRegisterGetString, 0, (in, const char*, section), (in, const char*, key), \
      (in, const char*, defaultValue), (out, char*, buffer, bufferSize), (in, TarnLong, bufferSize), \
      (in, const char*, store))

/// Log and message boxes.
#define TN_LOG(F) \
    F(tn_log, void, TarnPrintfVB, 0, (in, const char*, line)) \
    F(tn_log, TarnLong, TarnMessageBoxVB, ocuva::answerOfNobody(style), (in, const char*, messageKey), \
      (in, const char*, title), (in, TarnLong, style))

/// Unique object keys.
#define TN_LOG_KEYS(F) \
    F(Tn_log, TarnLong, TarnGetUniqueObjectKey, 0, (out, char*, buffer, bufferSize), (in, TarnLong, bufferSize))

/// Messages by name.
#define TN_OCUVA(F) \
    F(tn_ocuva, TarnLong, TarnOcuvaSendMsgByName, 0, (in, const char*, name))

/// Host settings, stage limits, database, plane solver.
#define TN_LIB_PROXY(F) \
    F(tn_lib_proxy, TarnLong, TarnSetVideoBoardType, 0, (in, TarnLong, boardType)) \
    F(tn_lib_proxy, TarnLong, TarnSetVideoCameraType, 0, (in, TarnLong, cameraType)) \
    F(tn_lib_proxy, TarnLong, TarnGetVideoMag100Factors, 0, (out, TarnSingle*, x100), (out, TarnSingle*, y100)) \
    F(tn_lib_proxy, TarnLong, TarnSetVideoMag100Factors, 0, (in, const TarnSingle*, x100), \
      (in, const TarnSingle*, y100)) \
    F(tn_lib_proxy, TarnLong, TarnGetStageLimits, 0, (in, TarnLong, axis), (out, TarnLong*, lower), \
      (out, TarnLong*, upper)) \
    F(tn_lib_proxy, TarnLong, TarnGetDirStd, 0, (out, char*, buffer, bufferSize), (in, TarnLong, bufferSize)) \
    F(tn_lib_proxy, TarnLong, TarnDbObjectNew, 0, (in, const char*, typeName)) \
    F(tn_lib_proxy, TarnLong, TarnDbObjectRead, 0, (in, TarnLong, handle), (in, const char*, name)) \
    F(tn_lib_proxy, TarnLong, TarnDbObjectDelete, 0, (in, TarnLong, handle)) \
    F(tn_lib_proxy, TarnLong, TarnDbGetStagePos, 0, (in, TarnLong, handle), (out, TarnLong*, x), \
      (out, TarnLong*, y), (out, TarnLong*, z)) \
    F(tn_lib_proxy, TarnLong, TarnIniEnumNb, 0, (in, const char*, section), (in, const char*, store)) \
    F(tn_lib_proxy, TarnLong, TarnIniEnumString, 0, (in, const char*, section), (in, TarnLong, number), \
      (out, char*, buffer, bufferSize), (in, TarnLong, bufferSize), (in, const char*, store)) \
    F(tn_lib_proxy, TarnLong, TarnSolvePlan, 0, (in, TarnLong, rows), \
      (in, const TarnDouble*, matrix, 3 * ocuva::planRows(rows)), \
      (in, const TarnDouble*, rightSide, ocuva::planRows(rows)), (out, TarnDouble*, solution, 3))

/// Stage and focus.
#define TN_MICRO_PROXY(F) \
    F(tn_micro_proxy, TarnLong, TarnStartStage, 0, (in, TarnLong, axis)) \
    F(tn_micro_proxy, TarnLong, TarnLoadStageAbs, 0, (in, TarnLong, axis), (in, TarnSingle, target)) \
    F(tn_micro_proxy, TarnLong, TarnLoadStageRelSecure, 0, (in, TarnLong, axis), (in, TarnSingle, distance)) \
    F(tn_micro_proxy, TarnLong, TarnReadStagePos, 0, (in, TarnLong, axis), (out, TarnLong*, position)) \
    F(tn_micro_proxy, TarnLong, TarnReadStageStatus, 0, (in, TarnLong, axis), (in, TarnLong, zero), \
      (out, TarnLong*, status)) \
    F(tn_micro_proxy, TarnLong, TarnAutoFocusExt, 0, (in, TarnLong, flag)) \
    F(tn_micro_proxy, TarnLong, TarnBacklashStage, 0, (in, TarnLong, axis))

/// Board, camera, buffers.
#define TN_VIDEO(F) \
    F(tn_video, TarnLong, TarnVideoBoardInit, 0) \
    F(tn_video, TarnLong, TarnVideoBoardShutdown, 0) \
    F(tn_video, TarnLong, TarnVideoBoardStartGrab, 0, (in, TarnLong, continuous), (in, TarnLong, show)) \
    F(tn_video, TarnLong, TarnVideoBoardHaltGrab, 0) \
    F(tn_video, TarnLong, TarnVideoSetCurrentBoardType, 0, (in, TarnLong, boardType)) \
    F(tn_video, TarnLong, TarnVideoGetCurrentBoardType, 0) \
    F(tn_video, TarnLong, TarnVideoBoardFunction, 0, (in, TarnLong, functionCode), \
      (in, void*, data, functionCode)) \
    F(tn_video, TarnLong, TarnVideoBufferAlloc, TARN_BUFFER_NONE, (inout, TarnBufferDesc*, descriptor), \
      (in, TarnLong, parent)) \
    F(tn_video, TarnLong, TarnVideoGetBufferDesc, 0, (in, TarnLong, handle), \
      (inout, TarnBufferDesc*, descriptor)) \
    F(tn_video, TarnLong, TarnVideoSetCurrentCameraType, 0, (in, TarnLong, cameraType)) \
    F(tn_video, TarnLong, TarnVideoGetCurrentCameraType, 0) \
    F(tn_video, TarnLong, TarnVideoCameraSetReferences, 0, (in, TarnLong, group), (in, TarnDouble, first), \
      (in, TarnDouble, second)) \
    F(tn_video, TarnLong, TarnVideoCameraGetReferences, 0, (in, TarnLong, group), (out, TarnDouble*, first), \
      (out, TarnDouble*, second))

/// Image statistics.
#define TN_VDUTI(F) \
    F(tn_vduti, TarnLong, TarnVideoBufferComputeStatistics, 0, (inout, TarnLong*, buffer), \
      (in, TarnLong, left), (in, TarnLong, top), (in, TarnLong, right), (in, TarnLong, bottom), \
      (out, TarnLong*, pixelCount), (out, TarnLong*, pixelSum), (out, TarnDouble*, variance))

/// Every row.
#define TARN_FUNCTIONS(F) \
    TN_REG(F) TN_LOG(F) TN_LOG_KEYS(F) TN_OCUVA(F) TN_LIB_PROXY(F) TN_MICRO_PROXY(F) TN_VIDEO(F) TN_VDUTI(F)

// ---- what a row's macro makes of the arguments ----

/// As they are declared: `TarnLong axis, TarnLong* position`.
#define TARN_PARAMETERS(...) TARN_EACH(TARN_PARAMETER, __VA_ARGS__)
#define TARN_PARAMETER(direction, type, name, ...) type name

/// As they are handed on: `axis, position`.
#define TARN_ARGUMENTS(...) TARN_EACH(TARN_ARGUMENT, __VA_ARGS__)
#define TARN_ARGUMENT(direction, type, name, ...) name

/// With their directions, as objects of HostArguments.h: `passed::in(axis), passed::out(position)`.
#define TARN_PASSED(...) TARN_EACH(TARN_DIRECTED, __VA_ARGS__)
#define TARN_DIRECTED(direction, type, name, ...) ocuva::passed::direction(name __VA_OPT__(, ) __VA_ARGS__)

// Applies a macro to each of at most eight arguments, with commas between the results.
#define TARN_EACH(m, ...) __VA_OPT__(TARN_EACH_1(m, __VA_ARGS__))
#define TARN_EACH_1(m, a, ...) m a __VA_OPT__(, TARN_EACH_2(m, __VA_ARGS__))
#define TARN_EACH_2(m, a, ...) m a __VA_OPT__(, TARN_EACH_3(m, __VA_ARGS__))
#define TARN_EACH_3(m, a, ...) m a __VA_OPT__(, TARN_EACH_4(m, __VA_ARGS__))
#define TARN_EACH_4(m, a, ...) m a __VA_OPT__(, TARN_EACH_5(m, __VA_ARGS__))
#define TARN_EACH_5(m, a, ...) m a __VA_OPT__(, TARN_EACH_6(m, __VA_ARGS__))
#define TARN_EACH_6(m, a, ...) m a __VA_OPT__(, TARN_EACH_7(m, __VA_ARGS__))
#define TARN_EACH_7(m, a, ...) m a __VA_OPT__(, TARN_EACH_8(m, __VA_ARGS__))
#define TARN_EACH_8(m, a) m a

// clang-format on
