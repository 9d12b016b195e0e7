#include "hosts/common/board/FramePool.h"

#include <gtest/gtest.h>
#include <optional>

namespace hosts {
namespace {

TEST(FramePool, AFrameHasTheRequestedSize) {
    FramePool pool;
    EXPECT_EQ(pool.take(8, 4)->pixels.size(), 32U);
    const auto frame = pool.take(3, 2);
    EXPECT_EQ(frame->pixels.size(), 6U);
    EXPECT_EQ(frame->width, 3);
    EXPECT_EQ(frame->height, 2);
}

TEST(FramePool, AnUnusedFrameIsReused) {
    FramePool pool;
    const std::uint32_t* const memory = pool.take(64, 64)->pixels.data();
    EXPECT_EQ(pool.take(64, 64)->pixels.data(), memory);
}

TEST(FramePool, AFrameInUseIsNotChanged) {
    FramePool pool;
    const ocuva::FramePtr held = pool.take(4, 4);
    EXPECT_NE(pool.take(4, 4)->pixels.data(), held->pixels.data());
}

TEST(FramePool, AFrameOutlivesItsPool) {
    std::optional<FramePool> pool(std::in_place);
    std::shared_ptr<ocuva::Frame> frame = pool->take(4, 4);
    pool.reset();
    frame->pixels[15] = 7;
    frame.reset();
}

} // namespace
} // namespace hosts
