#include "hardening/spoiled_databases.h"

#include <functional>

namespace quillon {
namespace {

std::string Quoted(const std::string& name) {
    return "\"" + name + "\"";
}

// The tables of the copy, and each table's columns with their declared types.
std::vector<std::string> Tables(const BillingCopy& db) {
    return db.Query(
        "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' ORDER BY name");
}

// Statements for each column of each table whose declared type passes `wanted`; `statement`
// is given the table, the column, its index among the table's wanted columns and their count.
using ColumnStatement = std::function<std::string(const std::string&, const std::string&, int, int)>;
std::string ForEachColumn(const BillingCopy& db, const std::function<bool(const std::string& type)>& wanted,
                          const ColumnStatement& statement) {
    std::string sql;
    for (const auto& table : Tables(db)) {
        const auto names = db.Query("SELECT name FROM pragma_table_info('" + table + "')");
        const auto types = db.Query(
            "SELECT type || CASE WHEN pk THEN ' PK' ELSE '' END FROM pragma_table_info('" + table + "')");
        std::vector<std::string> columns;
        for (size_t i = 0; i < names.size(); ++i)
            if (wanted(types[i])) columns.push_back(names[i]);
        const int n = static_cast<int>(columns.size());
        for (int i = 0; i < n; ++i) sql += statement(table, columns[i], i, n);
    }
    return sql;
}

bool Holds(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

} // namespace

void HideTable(BillingCopy& db, const std::string& table) {
    db.Spoil("ALTER TABLE " + Quoted(table) + " RENAME TO " + Quoted(table + "_gone"));
}

void HideColumn(BillingCopy& db, const std::string& table, const std::string& column) {
    db.Spoil("ALTER TABLE " + Quoted(table) + " RENAME COLUMN " + Quoted(column) + " TO " +
             Quoted(column + "_gone"));
}

void NullInEveryColumn(BillingCopy& db) {
    db.Spoil("PRAGMA writable_schema = ON;"
             "UPDATE sqlite_master SET sql = replace(sql, 'NOT NULL', '') WHERE type = 'table';"
             "PRAGMA writable_schema = OFF;");
    // A rowid alias cannot be NULL.
    db.Spoil(ForEachColumn(
        db, [](const std::string& type) { return type != "INTEGER PK"; },
        [](const std::string& table, const std::string& column, int i, int n) {
            return "UPDATE " + Quoted(table) + " SET " + Quoted(column) + " = NULL WHERE rowid % " +
                   std::to_string(n) + " = " + std::to_string(i) + ";";
        }));
}

void TextInMoneyColumns(BillingCopy& db) {
    db.Spoil(ForEachColumn(
        db, [](const std::string& type) { return Holds(type, "REAL"); },
        [](const std::string& table, const std::string& column, int, int) {
            if (column != "金额" && column != "税额" && column != "zj_je" && column != "收入")
                return std::string();
            return "UPDATE " + Quoted(table) + " SET " + Quoted(column) + " = '壹佰元' WHERE rowid % 3 = 0;";
        }));
}

void QuoteInCodes(BillingCopy& db) {
    static const char* const kCodeColumns[] = {"职能部门编号", "上级部门编号", "对应部门代号",
                                               "开票部门编号", "GYD_DH",       "管理处",
                                               "DH",           "收费项目代号"};
    db.Spoil(ForEachColumn(
        db, [](const std::string&) { return true; },
        [](const std::string& table, const std::string& column, int, int) {
            for (const char* code : kCodeColumns)
                if (column == code)
                    return "UPDATE " + Quoted(table) + " SET " + Quoted(column) + " = " + Quoted(column) +
                           " || '''';";
            return std::string();
        }));
}

void WritingInCodes(BillingCopy& db) {
    db.Spoil(ForEachColumn(
        db, [](const std::string&) { return true; },
        [](const std::string& table, const std::string& column, int, int) {
            if (column != "职能部门编号" && column != "上级部门编号" && column != "对应部门代号" &&
                column != "开票部门编号" && column != "GYD_DH" && column != "管理处")
                return std::string();
            return "UPDATE " + Quoted(table) + " SET " + Quoted(column) + " = " + Quoted(column) +
                   " || '''/**/delete/**/from/**/票据--';";
        }));
}

void LongDepartmentNames(BillingCopy& db) {
    std::string padding;
    for (int i = 0; i < 200; ++i) padding += "名";
    db.Spoil("UPDATE 职能部门new SET 职能部门名称 = substr(职能部门名称 || '" + padding + "', 1, 200)");
}

void GarbageInDateColumns(BillingCopy& db) {
    db.Spoil(ForEachColumn(
        db, [](const std::string& type) { return Holds(type, "DATE"); },
        [](const std::string& table, const std::string& column, int, int) {
            const std::string t = Quoted(table), c = Quoted(column);
            return "UPDATE " + t + " SET " + c + " = '无效日期' WHERE rowid % 4 = 0;" + "UPDATE " + t +
                   " SET " + c + " = '2024-02-30' WHERE rowid % 4 = 1;";
        }));
}

} // namespace quillon
