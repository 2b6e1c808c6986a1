#include "db/recordset.h"

#include "db/db_error.h"
#include "db/text_fold.h"

namespace quillon {

Recordset::Recordset(std::shared_ptr<Cursor> cursor) : cursor_(std::move(cursor)) {
    names_ = cursor_->ColumnNames();
    Fetch();
}

void Recordset::Fetch() {
    eof_ = !cursor_->Fetch(row_);
    if (eof_) row_.clear();
}

void Recordset::MoveNext() {
    if (!cursor_) throw DbError(kAdoErrClosed, "对象关闭时，不允许操作。");
    if (eof_)
        throw DbError(kAdoErrNoCurrentRecord,
                      "BOF 或 EOF 中有一个是“真”，或者当前的记录已被删除，所需的操作要求一个当前的记录。");
    Fetch();
}

Field Recordset::Fields(int ordinal) const {
    if (!cursor_) throw DbError(kAdoErrClosed, "对象关闭时，不允许操作。");
    if (ordinal < 0 || ordinal >= FieldCount())
        throw DbError(kAdoErrItemNotFound, "在对应所需名称或序数的集合中，未找到项目。");
    if (eof_)
        throw DbError(kAdoErrNoCurrentRecord,
                      "BOF 或 EOF 中有一个是“真”，或者当前的记录已被删除，所需的操作要求一个当前的记录。");
    return Field(names_[ordinal], &row_[ordinal]);
}

Field Recordset::Fields(std::string_view name) const {
    return Fields(OrdinalOf(name));
}

int Recordset::OrdinalOf(std::string_view name) const {
    // The first column of that name wins, as ADO finds it.
    for (size_t i = 0; i < names_.size(); ++i)
        if (EqualsIgnoreAsciiCase(names_[i], name)) return static_cast<int>(i);
    return -1;
}

void Recordset::Close() {
    cursor_.reset();
    row_.clear();
    eof_ = true;
}

} // namespace quillon
