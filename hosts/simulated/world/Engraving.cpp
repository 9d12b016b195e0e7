#include "hosts/simulated/world/Engraving.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <string_view>
#include <vector>

namespace hosts::simulated {
namespace {

// Strokes of each sign on a field 4 wide and 6 high, y down: two digits a point, a blank lifts the tool.
struct Glyph {
    char sign;
    std::string_view strokes;
};
constexpr std::array<Glyph, 40> kGlyphs{{{'0', "103041453616050110"},
                                         {'1', "112026 0646"},
                                         {'2', "01103041420646"},
                                         {'3', "01103041423313 334445361605"},
                                         {'4', "36300444"},
                                         {'5', "400003334445361605"},
                                         {'6', "4130100105163645443303"},
                                         {'7', "004016"},
                                         {'8', "103041423313020110 1304051636454433"},
                                         {'9', "0516364541301001021343"},
                                         {'A', "062046 1333"},
                                         {'B', "00063645443303 3342413000"},
                                         {'C', "4130100105163645"},
                                         {'D', "00063645413000"},
                                         {'E', "40000646 0333"},
                                         {'F', "400006 0333"},
                                         {'G', "41301001051636454323"},
                                         {'H', "0006 4046 0343"},
                                         {'I', "1030 2026 1636"},
                                         {'J', "4045361605"},
                                         {'K', "0006 400346"},
                                         {'L', "000646"},
                                         {'M', "0600234046"},
                                         {'N', "06004640"},
                                         {'O', "103041453616050110"},
                                         {'P', "06003041423303"},
                                         {'Q', "103041453616050110 2446"},
                                         {'R', "06003041423303 2346"},
                                         {'S', "413010010213334445361605"},
                                         {'T', "0040 2026"},
                                         {'U', "000516364540"},
                                         {'V', "002640"},
                                         {'W', "0016233640"},
                                         {'X', "0046 4006"},
                                         {'Y', "0023 4023 2326"},
                                         {'Z', "00400646"},
                                         {'-', "1333"},
                                         {'.', "2626"},
                                         {'/', "0640"},
                                         {'+', "0343 2125"}}};
constexpr float kGlyphWidth = 4.0F;
constexpr float kGlyphHeight = 6.0F;
constexpr float kAdvance = 5.6F;
constexpr float kHalfStroke = 0.30F; // of a glyph field
constexpr float kBurr = 0.22F;

// A stroke from a to b in glyph fields of the whole line, origin at its centre.
struct Stroke {
    float ax, ay, bx, by;

    float distance(float x, float y) const {
        const float ux = bx - ax;
        const float uy = by - ay;
        const float length2 = ux * ux + uy * uy;
        float part = length2 > 0.0F ? ((x - ax) * ux + (y - ay) * uy) / length2 : 0.0F;
        part = std::clamp(part, 0.0F, 1.0F);
        const float dx = x - ax - part * ux;
        const float dy = y - ay - part * uy;
        return std::sqrt(dx * dx + dy * dy);
    }
};

void addGlyph(char sign, float left, std::vector<Stroke>& strokes) {
    const char capital = static_cast<char>(std::toupper(static_cast<unsigned char>(sign)));
    const auto* glyph =
        std::find_if(kGlyphs.begin(), kGlyphs.end(), [&](const Glyph& g) { return g.sign == capital; });
    if (glyph == kGlyphs.end()) {
        return;
    }
    bool down = false;
    float lastX = 0.0F;
    float lastY = 0.0F;
    const std::string_view path = glyph->strokes;
    for (std::size_t i = 0; i < path.size();) {
        if (path[i] == ' ') {
            down = false;
            ++i;
            continue;
        }
        const float x = left + static_cast<float>(path[i] - '0');
        const float y = static_cast<float>(path[i + 1] - '0') - kGlyphHeight / 2;
        if (down) {
            strokes.push_back({lastX, lastY, x, y});
        }
        down = true;
        lastX = x;
        lastY = y;
        i += 2;
    }
}

std::vector<Stroke> strokesOf(const std::string& text) {
    std::vector<Stroke> strokes;
    const float width = kAdvance * static_cast<float>(text.size()) - (kAdvance - kGlyphWidth);
    float left = -width / 2;
    for (const char sign : text) {
        addGlyph(sign, left, strokes);
        left += kAdvance;
    }
    return strokes;
}

// The strokes that can touch the grid. Right on the picture is decreasing X, down decreasing Y.
std::vector<Stroke> strokesNear(const SampleGrid& grid, const Engraving& engraving, float field) {
    const auto u = [&](int column) { return static_cast<float>(engraving.x - grid.xOf(column)) / field; };
    const auto v = [&](int row) { return static_cast<float>(engraving.y - grid.yOf(row)) / field; };
    const auto across = std::minmax({u(0), u(grid.columns - 1)});
    const auto down = std::minmax({v(0), v(grid.rows - 1)});
    const float margin = kHalfStroke + 2 * kBurr + grid.footprint() / field;
    std::vector<Stroke> strokes = strokesOf(engraving.text);
    const auto misses = [&](const Stroke& s) {
        return std::max(s.ax, s.bx) + margin < across.first ||
               std::min(s.ax, s.bx) - margin > across.second || std::max(s.ay, s.by) + margin < down.first ||
               std::min(s.ay, s.by) - margin > down.second;
    };
    strokes.erase(std::remove_if(strokes.begin(), strokes.end(), misses), strokes.end());
    return strokes;
}

} // namespace

void engrave(const SampleGrid& grid, const Engraving& engraving, ColourPlanes& out) {
    const auto field = static_cast<float>(engraving.height) / kGlyphHeight; // units per glyph field
    const std::vector<Stroke> strokes = strokesNear(grid, engraving, field);
    if (strokes.empty()) {
        return;
    }
    const float footprint = grid.footprint() / field;
    std::size_t i = 0;
    for (int r = 0; r < grid.rows; ++r) {
        const auto v = static_cast<float>(engraving.y - grid.yOf(r)) / field;
        for (int c = 0; c < grid.columns; ++c, ++i) {
            const auto u = static_cast<float>(engraving.x - grid.xOf(c)) / field;
            float distance = 1e9F;
            for (const Stroke& stroke : strokes) {
                distance = std::min(distance, stroke.distance(u, v));
            }
            const float burr = coverage(kHalfStroke + kBurr - distance, footprint + kBurr);
            out.scale(i, 1.0F + engraving.rim * burr);
            out.cover(i, engraving.groove, coverage(kHalfStroke - distance, footprint));
        }
    }
}

} // namespace hosts::simulated
