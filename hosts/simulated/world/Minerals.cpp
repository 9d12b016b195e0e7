#include "hosts/simulated/world/Minerals.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace hosts::simulated {
namespace {

constexpr std::size_t kMineralCount = static_cast<std::size_t>(MineralId::Count);

// Reflectances in air order the brightness (pyrite 54 %, galena 43, hematite 28, magnetite 20, quartz 5),
// pulled together as a camera's operator would expose them.
constexpr std::array<Mineral, kMineralCount> kMinerals{{
    {"quartz", {86, 88, 92}, 0.05F, 0.10F, 0.00F, 0.00F, 10.0F},
    {"albite", {112, 110, 105}, 0.07F, 0.14F, 0.45F, 0.13F, 9.0F},
    {"orthoclase", {122, 112, 102}, 0.06F, 0.16F, 0.25F, 0.07F, 17.0F},
    {"calcite", {102, 104, 108}, 0.16F, 0.12F, 0.40F, 0.16F, 14.0F},
    {"magnetite", {142, 132, 125}, 0.03F, 0.09F, 0.20F, 0.10F, 12.0F},
    {"hematite", {160, 167, 177}, 0.09F, 0.10F, 0.30F, 0.09F, 11.0F},
    {"ilmenite", {128, 117, 114}, 0.11F, 0.09F, 0.35F, 0.22F, 8.0F},
    {"chromite", {70, 66, 64}, 0.05F, 0.12F, 0.00F, 0.00F, 10.0F},
    {"pyrite", {232, 224, 188}, 0.03F, 0.05F, 0.00F, 0.00F, 10.0F},
    {"chalcopyrite", {212, 190, 122}, 0.04F, 0.06F, 0.15F, 0.05F, 13.0F},
    {"pyrrhotite", {204, 180, 162}, 0.08F, 0.06F, 0.15F, 0.08F, 10.0F},
    {"galena", {198, 203, 208}, 0.02F, 0.05F, 0.00F, 0.00F, 10.0F},
    {"sphalerite", {118, 118, 120}, 0.03F, 0.11F, 0.20F, 0.06F, 20.0F},
    {"bornite", {184, 138, 122}, 0.08F, 0.08F, 0.25F, 0.14F, 7.0F},
    {"olivine", {96, 98, 90}, 0.06F, 0.14F, 0.00F, 0.00F, 10.0F},
}};

using Id = MineralId;

const std::array<Assemblage, kMineralCount>& pureAssemblages() {
    // Each standard is one mineral with a little of what grows with it, at a grain size of its own.
    static const std::array<Assemblage, kMineralCount> table{{
        {{{Id::Quartz, 1}}, {{Id::Quartz, 1}}, {{Id::Pyrite, 1}}, 62, 18, 0.15F, 0.05F, 0.30F},
        {{{Id::Albite, 1}}, {{Id::Albite, 1}}, {{Id::Quartz, 1}}, 120, 24, 0.05F, 0.12F, 0.15F},
        {{{Id::Orthoclase, 1}}, {{Id::Albite, 1}}, {{Id::Albite, 1}}, 135, 22, 0.06F, 0.30F, 0.20F},
        {{{Id::Calcite, 1}}, {{Id::Calcite, 1}}, {{Id::Quartz, 1}}, 78, 20, 0.10F, 0.10F, 0.12F},
        {{{Id::Magnetite, 1}}, {{Id::Magnetite, 1}}, {{Id::Hematite, 1}}, 70, 19, 0.12F, 0.22F, 0.35F},
        {{{Id::Hematite, 1}}, {{Id::Hematite, 1}}, {{Id::Magnetite, 1}}, 48, 14, 0.45F, 0.20F, 0.40F},
        {{{Id::Ilmenite, 1}}, {{Id::Ilmenite, 1}}, {{Id::Hematite, 1}}, 88, 18, 0.10F, 0.30F, 0.20F},
        {{{Id::Chromite, 1}}, {{Id::Olivine, 1}}, {{Id::Olivine, 1}}, 80, 17, 0.15F, 0.20F, 0.30F},
        {{{Id::Pyrite, 1}}, {{Id::Pyrite, 1}}, {{Id::Chalcopyrite, 1}}, 92, 20, 0.10F, 0.18F, 0.55F},
        {{{Id::Chalcopyrite, 1}},
         {{Id::Chalcopyrite, 1}},
         {{Id::Sphalerite, 1}},
         84,
         19,
         0.08F,
         0.25F,
         0.30F},
        {{{Id::Pyrrhotite, 1}}, {{Id::Pyrrhotite, 1}}, {{Id::Pyrite, 1}}, 74, 18, 0.12F, 0.15F, 0.30F},
        {{{Id::Galena, 1}}, {{Id::Galena, 1}}, {{Id::Sphalerite, 1}}, 110, 20, 0.05F, 0.12F, 0.60F},
        {{{Id::Sphalerite, 1}}, {{Id::Sphalerite, 1}}, {{Id::Chalcopyrite, 1}}, 90, 20, 0.08F, 0.60F, 0.30F},
        {{{Id::Bornite, 1}}, {{Id::Bornite, 1}}, {{Id::Chalcopyrite, 1}}, 72, 18, 0.10F, 0.35F, 0.25F},
        {{{Id::Olivine, 1}}, {{Id::Olivine, 1}}, {{Id::Chromite, 1}}, 86, 18, 0.15F, 0.20F, 0.25F},
    }};
    return table;
}

bool containsIgnoringCase(const std::string& text, const std::string& word) {
    const auto same = [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); };
    return std::search(text.begin(), text.end(), word.begin(), word.end(), same) != text.end();
}

} // namespace

const Mineral& mineral(MineralId id) { return kMinerals[static_cast<std::size_t>(id)]; }

const Assemblage& sectionAssemblage() {
    static const Assemblage section{
        {{Id::Quartz, 24},
         {Id::Albite, 16},
         {Id::Orthoclase, 12},
         {Id::Magnetite, 10},
         {Id::Pyrite, 8},
         {Id::Chalcopyrite, 6},
         {Id::Hematite, 7},
         {Id::Ilmenite, 6},
         {Id::Sphalerite, 6},
         {Id::Chromite, 3},
         {Id::Calcite, 8}},
        {{Id::Quartz, 34},
         {Id::Albite, 20},
         {Id::Orthoclase, 8},
         {Id::Hematite, 6},
         {Id::Magnetite, 9},
         {Id::Pyrite, 4},
         {Id::Chalcopyrite, 4},
         {Id::Chromite, 7},
         {Id::Bornite, 2}},
        {{Id::Pyrite, 6}, {Id::Chalcopyrite, 3}, {Id::Hematite, 4}, {Id::Chromite, 4}},
        92,
        17,
        0.24F,
        0.30F,
        0.28F};
    return section;
}

const Assemblage& mountAssemblage(int number, const std::string& name) {
    const auto& table = pureAssemblages();
    // The longest name that fits: chalcopyrite is not pyrite.
    const Mineral* named = nullptr;
    for (const Mineral& kind : kMinerals) {
        const bool longer =
            named == nullptr || std::string_view(kind.name).size() > std::string_view(named->name).size();
        if (longer && containsIgnoringCase(name, kind.name)) {
            named = &kind;
        }
    }
    if (named != nullptr) {
        return table[static_cast<std::size_t>(named - kMinerals.data())];
    }
    // Neighbours in the holder differ at a glance.
    static constexpr std::array<Id, 8> byNumber{Id::Quartz,       Id::Albite,    Id::Pyrite,  Id::Hematite,
                                                Id::Chalcopyrite, Id::Magnetite, Id::Calcite, Id::Galena};
    const auto index = static_cast<std::size_t>(static_cast<unsigned>(number) - 1U) % byNumber.size();
    return table[static_cast<std::size_t>(byNumber[index])];
}

} // namespace hosts::simulated
