// settings_text.h — shell layer: the bytes of a settings file as UTF-8 text. Deployment may
// save the file with a Chinese Windows editor, in GBK rather than UTF-8; such a file is read
// as GB18030 (GBK's superset), so a company name or a database path in Chinese arrives as typed.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

// True when the bytes are well-formed UTF-8 (no overlong forms, no surrogates).
bool IsValidUtf8(std::string_view bytes);

// UTF-8 as it stands; else GB18030 turned into UTF-8; else, for bytes that are neither, UTF-8
// with each stray byte shown as U+FFFD. The result is always valid UTF-8.
std::string SettingsTextAsUtf8(std::string_view bytes);

} // namespace quillon
