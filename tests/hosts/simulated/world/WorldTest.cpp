#include "PictureRig.h"
#include "hosts/simulated/world/TileCache.h"

#include <gtest/gtest.h>
#include <limits>

namespace hosts::simulated {
namespace {

const std::vector<Mount> kMounts{{5000, 0, 1, "Quartz"}, {-5000, 0, 2, "Pyrite"}};

std::uint32_t crcOfTile(TileCache& tiles, std::int64_t column, std::int64_t row) {
    const TileCache::Tile& tile = tiles.tile(0, column, row);
    std::uint32_t crc = 0;
    for (const auto& channel : tile.channel) {
        crc = testing::crc32(channel.data(), channel.size(), crc);
    }
    return crc;
}

TEST(World, TheSamePlaceIsTheSameOnEveryMachine) {
    const World world(7, kMounts);
    TileCache tiles(world);
    tiles.setScale(640.0 / 768.0, 480.0 / 576.0);
    EXPECT_EQ(crcOfTile(tiles, 0, 0), 3298232747U) << "section";
    EXPECT_EQ(crcOfTile(tiles, -94, 0), 3088471207U) << "mount 1";
    EXPECT_EQ(crcOfTile(tiles, 0, -169), 4077319965U) << "graticule";
}

TEST(World, AnotherSeedIsAnotherWorld) {
    const World world(7, kMounts);
    const World other(8, kMounts);
    int differing = 0;
    for (int i = 0; i < 20; ++i) {
        differing += std::abs(world.colourAt(i * 37.0, 0).g - other.colourAt(i * 37.0, 0).g) > 1.0F ? 1 : 0;
    }
    EXPECT_GT(differing, 15);
}

TEST(World, ATileShowsTheTrueColours) {
    const World world(7, kMounts);
    const SampleGrid grid{16.0, 16.0, -0.25, -0.25, 64, 64};
    const ColourPlanes planes = world.paint(grid);
    for (int r = 0; r < 64; r += 5) {
        for (int c = 0; c < 64; c += 5) {
            const Rgb truth = world.colourAt(grid.xOf(c), grid.yOf(r));
            EXPECT_NEAR(planes.at(static_cast<std::size_t>(r * 64 + c)).g, truth.g, 0.5F) << c << ' ' << r;
        }
    }
}

TEST(World, EpoxyIsOneEvenColour) {
    const World world(7, kMounts);
    const Rgb first = world.colourAt(5000 + 1900, 0);
    for (int i = 0; i < 30; ++i) {
        const Rgb other = world.colourAt(5000 + 1850 + 11.0 * i, i * 3.0);
        EXPECT_EQ(first.r, other.r);
        EXPECT_EQ(first.g, other.g);
        EXPECT_EQ(first.b, other.b);
    }
    EXPECT_GT(first.r, first.b) << "brownish";
}

TEST(World, ARingOfBrightMetalHoldsEachMount) {
    const World world(7, kMounts);
    for (const Mount& mount : kMounts) {
        EXPECT_GT(world.colourAt(mount.x, mount.y + 1750).g, 140.0F);
        EXPECT_LT(world.colourAt(mount.x, mount.y + 1703).g, 60.0F) << "dark gap inside it";
    }
}

TEST(World, MountsLookLikeTheMineralTheyAreNamedAfter) {
    const World world(7, kMounts);
    double quartz = 0.0;
    double pyrite = 0.0;
    for (int i = 0; i < 50; ++i) {
        quartz += static_cast<double>(world.colourAt(5000 + i * 13.0, -400).g) / 50;
        pyrite += static_cast<double>(world.colourAt(-5000 + i * 13.0, -400).g) / 50;
    }
    EXPECT_NEAR(quartz, 88, 20);
    EXPECT_NEAR(pyrite, 215, 25);
}

TEST(World, TheNumberIsEngravedReadablyAboveTheCentre) {
    // The 1 of mount 1: a stem in the middle, its flag on the picture's left, which is the side of greater X.
    const World world(7, {{0, 0, 1, "Pyrite"}});
    const double top = 150 + 55;
    EXPECT_LT(world.colourAt(0, 150).g, 60.0F) << "stem";
    EXPECT_LT(world.colourAt(13, top - 10).g, 60.0F) << "flag on the left";
    EXPECT_GT(world.colourAt(-16, top - 10).g, 100.0F) << "nothing on the right";
    EXPECT_LT(world.colourAt(-30, 150 - 55).g, 60.0F) << "foot";
}

TEST(World, PlacesFarBeyondAnyStageAndNoPlacesAreHarmless) {
    const World world(7, kMounts);
    for (const double place : {1e9, -1e9, 1e300, std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()}) {
        const Rgb colour = world.colourAt(place, -place);
        EXPECT_TRUE(std::isfinite(colour.r) && std::isfinite(colour.g) && std::isfinite(colour.b)) << place;
    }
}

TEST(TileCache, ForgetsTheLongestUnusedTileWhenItsMemoryIsFull) {
    const World world(7, kMounts);
    TileCache tiles(world, 10 * sizeof(TileCache::Tile));
    for (int i = 0; i < 40; ++i) {
        tiles.tile(0, i, 0);
    }
    EXPECT_LE(tiles.count(), 10U);
    EXPECT_GE(tiles.count(), 5U);
}

} // namespace
} // namespace hosts::simulated
