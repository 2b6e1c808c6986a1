// vb_text.cpp — text helpers on UTF-8 bytes.
#include "base/vb_text.h"

namespace quillon {

std::string Replace(std::string_view text, std::string_view find, std::string_view with) {
    if (find.empty()) return std::string(text);
    std::string out;
    out.reserve(text.size());
    std::size_t from = 0;
    for (std::size_t at; (at = text.find(find, from)) != std::string_view::npos; from = at + find.size()) {
        out.append(text, from, at - from);
        out.append(with);
    }
    out.append(text, from);
    return out;
}

std::size_t InStr(std::string_view text, std::string_view find, std::size_t start) {
    if (start == 0) start = 1;
    if (text.empty() || start > text.size()) return 0;
    if (find.empty()) return start;
    const std::size_t at = text.find(find, start - 1);
    return at == std::string_view::npos ? 0 : at + 1;
}

std::string LTrim(std::string_view text) {
    const std::size_t b = text.find_first_not_of(' ');
    return b == std::string_view::npos ? std::string() : std::string(text.substr(b));
}

std::string RTrim(std::string_view text) {
    const std::size_t e = text.find_last_not_of(' ');
    return e == std::string_view::npos ? std::string() : std::string(text.substr(0, e + 1));
}

std::string Trim(std::string_view text) {
    return LTrim(RTrim(text));
}

bool StartsWith(std::string_view text, std::string_view prefix) {
    return text.starts_with(prefix);
}

bool Contains(std::string_view text, std::string_view find) {
    return text.find(find) != std::string_view::npos;
}

std::vector<std::string> Split(std::string_view text, std::string_view sep) {
    std::vector<std::string> parts;
    if (text.empty()) return parts;
    if (sep.empty()) {
        parts.emplace_back(text);
        return parts;
    }
    std::size_t from = 0;
    for (std::size_t at; (at = text.find(sep, from)) != std::string_view::npos; from = at + sep.size())
        parts.emplace_back(text.substr(from, at - from));
    parts.emplace_back(text.substr(from));
    return parts;
}

std::string Join(const std::vector<std::string>& parts, std::string_view sep) {
    std::string out;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) out.append(sep);
        out += parts[i];
    }
    return out;
}

} // namespace quillon
