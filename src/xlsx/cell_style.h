// cell_style.h — workbook layer: the format of one cell as a value, and the pool that interns
// formats so that a sheet of a million cells shares a handful of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "xlsx/xl_constants.h"

namespace quillon {

// A new workbook's cell font; also what libxlsxwriter writes when nothing is set.
inline constexpr const char* kDefaultFontName = "Calibri";
inline constexpr double kDefaultFontSize = 11.0;

enum class BorderEdge { Left = 0, Top = 1, Right = 2, Bottom = 3 };

struct CellStyle {
    std::string numberFormat = "General";
    int horizontalAlignment = xlGeneral;
    int verticalAlignment = xlBottom;
    bool wrapText = false;
    std::string fontName = kDefaultFontName;
    double fontSize = kDefaultFontSize;
    bool fontBold = false;
    std::optional<long> interiorColor; // BGR as the automation interface takes it; none = no fill
    std::array<int, 4> borders{xlLineStyleNone, xlLineStyleNone, xlLineStyleNone, xlLineStyleNone};

    int Border(BorderEdge edge) const { return borders[static_cast<std::size_t>(edge)]; }
    bool operator==(const CellStyle&) const = default;
};

struct CellStyleHash {
    std::size_t operator()(const CellStyle& s) const;
};

using StyleId = std::uint32_t;

// Interned formats of one workbook. Id 0 is always the default format.
class StylePool {
public:
    StylePool();

    StyleId Intern(const CellStyle& style);
    const CellStyle& At(StyleId id) const { return styles_[id]; }
    std::size_t Count() const { return styles_.size(); }

    static constexpr StyleId kDefault = 0;

private:
    std::vector<CellStyle> styles_;
    std::unordered_map<CellStyle, StyleId, CellStyleHash> ids_;
};

} // namespace quillon
