// The host's picture functions: files and statistics.

#include "hosts/common/HostLibraries.h"
#include "hosts/common/HostTexts.h"
#include "hosts/common/picture/GreyStatistics.h"
#include "hosts/common/picture/ImageFile.h"
#include "hosts/common/services/GuardedCall.h"
#include "hosts/common/services/Numerals.h"

#include <algorithm>
#include <limits>

namespace hosts {

namespace {

/// Grey levels of a region. right and bottom are its last column and row; negative numbers count from the
/// end (-1 is the last). Pixels outside the frame are ignored.
GreyStatistics regionStatistics(const ocuva::Frame& frame, TarnLong left, TarnLong top, TarnLong right,
                                TarnLong bottom) {
    const int first = std::max(left, 0);
    const int last = std::min(right < 0 ? frame.width + right : right, frame.width - 1);
    const int firstRow = std::max(top, 0);
    const int lastRow = std::min(bottom < 0 ? frame.height + bottom : bottom, frame.height - 1);
    if (first == 0 && firstRow == 0 && last == frame.width - 1 && lastRow == frame.height - 1) {
        return statistics(frame.pixels.data(), frame.pixels.size());
    }
    std::vector<std::uint32_t> region;
    for (int row = firstRow; row <= lastRow && first <= last; ++row) {
        const std::uint32_t* const line = frame.pixels.data() + static_cast<std::size_t>(row) * frame.width;
        region.insert(region.end(), line + first, line + last + 1);
    }
    return statistics(region.data(), region.size());
}

bool isBitmapName(std::string_view name) {
    constexpr std::string_view extension = ".bmp";
    return name.size() >= extension.size() &&
           equalIgnoringCase(name.substr(name.size() - extension.size()), extension);
}

} // namespace

bool VideoLibrary::save(const TarnSaveRequest& request) {
    const std::string_view name = textOf(request.fileName);
    const ocuva::FramePtr frame = m_parts.board.currentFrame();
    if (request.subCode != TARN_SAVE_SUB_CODE || name.empty() || !frame) {
        m_parts.log.line("image not saved to \"" + std::string(name) +
                         "\": " + (frame ? "no such request" : "there is no image yet"));
        return false;
    }
    const std::filesystem::path path(std::u8string(name.begin(), name.end()));
    const bool colour = m_parts.board.mode().colour;
    const auto write = isBitmapName(name) ? saveBmp : saveTiff;
    std::string problem;
    if (!write(path, frame->pixels.data(), frame->width, frame->height, colour, problem)) {
        m_parts.log.line("image not saved to \"" + std::string(name) + "\": " + problem);
        return false;
    }
    return true;
}

TarnLong VideoLibrary::TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left, TarnLong top,
                                                        TarnLong right, TarnLong bottom, TarnLong* pixelCount,
                                                        TarnLong* pixelSum, TarnDouble* variance) {
    return guardedCall(m_parts.log, "TarnVideoBufferComputeStatistics", TarnLong{0}, [&] {
        const bool asked =
            buffer != nullptr && pixelCount != nullptr && pixelSum != nullptr && variance != nullptr;
        if (!asked || *buffer != VideoBoard::currentBuffer) {
            return false;
        }
        const ocuva::FramePtr frame = m_parts.board.currentFrame();
        const GreyStatistics found =
            frame ? regionStatistics(*frame, left, top, right, bottom) : GreyStatistics();
        if (found.sum > static_cast<std::uint64_t>(std::numeric_limits<TarnLong>::max())) {
            return false;
        }
        *pixelCount = static_cast<TarnLong>(found.count);
        *pixelSum = static_cast<TarnLong>(found.sum);
        *variance = found.variance;
        return true;
    });
}

} // namespace hosts
