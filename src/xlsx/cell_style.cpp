// cell_style.cpp — hashing and interning of cell formats.
#include "xlsx/cell_style.h"

#include <functional>

namespace quillon {

namespace {

void Mix(std::size_t& seed, std::size_t value) {
    seed ^= value + 0x9e3779b97f4a7c15ULL + (seed << 6) + (seed >> 2);
}

} // namespace

std::size_t CellStyleHash::operator()(const CellStyle& s) const {
    std::size_t seed = std::hash<std::string>{}(s.numberFormat);
    Mix(seed, std::hash<int>{}(s.horizontalAlignment));
    Mix(seed, std::hash<int>{}(s.verticalAlignment));
    Mix(seed, s.wrapText);
    Mix(seed, std::hash<std::string>{}(s.fontName));
    Mix(seed, std::hash<double>{}(s.fontSize));
    Mix(seed, s.fontBold);
    Mix(seed, s.interiorColor ? std::hash<long>{}(*s.interiorColor) : 0x5bd1e995);
    for (int b : s.borders) Mix(seed, std::hash<int>{}(b));
    return seed;
}

StylePool::StylePool() {
    Intern(CellStyle{});
}

StyleId StylePool::Intern(const CellStyle& style) {
    auto [it, inserted] = ids_.try_emplace(style, static_cast<StyleId>(styles_.size()));
    if (inserted) styles_.push_back(style);
    return it->second;
}

} // namespace quillon
