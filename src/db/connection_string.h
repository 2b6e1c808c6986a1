// connection_string.h — an ADO-style connection text ("key=value;…") read into its pairs.
// Keys are matched case-insensitively; values may stand in single or double quotes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillon {

class ConnectionString {
public:
    // Throws DbError (kAdoErrGeneric) for text that is not a list of key=value pairs.
    static ConnectionString Parse(std::string_view text);

    std::optional<std::string> Get(std::string_view key) const;
    std::string GetOr(std::string_view key, std::string fallback) const;
    const std::vector<std::pair<std::string, std::string>>& Pairs() const { return pairs_; }

private:
    std::vector<std::pair<std::string, std::string>> pairs_;
};

} // namespace quillon
