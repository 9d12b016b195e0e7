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

/// The notifier of StubHost. It transports nothing: a test delivers messages itself.
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

/// Every library in one.
struct StubLibraries : TnReg, TnLog, TnLogKeys, TnOcuva, TnLibProxy, TnMicroProxy, TnVideo, TnVduti {};

/// The functions of StubHost: each writes its call down, and fetches its answer from elsewhere.
class RecordedLibraries : public StubLibraries {
public:
    /// Every call in order with its arguments, as in `TarnLoadStageRelSecure(3, -25)`; texts are quoted,
    /// records and arrays are in braces. The notifier's Subscribe and Send are among them.
    std::vector<std::string> calls;
    /// Runs after a call was written down and before it answers; gets the bare name of the function.
    std::function<void(const std::string& name)> onCall;
    /// The calls of that function alone, in order.
    std::vector<std::string> callsOf(std::string_view name) const;
    /// Takes the calls and leaves none, so that a test can look at one step at a time.
    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    /// Results by function name that override whatever the fields of StubHost give. The call still does its
    /// work on the fields unless the result set here is that of a failure, which leaves fields and outputs as
    /// they are.
    std::map<std::string, Long> results;

    TARN_FUNCTIONS(TARN_OVERRIDE)

protected:
    explicit RecordedLibraries(std::unique_ptr<StubLibraries> answers)
        : m_answers(std::move(answers)) {}
    void record(const std::string& name, const std::vector<std::string>& arguments);

private:
    /// The result that is set for that function, else the answer.
    template <class Answer> auto given(const char* name, Long failure, const Answer& answer) const;

    std::unique_ptr<StubLibraries> m_answers;
};

/// All libraries of a host in one struct. Set the fields, run the logic, look at `calls`.
class StubHost : public Host, public RecordedLibraries {
public:
    using Range = std::pair<Long, Long>;
    using References = std::pair<Double, Double>;
    using Point = std::array<Long, 3>;

    StubHost();

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

    TarnLong TarnVideoBoardFunction(TarnLong functionCode, void* data) override;
#define STUB_ACCESS(Class, library, file, FUNCTIONS)                                                         \
    Class& library() override { return *this; }
    TARN_LIBRARIES(STUB_ACCESS)
#undef STUB_ACCESS
    std::unique_ptr<Notifier> createNotifier() override;

private:
    friend class StubNotifier;
};

} // namespace ocuva
