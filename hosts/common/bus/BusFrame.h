#pragma once
// The form that a message has on its way between two processes, and how names and filters are understood.
// Plain functions over bytes: whatever arrives, they answer.

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

/// A frame, all told, in bytes.
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

/// What the beginning of a stream holds.
struct DecodedFrame {
    FrameState state = FrameState::incomplete; ///< usedBytes and message count only when complete
    std::size_t usedBytes = 0;                 ///< length of the frame when complete
    BusMessage message;                        ///< filled when complete
};

/// Reads the frame at the beginning of a stream. Never asks for more than busFrameMaxBytes.
DecodedFrame decodeBusFrame(std::string_view bytes);

/// What a subscriber wants to hear: "DST_APP=X" lets through the messages whose component is X, letter for
/// letter; an empty filter all; a text that is neither nothing.
class BusFilter {
public:
    /// Never throws; what is not understood lets nothing through.
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

/// The message that a name stands for: component "TN_OCUVA_SERVER", no sub-component, and as identifier the
/// one of OCUVA_IS_SERVER_UP, OCUVA_AUTOFOCUS, OCUVA_WAKEUP and OCUVA_SLEEP that equals the name without
/// regard to letter case; any other name as it stands.
BusMessage messageOfName(std::string_view name);

} // namespace hosts
