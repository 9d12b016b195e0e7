#include "hostlink/TracingHost.h"

#include "hostlink/TracedCall.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <tuple>
#include <utility>

namespace ocuva {

namespace {

/// What a host wrote into a text buffer, never more than the buffer holds.
std::string_view filled(const char* buffer, TarnLong bufferSize, TarnLong written) {
    return {buffer, static_cast<std::size_t>(std::clamp(written, 0, std::max(bufferSize, 0)))};
}

/// The library behind a traced one.
template <class Library> class Traced : public Library {
public:
    Traced(Trace& trace, const char* name, Library& inner)
        : m_inner(inner)
        , m_trace(trace)
        , m_name(name) {}

protected:
    template <class... In> TracedCall begin(const char* function, const In&... in) {
        return TracedCall(m_trace, m_name, function, in...);
    }

    Library& m_inner;

private:
    Trace& m_trace;
    const char* m_name;
};

class TracedReg final : public Traced<TnReg> {
public:
    using Traced::Traced;

    TarnLong TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                const char* store) override {
        auto call = begin(__func__, section, key, defaultValue, store);
        return call.end(m_inner.TarnRegisterGetInt(section, key, defaultValue, store));
    }
    TarnLong TarnRegisterSetString(const char* section, const char* key, const char* value,
                                   const char* store) override {
        auto call = begin(__func__, section, key, value, store);
        return call.end(m_inner.TarnRegisterSetString(section, key, value, store));
    }
    TarnLong TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                   char* buffer, TarnLong bufferSize, const char* store) override {
        auto call = begin(__func__, section, key, defaultValue, bufferSize, store);
        const TarnLong written =
            m_inner.TarnRegisterGetString(section, key, defaultValue, buffer, bufferSize, store);
        return call.end(written, filled(buffer, bufferSize, written));
    }
};

class TracedLog final : public Traced<TnLog> {
public:
    using Traced::Traced;

    void TarnPrintfVB(const char* line) override {
        auto call = begin(__func__, line);
        m_inner.TarnPrintfVB(line);
        call.end(nullptr);
    }
    TarnLong TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style) override {
        auto call = begin(__func__, messageKey, title, style);
        return call.end(m_inner.TarnMessageBoxVB(messageKey, title, style));
    }
};

class TracedLogKeys final : public Traced<TnLogKeys> {
public:
    using Traced::Traced;

    TarnLong TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) override {
        auto call = begin(__func__, bufferSize);
        const TarnLong written = m_inner.TarnGetUniqueObjectKey(buffer, bufferSize);
        return call.end(written, filled(buffer, bufferSize, written));
    }
};

class TracedOcuva final : public Traced<TnOcuva> {
public:
    using Traced::Traced;

    TarnLong TarnOcuvaSendMsgByName(const char* name) override {
        auto call = begin(__func__, name);
        return call.end(m_inner.TarnOcuvaSendMsgByName(name));
    }
};

class TracedLibProxy final : public Traced<TnLibProxy> {
public:
    using Traced::Traced;

    TarnLong TarnSetVideoBoardType(TarnLong boardType) override {
        auto call = begin(__func__, boardType);
        return call.end(m_inner.TarnSetVideoBoardType(boardType));
    }
    TarnLong TarnSetVideoCameraType(TarnLong cameraType) override {
        auto call = begin(__func__, cameraType);
        return call.end(m_inner.TarnSetVideoCameraType(cameraType));
    }
    TarnLong TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100) override {
        auto call = begin(__func__);
        return call.end(m_inner.TarnGetVideoMag100Factors(x100, y100), *x100, *y100);
    }
    TarnLong TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100) override {
        auto call = begin(__func__, *x100, *y100);
        return call.end(m_inner.TarnSetVideoMag100Factors(x100, y100));
    }
    TarnLong TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper) override {
        auto call = begin(__func__, axis);
        return call.end(m_inner.TarnGetStageLimits(axis, lower, upper), *lower, *upper);
    }
    TarnLong TarnGetDirStd(char* buffer, TarnLong bufferSize) override {
        auto call = begin(__func__, bufferSize);
        const TarnLong written = m_inner.TarnGetDirStd(buffer, bufferSize);
        return call.end(written, filled(buffer, bufferSize, written));
    }
    TarnLong TarnDbObjectNew(const char* typeName) override {
        auto call = begin(__func__, typeName);
        return call.end(m_inner.TarnDbObjectNew(typeName));
    }
    TarnLong TarnDbObjectRead(TarnLong handle, const char* name) override {
        auto call = begin(__func__, handle, name);
        return call.end(m_inner.TarnDbObjectRead(handle, name));
    }
    TarnLong TarnDbObjectDelete(TarnLong handle) override {
        auto call = begin(__func__, handle);
        return call.end(m_inner.TarnDbObjectDelete(handle));
    }
    TarnLong TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z) override {
        auto call = begin(__func__, handle);
        return call.end(m_inner.TarnDbGetStagePos(handle, x, y, z), *x, *y, *z);
    }
    TarnLong TarnIniEnumNb(const char* section, const char* store) override {
        auto call = begin(__func__, section, store);
        return call.end(m_inner.TarnIniEnumNb(section, store));
    }
    TarnLong TarnIniEnumString(const char* section, TarnLong number, char* buffer, TarnLong bufferSize,
                               const char* store) override {
        auto call = begin(__func__, section, number, bufferSize, store);
        const TarnLong written = m_inner.TarnIniEnumString(section, number, buffer, bufferSize, store);
        return call.end(written, filled(buffer, bufferSize, written));
    }
    TarnLong TarnSolvePlan(TarnLong rows, const TarnDouble* matrix, const TarnDouble* rightSide,
                           TarnDouble* solution) override {
        using Row = std::span<const TarnDouble>;
        const auto readable = static_cast<std::size_t>(std::clamp(rows, 0, 3));
        auto call = begin(__func__, rows, Row(matrix, readable * 3), Row(rightSide, readable));
        return call.end(m_inner.TarnSolvePlan(rows, matrix, rightSide, solution), Row(solution, 3));
    }
};

class TracedMicroProxy final : public Traced<TnMicroProxy> {
public:
    using Traced::Traced;

    TarnLong TarnStartStage(TarnLong axis) override {
        auto call = begin(__func__, axis);
        return call.end(m_inner.TarnStartStage(axis));
    }
    TarnLong TarnLoadStageAbs(TarnLong axis, TarnSingle target) override {
        auto call = begin(__func__, axis, target);
        return call.end(m_inner.TarnLoadStageAbs(axis, target));
    }
    TarnLong TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) override {
        auto call = begin(__func__, axis, distance);
        return call.end(m_inner.TarnLoadStageRelSecure(axis, distance));
    }
    TarnLong TarnReadStagePos(TarnLong axis, TarnLong* position) override {
        auto call = begin(__func__, axis);
        return call.end(m_inner.TarnReadStagePos(axis, position), *position);
    }
    TarnLong TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status) override {
        auto call = begin(__func__, axis, zero);
        return call.end(m_inner.TarnReadStageStatus(axis, zero, status), *status);
    }
    TarnLong TarnAutoFocusExt(TarnLong flag) override {
        auto call = begin(__func__, flag);
        return call.end(m_inner.TarnAutoFocusExt(flag));
    }
    TarnLong TarnBacklashStage(TarnLong axis) override {
        auto call = begin(__func__, axis);
        return call.end(m_inner.TarnBacklashStage(axis));
    }
};

class TracedVideo final : public Traced<TnVideo> {
public:
    using Traced::Traced;

    TarnLong TarnVideoBoardInit() override {
        auto call = begin(__func__);
        return call.end(m_inner.TarnVideoBoardInit());
    }
    TarnLong TarnVideoBoardShutdown() override {
        auto call = begin(__func__);
        return call.end(m_inner.TarnVideoBoardShutdown());
    }
    TarnLong TarnVideoBoardStartGrab(TarnLong continuous, TarnLong show) override {
        auto call = begin(__func__, continuous, show);
        return call.end(m_inner.TarnVideoBoardStartGrab(continuous, show));
    }
    TarnLong TarnVideoBoardHaltGrab() override {
        auto call = begin(__func__);
        return call.end(m_inner.TarnVideoBoardHaltGrab());
    }
    TarnLong TarnVideoSetCurrentBoardType(TarnLong boardType) override {
        auto call = begin(__func__, boardType);
        return call.end(m_inner.TarnVideoSetCurrentBoardType(boardType));
    }
    TarnLong TarnVideoGetCurrentBoardType() override {
        auto call = begin(__func__);
        return call.end(m_inner.TarnVideoGetCurrentBoardType());
    }
    TarnLong TarnVideoBoardFunction(TarnLong functionCode, void* data) override {
        auto call = beginBoardFunction(__func__, functionCode, data);
        return call.end(m_inner.TarnVideoBoardFunction(functionCode, data));
    }
    TarnLong TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent) override {
        auto call = begin(__func__, std::tuple(descriptor->recordSize), parent);
        return call.end(m_inner.TarnVideoBufferAlloc(descriptor, parent), *descriptor);
    }
    TarnLong TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) override {
        auto call = begin(__func__, handle, std::tuple(descriptor->recordSize));
        return call.end(m_inner.TarnVideoGetBufferDesc(handle, descriptor), *descriptor);
    }
    TarnLong TarnVideoSetCurrentCameraType(TarnLong cameraType) override {
        auto call = begin(__func__, cameraType);
        return call.end(m_inner.TarnVideoSetCurrentCameraType(cameraType));
    }
    TarnLong TarnVideoGetCurrentCameraType() override {
        auto call = begin(__func__);
        return call.end(m_inner.TarnVideoGetCurrentCameraType());
    }
    TarnLong TarnVideoCameraSetReferences(TarnLong group, TarnDouble first, TarnDouble second) override {
        auto call = begin(__func__, group, first, second);
        return call.end(m_inner.TarnVideoCameraSetReferences(group, first, second));
    }
    TarnLong TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first, TarnDouble* second) override {
        auto call = begin(__func__, group);
        return call.end(m_inner.TarnVideoCameraGetReferences(group, first, second), *first, *second);
    }

private:
    TracedCall beginBoardFunction(const char* function, TarnLong code, const void* data) {
        if (data != nullptr && code == TARN_BOARD_FUNCTION_DISPLAY) {
            const auto& request = *static_cast<const TarnDisplayRequest*>(data);
            return begin(function, code, std::tuple(request.windowHandle, request.zoom, request.fullSize));
        }
        if (data != nullptr && code == TARN_BOARD_FUNCTION_SAVE) {
            const auto& request = *static_cast<const TarnSaveRequest*>(data);
            return begin(function, code, std::tuple(request.subCode, request.fileName));
        }
        if (data != nullptr && code == TARN_BOARD_FUNCTION_GAIN) {
            return begin(function, code, std::tuple(*static_cast<const TarnLong*>(data)));
        }
        return begin(function, code, nullptr);
    }
};

class TracedVduti final : public Traced<TnVduti> {
public:
    using Traced::Traced;

    TarnLong TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left, TarnLong top, TarnLong right,
                                              TarnLong bottom, TarnLong* pixelCount, TarnLong* pixelSum,
                                              TarnDouble* variance) override {
        auto call = begin(__func__, *buffer, left, top, right, bottom);
        return call.end(m_inner.TarnVideoBufferComputeStatistics(buffer, left, top, right, bottom, pixelCount,
                                                                 pixelSum, variance),
                        *buffer, *pixelCount, *pixelSum, *variance);
    }
};

class TracedNotifier final : public Notifier {
public:
    TracedNotifier(Trace& trace, std::unique_ptr<Notifier> inner)
        : m_trace(trace)
        , m_inner(std::move(inner)) {}

    void setOnNotify(OnNotify receiver) override {
        if (!receiver) {
            m_inner->setOnNotify(nullptr);
            return;
        }
        m_inner->setOnNotify([this, onNotify = std::move(receiver)](const Notification& message) {
            begin("OnNotify", message.msgHandler, message.strComponent, message.strSubComponent,
                  message.strId)
                .end(nullptr);
            onNotify(message);
        });
    }
    void Subscribe(const std::string& filter) override {
        auto call = begin(__func__, filter);
        m_inner->Subscribe(filter);
        call.end(nullptr);
    }
    void Send(const std::string& component, const std::string& subComponent, const std::string& id) override {
        auto call = begin(__func__, component, subComponent, id);
        m_inner->Send(component, subComponent, id);
        call.end(nullptr);
    }

private:
    template <class... In> TracedCall begin(const char* function, const In&... in) {
        return TracedCall(m_trace, "m_notifier", function, in...);
    }

    Trace& m_trace;
    std::unique_ptr<Notifier> m_inner;
};

} // namespace

struct TracingHost::Libraries {
    Libraries(Host& host, const std::filesystem::path& traceFile)
        : inner(host)
        , trace(traceFile) {}

    Host& inner;
    Trace trace;
    TracedReg tn_reg{trace, "tn_reg", inner.tn_reg()};
    TracedLog tn_log{trace, "tn_log", inner.tn_log()};
    TracedLogKeys Tn_log{trace, "Tn_log", inner.Tn_log()};
    TracedOcuva tn_ocuva{trace, "tn_ocuva", inner.tn_ocuva()};
    TracedLibProxy tn_lib_proxy{trace, "tn_lib_proxy", inner.tn_lib_proxy()};
    TracedMicroProxy tn_micro_proxy{trace, "tn_micro_proxy", inner.tn_micro_proxy()};
    TracedVideo tn_video{trace, "tn_video", inner.tn_video()};
    TracedVduti tn_vduti{trace, "tn_vduti", inner.tn_vduti()};
};

TracingHost::TracingHost(Host& host, const std::filesystem::path& traceFile)
    : m_libraries(std::make_unique<Libraries>(host, traceFile)) {}

TracingHost::~TracingHost() = default;

TnReg& TracingHost::tn_reg() { return m_libraries->tn_reg; }
TnLog& TracingHost::tn_log() { return m_libraries->tn_log; }
TnLogKeys& TracingHost::Tn_log() { return m_libraries->Tn_log; }
TnOcuva& TracingHost::tn_ocuva() { return m_libraries->tn_ocuva; }
TnLibProxy& TracingHost::tn_lib_proxy() { return m_libraries->tn_lib_proxy; }
TnMicroProxy& TracingHost::tn_micro_proxy() { return m_libraries->tn_micro_proxy; }
TnVideo& TracingHost::tn_video() { return m_libraries->tn_video; }
TnVduti& TracingHost::tn_vduti() { return m_libraries->tn_vduti; }

std::unique_ptr<Notifier> TracingHost::createNotifier() {
    return std::make_unique<TracedNotifier>(m_libraries->trace, m_libraries->inner.createNotifier());
}

} // namespace ocuva
