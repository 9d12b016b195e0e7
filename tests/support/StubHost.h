#pragma once
// A host whose every answer is a public field and that writes down each call, for tests of the program's
// logic.

#include "hostlink/Host.h"

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ocuva {

class StubHost;

/// The notifier that StubHost hands out. Nothing travels anywhere: a test delivers what it likes.
class StubNotifier final : public Notifier {
public:
    explicit StubNotifier(StubHost& host);
    ~StubNotifier() override;

    void setOnNotify(OnNotify receiver) override { m_receiver = std::move(receiver); }
    void Subscribe(const std::string& filter) override;
    void Send(const std::string& component, const std::string& subComponent, const std::string& id) override;

    /// Fires OnNotify at once, whatever the filter; nothing happens while no receiver is set.
    void deliver(const std::string& id, const std::string& component = "TN_OCUVA_SERVER",
                 const std::string& subComponent = "", Long msgHandler = 0);

    std::vector<std::string> subscribes; ///< the filters, in order
    std::vector<Notification> sends;

private:
    StubHost& m_host;
    OnNotify m_receiver;
};

/// All libraries of a host in one struct. Set the fields, run the logic, look at `calls`.
class StubHost : public Host,
                 public TnReg,
                 public TnLog,
                 public TnLogKeys,
                 public TnOcuva,
                 public TnLibProxy,
                 public TnMicroProxy,
                 public TnVideo,
                 public TnVduti {
public:
    using Range = std::pair<Long, Long>;
    using References = std::pair<Double, Double>;
    using Point = std::array<Long, 3>;

    // ---- what was called ----

    /// Every call in order with what was passed in, as in `TarnLoadStageRelSecure(3, -25)`; texts are quoted,
    /// records and arrays stand in braces. The notifier's Subscribe and Send stand among them.
    std::vector<std::string> calls;
    /// Runs after a call was written down and before it answers; gets the bare name of the function.
    std::function<void(const std::string& name)> onCall;
    /// The calls of that function alone, in order.
    std::vector<std::string> callsOf(std::string_view name) const;
    /// Takes the calls and leaves none, so that a test can look at one step at a time.
    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    // ---- what it answers ----

    /// Results by function name that override whatever the fields below give; the call still does its work on
    /// the fields unless the result set here is 0, a failure, which leaves fields and outputs as they are.
    std::map<std::string, Long> results;

    /// Settings by "store|section|key", exactly as passed; TarnRegisterSetString writes here.
    std::map<std::string, std::string> settings;

    std::vector<std::string> logLines; ///< from TarnPrintfVB
    Long messageBoxAnswer = TARN_ANSWER_OK;
    std::string uniqueKey = "KEY-1";
    std::vector<std::string> messagesByName; ///< from TarnOcuvaSendMsgByName

    Long hostBoardType = -1;  ///< from TarnSetVideoBoardType
    Long hostCameraType = -1; ///< from TarnSetVideoCameraType
    Single magFactorX = 2560.0F;
    Single magFactorY = 1920.0F;
    std::map<int, Range> limits = {
        {axisX, {-50000, 50000}}, {axisY, {-50000, 50000}}, {axisZ, {-5000, 5000}}};
    std::string dirStd = "/std";
    std::map<std::string, Point> dbObjects; ///< by name; TarnDbObjectRead fails for any other name
    std::map<Long, std::string> dbHandles;  ///< open handles with the name read last
    std::array<Double, 3> planSolution = {0.0, 0.0, 0.0};

    std::map<int, Long> position;           ///< stage units by axis; absent is 0. Moves do not change it
    std::map<int, std::deque<Long>> status; ///< by axis, one taken per read; 0 (stands) when none is left

    Long boardInitResult = 1;
    Long startGrabResult = 1;
    Long boardType = 1;
    Long cameraType = 3;
    std::vector<TarnDisplayRequest> displayRequests;
    std::vector<std::string> savedFiles;
    std::vector<Long> gains;
    Long bufferHandle = 1;
    TarnBufferDesc bufferDesc = {sizeof(TarnBufferDesc), 768, 576, 8, 1};
    std::map<int, References> references = {{1, {50.0, 50.0}}, {2, {50.0, 50.0}}}; ///< by group
    Long pixelCount = 0;
    Long pixelSum = 0;
    Double variance = 0.0;

    StubNotifier* notifier = nullptr; ///< the notifier made last, while it lives
    /// Fires OnNotify of that notifier; nothing happens when there is none.
    void deliver(const std::string& id);

    // ---- the seam ----

    TnReg& tn_reg() override { return *this; }
    TnLog& tn_log() override { return *this; }
    TnLogKeys& Tn_log() override { return *this; }
    TnOcuva& tn_ocuva() override { return *this; }
    TnLibProxy& tn_lib_proxy() override { return *this; }
    TnMicroProxy& tn_micro_proxy() override { return *this; }
    TnVideo& tn_video() override { return *this; }
    TnVduti& tn_vduti() override { return *this; }
    std::unique_ptr<Notifier> createNotifier() override;

    TarnLong TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                const char* store) override;
    TarnLong TarnRegisterSetString(const char* section, const char* key, const char* value,
                                   const char* store) override;
    TarnLong TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                   char* buffer, TarnLong bufferSize, const char* store) override;

    void TarnPrintfVB(const char* line) override;
    TarnLong TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style) override;
    TarnLong TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) override;
    TarnLong TarnOcuvaSendMsgByName(const char* name) override;

    TarnLong TarnSetVideoBoardType(TarnLong type) override;
    TarnLong TarnSetVideoCameraType(TarnLong type) override;
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

    TarnLong TarnStartStage(TarnLong axis) override;
    TarnLong TarnLoadStageAbs(TarnLong axis, TarnSingle target) override;
    TarnLong TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) override;
    TarnLong TarnReadStagePos(TarnLong axis, TarnLong* value) override;
    TarnLong TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* value) override;
    TarnLong TarnAutoFocusExt(TarnLong flag) override;
    TarnLong TarnBacklashStage(TarnLong axis) override;

    TarnLong TarnVideoBoardInit() override;
    TarnLong TarnVideoBoardShutdown() override;
    TarnLong TarnVideoBoardStartGrab(TarnLong continuous, TarnLong show) override;
    TarnLong TarnVideoBoardHaltGrab() override;
    TarnLong TarnVideoSetCurrentBoardType(TarnLong type) override;
    TarnLong TarnVideoGetCurrentBoardType() override;
    TarnLong TarnVideoBoardFunction(TarnLong functionCode, void* data) override;
    TarnLong TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent) override;
    TarnLong TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) override;
    TarnLong TarnVideoSetCurrentCameraType(TarnLong type) override;
    TarnLong TarnVideoGetCurrentCameraType() override;
    TarnLong TarnVideoCameraSetReferences(TarnLong group, TarnDouble first, TarnDouble second) override;
    TarnLong TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first, TarnDouble* second) override;
    TarnLong TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left, TarnLong top, TarnLong right,
                                              TarnLong bottom, TarnLong* count, TarnLong* sum,
                                              TarnDouble* varianceOut) override;

private:
    friend class StubNotifier;
    Long m_lastDbHandle = 0;

    void record(const std::string& name, const std::vector<std::string>& arguments);
    Long result(const std::string& name, Long otherwise) const;
    std::vector<std::string> entriesOf(const std::string& store, const std::string& section) const;
};

} // namespace ocuva
