#include "hosts/common/board/PictureReduction.h"

#include <gmock/gmock.h>
#include <limits>

namespace hosts {
namespace {

using ocuva::Frame;
using testing::Each;
using testing::ElementsAre;

Frame reduced(const Frame& full, int reduction) {
    Frame small;
    small.width = reducedLength(full.width, reduction);
    small.height = reducedLength(full.height, reduction);
    small.pixels.resize(static_cast<std::size_t>(small.width) * static_cast<std::size_t>(small.height));
    reduce(full, reduction, small);
    return small;
}

Frame frameOf(int width, int height, std::vector<std::uint32_t> pixels) {
    return Frame{width, height, 0, 0.0, std::move(pixels)};
}

TEST(PictureReduction, EachColourIsTheRoundedMeanOfItsBlock) {
    const Frame full = frameOf(4, 2,
                               {0xff000000U, 0xff0000ffU, 0xff010203U, 0xff010203U, //
                                0xff00ff00U, 0xffff0000U, 0xff010203U, 0xff010203U});
    EXPECT_THAT(reduced(full, 2).pixels, ElementsAre(0xff404040U, 0xff010203U));
}

TEST(PictureReduction, IncompleteBlocksAtTheEdgesAreDropped) {
    std::vector<std::uint32_t> pixels(5 * 5, 0xff808080U);
    for (std::size_t i = 0; i < 5; ++i) {
        pixels[i * 5 + 4] = 0xffffffffU;
        pixels[20 + i] = 0xffffffffU;
    }
    const Frame small = reduced(frameOf(5, 5, pixels), 2);
    EXPECT_EQ(small.width, 2);
    EXPECT_EQ(small.height, 2);
    EXPECT_THAT(small.pixels, Each(0xff808080U));
}

TEST(PictureReduction, WhiteStaysWhiteAtTheGreatestReduction) {
    const int side = greatestReduction * 2;
    const Frame white =
        frameOf(side, side, std::vector<std::uint32_t>(static_cast<std::size_t>(side) * side, 0xffffffffU));
    EXPECT_THAT(reduced(white, greatestReduction).pixels, Each(0xffffffffU));
}

TEST(PictureReduction, ADenseScreenGetsWhatItCanShow) {
    struct {
        ocuva::Long zoom;
        bool fullSize;
        double ratio;
        int reduction;
    } const rows[] = {
        {-1, false, 1.0, 1},
        {-2, false, 1.0, 2},
        {-2, true, 1.0, 1},
        {-2, false, 2.0, 1},
        {-2, false, 1.5, 1},
        {-4, false, 1.5, 2},
        {-2, false, 1.0 / 3.0, 2},
        {-2, false, std::numeric_limits<double>::quiet_NaN(), 2},
        {-3, false, 8.0, 1},
        {0, false, 1.0, 1},
        {7, false, 1.0, 1},
        {-1000, false, 1.0, greatestReduction},
        {std::numeric_limits<ocuva::Long>::min(), false, 1.0, greatestReduction},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(displayReduction(row.zoom, row.fullSize, row.ratio), row.reduction)
            << row.zoom << ' ' << row.fullSize << ' ' << row.ratio;
    }
}

} // namespace
} // namespace hosts
