// Any connection text: Parse gives pairs or a DbError, never anything else, and the pairs it
// gives, written back with every value quoted, parse again to the same pairs. The ODBC text is
// built from whatever parsed.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "db/connection_string.h"
#include "db/db_error.h"
#include "db/odbc_mapping.h"

namespace {

using quillon::ConnectionString;

[[noreturn]] void Fail(const char* why, std::string_view text) {
    std::fprintf(stderr, "%s: %.*s\n", why, static_cast<int>(text.size()), text.data());
    std::abort();
}

std::string Quoted(const std::string& value) {
    std::string out = "'";
    for (char c : value) out += c == '\'' ? std::string("''") : std::string(1, c);
    return out + "'";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    ConnectionString parsed;
    try {
        parsed = ConnectionString::Parse(text);
    } catch (const quillon::DbError&) {
        return 0;
    }
    std::string written;
    for (const auto& [key, value] : parsed.Pairs()) {
        if (key.empty()) Fail("empty key", text);
        written += key + "=" + Quoted(value) + ";";
    }
    ConnectionString again;
    try {
        again = ConnectionString::Parse(written);
    } catch (const quillon::DbError&) {
        Fail("written pairs do not parse", written);
    }
    if (again.Pairs() != parsed.Pairs()) Fail("written pairs parse otherwise", written);
    for (const auto& [key, value] : parsed.Pairs())
        if (!parsed.Get(key)) Fail("a parsed key is not found", key);
    try {
        quillon::BuildOdbcConnectionText(parsed, "FreeTDS");
        quillon::BuildOdbcConnectionText(parsed, "SQLite3");
    } catch (const quillon::DbError&) {
    }
    return 0;
}
