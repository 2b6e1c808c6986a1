// recordset.h — a forward-only, read-only result, walked as ADO's Recordset is walked:
// EOF, MoveNext, Fields(name | ordinal). Field names are found case-insensitively.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "db/cursor.h"
#include "db/value.h"

namespace quillon {

class Field {
public:
    // Like the value, the name is the recordset's own: a field is read while its row is current.
    Field(const std::string& name, const quillon::Value* value) : name_(&name), value_(value) {}
    const std::string& Name() const { return *name_; }
    const quillon::Value& Value() const { return *value_; }
    bool IsNull() const { return value_->IsNull(); }

private:
    const std::string* name_;
    const quillon::Value* value_;
};

class Recordset {
public:
    Recordset() = default;
    explicit Recordset(std::shared_ptr<Cursor> cursor);

    bool IsOpen() const { return cursor_ != nullptr; }
    // ADO's EOF; the C library keeps that name as a macro.
    bool Eof() const { return eof_; }
    void MoveNext();
    int FieldCount() const { return static_cast<int>(names_.size()); }
    // DbError 3265 when no field has that name or ordinal; 3021 at EOF.
    Field Fields(int ordinal) const;
    Field Fields(std::string_view name) const;
    void Close();

private:
    void Fetch();
    int OrdinalOf(std::string_view name) const;

    std::shared_ptr<Cursor> cursor_;
    std::vector<std::string> names_;
    std::vector<Value> row_;
    bool eof_ = true;
};

} // namespace quillon
