// The ODBC backend's two translations: ADO settings to an ODBC connection text, and a column's
// driver text to a Value. Kept apart from the driver calls so that both are tested without one.
#include "db/odbc_mapping.h"

#include <sql.h>
#include <sqlext.h>

#include <charconv>
#include <cstdint>

#include "db/db_error.h"
#include "db/text_fold.h"

namespace quillon {
namespace {

std::string_view TrimBlanks(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
    return s;
}

// from_chars takes no leading '+' and, unlike strtod, never looks at the process locale
// (the GUI sets one from the environment, where ',' may be the decimal mark).
std::string_view NumberBody(std::string_view s) {
    s = TrimBlanks(s);
    if (s.size() > 1 && s.front() == '+') s.remove_prefix(1);
    return s;
}

bool ReadInteger(std::string_view s, std::int64_t& out) {
    s = NumberBody(s);
    if (s.empty()) return false;
    auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), out);
    return ec == std::errc() && end == s.data() + s.size();
}

bool ReadDouble(std::string_view s, double& out) {
    s = NumberBody(s);
    if (s.empty()) return false;
    auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), out);
    return ec == std::errc() && end == s.data() + s.size();
}

bool IsFreeTds(std::string_view driver) {
    return FoldedAscii(driver).find("freetds") != std::string::npos;
}

} // namespace

std::string OdbcConnectionValue(std::string_view value) {
    // FreeTDS reads a braced value up to "};" and knows no "}}" escape, so the text inside
    // the braces stays as it is. The SQLite driver knows no braces at all, which is why only
    // values that would otherwise be misread get them.
    if (value.find_first_of(";{") == std::string_view::npos) return std::string(value);
    return "{" + std::string(value) + "}";
}

std::string BuildOdbcConnectionText(const ConnectionString& params, std::string_view driver) {
    struct Pair {
        const char* ado;
        const char* odbc;
    };
    static constexpr Pair kPairs[] = {
        {"Data Source", "Server"},
        {"Initial Catalog", "Database"},
        {"User ID", "UID"},
        {"Password", "PWD"},
    };
    std::string text = "Driver={" + std::string(driver) + "};";
    for (const auto& p : kPairs) {
        if (auto v = params.Get(p.ado)) text += std::string(p.odbc) + "=" + OdbcConnectionValue(*v) + ";";
    }
    // FreeTDS's automatic protocol probe retries with the Sybase protocol after a server that
    // accepted the connection stays silent, and that retry ignores the login timeout: the open
    // would never return. Every SQL Server answers a 7.4 login with its own version, which is
    // what the probe would have ended with anyway.
    if (IsFreeTds(driver)) text += "TDS_Version=7.4;";
    // Last on purpose: FreeTDS keeps the closing brace of a braced value that ends the text.
    text += "ClientCharset=UTF-8";
    return text;
}

Value OdbcTextToValue(int sqlType, std::string text) {
    switch (sqlType) {
    case SQL_INTEGER:
    case SQL_SMALLINT:
    case SQL_TINYINT:
    case SQL_BIGINT:
    case SQL_BIT: {
        std::int64_t i = 0;
        if (ReadInteger(text, i)) return Value(i);
        double d = 0;
        if (ReadDouble(text, d)) return Value(d);
        return Value(std::move(text));
    }
    case SQL_DECIMAL:
    case SQL_NUMERIC:
    case SQL_FLOAT:
    case SQL_REAL:
    case SQL_DOUBLE: {
        double d = 0;
        if (ReadDouble(text, d)) return Value(d);
        return Value(std::move(text));
    }
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
    case SQL_DATE:
    case SQL_TIMESTAMP:
        if (auto d = DateTime::ParseIso(text)) return Value(*d);
        return Value(std::move(text));
    default:
        return Value(std::move(text));
    }
}

long AdoNumberForStatementFailure(const std::vector<std::string>& sqlStates) {
    bool connectionLost = false;
    for (const auto& state : sqlStates) {
        if (state == "HYT00" || state == "HYT01") return kAdoErrTimeout;
        if (state.rfind("08", 0) == 0) connectionLost = true;
    }
    return connectionLost ? kAdoErrGeneric : kAdoErrBadStatement;
}

} // namespace quillon
