#include "hosts/common/bus/BusFrame.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace hosts {

namespace {

constexpr std::string_view magicAndVersion = "OCUB\x01";
constexpr std::size_t lengthBytes = 4;
constexpr std::size_t headerBytes = magicAndVersion.size() + lengthBytes;
constexpr std::size_t textLengthBytes = 2;

void appendNumber(std::string& bytes, std::size_t number, std::size_t width) {
    for (std::size_t i = 0; i < width; ++i) {
        bytes += static_cast<char>((number >> (8 * i)) & 0xFF);
    }
}

std::size_t numberOf(std::string_view bytes) {
    std::size_t number = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        number |= static_cast<std::size_t>(static_cast<std::uint8_t>(bytes[i])) << (8 * i);
    }
    return number;
}

/// Takes one text off the front; nothing when the bytes end before it does.
std::optional<std::string> takeText(std::string_view& bytes) {
    if (bytes.size() < textLengthBytes) {
        return std::nullopt;
    }
    const std::size_t length = numberOf(bytes.substr(0, textLengthBytes));
    bytes.remove_prefix(textLengthBytes);
    if (bytes.size() < length) {
        return std::nullopt;
    }
    std::string text(bytes.substr(0, length));
    bytes.remove_prefix(length);
    return text;
}

DecodedFrame malformedFrame() { return {FrameState::malformed, 0, {}}; }

char upperAscii(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

} // namespace

std::optional<std::string> encodeBusFrame(const BusMessage& message) {
    const std::array<const std::string*, 3> texts = {&message.component, &message.subComponent, &message.id};
    std::size_t bodyBytes = 0;
    for (const std::string* text : texts) {
        if (text->size() > busFrameMaxBytes) {
            return std::nullopt;
        }
        bodyBytes += textLengthBytes + text->size();
    }
    if (headerBytes + bodyBytes > busFrameMaxBytes) {
        return std::nullopt;
    }
    std::string frame(magicAndVersion);
    appendNumber(frame, bodyBytes, lengthBytes);
    for (const std::string* text : texts) {
        appendNumber(frame, text->size(), textLengthBytes);
        frame += *text;
    }
    return frame;
}

DecodedFrame decodeBusFrame(std::string_view bytes) {
    const std::size_t seen = std::min(bytes.size(), magicAndVersion.size());
    if (bytes.substr(0, seen) != magicAndVersion.substr(0, seen)) {
        return malformedFrame();
    }
    if (bytes.size() < headerBytes) {
        return {};
    }
    const std::size_t bodyBytes = numberOf(bytes.substr(magicAndVersion.size(), lengthBytes));
    if (bodyBytes > busFrameMaxBytes - headerBytes) {
        return malformedFrame();
    }
    if (bytes.size() < headerBytes + bodyBytes) {
        return {};
    }
    std::string_view body = bytes.substr(headerBytes, bodyBytes);
    auto component = takeText(body);
    auto subComponent = component ? takeText(body) : std::nullopt;
    auto id = subComponent ? takeText(body) : std::nullopt;
    if (!id || !body.empty()) {
        return malformedFrame();
    }
    return {FrameState::complete,
            headerBytes + bodyBytes,
            {std::move(*component), std::move(*subComponent), std::move(*id)}};
}

BusFilter::BusFilter(std::string_view text) {
    constexpr std::string_view prefix = "DST_APP=";
    if (text.empty()) {
        m_kind = Kind::all;
    } else if (text.substr(0, prefix.size()) == prefix) {
        m_kind = Kind::component;
        m_component = text.substr(prefix.size());
    } else {
        m_kind = Kind::none;
    }
}

bool BusFilter::letsThrough(const BusMessage& message) const {
    return m_kind == Kind::all || (m_kind == Kind::component && message.component == m_component);
}

BusMessage messageOfName(std::string_view name) {
    static constexpr std::array<std::string_view, 4> identifiers = {"OCUVA_IS_SERVER_UP", "OCUVA_AUTOFOCUS",
                                                                    "OCUVA_WAKEUP", "OCUVA_SLEEP"};
    std::string upper(name);
    std::transform(upper.begin(), upper.end(), upper.begin(), upperAscii);
    const bool known = std::find(identifiers.begin(), identifiers.end(), upper) != identifiers.end();
    return {"TN_OCUVA_SERVER", "", known ? upper : std::string(name)};
}

} // namespace hosts
