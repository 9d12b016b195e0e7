#include "base/Numbers.h"

#include <cmath>
#include <limits>

namespace ocuva {

namespace {

// Half to even without the floating-point environment, which a loaded library may have changed.
double roundHalfEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5) {
        return below;
    }
    if (rest > 0.5) {
        return below + 1.0;
    }
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

template <typename Whole> Whole rounded(double value, const char* error) {
    const double whole = roundHalfEven(value);
    // Written so that NaN fails too.
    if (!(whole >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
          whole <= static_cast<double>(std::numeric_limits<Whole>::max()))) {
        throw ArithmeticError(error);
    }
    return static_cast<Whole>(whole);
}

Long narrowed(std::int64_t wide) {
    if (wide < std::numeric_limits<Long>::min() || wide > std::numeric_limits<Long>::max()) {
        throw ArithmeticError("Overflow: the result does not fit into 32 bits");
    }
    return static_cast<Long>(wide);
}

} // namespace

Long toLong(double value) { return rounded<Long>(value, "Overflow: the number does not fit into 32 bits"); }

Integer toInteger(double value) {
    return rounded<Integer>(value, "Overflow: the number does not fit into 16 bits");
}

Single toSingle(double value) {
    // Written so that NaN fails too.
    if (!(std::abs(value) <= static_cast<double>(std::numeric_limits<Single>::max()))) {
        throw ArithmeticError("Overflow: the number does not fit into a 32-bit float");
    }
    return static_cast<Single>(value);
}

Long checkedAdd(Long a, Long b) { return narrowed(std::int64_t{a} + b); }
Long checkedSubtract(Long a, Long b) { return narrowed(std::int64_t{a} - b); }
Long checkedNegate(Long a) { return narrowed(-std::int64_t{a}); }

double checkedDivide(double dividend, double divisor) {
    if (divisor == 0.0) {
        throw ArithmeticError("Division by zero");
    }
    return dividend / divisor;
}

} // namespace ocuva
