// department_catalog.h — model layer: the department list every report window starts from.
// An entry reads "0102 一区【03】" (department code, blank, office name, office code in 【】);
// the entry's text is the only carrier of the codes.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

class Connection;
class Dialogs;
class ListBox;

inline constexpr const char* kDepartmentListSql =
    "Select 职能部门编号,职能部门名称, gyd_dh, gyd_name  From 设置管理处  Inner join 职能部门new on "
    "对应部门代号=职能部门编号 Where 职能部门new.终止日期 Is Null  Order by len(职能部门编号),职能部门编号";

// Appends one entry per office of every active department, then leaves no entry selected.
// A failed read shows "错误码: {number} 错误描述: {description}" titled "系统提示"; the list
// keeps the entries it had got.
void LoadDepartmentList(Connection& conn, Dialogs& dialogs, ListBox& list);

std::string DepartmentEntry(std::string_view deptCode, std::string_view officeName,
                            std::string_view officeCode);

// The text before the first blank. Error 5 when the entry has no blank.
std::string DepartmentCodeOf(std::string_view entry);
// What lies before the first "】" of the text after the first "【". Error 5 without "】".
std::string OfficeCodeOf(std::string_view entry);
// The office name: after the first blank, before the first "【". Error 5 without "【".
std::string DepartmentCaptionOf(std::string_view entry);

} // namespace quillon
