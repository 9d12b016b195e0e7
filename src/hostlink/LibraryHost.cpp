#include "hostlink/LibraryHost.h"

#include "hostlink/LibraryFunctions.h"

#include <system_error>
#include <utility>

namespace ocuva {

namespace {

/// A description with room behind it, for a library whose record is longer than ours.
struct RoomyDescriptor {
    TarnBufferDesc record;
    char roomBehind[256];
};

struct TnRegLibrary final : TnReg {
    explicit TnRegLibrary(const LibraryFunctions& find)
        : m_TarnRegisterGetInt(find("TarnRegisterGetInt"))
        , m_TarnRegisterSetString(find("TarnRegisterSetString"))
        , m_TarnRegisterGetString(find("TarnRegisterGetString")) {}

    TarnLong TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                const char* store) override {
        return m_TarnRegisterGetInt(section, key, defaultValue, store);
    }
    TarnLong TarnRegisterSetString(const char* section, const char* key, const char* value,
                                   const char* store) override {
        return m_TarnRegisterSetString(section, key, value, store);
    }
    TarnLong TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                   char* buffer, TarnLong bufferSize, const char* store) override {
        return boundedText(buffer, bufferSize, [&](char* text, TarnLong size) {
            return m_TarnRegisterGetString(section, key, defaultValue, text, size, store);
        });
    }

private:
    MarkedFunction<decltype(&::TarnRegisterGetInt)> m_TarnRegisterGetInt;
    MarkedFunction<decltype(&::TarnRegisterSetString)> m_TarnRegisterSetString;
    MarkedFunction<decltype(&::TarnRegisterGetString)> m_TarnRegisterGetString;
};

struct TnLogLibrary final : TnLog {
    explicit TnLogLibrary(const LibraryFunctions& find)
        : m_TarnPrintfVB(find("TarnPrintfVB"))
        , m_TarnMessageBoxVB(find("TarnMessageBoxVB")) {}

    void TarnPrintfVB(const char* line) override { m_TarnPrintfVB(line); }
    TarnLong TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style) override {
        return m_TarnMessageBoxVB(messageKey, title, style);
    }

private:
    MarkedFunction<decltype(&::TarnPrintfVB)> m_TarnPrintfVB;
    MarkedFunction<decltype(&::TarnMessageBoxVB)> m_TarnMessageBoxVB;
};

struct TnLogKeysLibrary final : TnLogKeys {
    explicit TnLogKeysLibrary(const LibraryFunctions& find)
        : m_TarnGetUniqueObjectKey(find("TarnGetUniqueObjectKey")) {}

    TarnLong TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) override {
        return boundedText(buffer, bufferSize,
                           [&](char* text, TarnLong size) { return m_TarnGetUniqueObjectKey(text, size); });
    }

private:
    MarkedFunction<decltype(&::TarnGetUniqueObjectKey)> m_TarnGetUniqueObjectKey;
};

struct TnOcuvaLibrary final : TnOcuva {
    explicit TnOcuvaLibrary(const LibraryFunctions& find)
        : m_TarnOcuvaSendMsgByName(find("TarnOcuvaSendMsgByName")) {}

    TarnLong TarnOcuvaSendMsgByName(const char* name) override { return m_TarnOcuvaSendMsgByName(name); }

private:
    MarkedFunction<decltype(&::TarnOcuvaSendMsgByName)> m_TarnOcuvaSendMsgByName;
};

struct TnLibProxyLibrary final : TnLibProxy {
    explicit TnLibProxyLibrary(const LibraryFunctions& find)
        : m_TarnSetVideoBoardType(find("TarnSetVideoBoardType"))
        , m_TarnSetVideoCameraType(find("TarnSetVideoCameraType"))
        , m_TarnGetVideoMag100Factors(find("TarnGetVideoMag100Factors"))
        , m_TarnSetVideoMag100Factors(find("TarnSetVideoMag100Factors"))
        , m_TarnGetStageLimits(find("TarnGetStageLimits"))
        , m_TarnGetDirStd(find("TarnGetDirStd"))
        , m_TarnDbObjectNew(find("TarnDbObjectNew"))
        , m_TarnDbObjectRead(find("TarnDbObjectRead"))
        , m_TarnDbObjectDelete(find("TarnDbObjectDelete"))
        , m_TarnDbGetStagePos(find("TarnDbGetStagePos"))
        , m_TarnIniEnumNb(find("TarnIniEnumNb"))
        , m_TarnIniEnumString(find("TarnIniEnumString"))
        , m_TarnSolvePlan(find("TarnSolvePlan")) {}

    TarnLong TarnSetVideoBoardType(TarnLong boardType) override { return m_TarnSetVideoBoardType(boardType); }
    TarnLong TarnSetVideoCameraType(TarnLong cameraType) override {
        return m_TarnSetVideoCameraType(cameraType);
    }
    TarnLong TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100) override {
        return m_TarnGetVideoMag100Factors(x100, y100);
    }
    TarnLong TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100) override {
        return m_TarnSetVideoMag100Factors(x100, y100);
    }
    TarnLong TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper) override {
        return m_TarnGetStageLimits(axis, lower, upper);
    }
    TarnLong TarnGetDirStd(char* buffer, TarnLong bufferSize) override {
        return boundedText(buffer, bufferSize,
                           [&](char* text, TarnLong size) { return m_TarnGetDirStd(text, size); });
    }
    TarnLong TarnDbObjectNew(const char* typeName) override { return m_TarnDbObjectNew(typeName); }
    TarnLong TarnDbObjectRead(TarnLong handle, const char* name) override {
        return m_TarnDbObjectRead(handle, name);
    }
    TarnLong TarnDbObjectDelete(TarnLong handle) override { return m_TarnDbObjectDelete(handle); }
    TarnLong TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z) override {
        return m_TarnDbGetStagePos(handle, x, y, z);
    }
    TarnLong TarnIniEnumNb(const char* section, const char* store) override {
        return m_TarnIniEnumNb(section, store);
    }
    TarnLong TarnIniEnumString(const char* section, TarnLong number, char* buffer, TarnLong bufferSize,
                               const char* store) override {
        return boundedText(buffer, bufferSize, [&](char* text, TarnLong size) {
            return m_TarnIniEnumString(section, number, text, size, store);
        });
    }
    TarnLong TarnSolvePlan(TarnLong rows, const TarnDouble* matrix, const TarnDouble* rightSide,
                           TarnDouble* solution) override {
        return m_TarnSolvePlan(rows, matrix, rightSide, solution);
    }

private:
    MarkedFunction<decltype(&::TarnSetVideoBoardType)> m_TarnSetVideoBoardType;
    MarkedFunction<decltype(&::TarnSetVideoCameraType)> m_TarnSetVideoCameraType;
    MarkedFunction<decltype(&::TarnGetVideoMag100Factors)> m_TarnGetVideoMag100Factors;
    MarkedFunction<decltype(&::TarnSetVideoMag100Factors)> m_TarnSetVideoMag100Factors;
    MarkedFunction<decltype(&::TarnGetStageLimits)> m_TarnGetStageLimits;
    MarkedFunction<decltype(&::TarnGetDirStd)> m_TarnGetDirStd;
    MarkedFunction<decltype(&::TarnDbObjectNew)> m_TarnDbObjectNew;
    MarkedFunction<decltype(&::TarnDbObjectRead)> m_TarnDbObjectRead;
    MarkedFunction<decltype(&::TarnDbObjectDelete)> m_TarnDbObjectDelete;
    MarkedFunction<decltype(&::TarnDbGetStagePos)> m_TarnDbGetStagePos;
    MarkedFunction<decltype(&::TarnIniEnumNb)> m_TarnIniEnumNb;
    MarkedFunction<decltype(&::TarnIniEnumString)> m_TarnIniEnumString;
    MarkedFunction<decltype(&::TarnSolvePlan)> m_TarnSolvePlan;
};

struct TnMicroProxyLibrary final : TnMicroProxy {
    explicit TnMicroProxyLibrary(const LibraryFunctions& find)
        : m_TarnStartStage(find("TarnStartStage"))
        , m_TarnLoadStageAbs(find("TarnLoadStageAbs"))
        , m_TarnLoadStageRelSecure(find("TarnLoadStageRelSecure"))
        , m_TarnReadStagePos(find("TarnReadStagePos"))
        , m_TarnReadStageStatus(find("TarnReadStageStatus"))
        , m_TarnAutoFocusExt(find("TarnAutoFocusExt"))
        , m_TarnBacklashStage(find("TarnBacklashStage")) {}

    TarnLong TarnStartStage(TarnLong axis) override { return m_TarnStartStage(axis); }
    TarnLong TarnLoadStageAbs(TarnLong axis, TarnSingle target) override {
        return m_TarnLoadStageAbs(axis, target);
    }
    TarnLong TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) override {
        return m_TarnLoadStageRelSecure(axis, distance);
    }
    TarnLong TarnReadStagePos(TarnLong axis, TarnLong* position) override {
        return m_TarnReadStagePos(axis, position);
    }
    TarnLong TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status) override {
        return m_TarnReadStageStatus(axis, zero, status);
    }
    TarnLong TarnAutoFocusExt(TarnLong flag) override { return m_TarnAutoFocusExt(flag); }
    TarnLong TarnBacklashStage(TarnLong axis) override { return m_TarnBacklashStage(axis); }

private:
    MarkedFunction<decltype(&::TarnStartStage)> m_TarnStartStage;
    MarkedFunction<decltype(&::TarnLoadStageAbs)> m_TarnLoadStageAbs;
    MarkedFunction<decltype(&::TarnLoadStageRelSecure)> m_TarnLoadStageRelSecure;
    MarkedFunction<decltype(&::TarnReadStagePos)> m_TarnReadStagePos;
    MarkedFunction<decltype(&::TarnReadStageStatus)> m_TarnReadStageStatus;
    MarkedFunction<decltype(&::TarnAutoFocusExt)> m_TarnAutoFocusExt;
    MarkedFunction<decltype(&::TarnBacklashStage)> m_TarnBacklashStage;
};

struct TnVideoLibrary final : TnVideo {
    explicit TnVideoLibrary(const LibraryFunctions& find)
        : m_TarnVideoBoardInit(find("TarnVideoBoardInit"))
        , m_TarnVideoBoardShutdown(find("TarnVideoBoardShutdown"))
        , m_TarnVideoBoardStartGrab(find("TarnVideoBoardStartGrab"))
        , m_TarnVideoBoardHaltGrab(find("TarnVideoBoardHaltGrab"))
        , m_TarnVideoSetCurrentBoardType(find("TarnVideoSetCurrentBoardType"))
        , m_TarnVideoGetCurrentBoardType(find("TarnVideoGetCurrentBoardType"))
        , m_TarnVideoBoardFunction(find("TarnVideoBoardFunction"))
        , m_TarnVideoBufferAlloc(find("TarnVideoBufferAlloc"))
        , m_TarnVideoGetBufferDesc(find("TarnVideoGetBufferDesc"))
        , m_TarnVideoSetCurrentCameraType(find("TarnVideoSetCurrentCameraType"))
        , m_TarnVideoGetCurrentCameraType(find("TarnVideoGetCurrentCameraType"))
        , m_TarnVideoCameraSetReferences(find("TarnVideoCameraSetReferences"))
        , m_TarnVideoCameraGetReferences(find("TarnVideoCameraGetReferences")) {}

    TarnLong TarnVideoBoardInit() override { return m_TarnVideoBoardInit(); }
    TarnLong TarnVideoBoardShutdown() override { return m_TarnVideoBoardShutdown(); }
    TarnLong TarnVideoBoardStartGrab(TarnLong continuous, TarnLong show) override {
        return m_TarnVideoBoardStartGrab(continuous, show);
    }
    TarnLong TarnVideoBoardHaltGrab() override { return m_TarnVideoBoardHaltGrab(); }
    TarnLong TarnVideoSetCurrentBoardType(TarnLong boardType) override {
        return m_TarnVideoSetCurrentBoardType(boardType);
    }
    TarnLong TarnVideoGetCurrentBoardType() override { return m_TarnVideoGetCurrentBoardType(); }
    TarnLong TarnVideoBoardFunction(TarnLong functionCode, void* data) override {
        return m_TarnVideoBoardFunction(functionCode, data);
    }
    TarnLong TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent) override {
        RoomyDescriptor room{*descriptor, {}};
        const TarnLong result = m_TarnVideoBufferAlloc(&room.record, parent);
        *descriptor = room.record;
        return result;
    }
    TarnLong TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) override {
        RoomyDescriptor room{*descriptor, {}};
        const TarnLong result = m_TarnVideoGetBufferDesc(handle, &room.record);
        *descriptor = room.record;
        return result;
    }
    TarnLong TarnVideoSetCurrentCameraType(TarnLong cameraType) override {
        return m_TarnVideoSetCurrentCameraType(cameraType);
    }
    TarnLong TarnVideoGetCurrentCameraType() override { return m_TarnVideoGetCurrentCameraType(); }
    TarnLong TarnVideoCameraSetReferences(TarnLong group, TarnDouble first, TarnDouble second) override {
        return m_TarnVideoCameraSetReferences(group, first, second);
    }
    TarnLong TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first, TarnDouble* second) override {
        return m_TarnVideoCameraGetReferences(group, first, second);
    }

private:
    MarkedFunction<decltype(&::TarnVideoBoardInit)> m_TarnVideoBoardInit;
    MarkedFunction<decltype(&::TarnVideoBoardShutdown)> m_TarnVideoBoardShutdown;
    MarkedFunction<decltype(&::TarnVideoBoardStartGrab)> m_TarnVideoBoardStartGrab;
    MarkedFunction<decltype(&::TarnVideoBoardHaltGrab)> m_TarnVideoBoardHaltGrab;
    MarkedFunction<decltype(&::TarnVideoSetCurrentBoardType)> m_TarnVideoSetCurrentBoardType;
    MarkedFunction<decltype(&::TarnVideoGetCurrentBoardType)> m_TarnVideoGetCurrentBoardType;
    MarkedFunction<decltype(&::TarnVideoBoardFunction)> m_TarnVideoBoardFunction;
    MarkedFunction<decltype(&::TarnVideoBufferAlloc)> m_TarnVideoBufferAlloc;
    MarkedFunction<decltype(&::TarnVideoGetBufferDesc)> m_TarnVideoGetBufferDesc;
    MarkedFunction<decltype(&::TarnVideoSetCurrentCameraType)> m_TarnVideoSetCurrentCameraType;
    MarkedFunction<decltype(&::TarnVideoGetCurrentCameraType)> m_TarnVideoGetCurrentCameraType;
    MarkedFunction<decltype(&::TarnVideoCameraSetReferences)> m_TarnVideoCameraSetReferences;
    MarkedFunction<decltype(&::TarnVideoCameraGetReferences)> m_TarnVideoCameraGetReferences;
};

struct TnVdutiLibrary final : TnVduti {
    explicit TnVdutiLibrary(const LibraryFunctions& find)
        : m_TarnVideoBufferComputeStatistics(find("TarnVideoBufferComputeStatistics")) {}

    TarnLong TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left, TarnLong top, TarnLong right,
                                              TarnLong bottom, TarnLong* pixelCount, TarnLong* pixelSum,
                                              TarnDouble* variance) override {
        return m_TarnVideoBufferComputeStatistics(buffer, left, top, right, bottom, pixelCount, pixelSum,
                                                  variance);
    }

private:
    MarkedFunction<decltype(&::TarnVideoBufferComputeStatistics)> m_TarnVideoBufferComputeStatistics;
};

} // namespace

struct LibraryHost::Libraries {
    Libraries(const std::filesystem::path& where, CallMark* givenMark)
        : folder(where)
        , mark(givenMark != nullptr ? *givenMark : ownMark) {
        if (!lacks.empty()) {
            const std::size_t others = lacks.size() - 1;
            throw LibraryHostError(
                lacks.front() + (others == 0 ? "." : ". " + std::to_string(others) + " more are missing."));
        }
    }

    std::filesystem::path folder;
    CallMark ownMark;
    CallMark& mark;
    std::vector<std::string> lacks;
    LibraryFunctions tn_reg{folder, "tn_reg", lacks, mark};
    LibraryFunctions tn_log{folder, "tn_log", lacks, mark};
    LibraryFunctions tn_ocuva{folder, "tn_ocuva", lacks, mark};
    LibraryFunctions tn_lib_proxy{folder, "tn_lib_proxy", lacks, mark};
    LibraryFunctions tn_micro_proxy{folder, "tn_micro_proxy", lacks, mark};
    LibraryFunctions tn_video{folder, "tn_video", lacks, mark};
    LibraryFunctions tn_vduti{folder, "tn_vduti", lacks, mark};
    TnRegLibrary settings{tn_reg};
    TnLogLibrary log{tn_log};
    TnLogKeysLibrary keys{tn_log};
    TnOcuvaLibrary messages{tn_ocuva};
    TnLibProxyLibrary general{tn_lib_proxy};
    TnMicroProxyLibrary microscope{tn_micro_proxy};
    TnVideoLibrary video{tn_video};
    TnVdutiLibrary statistics{tn_vduti};
};

bool LibraryHost::allIn(const std::filesystem::path& folder) {
    return std::all_of(names.begin(), names.end(), [&folder](const char* name) {
        std::error_code ignored;
        return std::filesystem::is_regular_file(folder / (std::string(name) + SharedLibrary::suffix),
                                                ignored);
    });
}

LibraryHost::LibraryHost(const std::filesystem::path& folder, MakeNotifier createNotifier, CallMark* mark)
    : m_libraries(std::make_unique<Libraries>(folder, mark))
    , m_createNotifier(std::move(createNotifier)) {}

LibraryHost::~LibraryHost() = default;

TnReg& LibraryHost::tn_reg() { return m_libraries->settings; }
TnLog& LibraryHost::tn_log() { return m_libraries->log; }
TnLogKeys& LibraryHost::Tn_log() { return m_libraries->keys; }
TnOcuva& LibraryHost::tn_ocuva() { return m_libraries->messages; }
TnLibProxy& LibraryHost::tn_lib_proxy() { return m_libraries->general; }
TnMicroProxy& LibraryHost::tn_micro_proxy() { return m_libraries->microscope; }
TnVideo& LibraryHost::tn_video() { return m_libraries->video; }
TnVduti& LibraryHost::tn_vduti() { return m_libraries->statistics; }
std::unique_ptr<Notifier> LibraryHost::createNotifier() { return m_createNotifier(); }

} // namespace ocuva
