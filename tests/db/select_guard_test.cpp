// The read-only guard: only one SELECT passes, judged before any driver sees the text, on both
// backends.
#include "db/select_guard.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "db/backend.h"
#include "db/connection.h"
#include "db_test_support.h"

namespace quillon {
namespace {

using testing::ErrorOf;
using namespace std::string_literals;

constexpr const char* kRefusal = "本程序只读取数据库，语句被拒绝: ";

struct Statement {
    const char* why;
    std::string sql;
};

// Statements that write or hold a second statement. SQL Server runs every statement of a batch,
// with or without a ';' between them.
const std::vector<Statement>& WritingStatements() {
    static const std::vector<Statement> statements = {
        {"insert", "INSERT INTO 票据 (票据编号) VALUES ('9')"},
        {"insert without into", "insert 票据 (票据编号) values ('9')"},
        {"update", "UPDATE 票据 SET 金额 = 0"},
        {"delete", "DELETE FROM 票据"},
        {"merge",
         "MERGE 票据 AS t USING 票据 AS s ON 1 = 0 WHEN NOT MATCHED THEN INSERT (票据编号) VALUES ('9');"},
        {"exec", "EXEC sp_who"},
        {"execute of a text", "EXECUTE('delete from 票据')"},
        {"drop", "DROP TABLE 票据"},
        {"create", "CREATE TABLE 新表 (a int)"},
        {"alter", "ALTER TABLE 票据 ADD 新列 int"},
        {"truncate", "TRUNCATE TABLE 票据"},
        {"select into makes a table", "select * into 备份 from 票据"},
        {"select into in capitals after a column list", "SELECT 票据编号, 金额 INTO #t FROM 票据"},
        {"second statement after ';'", "SELECT * FROM 票据; DELETE FROM 票据"},
        {"second statement after a literal holding ';'", "select ';'; insert into 票据 values(1)"},
        {"second statement with no ';' at all", "select * from 票据 delete from 票据"},
        {"second statement behind a line comment", "select 1 -- 注释\ndelete from 票据"},
        {"a lone CR in a line comment", "select 1 -- 注释\rdelete from 票据"},
        {"a lone CR in a line comment before the SELECT", "-- 注释\rdelete from 票据\nselect 1"},
        {"a lone CR in a line comment after the last ';'", "select 1; -- 注释\rdelete from 票据"},
        {"a bracket opened inside what nests as a comment", "select 1 /* /* */ [ */ ; delete from 票据 -- ]"},
        {"a doubled bracket inside a name", "select [a]]'] ; delete from 票据 --']"},
        {"second statement behind a block comment", "select 1 /* ; */ delete from 票据"},
        {"';' right after a comment", "select 1 /* x */; update 票据 set 金额 = 0"},
        {"update behind a leading comment", "/* select */ update 票据 set 金额 = 0"},
        {"second statement inside brackets", "select * from 票据 where 金额 in (select 1; delete from 票据)"},
        {"a write inside brackets", "select (delete from 票据)"},
        {"after a name in brackets", "select * from [票据] delete from [票据]"},
        {"after a name in brackets and ';'", "select * from [票据];delete from [票据]"},
        {"lower case", "delete from 票据"},
        {"mixed case", "SeLeCt 1 dElEtE fRoM 票据"},
        {"mixed case exec", "select 1 ExEc('drop table 票据')"},
        // Each writing word in lower and in mixed case after a SELECT, where only the word
        // itself can give it away.
        {"lower case insert after a select", "select 1 insert 票据 values(1)"},
        {"mixed case insert after a select", "select 1 InSeRt InTo 票据 values(1)"},
        {"lower case update after a select", "select 1 update 票据 set 金额 = 0"},
        {"mixed case update after a select", "select 1 uPdAtE 票据 SeT 金额 = 0"},
        {"lower case merge after a select",
         "select 1 merge 票据 using 票据 s on 1 = 0 when matched then delete"},
        {"mixed case merge after a select", "select 1 MeRgE 票据 uSiNg 票据 s on 1 = 0"},
        {"lower case exec after a select", "select 1 exec sp_who"},
        {"lower case execute after a select", "select 1 execute sp_who"},
        {"lower case drop after a select", "select 1 drop table 票据"},
        {"mixed case drop after a select", "select 1 DrOp TaBlE 票据"},
        {"lower case create after a select", "select 1 create table 新表 (a int)"},
        {"mixed case create after a select", "select 1 cReAtE table 新表 (a int)"},
        {"lower case alter after a select", "select 1 alter table 票据 add 新列 int"},
        {"mixed case alter after a select", "select 1 AlTeR table 票据 add 新列 int"},
        {"lower case truncate after a select", "select 1 truncate table 票据"},
        {"mixed case truncate after a select", "select 1 TrUnCaTe table 票据"},
        {"mixed case select into", "SeLeCt * iNtO 备份 FrOm 票据"},
        {"mixed case second statement after ';'", "sElEcT 1; DeLeTe FrOm 票据"},
        {"full-width blank before the write", "select 1\u3000delete from 票据"},
        {"full-width blank after SELECT", "SELECT\u3000* FROM 票据"},
        {"full-width blank after a Chinese name", "select * from 票据\u3000update 票据 set 金额 = 0"},
        {"full-width blanks around every word of a write",
         "select 1\u3000insert\u3000into\u3000票据\u3000values(1)"},
        {"a full-width blank after the last ';'", "select 1;\u3000delete from 票据"},
        {"a full-width blank before the first word", "\u3000drop table 票据"},
        {"no-break space", "select 1\u00a0drop table 票据"},
        {"a write glued to a number", "select 1delete from 票据"},
        {"a write after a float's exponent", "select 1edelete from 票据"},
        {"a write after a binary literal", "select 0xAINSERT 票据 values(1)"},
        {"a binary literal after a full-width blank", "select 1\u3000"
                                                      "0xAINSERT 票据 values(1)"},
        {"a float after a broken character", "select \xe6\x96"
                                             "1edelete from 票据"},
        // '$' continues a name but begins none: after a character that ends a name, a digit
        // after it begins a number again.
        {"a binary literal after a broken character and '$'", "select \xe3\x80$0xAInSERT 票据 values(1)"},
        {"a binary literal after a full-width blank and '$'", "select 1\u3000$0xAINSERT 票据 values(1)"},
        {"a binary literal after a number and '$'", "select \u30001$0xAINSERT 票据 values(1)"},
        {"a second select", "select 1 select 2"},
        {"a second select after a bracket", "select (1) select 2"},
        {"waitfor", "select 1 waitfor delay '00:00:10'"},
        {"declare and set", "select 1 declare @n int set @n = 1"},
        {"ODBC call escape", "select 1 {call sp_who}"},
        {"a write on a linked server", "select * from openquery(srv, 'delete from 票据')"},
        {"a sequence moves on", "select next value for 序号"},
        {"a NUL hides the rest from the driver", "select 1\0 delete from 票据"s},
        {"a with clause", "with x as (select 1 a) select * from x"},
        {"empty text", ""},
        {"only blanks", "  \t\r\n"},
        {"only a comment", "-- select 1"},
    };
    return statements;
}

TEST(SelectGuard, RefusesEveryWriteAndEverySecondStatement) {
    for (const auto& s : WritingStatements()) {
        SCOPED_TRACE(s.why);
        const DbError e = ErrorOf([&] { EnsureSingleSelect(s.sql); });
        EXPECT_EQ(e.Number, kAdoErrBadStatement);
        EXPECT_EQ(e.Description.rfind(kRefusal, 0), 0u) << e.Description;
    }
}

TEST(SelectGuard, LetsOneSelectThrough) {
    const Statement selects[] = {
        {"plain select", "Select * From 票据类型"},
        {"leading blanks and comments", "  \r\n-- note\r\n/* block */ select 1"},
        {"nested comments hold what looks like a second statement", "select 1 /* /* */ ; delete */ from t"},
        {"doubled closing marks inside names", "select [a]]; delete], \"b\"\"; drop\" from t"},
        {"one trailing semicolon", "select 1 ;  "},
        {"semicolon inside a literal", "select 'a;delete from x' as t"},
        {"semicolon inside a comment", "select 1 /* ; drop table x */"},
        {"writing words inside literals", "select N'更新 update; drop' as 说明, 'insert into' from t"},
        {"writing words as names in brackets", "select [into], [delete], \"set\" from t"},
        {"words that only hold a writing word", "select SetupSFXM.dh, 更新日期, deleted_at from SetupSFXM"},
        {"a Chinese name glued to a writing word", "select sum(金额) IF卡费, sum(金额) SET费 from t"},
        {"union all", "select 1 union all select 2 union select 3 except select 4 intersect select 5"},
        {"subqueries", "select * from (select 1 a) x where a in (select 1) and exists ( select 1 )"},
        {"the reports' dialect", "Select CONVERT(char(6),开票日期,112), len(a), LEFT(a,1) From 票据 "
                                 "Where CHARINDEX('(', 票据编号) = 0 Order by 票据编号"},
        {"a table hint", "select * from 票据 with (nolock)"},
        {"numbers", "select 1e5, 1.5e-3, 0x1F, .5"},
        {"'$' and digits inside names", "select a$0xAINSERT, 金额$1, @p$0xAINSERT from t"},
    };
    for (const auto& s : selects) {
        SCOPED_TRACE(s.why);
        EXPECT_EQ(ErrorOf([&] { EnsureSingleSelect(s.sql); }).Number, 0);
    }
}

std::string FileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The guard stands in the connection, before the backend: a refused statement reaches neither the
// engine nor the statement log, on either backend. The ODBC connection is opened writable, so a
// statement let through would change the file.
TEST(SelectGuard, RefusesBeforeEitherBackendSeesTheStatement) {
    testing::TempSqliteFile file;
    file.Exec("CREATE TABLE 票据 (票据编号 TEXT, 金额 REAL); INSERT INTO 票据 VALUES ('1', 10);");
    struct Backend {
        const char* why;
        std::string text;
        std::string odbcDriver;
    } backends[] = {
        {"embedded SQLite", file.SqliteConnectionText(), "FreeTDS"},
        {"ODBC",
         "Provider=SQLOLEDB.1;Password=;User ID=;Initial Catalog='" + file.Path() + "';Data Source=''",
         "SQLite3"},
    };
    const std::string before = FileBytes(file.Path());
    for (const auto& b : backends) {
        SCOPED_TRACE(b.why);
        if (b.odbcDriver == "SQLite3" && !std::filesystem::exists(testing::kSqliteOdbcDriver)) {
            ADD_FAILURE() << "the SQLite ODBC driver (package libsqliteodbc) is not installed";
            continue;
        }
        Connection conn;
        conn.ConnectionString = b.text;
        conn.OdbcDriver = b.odbcDriver;
        conn.Open();
        std::vector<std::string> sent;
        conn.OnStatement = [&](const std::string& sql) { sent.push_back(sql); };
        for (const auto& s : WritingStatements()) {
            SCOPED_TRACE(s.why);
            const DbError e = ErrorOf([&] { conn.OpenRecordset(s.sql); });
            EXPECT_EQ(e.Number, kAdoErrBadStatement);
            EXPECT_EQ(e.Description.rfind(kRefusal, 0), 0u) << e.Description;
        }
        EXPECT_EQ(sent, std::vector<std::string>{});
        EXPECT_EQ(conn.OpenRecordset("select count(*) from 票据").Fields(0).Value().AsText(), "1");
    }
    EXPECT_TRUE(FileBytes(file.Path()) == before) << "the database file changed";
    EXPECT_FALSE(std::filesystem::exists(file.Path() + "-journal"));

    // The control: the same ODBC connection does write what reaches it.
    if (!std::filesystem::exists(testing::kSqliteOdbcDriver)) return;
    auto odbc = MakeOdbcBackend();
    odbc->Open(ConnectionString::Parse(backends[1].text), OpenOptions{5, "SQLite3"});
    odbc->Execute("DELETE FROM 票据", 30);
    EXPECT_FALSE(FileBytes(file.Path()) == before) << "a write sent to the driver went unnoticed";
}

} // namespace
} // namespace quillon
