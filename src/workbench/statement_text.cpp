#include "workbench/statement_text.h"

#include <stdexcept>
#include <vector>

namespace quillon {

std::string FillStatement(std::string_view text, std::initializer_list<StatementValue> values) {
    std::vector<bool> used(values.size(), false);
    std::string out;
    out.reserve(text.size() * 2);
    std::size_t pos = 0;
    while (pos < text.size()) {
        const std::size_t open = text.find('{', pos);
        if (open == std::string_view::npos) {
            out.append(text.substr(pos));
            break;
        }
        const std::size_t close = text.find('}', open);
        if (close == std::string_view::npos)
            throw std::logic_error("statement text: unclosed placeholder at " + std::to_string(open));
        out.append(text.substr(pos, open - pos));
        const std::string_view name = text.substr(open + 1, close - open - 1);
        std::size_t i = 0;
        for (const auto& v : values) {
            if (v.name == name) break;
            ++i;
        }
        if (i == values.size())
            throw std::logic_error("statement text: no value for {" + std::string(name) + "}");
        used[i] = true;
        out.append(values.begin()[i].value);
        pos = close + 1;
    }
    std::size_t i = 0;
    for (const auto& v : values)
        if (!used[i++])
            throw std::logic_error("statement text: {" + std::string(v.name) + "} is not in the text");
    return out;
}

} // namespace quillon
