// text_width.h — controls layer: the width of a text in the windows' font, in twips, which the
// grid's FormatString and the windows' column fitting rely on.
// Headless, a fixed-pitch model of 9-point SimSun at 96 dpi is used (a half-width character is
// 6 pixels, a wide one 12); the Qt skin installs the real font's measure at start-up.
#pragma once

#include <functional>
#include <string_view>

namespace quillon {

using TextWidthMeasure = std::function<int(std::string_view utf8)>;

// Width in twips of the text in the windows' font.
int TextWidth(std::string_view utf8);

// Replaces the measure for the whole process; an empty function restores the headless model.
void SetTextWidthMeasure(TextWidthMeasure measure);

// The headless model itself: 90 twips per half-width character, 180 per wide one (CJK
// ideographs, kana, hangul, full-width forms and CJK punctuation). Bad UTF-8 bytes count as
// half-width.
int FixedPitchTextWidth(std::string_view utf8);

} // namespace quillon
