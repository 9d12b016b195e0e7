#include "support/StubHost.h"

#include "hostlink/HostArguments.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>
#include <span>
#include <tuple>
#include <type_traits>

namespace ocuva {

// ---- how arguments are written down ----

static std::string joined(const std::vector<std::string>& parts) {
    std::string all;
    for (const std::string& part : parts) {
        all += (all.empty() ? "" : ", ") + part;
    }
    return all;
}

template <class Number> static std::string shown(Number value) {
    std::array<char, 40> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}
static std::string shown(const char* text) { return '"' + std::string(text) + '"'; }
static std::string shown(const std::string& text) { return '"' + text + '"'; }
static std::string shown(std::span<const Double> values) {
    std::vector<std::string> parts;
    std::transform(values.begin(), values.end(), std::back_inserter(parts),
                   [](Double value) { return shown(value); });
    return '{' + joined(parts) + '}';
}
template <class... Field> static std::string shown(const std::tuple<Field...>& record) {
    return '{' + std::apply([](const Field&... fields) { return joined({shown(fields)...}); }, record) + '}';
}
static std::string shown(const BoardRecord& record) {
    std::string text;
    record.visit([&text](const auto&... fields) { text = shown(std::make_tuple(fields...)); });
    return text;
}

/// What goes into a call; a record that is none is left out.
template <class... In> static std::vector<std::string> shownIn(const std::tuple<In...>& in) {
    std::vector<std::string> all =
        std::apply([](const In&... each) { return std::vector<std::string>{shown(each)...}; }, in);
    all.erase(std::remove(all.begin(), all.end(), ""), all.end());
    return all;
}

// ---- recording ----

void RecordedLibraries::record(const std::string& name, const std::vector<std::string>& arguments) {
    calls.push_back(name + '(' + joined(arguments) + ')');
    if (onCall) {
        onCall(name);
    }
}

template <class Answer>
auto RecordedLibraries::given(const char* name, Long failure, const Answer& answer) const {
    using Result = decltype(answer());
    const auto set = results.find(name);
    if (set == results.end()) {
        return answer();
    }
    if (set->second != failure) {
        answer();
    }
    return static_cast<Result>(set->second);
}

#define RECORD_FUNCTION(library, result, name, failure, ...)                                                 \
    result RecordedLibraries::name(TARN_PARAMETERS(__VA_ARGS__)) {                                           \
        const auto goesIn = [](const auto&... passed) { return std::tuple_cat(passed.in()...); };            \
        record(#name, shownIn(goesIn(TARN_PASSED(__VA_ARGS__))));                                            \
        return given(#name, failure, [&] { return m_answers->name(TARN_ARGUMENTS(__VA_ARGS__)); });          \
    }
TARN_FUNCTIONS(RECORD_FUNCTION)
#undef RECORD_FUNCTION

std::vector<std::string> RecordedLibraries::callsOf(std::string_view name) const {
    std::vector<std::string> found;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(found), [name](const std::string& call) {
        return call.compare(0, name.size(), name) == 0 && call.compare(name.size(), 1, "(") == 0;
    });
    return found;
}

// ---- the answers ----

namespace {

/// The rule of every text buffer of the seam: cut to the size, a NUL only where there is room for one.
Long fill(const std::string& text, char* buffer, Long bufferSize) {
    const auto room = static_cast<std::size_t>(std::max<Long>(bufferSize, 0));
    const std::size_t written = std::min(text.size(), room);
    std::memcpy(buffer, text.data(), written);
    if (written < room) {
        buffer[written] = '\0';
    }
    return static_cast<Long>(written);
}

std::string settingName(const char* store, const char* section, const char* key) {
    return std::string(store) + '|' + section + '|' + key;
}

/// Success, with nothing written: enough for most functions that a test only wants to see called.
struct Agreement : StubLibraries {
#define AGREE(library, result, name, failure, ...)                                                           \
    result name(TARN_PARAMETERS(__VA_ARGS__)) override {                                                     \
        static_cast<void>(std::tie(TARN_ARGUMENTS(__VA_ARGS__)));                                            \
        return static_cast<result>(1);                                                                       \
    }
    TARN_FUNCTIONS(AGREE)
#undef AGREE
};

/// What the fields of a StubHost say.
class FieldAnswers final : public Agreement {
public:
    explicit FieldAnswers(StubHost& stub)
        : m_stub(stub) {}

    // ---- tn_reg ----

    TarnLong TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                const char* store) override {
        const auto found = m_stub.settings.find(settingName(store, section, key));
        Long value = defaultValue;
        if (found != m_stub.settings.end()) {
            const std::string& text = found->second;
            std::from_chars(text.data(), text.data() + text.size(), value);
        }
        return value;
    }
    TarnLong TarnRegisterSetString(const char* section, const char* key, const char* value,
                                   const char* store) override {
        m_stub.settings[settingName(store, section, key)] = value;
        return 1;
    }
    TarnLong TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                   char* buffer, TarnLong bufferSize, const char* store) override {
        const auto found = m_stub.settings.find(settingName(store, section, key));
        return fill(found == m_stub.settings.end() ? defaultValue : found->second, buffer, bufferSize);
    }

    // ---- tn_log, Tn_log, tn_ocuva ----

    void TarnPrintfVB(const char* line) override { m_stub.logLines.emplace_back(line); }
    TarnLong TarnMessageBoxVB(const char*, const char*, TarnLong) override { return m_stub.messageBoxAnswer; }
    TarnLong TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) override {
        return fill(m_stub.uniqueKey, buffer, bufferSize);
    }
    TarnLong TarnOcuvaSendMsgByName(const char* name) override {
        m_stub.messagesByName.emplace_back(name);
        return 1;
    }

    // ---- tn_lib_proxy ----

    TarnLong TarnSetVideoBoardType(TarnLong type) override {
        m_stub.hostBoardType = type;
        return 1;
    }
    TarnLong TarnSetVideoCameraType(TarnLong type) override {
        m_stub.hostCameraType = type;
        return 1;
    }
    TarnLong TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100) override {
        *x100 = m_stub.magFactorX;
        *y100 = m_stub.magFactorY;
        return 1;
    }
    TarnLong TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100) override {
        m_stub.magFactorX = *x100;
        m_stub.magFactorY = *y100;
        return 1;
    }
    TarnLong TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper) override {
        const auto found = m_stub.limits.find(axis);
        if (found == m_stub.limits.end()) {
            return 0;
        }
        std::tie(*lower, *upper) = found->second;
        return 1;
    }
    TarnLong TarnGetDirStd(char* buffer, TarnLong bufferSize) override {
        return fill(m_stub.dirStd, buffer, bufferSize);
    }
    TarnLong TarnDbObjectNew(const char*) override {
        const auto set = m_stub.results.find("TarnDbObjectNew");
        m_lastDbHandle = set == m_stub.results.end() ? m_lastDbHandle + 1 : set->second;
        m_stub.dbHandles[m_lastDbHandle] = {};
        return m_lastDbHandle;
    }
    TarnLong TarnDbObjectRead(TarnLong handle, const char* name) override {
        const auto open = m_stub.dbHandles.find(handle);
        if (open == m_stub.dbHandles.end() || m_stub.dbObjects.count(name) == 0) {
            return 0;
        }
        open->second = name;
        return 1;
    }
    TarnLong TarnDbObjectDelete(TarnLong handle) override {
        return m_stub.dbHandles.erase(handle) != 0 ? 1 : 0;
    }
    TarnLong TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z) override {
        const auto open = m_stub.dbHandles.find(handle);
        const auto object =
            open == m_stub.dbHandles.end() ? m_stub.dbObjects.end() : m_stub.dbObjects.find(open->second);
        if (object == m_stub.dbObjects.end()) {
            return 0;
        }
        std::tie(*x, *y, *z) = std::tuple_cat(object->second);
        return 1;
    }
    TarnLong TarnIniEnumNb(const char* section, const char* store) override {
        return static_cast<Long>(entriesOf(store, section).size());
    }
    TarnLong TarnIniEnumString(const char* section, TarnLong number, char* buffer, TarnLong bufferSize,
                               const char* store) override {
        const std::vector<std::string> entries = entriesOf(store, section);
        const bool inRange = number >= 1 && static_cast<std::size_t>(number) <= entries.size();
        return fill(inRange ? entries[static_cast<std::size_t>(number) - 1] : "", buffer, bufferSize);
    }
    TarnLong TarnSolvePlan(TarnLong, const TarnDouble*, const TarnDouble*, TarnDouble* solution) override {
        std::copy(m_stub.planSolution.begin(), m_stub.planSolution.end(), solution);
        return 1;
    }

    // ---- tn_micro_proxy ----

    TarnLong TarnReadStagePos(TarnLong axis, TarnLong* value) override {
        const auto found = m_stub.position.find(axis);
        *value = found == m_stub.position.end() ? 0 : found->second;
        return 1;
    }
    TarnLong TarnReadStageStatus(TarnLong axis, TarnLong, TarnLong* value) override {
        *value = 0;
        if (std::deque<Long>& queue = m_stub.status[axis]; !queue.empty()) {
            *value = queue.front();
            queue.pop_front();
        }
        return 1;
    }

    // ---- tn_video, tn_vduti ----

    TarnLong TarnVideoBoardInit() override { return m_stub.boardInitResult; }
    TarnLong TarnVideoBoardStartGrab(TarnLong, TarnLong) override { return m_stub.startGrabResult; }
    TarnLong TarnVideoSetCurrentBoardType(TarnLong type) override {
        m_stub.boardType = type;
        return 1;
    }
    TarnLong TarnVideoGetCurrentBoardType() override { return m_stub.boardType; }
    TarnLong TarnVideoBoardFunction(TarnLong functionCode, void* data) override {
        return BoardRecord{functionCode, data}.visit([](const auto&...) {}) ? 1 : 0;
    }
    TarnLong TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong) override {
        if (m_stub.bufferHandle != TARN_BUFFER_NONE) {
            *descriptor = m_stub.bufferDesc;
        }
        return m_stub.bufferHandle;
    }
    TarnLong TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) override {
        if (handle == TARN_BUFFER_NONE) {
            return 0;
        }
        *descriptor = m_stub.bufferDesc;
        return 1;
    }
    TarnLong TarnVideoSetCurrentCameraType(TarnLong type) override {
        m_stub.cameraType = type;
        return 1;
    }
    TarnLong TarnVideoGetCurrentCameraType() override { return m_stub.cameraType; }
    TarnLong TarnVideoCameraSetReferences(TarnLong group, TarnDouble first, TarnDouble second) override {
        constexpr Double unchanged = -1.0;
        StubHost::References& slots = m_stub.references[group];
        slots.first = first == unchanged ? slots.first : first;
        slots.second = second == unchanged ? slots.second : second;
        return 1;
    }
    TarnLong TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first, TarnDouble* second) override {
        if (m_stub.references.count(group) == 0) {
            return 0;
        }
        std::tie(*first, *second) = m_stub.references[group];
        return 1;
    }
    TarnLong TarnVideoBufferComputeStatistics(TarnLong*, TarnLong, TarnLong, TarnLong, TarnLong,
                                              TarnLong* count, TarnLong* sum, TarnDouble* variance) override {
        *count = m_stub.pixelCount;
        *sum = m_stub.pixelSum;
        *variance = m_stub.variance;
        return 1;
    }

private:
    std::vector<std::string> entriesOf(const std::string& store, const std::string& section) const {
        const std::string prefix = store + '|' + section + '|';
        std::vector<std::string> entries;
        for (const auto& [name, value] : m_stub.settings) {
            if (name.compare(0, prefix.size(), prefix) == 0) {
                entries.push_back(name.substr(prefix.size()) + '=' + value);
            }
        }
        return entries;
    }

    StubHost& m_stub;
    Long m_lastDbHandle = 0;
};

} // namespace

StubHost::StubHost()
    : RecordedLibraries(std::make_unique<FieldAnswers>(*this)) {}

// The requests are kept before the call is recorded, so that `onCall` can do what they ask for.
TarnLong StubHost::TarnVideoBoardFunction(TarnLong functionCode, void* data) {
    if (functionCode == TARN_BOARD_FUNCTION_DISPLAY) {
        displayRequests.push_back(*static_cast<const TarnDisplayRequest*>(data));
    } else if (functionCode == TARN_BOARD_FUNCTION_SAVE) {
        savedFiles.emplace_back(static_cast<const TarnSaveRequest*>(data)->fileName);
    } else if (functionCode == TARN_BOARD_FUNCTION_GAIN) {
        gains.push_back(*static_cast<const TarnLong*>(data));
    }
    return RecordedLibraries::TarnVideoBoardFunction(functionCode, data);
}

// ---- the notifier ----

StubNotifier::StubNotifier(StubHost& host)
    : m_host(host) {
    m_host.notifier = this;
}

StubNotifier::~StubNotifier() {
    if (m_host.notifier == this) {
        m_host.notifier = nullptr;
    }
}

void StubNotifier::Subscribe(const std::string& filter) {
    subscribes.push_back(filter);
    m_host.record("Subscribe", {shown(filter)});
}

void StubNotifier::Send(const std::string& component, const std::string& subComponent,
                        const std::string& id) {
    sends.push_back({0, component, subComponent, id});
    m_host.record("Send", {shown(component), shown(subComponent), shown(id)});
}

void StubNotifier::deliver(const std::string& id, const std::string& component,
                           const std::string& subComponent, Long msgHandler) {
    if (m_receiver) {
        m_receiver({msgHandler, component, subComponent, id});
    }
}

std::unique_ptr<Notifier> StubHost::createNotifier() { return std::make_unique<StubNotifier>(*this); }

void StubHost::deliver(const std::string& id) {
    if (notifier != nullptr) {
        notifier->deliver(id);
    }
}

} // namespace ocuva
