#include "support/StubHost.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>
#include <tuple>

namespace ocuva {

namespace {

template <class Number> std::string shown(Number value) {
    std::array<char, 40> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}
std::string shown(const char* text) { return '"' + std::string(text) + '"'; }
std::string shown(const std::string& text) { return '"' + text + '"'; }

std::string joined(const std::vector<std::string>& parts) {
    std::string all;
    for (const std::string& part : parts) {
        all += (all.empty() ? "" : ", ") + part;
    }
    return all;
}

std::string shownArray(const Double* values, Long count) {
    std::vector<std::string> parts;
    std::transform(values, values + count, std::back_inserter(parts),
                   [](Double value) { return shown(value); });
    return '{' + joined(parts) + '}';
}

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

} // namespace

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

// ---- recording ----

void StubHost::record(const std::string& name, const std::vector<std::string>& arguments) {
    calls.push_back(name + '(' + joined(arguments) + ')');
    if (onCall) {
        onCall(name);
    }
}

Long StubHost::result(const std::string& name, Long otherwise) const {
    const auto found = results.find(name);
    return found == results.end() ? otherwise : found->second;
}

std::vector<std::string> StubHost::callsOf(std::string_view name) const {
    std::vector<std::string> found;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(found), [name](const std::string& call) {
        return call.compare(0, name.size(), name) == 0 && call.compare(name.size(), 1, "(") == 0;
    });
    return found;
}

// ---- tn_reg ----

TarnLong StubHost::TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                      const char* store) {
    record("TarnRegisterGetInt", {shown(section), shown(key), shown(defaultValue), shown(store)});
    Long value = defaultValue;
    if (const auto found = settings.find(settingName(store, section, key)); found != settings.end()) {
        const std::string& text = found->second;
        std::from_chars(text.data(), text.data() + text.size(), value);
    }
    return result("TarnRegisterGetInt", value);
}

TarnLong StubHost::TarnRegisterSetString(const char* section, const char* key, const char* value,
                                         const char* store) {
    record("TarnRegisterSetString", {shown(section), shown(key), shown(value), shown(store)});
    const Long taken = result("TarnRegisterSetString", 1);
    if (taken != 0) {
        settings[settingName(store, section, key)] = value;
    }
    return taken;
}

TarnLong StubHost::TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                         char* buffer, TarnLong bufferSize, const char* store) {
    record("TarnRegisterGetString",
           {shown(section), shown(key), shown(defaultValue), shown(bufferSize), shown(store)});
    const auto found = settings.find(settingName(store, section, key));
    const Long written =
        fill(found == settings.end() ? std::string(defaultValue) : found->second, buffer, bufferSize);
    return result("TarnRegisterGetString", written);
}

// ---- tn_log, Tn_log, tn_ocuva ----

void StubHost::TarnPrintfVB(const char* line) {
    record("TarnPrintfVB", {shown(line)});
    logLines.emplace_back(line);
}

TarnLong StubHost::TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style) {
    record("TarnMessageBoxVB", {shown(messageKey), shown(title), shown(style)});
    return result("TarnMessageBoxVB", messageBoxAnswer);
}

TarnLong StubHost::TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) {
    record("TarnGetUniqueObjectKey", {shown(bufferSize)});
    return result("TarnGetUniqueObjectKey", fill(uniqueKey, buffer, bufferSize));
}

TarnLong StubHost::TarnOcuvaSendMsgByName(const char* name) {
    record("TarnOcuvaSendMsgByName", {shown(name)});
    messagesByName.emplace_back(name);
    return result("TarnOcuvaSendMsgByName", 1);
}

// ---- tn_lib_proxy ----

TarnLong StubHost::TarnSetVideoBoardType(TarnLong type) {
    record("TarnSetVideoBoardType", {shown(type)});
    const Long taken = result("TarnSetVideoBoardType", 1);
    hostBoardType = taken != 0 ? type : hostBoardType;
    return taken;
}

TarnLong StubHost::TarnSetVideoCameraType(TarnLong type) {
    record("TarnSetVideoCameraType", {shown(type)});
    const Long taken = result("TarnSetVideoCameraType", 1);
    hostCameraType = taken != 0 ? type : hostCameraType;
    return taken;
}

TarnLong StubHost::TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100) {
    record("TarnGetVideoMag100Factors", {});
    const Long given = result("TarnGetVideoMag100Factors", 1);
    if (given != 0) {
        *x100 = magFactorX;
        *y100 = magFactorY;
    }
    return given;
}

TarnLong StubHost::TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100) {
    record("TarnSetVideoMag100Factors", {shown(*x100), shown(*y100)});
    const Long taken = result("TarnSetVideoMag100Factors", 1);
    if (taken != 0) {
        magFactorX = *x100;
        magFactorY = *y100;
    }
    return taken;
}

TarnLong StubHost::TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper) {
    record("TarnGetStageLimits", {shown(axis)});
    const auto found = limits.find(axis);
    const Long given = result("TarnGetStageLimits", found != limits.end() ? 1 : 0);
    if (given != 0 && found != limits.end()) {
        std::tie(*lower, *upper) = found->second;
    }
    return given;
}

TarnLong StubHost::TarnGetDirStd(char* buffer, TarnLong bufferSize) {
    record("TarnGetDirStd", {shown(bufferSize)});
    return result("TarnGetDirStd", fill(dirStd, buffer, bufferSize));
}

TarnLong StubHost::TarnDbObjectNew(const char* typeName) {
    record("TarnDbObjectNew", {shown(typeName)});
    const Long handle = result("TarnDbObjectNew", m_lastDbHandle + 1);
    if (handle != 0) {
        m_lastDbHandle = handle;
        dbHandles[handle] = {};
    }
    return handle;
}

TarnLong StubHost::TarnDbObjectRead(TarnLong handle, const char* name) {
    record("TarnDbObjectRead", {shown(handle), shown(name)});
    const auto open = dbHandles.find(handle);
    const bool there = open != dbHandles.end() && dbObjects.count(name) != 0;
    const Long given = result("TarnDbObjectRead", there ? 1 : 0);
    if (given != 0 && open != dbHandles.end()) {
        open->second = name;
    }
    return given;
}

TarnLong StubHost::TarnDbObjectDelete(TarnLong handle) {
    record("TarnDbObjectDelete", {shown(handle)});
    const bool wasOpen = dbHandles.erase(handle) != 0;
    return result("TarnDbObjectDelete", wasOpen ? 1 : 0);
}

TarnLong StubHost::TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z) {
    record("TarnDbGetStagePos", {shown(handle)});
    const auto open = dbHandles.find(handle);
    const auto object = open == dbHandles.end() ? dbObjects.end() : dbObjects.find(open->second);
    const Long given = result("TarnDbGetStagePos", object != dbObjects.end() ? 1 : 0);
    if (given != 0 && object != dbObjects.end()) {
        const auto [px, py, pz] = object->second;
        *x = px;
        *y = py;
        *z = pz;
    }
    return given;
}

std::vector<std::string> StubHost::entriesOf(const std::string& store, const std::string& section) const {
    const std::string prefix = store + '|' + section + '|';
    std::vector<std::string> entries;
    for (const auto& [name, value] : settings) {
        if (name.compare(0, prefix.size(), prefix) == 0) {
            entries.push_back(name.substr(prefix.size()) + '=' + value);
        }
    }
    return entries;
}

TarnLong StubHost::TarnIniEnumNb(const char* section, const char* store) {
    record("TarnIniEnumNb", {shown(section), shown(store)});
    return result("TarnIniEnumNb", static_cast<Long>(entriesOf(store, section).size()));
}

TarnLong StubHost::TarnIniEnumString(const char* section, TarnLong number, char* buffer, TarnLong bufferSize,
                                     const char* store) {
    record("TarnIniEnumString", {shown(section), shown(number), shown(bufferSize), shown(store)});
    const std::vector<std::string> entries = entriesOf(store, section);
    const bool inRange = number >= 1 && static_cast<std::size_t>(number) <= entries.size();
    const Long written =
        fill(inRange ? entries[static_cast<std::size_t>(number) - 1] : std::string(), buffer, bufferSize);
    return result("TarnIniEnumString", written);
}

TarnLong StubHost::TarnSolvePlan(TarnLong rows, const TarnDouble* matrix, const TarnDouble* rightSide,
                                 TarnDouble* solution) {
    record("TarnSolvePlan", {shown(rows), shownArray(matrix, rows * 3), shownArray(rightSide, rows)});
    const Long solved = result("TarnSolvePlan", 1);
    if (solved != 0) {
        std::copy(planSolution.begin(), planSolution.end(), solution);
    }
    return solved;
}

// ---- tn_micro_proxy ----

TarnLong StubHost::TarnStartStage(TarnLong axis) {
    record("TarnStartStage", {shown(axis)});
    return result("TarnStartStage", 1);
}

TarnLong StubHost::TarnLoadStageAbs(TarnLong axis, TarnSingle target) {
    record("TarnLoadStageAbs", {shown(axis), shown(target)});
    return result("TarnLoadStageAbs", 1);
}

TarnLong StubHost::TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) {
    record("TarnLoadStageRelSecure", {shown(axis), shown(distance)});
    return result("TarnLoadStageRelSecure", 1);
}

TarnLong StubHost::TarnReadStagePos(TarnLong axis, TarnLong* value) {
    record("TarnReadStagePos", {shown(axis)});
    const Long given = result("TarnReadStagePos", 1);
    if (given != 0) {
        const auto found = position.find(axis);
        *value = found == position.end() ? 0 : found->second;
    }
    return given;
}

TarnLong StubHost::TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* value) {
    record("TarnReadStageStatus", {shown(axis), shown(zero)});
    *value = 0;
    if (std::deque<Long>& queue = status[axis]; !queue.empty()) {
        *value = queue.front();
        queue.pop_front();
    }
    return result("TarnReadStageStatus", 1);
}

TarnLong StubHost::TarnAutoFocusExt(TarnLong flag) {
    record("TarnAutoFocusExt", {shown(flag)});
    return result("TarnAutoFocusExt", 1);
}

TarnLong StubHost::TarnBacklashStage(TarnLong axis) {
    record("TarnBacklashStage", {shown(axis)});
    return result("TarnBacklashStage", 1);
}

// ---- tn_video, tn_vduti ----

TarnLong StubHost::TarnVideoBoardInit() {
    record("TarnVideoBoardInit", {});
    return result("TarnVideoBoardInit", boardInitResult);
}

TarnLong StubHost::TarnVideoBoardShutdown() {
    record("TarnVideoBoardShutdown", {});
    return result("TarnVideoBoardShutdown", 1);
}

TarnLong StubHost::TarnVideoBoardStartGrab(TarnLong continuous, TarnLong show) {
    record("TarnVideoBoardStartGrab", {shown(continuous), shown(show)});
    return result("TarnVideoBoardStartGrab", startGrabResult);
}

TarnLong StubHost::TarnVideoBoardHaltGrab() {
    record("TarnVideoBoardHaltGrab", {});
    return result("TarnVideoBoardHaltGrab", 1);
}

TarnLong StubHost::TarnVideoSetCurrentBoardType(TarnLong type) {
    record("TarnVideoSetCurrentBoardType", {shown(type)});
    const Long taken = result("TarnVideoSetCurrentBoardType", 1);
    boardType = taken != 0 ? type : boardType;
    return taken;
}

TarnLong StubHost::TarnVideoGetCurrentBoardType() {
    record("TarnVideoGetCurrentBoardType", {});
    return result("TarnVideoGetCurrentBoardType", boardType);
}

TarnLong StubHost::TarnVideoBoardFunction(TarnLong functionCode, void* data) {
    const std::string name = "TarnVideoBoardFunction";
    switch (functionCode) {
    case TARN_BOARD_FUNCTION_DISPLAY: {
        const auto& request = *static_cast<const TarnDisplayRequest*>(data);
        displayRequests.push_back(request);
        record(name,
               {shown(functionCode),
                '{' + joined({shown(request.windowHandle), shown(request.zoom), shown(request.fullSize)}) +
                    '}'});
        break;
    }
    case TARN_BOARD_FUNCTION_SAVE: {
        const auto& request = *static_cast<const TarnSaveRequest*>(data);
        savedFiles.emplace_back(request.fileName);
        record(name,
               {shown(functionCode), '{' + joined({shown(request.subCode), shown(request.fileName)}) + '}'});
        break;
    }
    case TARN_BOARD_FUNCTION_GAIN: {
        const Long gain = *static_cast<const TarnLong*>(data);
        gains.push_back(gain);
        record(name, {shown(functionCode), '{' + shown(gain) + '}'});
        break;
    }
    default:
        record(name, {shown(functionCode)});
        return result(name, 0);
    }
    return result(name, 1);
}

TarnLong StubHost::TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent) {
    record("TarnVideoBufferAlloc", {'{' + shown(descriptor->recordSize) + '}', shown(parent)});
    const Long handle = result("TarnVideoBufferAlloc", bufferHandle);
    if (handle != TARN_BUFFER_NONE) {
        *descriptor = bufferDesc;
    }
    return handle;
}

TarnLong StubHost::TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) {
    record("TarnVideoGetBufferDesc", {shown(handle), '{' + shown(descriptor->recordSize) + '}'});
    const Long given = result("TarnVideoGetBufferDesc", handle == TARN_BUFFER_NONE ? 0 : 1);
    if (given != 0) {
        *descriptor = bufferDesc;
    }
    return given;
}

TarnLong StubHost::TarnVideoSetCurrentCameraType(TarnLong type) {
    record("TarnVideoSetCurrentCameraType", {shown(type)});
    const Long taken = result("TarnVideoSetCurrentCameraType", 1);
    cameraType = taken != 0 ? type : cameraType;
    return taken;
}

TarnLong StubHost::TarnVideoGetCurrentCameraType() {
    record("TarnVideoGetCurrentCameraType", {});
    return result("TarnVideoGetCurrentCameraType", cameraType);
}

TarnLong StubHost::TarnVideoCameraSetReferences(TarnLong group, TarnDouble first, TarnDouble second) {
    record("TarnVideoCameraSetReferences", {shown(group), shown(first), shown(second)});
    const Long taken = result("TarnVideoCameraSetReferences", 1);
    if (taken != 0) {
        constexpr Double unchanged = -1.0;
        References& slots = references[group];
        slots.first = first == unchanged ? slots.first : first;
        slots.second = second == unchanged ? slots.second : second;
    }
    return taken;
}

TarnLong StubHost::TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first, TarnDouble* second) {
    record("TarnVideoCameraGetReferences", {shown(group)});
    const Long given = result("TarnVideoCameraGetReferences", references.count(group) != 0 ? 1 : 0);
    if (given != 0) {
        std::tie(*first, *second) = references[group];
    }
    return given;
}

TarnLong StubHost::TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left, TarnLong top,
                                                    TarnLong right, TarnLong bottom, TarnLong* count,
                                                    TarnLong* sum, TarnDouble* varianceOut) {
    record("TarnVideoBufferComputeStatistics",
           {shown(*buffer), shown(left), shown(top), shown(right), shown(bottom)});
    const Long given = result("TarnVideoBufferComputeStatistics", 1);
    if (given != 0) {
        *count = pixelCount;
        *sum = pixelSum;
        *varianceOut = variance;
    }
    return given;
}

} // namespace ocuva
