#include "controls/text_width.h"

#include <cstdint>
#include <utility>

namespace quillon {

namespace {

TextWidthMeasure& InstalledMeasure() {
    static TextWidthMeasure measure;
    return measure;
}

// Decodes one code point at text[i], advancing i; a bad sequence yields its first byte.
std::uint32_t NextCodePoint(std::string_view text, std::size_t& i) {
    const auto lead = static_cast<unsigned char>(text[i]);
    int extra = 0;
    std::uint32_t cp = lead;
    if (lead >= 0xF0 && lead < 0xF8) {
        extra = 3;
        cp = lead & 0x07;
    } else if (lead >= 0xE0) {
        extra = 2;
        cp = lead & 0x0F;
    } else if (lead >= 0xC0) {
        extra = 1;
        cp = lead & 0x1F;
    }
    if (lead >= 0xF8 || (lead >= 0x80 && lead < 0xC0) || i + extra >= text.size()) {
        ++i;
        return lead;
    }
    for (int k = 1; k <= extra; ++k) {
        const auto next = static_cast<unsigned char>(text[i + k]);
        if ((next & 0xC0) != 0x80) {
            ++i;
            return lead;
        }
        cp = (cp << 6) | (next & 0x3F);
    }
    i += extra + 1;
    return cp;
}

bool IsWide(std::uint32_t cp) {
    return (cp >= 0x1100 && cp <= 0x115F) ||   // hangul jamo
           (cp >= 0x2E80 && cp <= 0xA4CF) ||   // CJK radicals … yi, CJK punctuation, kana
           (cp >= 0xAC00 && cp <= 0xD7A3) ||   // hangul syllables
           (cp >= 0xF900 && cp <= 0xFAFF) ||   // CJK compatibility ideographs
           (cp >= 0xFE30 && cp <= 0xFE4F) ||   // CJK compatibility forms
           (cp >= 0xFF00 && cp <= 0xFF60) ||   // full-width forms
           (cp >= 0xFFE0 && cp <= 0xFFE6) ||   // full-width signs
           (cp >= 0x20000 && cp <= 0x3FFFD) || // CJK extension planes
           cp == 0x2014 || cp == 0x2026 ||     // dash and ellipsis are drawn wide in SimSun
           cp == 0x2018 || cp == 0x2019 || cp == 0x201C || cp == 0x201D;
}

} // namespace

int FixedPitchTextWidth(std::string_view utf8) {
    int width = 0;
    for (std::size_t i = 0; i < utf8.size();) width += IsWide(NextCodePoint(utf8, i)) ? 180 : 90;
    return width;
}

int TextWidth(std::string_view utf8) {
    const auto& measure = InstalledMeasure();
    return measure ? measure(utf8) : FixedPitchTextWidth(utf8);
}

void SetTextWidthMeasure(TextWidthMeasure measure) {
    InstalledMeasure() = std::move(measure);
}

} // namespace quillon
