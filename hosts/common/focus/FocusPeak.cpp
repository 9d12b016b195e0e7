#include "hosts/common/focus/FocusPeak.h"

#include <Eigen/QR>
#include <algorithm>
#include <cmath>
#include <optional>

namespace hosts {

namespace {

using Samples = std::vector<FocusSample>;

// A hundred heights of a plain surface differ by five deviations of the noise once in a while, never by
// eight.
constexpr double leastRise = 8.0;

// The score of detail of all sizes, blurred by a disc that grows with the distance from focus, falls like
// 1 / (1 + (distance / width)^2). Its reciprocal is a parabola in Z, and the bottom of the best fit is the
// focus, even if all heights are on one side of it. Samples are weighted by the sixth power of their
// score: the few near the focus decide, because the model is worst far away.
std::optional<double> fittedTop(const Samples& samples, std::size_t best) {
    constexpr double faintest = 0.02; // fraction of the best score; lower scores contain no information
    const auto count = static_cast<Eigen::Index>(samples.size());
    const double middle = samples[best].z;
    const double span = static_cast<double>(samples.back().z) - samples.front().z;
    Eigen::MatrixX3d terms(count, 3);
    Eigen::VectorXd reciprocals(count);
    for (Eigen::Index i = 0; i < count; ++i) {
        const FocusSample& sample = samples[static_cast<std::size_t>(i)];
        const double part = std::max(sample.sharpness.score / samples[best].sharpness.score, faintest);
        const double rootOfWeight = part * part * part;
        const double x = (sample.z - middle) / span;
        terms.row(i) = rootOfWeight * Eigen::RowVector3d(1.0, x, x * x);
        reciprocals[i] = rootOfWeight / part;
    }
    const Eigen::Vector3d fit = terms.colPivHouseholderQr().solve(reciprocals);
    if (!(fit[2] > 0.0)) {
        return std::nullopt;
    }
    return middle - span * fit[1] / (2.0 * fit[2]);
}

FocusPeak peakAt(const Samples& samples, std::size_t best) {
    const std::size_t last = samples.size() - 1;
    const double sharpest = samples[best].z;
    const std::optional<double> top = last >= 2 ? fittedTop(samples, best) : std::nullopt;
    const double score = samples[best].sharpness.score;
    const bool atEnd = best == 0 || best == last;
    if (atEnd && (!top || *top < samples.front().z || *top > samples.back().z)) {
        return {FocusPeak::Kind::edge, sharpest, score};
    }
    const double lowest = samples[best == 0 ? 0 : best - 1].z;
    const double highest = samples[std::min(best + 1, last)].z;
    return {FocusPeak::Kind::inside, std::clamp(top.value_or(sharpest), lowest, highest), score};
}

} // namespace

FocusPeak focusPeak(const Samples& samples) {
    if (samples.size() < 2) {
        return {};
    }
    const auto duller = [](const FocusSample& a, const FocusSample& b) {
        return a.sharpness.score < b.sharpness.score;
    };
    const auto [dullest, best] = std::minmax_element(samples.begin(), samples.end(), duller);
    const double rise = best->sharpness.score - dullest->sharpness.score;
    if (!(rise > leastRise * dullest->sharpness.uncertainty) || !(best->sharpness.score > 0.0)) {
        return {};
    }
    return peakAt(samples, static_cast<std::size_t>(best - samples.begin()));
}

} // namespace hosts
