// Messages between programs. Input: bytes of a stream; also taken as component US sub-component US
// identifier.
#include "Fuzz.h"
#include "hosts/common/bus/BusFrame.h"

#include <string>

using fuzz::require;
using namespace hosts;

namespace {

void checkStream(std::string_view bytes) {
    const DecodedFrame frame = decodeBusFrame(bytes);
    const std::string longer = std::string(bytes) + "OCUB";
    const DecodedFrame then = decodeBusFrame(longer);
    if (frame.state == FrameState::malformed)
        require(then.state == FrameState::malformed, "more bytes mend nothing");
    if (frame.state == FrameState::incomplete)
        require(bytes.size() < busFrameMaxBytes, "no more is asked for than a frame may be long");
    if (frame.state != FrameState::complete)
        return;
    require(frame.usedBytes <= bytes.size() && frame.usedBytes <= busFrameMaxBytes,
            "a frame ends within the bytes");
    require(encodeBusFrame(frame.message) == bytes.substr(0, frame.usedBytes), "a message has one form only");
    require(then.state == FrameState::complete && then.message == frame.message,
            "what follows a frame does not change it");
}

void checkMessage(const BusMessage& message) {
    const auto bytes = encodeBusFrame(message);
    if (!bytes)
        return;
    const DecodedFrame frame = decodeBusFrame(*bytes);
    require(frame.state == FrameState::complete && frame.usedBytes == bytes->size() &&
                frame.message == message,
            "a message that was sent arrives");
    for (std::size_t length : {bytes->size() - 1, bytes->size() / 2, bytes->size() / 3})
        require(decodeBusFrame(std::string_view(*bytes).substr(0, length)).state == FrameState::incomplete,
                "the beginning of a frame is waited out");
}

void checkFilter(std::string_view text, const BusMessage& message) {
    require(BusFilter().letsThrough(message), "without a filter everything is heard");
    require(BusFilter("DST_APP=" + message.component).letsThrough(message), "a filter lets its own through");
    require(!BusFilter("DST_APP=" + message.component + "x").letsThrough(message), "and nothing else");
    const BusFilter filter(text);
    require(filter.isUnderstood() || !filter.letsThrough(message), "a filter without sense hears nothing");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    const std::string_view text = fuzz::textOf(bytes, count);
    checkStream(text);
    fuzz::Fields fields(text);
    const std::string component(fields.next());
    const std::string subComponent(fields.next());
    const BusMessage message{component, subComponent, std::string(fields.rest())};
    checkMessage(message);
    checkFilter(text, message);
    const BusMessage named = messageOfName(text);
    require(messageOfName(named.id) == named, "an identifier stands for itself");
    return 0;
}
