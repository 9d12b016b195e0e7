#include "hosts/simulated/world/TileCache.h"

#include "hosts/common/picture/VectorClones.h"
#include "hosts/simulated/world/Hash.h"

#include <algorithm>
#include <cmath>

namespace hosts::simulated {
namespace {

HOSTS_VECTOR_CLONES void quantise(const float* __restrict from, std::uint8_t* __restrict to,
                                  std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const float value = from[i] + 0.5F;
        const float low = value > 0.0F ? value : 0.0F;
        const float clamped = low < 255.0F ? low : 255.0F;
        to[i] = static_cast<std::uint8_t>(static_cast<std::int32_t>(clamped));
    }
}

} // namespace

TileCache::TileCache(const World& world, std::size_t memoryLimitBytes)
    : m_world(world)
    , m_limit(std::max<std::size_t>(1, memoryLimitBytes / sizeof(Entry))) {}

std::size_t TileCache::PlaceHash::operator()(const Place& place) const {
    return cellHash(static_cast<std::uint32_t>(place.level), place.column, place.row);
}

void TileCache::setScale(double pixelX, double pixelY) {
    if (pixelX != m_pixelX || pixelY != m_pixelY) {
        m_entries.clear();
        m_byPlace.clear();
        m_pixelX = pixelX;
        m_pixelY = pixelY;
    }
}

const TileCache::Tile& TileCache::tile(int level, std::int64_t column, std::int64_t row) {
    const Place place{level, column, row};
    const auto found = m_byPlace.find(place);
    if (found != m_byPlace.end()) {
        m_entries.splice(m_entries.begin(), m_entries, found->second);
        return found->second->tile;
    }
    if (m_entries.size() >= m_limit) {
        m_byPlace.erase(m_entries.back().place);
        m_entries.splice(m_entries.begin(), m_entries, std::prev(m_entries.end()));
    } else {
        m_entries.emplace_front();
    }
    Entry& entry = m_entries.front();
    entry.place = place;
    paint(entry);
    m_byPlace.emplace(place, m_entries.begin());
    return entry.tile;
}

void TileCache::paint(Entry& entry) const {
    const double scale = static_cast<double>(1 << entry.place.level);
    const auto start = [scale](std::int64_t tile, double pixel) {
        return -(static_cast<double>(tile) * kTile + 0.5) * pixel * scale;
    };
    const SampleGrid grid{start(entry.place.column, m_pixelX),
                          start(entry.place.row, m_pixelY),
                          -m_pixelX * scale,
                          -m_pixelY * scale,
                          kTile,
                          kTile};
    const ColourPlanes planes = m_world.paint(grid);
    quantise(planes.r.data(), entry.tile.channel[0].data(), grid.size());
    quantise(planes.g.data(), entry.tile.channel[1].data(), grid.size());
    quantise(planes.b.data(), entry.tile.channel[2].data(), grid.size());
}

} // namespace hosts::simulated
