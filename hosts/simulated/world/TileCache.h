#pragma once
// Painted pieces of the world, kept while they are near.

#include "hosts/simulated/world/World.h"

#include <array>
#include <cstdint>
#include <list>
#include <unordered_map>

namespace hosts::simulated {

/// Squares of the world at the pixel scale, on a grid fixed to the place, so that equal places give equal
/// samples however one got there. Level L holds samples 2^L pixels wide. One thread at a time.
class TileCache {
public:
    static constexpr int kTile = 64; ///< samples along each side

    /// Samples of one tile, row by row in picture order, grey levels of each channel.
    struct Tile {
        std::array<std::array<std::uint8_t, kTile * kTile>, 3> channel;
    };

    explicit TileCache(const World& world, std::size_t memoryLimitBytes = 12U << 20U);

    /// Chooses the size of a pixel in stage units, > 0; another size than before empties the cache.
    void setScale(double pixelX, double pixelY);

    /// The tiles asked for last, up to this number, stay valid; raises the limit where it does not allow so
    /// many.
    void keepAtLeast(std::size_t tiles) { m_limit = m_limit < tiles ? tiles : m_limit; }

    /// Tile (column, row) of a level: its sample (c, r) lies at X = -(column * kTile + c + 0.5) * pixelX *
    /// 2^level, Y likewise. Valid until the next call, or longer as keepAtLeast says.
    const Tile& tile(int level, std::int64_t column, std::int64_t row);

    std::size_t count() const { return m_byPlace.size(); }

private:
    struct Place {
        int level;
        std::int64_t column;
        std::int64_t row;
        bool operator==(const Place& other) const {
            return level == other.level && column == other.column && row == other.row;
        }
    };
    struct PlaceHash {
        std::size_t operator()(const Place& place) const;
    };
    struct Entry {
        Place place;
        Tile tile;
    };

    void paint(Entry& entry) const;

    const World& m_world;
    std::size_t m_limit;
    double m_pixelX = 1.0;
    double m_pixelY = 1.0;
    std::list<Entry> m_entries; // most lately used first
    std::unordered_map<Place, std::list<Entry>::iterator, PlaceHash> m_byPlace;
};

} // namespace hosts::simulated
