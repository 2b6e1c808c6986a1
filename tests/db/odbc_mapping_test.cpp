// The ODBC backend's translations, without a driver: the connection text built from the ADO
// pairs, and the driver's column text read as the column's SQL type.
#include <gtest/gtest.h>
#include <sql.h>
#include <sqlext.h>

#include "db/odbc_mapping.h"
#include "db_test_support.h"

namespace quillon {
namespace {

TEST(OdbcConnectionText, CarriesTheAdoPairsUnderTheDriversKeys) {
    struct Case {
        const char* why;
        const char* ado;
        const char* driver;
        const char* odbc;
    };
    const Case cases[] = {
        {"the start-up text for a named instance on a port",
         "Provider=SQLOLEDB.1;Password=pw;Persist Security Info=False;User ID=sa;"
         "Initial Catalog='物业收费';Data Source='192.168.1.10,1433'",
         "FreeTDS",
         "Driver={FreeTDS};Server=192.168.1.10,1433;Database=物业收费;UID=sa;PWD=pw;TDS_Version=7.4;"
         "ClientCharset=UTF-8"},
        {"empty settings stay as empty values",
         "Provider=SQLOLEDB.1;Password=;Persist Security Info=False;User ID=;Initial Catalog='';Data "
         "Source=''",
         "FreeTDS", "Driver={FreeTDS};Server=;Database=;UID=;PWD=;TDS_Version=7.4;ClientCharset=UTF-8"},
        {"another driver gets no TDS version",
         "Provider=SQLOLEDB.1;Password=;User ID=;Initial Catalog='file:/tmp/a b.db?mode=ro';Data Source=''",
         "SQLite3",
         "Driver={SQLite3};Server=;Database=file:/tmp/a b.db?mode=ro;UID=;PWD=;ClientCharset=UTF-8"},
        {"FreeTDS registered under a longer name is still FreeTDS", "Provider=SQLOLEDB.1;Data Source=srv",
         "FreeTDS 1.3", "Driver={FreeTDS 1.3};Server=srv;TDS_Version=7.4;ClientCharset=UTF-8"},
        {"pairs absent from the ADO text are left out", "Provider=SQLOLEDB.1;User ID=reader", "SQLite3",
         "Driver={SQLite3};UID=reader;ClientCharset=UTF-8"},
        {"a quoted semicolon is braced so it does not end the value",
         "Provider=SQLOLEDB.1;Password='a;b';User ID=sa", "SQLite3",
         "Driver={SQLite3};UID=sa;PWD={a;b};ClientCharset=UTF-8"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(BuildOdbcConnectionText(ConnectionString::Parse(c.ado), c.driver), c.odbc);
    }
}

TEST(OdbcConnectionText, BracesOnlyValuesThatWouldBeMisread) {
    struct Case {
        const char* why;
        const char* value;
        const char* odbc;
    };
    const Case cases[] = {
        {"plain", "Pa55w0rd", "Pa55w0rd"},
        {"semicolon", "x;y", "{x;y}"},
        {"leading brace would open a braced value", "{x", "{{x}"},
        {"brace inside", "a{b", "{a{b}"},
        {"closing brace alone is read as it is", "a}b", "a}b"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(OdbcConnectionValue(c.value), c.odbc);
    }
}

TEST(OdbcTextToValue, ReadsTheDriversTextAsTheColumnsType) {
    struct Case {
        const char* why;
        int sqlType;
        const char* text;
        Value expected;
    };
    const Case cases[] = {
        {"int", SQL_INTEGER, "42", Value(std::int64_t{42})},
        {"bigint beyond a double's precision", SQL_BIGINT, "-9007199254740993",
         Value(std::int64_t{-9007199254740993})},
        {"tinyint with a sign", SQL_TINYINT, "+7", Value(std::int64_t{7})},
        {"an integer column holding a fraction (SQLite)", SQL_INTEGER, "3.5", Value(3.5)},
        {"an integer column holding a word (SQLite)", SQL_SMALLINT, "abc", Value("abc")},
        {"money as the server writes it", SQL_DECIMAL, "12.5000", Value(12.5)},
        {"float with an exponent", SQL_DOUBLE, "1.5E+10", Value(1.5e10)},
        {"fraction without a leading zero", SQL_REAL, "-.5", Value(-0.5)},
        {"float column with blanks round it", SQL_FLOAT, " 2.25 ", Value(2.25)},
        {"a decimal comma is no number", SQL_DOUBLE, "1,5", Value("1,5")},
        {"empty text in a number column stays empty text", SQL_DOUBLE, "", Value("")},
        {"date", SQL_TYPE_DATE, "2024-03-05", Value(DateTime{2024, 3, 5})},
        {"server datetime with milliseconds", SQL_TYPE_TIMESTAMP, "2024-03-05 10:11:12.123",
         Value(DateTime{2024, 3, 5, 10, 11, 12})},
        {"ODBC 2 date type on a leap day", SQL_DATE, "2024-02-29", Value(DateTime{2024, 2, 29})},
        {"ODBC 2 timestamp at midnight", SQL_TIMESTAMP, "2023-12-31 00:00:00", Value(DateTime{2023, 12, 31})},
        {"no such day stays text", SQL_TYPE_DATE, "2023-02-29", Value("2023-02-29")},
        {"codes keep their leading zeros", SQL_VARCHAR, "0012", Value("0012")},
        {"a time of day is text", SQL_TYPE_TIME, "10:11:12", Value("10:11:12")},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(OdbcTextToValue(c.sqlType, c.text), c.expected);
    }
}

TEST(OdbcStatementFailure, NumbersTheFailureAsAdoDoes) {
    struct Case {
        const char* why;
        std::vector<std::string> states;
        long number;
    };
    const Case cases[] = {
        {"query time-out", {"HYT00"}, kAdoErrTimeout},
        {"time-out after an informational record", {"01000", "HYT00"}, kAdoErrTimeout},
        {"connection time-out", {"HYT01"}, kAdoErrTimeout},
        {"time-out that also dropped the link", {"08S01", "HYT00"}, kAdoErrTimeout},
        {"link lost", {"08S01"}, kAdoErrGeneric},
        {"unknown table", {"42S02"}, kAdoErrBadStatement},
        {"a driver that gave no record", {}, kAdoErrBadStatement},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(AdoNumberForStatementFailure(c.states), c.number);
    }
}

} // namespace
} // namespace quillon
