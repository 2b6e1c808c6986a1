#include "model/department_catalog.h"

#include "base/vb_error.h"
#include "base/vb_text.h"
#include "controls/dialogs.h"
#include "controls/list_box.h"
#include "db/connection.h"

namespace quillon {
namespace {

constexpr std::string_view kOpen = "【";
constexpr std::string_view kClose = "】";

// Left(text, InStr(text, mark) - 1): a missing mark asks for a negative length, error 5.
std::string Before(std::string_view text, std::string_view mark) {
    size_t at = text.find(mark);
    if (at == std::string_view::npos) throw VbError(kErrInvalidProcCall, "无效的过程调用或参数");
    return std::string(text.substr(0, at));
}

// Mid(text, InStr(text, mark) + len): a missing mark starts from the first character.
std::string_view After(std::string_view text, std::string_view mark) {
    size_t at = text.find(mark);
    return at == std::string_view::npos ? text : text.substr(at + mark.size());
}

} // namespace

std::string DepartmentEntry(std::string_view deptCode, std::string_view officeName,
                            std::string_view officeCode) {
    return std::string(deptCode) + " " + Replace(std::string(officeName), "\r\n", "") + std::string(kOpen) +
           std::string(officeCode) + std::string(kClose);
}

void LoadDepartmentList(Connection& conn, Dialogs& dialogs, ListBox& list) {
    try {
        auto rs = conn.OpenRecordset(kDepartmentListSql);
        for (; !rs.Eof(); rs.MoveNext())
            list.AddItem(DepartmentEntry(rs.Fields("职能部门编号").Value().AsText(),
                                         rs.Fields("gyd_name").Value().AsText(),
                                         rs.Fields("gyd_dh").Value().AsText()));
        list.SetListIndex(-1);
    } catch (const VbError& e) {
        dialogs.MsgBox("错误码: " + std::to_string(e.Number) + " 错误描述: " + e.Description, "系统提示",
                       vbInformation);
    }
}

std::string DepartmentCodeOf(std::string_view entry) {
    return Before(entry, " ");
}

std::string OfficeCodeOf(std::string_view entry) {
    return Before(After(entry, kOpen), kClose);
}

std::string DepartmentCaptionOf(std::string_view entry) {
    return Before(After(entry, " "), kOpen);
}

} // namespace quillon
