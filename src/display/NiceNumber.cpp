#include "display/NiceNumber.h"

#include "base/Numbers.h"

#include <array>
#include <cmath>
#include <cstdlib>

namespace ocuva {

Integer nearScaleValue(Integer value) {
    static constexpr std::array<int, 4> candidates{1, 2, 5, 10};
    int digit = value;
    Integer decade = 0;
    while (digit / 10 != 0) {
        digit /= 10;
        decade = toInteger(decade + 1.0);
    }
    // For a leading digit of -9 even the nearest candidate is no nearer than the distance begun with.
    int chosen = candidates.front();
    int best = candidates.back();
    for (const int candidate : candidates) {
        const int distance = std::abs(candidate - digit);
        if (distance < best) {
            best = distance;
            chosen = candidate;
        }
    }
    return toInteger(std::pow(10.0, decade) * chosen);
}

} // namespace ocuva
