#pragma once
// The kinds of arguments that a host function takes: what of each goes into the call and what comes out of
// it.

#include "hostlink/tarn_abi.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <tuple>

namespace ocuva {

/// The answer of a message box that changes least, for a box that nobody answers.
constexpr TarnLong answerOfNobody(TarnLong style) {
    constexpr TarnLong buttons = 15;
    switch (style & buttons) {
    case TARN_BOX_OK_CANCEL:
        return TARN_ANSWER_CANCEL;
    case TARN_BOX_YES_NO:
        return TARN_ANSWER_NO;
    default:
        return TARN_ANSWER_OK;
    }
}

/// How many rows of a plane's equations may be read when the caller claims so many.
constexpr TarnLong planRows(TarnLong claimed) { return std::clamp(claimed, 0, 3); }

/// The record that TarnVideoBoardFunction is given; which one it is depends on the function code.
struct BoardRecord {
    TarnLong functionCode; ///< TARN_BOARD_FUNCTION_...
    const void* data;      ///< the record, or null

    /// Calls the visitor with the record's fields; false where the code has no record.
    template <class Visitor> bool visit(const Visitor& visitor) const {
        if (data != nullptr && functionCode == TARN_BOARD_FUNCTION_DISPLAY) {
            const auto& request = *static_cast<const TarnDisplayRequest*>(data);
            visitor(request.windowHandle, request.zoom, request.fullSize);
        } else if (data != nullptr && functionCode == TARN_BOARD_FUNCTION_SAVE) {
            const auto& request = *static_cast<const TarnSaveRequest*>(data);
            visitor(request.subCode, request.fileName);
        } else if (data != nullptr && functionCode == TARN_BOARD_FUNCTION_GAIN) {
            visitor(*static_cast<const TarnLong*>(data));
        } else {
            return false;
        }
        return true;
    }
};

/// An array of the seam.
inline std::span<const TarnDouble> numbersAt(const TarnDouble* first, TarnLong count) {
    return {first, static_cast<std::size_t>(count)};
}

/// One argument of a call.
template <class Argument, class In, class Out> struct Passed {
    Argument argument; ///< as the host gets it
    TarnLong extent;   ///< how many elements there are behind a pointer to several
    In in;             ///< gives a tuple of what goes into the call; to be asked before it
    Out out; ///< gives, from the call's result, a tuple of what the host wrote; to be asked after it
};
template <class Argument, class In, class Out>
Passed(Argument, TarnLong, In, Out) -> Passed<Argument, In, Out>;

/// The kinds of arguments, by direction. No pointer is looked behind before `in` or `out` is asked.
namespace passed {

/// For an argument that nothing goes into, or that nothing comes out of.
inline constexpr auto nothing = [](auto...) { return std::tuple<>(); };

/// A number or a text.
template <class Value> auto in(Value value) {
    return Passed{value, 1, [value] { return std::make_tuple(value); }, nothing};
}
/// A number behind a pointer.
inline auto in(const TarnSingle* number) {
    return Passed{number, 1, [number] { return std::make_tuple(*number); }, nothing};
}
/// Several numbers.
inline auto in(const TarnDouble* numbers, TarnLong count) {
    return Passed{numbers, count, [=] { return std::make_tuple(numbersAt(numbers, count)); }, nothing};
}
/// The record of TarnVideoBoardFunction.
inline auto in(void* record, TarnLong functionCode) {
    return Passed{record, 1, [=] { return std::make_tuple(BoardRecord{functionCode, record}); }, nothing};
}
/// A number behind a pointer.
template <class Number> auto out(Number* number) {
    return Passed{number, 1, nothing, [number](TarnLong) { return std::make_tuple(*number); }};
}
/// Several numbers.
inline auto out(TarnDouble* numbers, TarnLong count) {
    return Passed{numbers, count, nothing,
                  [=](TarnLong) { return std::make_tuple(numbersAt(numbers, count)); }};
}
/// A text buffer. The result of the call is the number of characters; no more are looked at than it holds.
inline auto out(char* buffer, TarnLong size) {
    return Passed{buffer, size, nothing, [=](TarnLong result) {
                      const TarnLong length = std::clamp(result, 0, std::max(size, 0));
                      return std::make_tuple(std::string_view(buffer, static_cast<std::size_t>(length)));
                  }};
}
/// A number that the host reads and may change.
inline auto inout(TarnLong* number) {
    return Passed{number, 1, [number] { return std::make_tuple(*number); },
                  [number](TarnLong) { return std::make_tuple(*number); }};
}
/// A record of which the host reads the size and fills in the rest.
inline auto inout(TarnBufferDesc* descriptor) {
    return Passed{descriptor, 1, [=] { return std::make_tuple(std::make_tuple(descriptor->recordSize)); },
                  [=](TarnLong) { return std::make_tuple(*descriptor); }};
}

} // namespace passed

} // namespace ocuva
