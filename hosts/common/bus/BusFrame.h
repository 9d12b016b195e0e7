#pragma once
// The format of a message between two processes, and the rules for names and filters. Plain functions that
// handle any bytes.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace hosts {

/// One message, as a notifier hands it on.
struct BusMessage {
    /// Bytes in the platform's 8-bit text; the bus does not look into them.
    ///@{
    std::string component;
    std::string subComponent;
    std::string id;
    ///@}

    bool operator==(const BusMessage&) const = default;
};

/// The maximum size of a frame, in bytes.
inline constexpr std::size_t busFrameMaxBytes = 16 * 1024;

/// A frame: the four bytes "OCUB", one byte version (1), four bytes length of what follows, then component,
/// sub-component and identifier, each as two bytes length and its bytes. Numbers have their low byte first.
/// Nothing when the frame would be longer than busFrameMaxBytes.
std::optional<std::string> encodeBusFrame(const BusMessage& message);

enum class FrameState {
    incomplete, ///< good so far; more bytes are needed
    complete,
    malformed, ///< no frame and no beginning of one; the stream cannot be read any further
};

/// The result of reading the beginning of a stream.
struct DecodedFrame {
    FrameState state = FrameState::incomplete; ///< usedBytes and message count only when complete
    std::size_t usedBytes = 0;                 ///< length of the frame when complete
    BusMessage message;                        ///< filled when complete
};

/// Reads the frame at the beginning of a stream. Never needs more than busFrameMaxBytes.
DecodedFrame decodeBusFrame(std::string_view bytes);

/// A subscriber's filter: "DST_APP=X" matches messages whose component is exactly X, an empty filter all
/// messages, any other text none.
class BusFilter {
public:
    /// Never throws; an invalid filter matches nothing.
    explicit BusFilter(std::string_view text = {});

    /// Whether the text is empty or of the form "DST_APP=X".
    bool isUnderstood() const { return m_kind != Kind::none; }
    /// Looks at the component alone.
    bool letsThrough(const BusMessage& message) const;

private:
    enum class Kind { all, component, none };
    Kind m_kind;
    std::string m_component;
};

/// The message for a name: component "TN_OCUVA_SERVER", no sub-component, and as identifier the one of
/// OCUVA_IS_SERVER_UP, OCUVA_AUTOFOCUS, OCUVA_WAKEUP and OCUVA_SLEEP that matches the name in any letter
/// case; any other name unchanged.
BusMessage messageOfName(std::string_view name);

} // namespace hosts
