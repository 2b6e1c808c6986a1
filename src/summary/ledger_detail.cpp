// The panel's three ledger views: the same columns as the invoice lines, read from the charge
// ledger WYZJ through the approved income vouchers. No command of the window calls them.
#include "base/vb_error.h"
#include "base/vb_number.h"
#include "db/connection.h"
#include "summary/summary_window.h"
#include "workbench/statement_text.h"

namespace quillon {
namespace {

// The building's address: its four parts and their suffixes, a missing one as empty text.
#define QUILLON_OWNER_ADDRESS                                                                                    \
    " (Case When [地址1] Is Not Null Then [地址1] Else '' End) + (Case When [字1] Is Not Null Then [字1] " \
    "Else '' "                                                                                                   \
    "End) + (Case When [地址2] Is Not Null Then [地址2] Else '' End) + (Case When [字2] Is Not Null Then "  \
    "[字2] "                                                                                                    \
    "Else '' End) + (Case When [地址3] Is Not Null Then [地址3] Else '' End) + (Case When [字3] Is Not "    \
    "Null Then "                                                                                                 \
    "[字3] Else '' End) + (Case When [地址4] Is Not Null Then [地址4] Else '' End) + (Case When [字4] Is " \
    "Not Null "                                                                                                  \
    "Then [字4] Else '' End) "

// Owners: the payer is the building's address, the room and the owner's name. The four year
// tests let every period through and keep out only a NULL one.
constexpr const char* kOwnerLedgerSql =
    " Select wyzj.票据入库单编号 as 入库单编号, wyzj.发票号码 as 票据编号, " QUILLON_OWNER_ADDRESS
    "+室表.室 + '室'+' "
    "'+业主表.姓名 as 付款人,  SetupSFXM.XM as 项目,  min(wyzj.zj_cny)+'-'+max(wyzj.zj_cny) as 摘要,  "
    "sum(wyzj.zj_je) as 金额, sum(wyzj.收入) as SR,  wyzj.zj_skrq as 收款日期,wyzj.收款人 as 收款人, '' as "
    "开票人,'' as 开票日期  From 楼表  Inner Join 室表 On 楼表.L_id=室表.L_id  Inner Join 业主表  on "
    "室表.S_ID=业主表.S_ID  Inner Join WYZJ On 业主表.ZH_ID=WYZJ.ZH_ID  Inner Join SETUPSFXM On "
    "WYZJ.ZJ_LX=SETUPSFXM.DH  Inner Join 收入凭证附件清单 On  "
    "WYZJ.票据入库单编号=收入凭证附件清单.票据本编号  "
    "And WYZJ.发票号码 = LEFT(收入凭证附件清单.票据编号, case when "
    "CHARINDEX('(',收入凭证附件清单.票据编号,1)>1 "
    "then CHARINDEX('(',收入凭证附件清单.票据编号,1)-1 else len(收入凭证附件清单.票据编号) end )  Inner Join "
    "收入凭证 On 收入凭证附件清单.凭证ID = 收入凭证.ID Where 楼表.管理处='{office}'  and "
    "Convert(char(8),收入凭证.审批日期,112) Between '{first}' and '{last}' and WYZJ.ZJ_LX in ({item})  And "
    "WYZJ.收款方式 In ({modes})  And 审批日期 Is Not Null And 审批同意=1 And (收入凭证附件清单.金额>=0 Or "
    "(收入凭证附件清单.金额<0 And 收入凭证.收款方式='退款')) And (Left(zj_cny,4) < '{y}' Or Left(zj_cny,4) = "
    "'{y}' Or Left(zj_cny,4) = '{y1}' Or Left(zj_cny,4) >= '{y2}') Group By (Case When [地址1] Is Not Null "
    "Then "
    "[地址1] Else '' End) + (Case When [字1] Is Not Null Then [字1] Else '' End) + (Case When [地址2] Is Not "
    "Null "
    "Then [地址2] Else '' End) + (Case When [字2] Is Not Null Then [字2] Else '' End) + (Case When [地址3] "
    "Is Not "
    "Null Then [地址3] Else '' End) + (Case When [字3] Is Not Null Then [字3] Else '' End) + (Case When "
    "[地址4] Is "
    "Not Null Then [地址4] Else '' End) + (Case When [字4] Is Not Null Then [字4] Else '' End), 室表.室 "
    ",业主表.姓名,SetupSFXM.XM,wyzj.zj_skrq,wyzj.收款人, 票据入库单编号, 发票号码 Order By "
    "入库单编号,票据编号,付款人";
#undef QUILLON_OWNER_ADDRESS

// Parking registrations: asks for an empty lot and number and still joins on them, so only
// voucher attachments with an empty lot and cut number match.
constexpr const char* kRegistrationLedgerSql =
    "Select WYZJ.票据入库单编号 as 入库单编号, WYZJ.发票号码 as 票据编号,  车位申请登记表.车主姓名 as "
    "付款人,  "
    "SetupSFXM.XM as 项目,min(wyzj.zj_cny)+'-'+max(wyzj.zj_cny) as 摘要, sum(wyzj.zj_je) as 金额, "
    "sum(wyzj.收入) as SR, wyzj.zj_skrq as 收款日期,wyzj.收款人 as 收款人, '' as 开票人,'' as 开票日期  From "
    "WYZJ  "
    "Inner Join 车位申请登记表 On WYZJ.DJ_ID=车位申请登记表.登记ID Inner Join SETUPSFXM On "
    "WYZJ.ZJ_LX=SETUPSFXM.DH Inner Join 收入凭证附件清单 On  WYZJ.票据入库单编号=收入凭证附件清单.票据本编号 "
    " "
    "And WYZJ.发票号码 = LEFT(收入凭证附件清单.票据编号, case when "
    "CHARINDEX('(',收入凭证附件清单.票据编号,1)>1 "
    "then CHARINDEX('(',收入凭证附件清单.票据编号,1)-1 else len(收入凭证附件清单.票据编号) end )  Inner Join "
    "收入凭证 On 收入凭证附件清单.凭证ID = 收入凭证.ID Where 车位申请登记表.管理处='{office}'  and "
    "Convert(char(8),收入凭证.审批日期,112) Between '{first}' and '{last}'  and WYZJ.ZJ_LX in ({item}) AND "
    "WYZJ.ZH_ID IS NULL And WYZJ.收款方式 In ({modes})  And (WYZJ.票据入库单编号 is null or "
    "WYZJ.票据入库单编号='') and (发票号码 is null or 发票号码='')  And 审批日期 Is Not Null And 审批同意=1 "
    "And "
    "(收入凭证附件清单.金额>=0 Or (收入凭证附件清单.金额<0 And 收入凭证.收款方式='退款')) And "
    "(Left(zj_cny,4) < "
    "'{y}' Or Left(zj_cny,4) = '{y}' Or Left(zj_cny,4) = '{y1}' Or Left(zj_cny,4) >= '{y2}')Group By "
    "车位申请登记表.车主姓名,SetupSFXM.XM,wyzj.zj_skrq,wyzj.收款人, 票据入库单编号, 发票号码  Order By "
    "入库单编号,票据编号,付款人";

// Parking spaces: dated by the ledger's own date of receipt, not by the voucher's approval.
constexpr const char* kSpaceLedgerSql =
    " Select WYZJ.票据入库单编号 as 入库单编号, WYZJ.发票号码 as 票据编号,  车位说明表.产权人 as 付款人,  "
    "SetupSFXM.XM as 项目, min(wyzj.zj_cny)+'-'+max(wyzj.zj_cny) as 摘要, sum(wyzj.zj_je) as 金额, "
    "sum(wyzj.收入) as SR,  wyzj.zj_skrq as 收款日期,wyzj.收款人 as 收款人,'' as 开票人,'' as 开票日期  From "
    "WYZJ  "
    "Inner Join 车位说明表 On WYZJ.CW_ID=车位说明表.ID Inner Join SETUPSFXM On WYZJ.ZJ_LX=SETUPSFXM.DH Inner "
    "Join "
    "收入凭证附件清单 On  WYZJ.票据入库单编号=收入凭证附件清单.票据本编号  And WYZJ.发票号码 = "
    "LEFT(收入凭证附件清单.票据编号, case when CHARINDEX('(',收入凭证附件清单.票据编号,1)>1 then "
    "CHARINDEX('(',收入凭证附件清单.票据编号,1)-1 else len(收入凭证附件清单.票据编号) end ) Inner Join "
    "收入凭证 "
    "On 收入凭证附件清单.凭证ID = 收入凭证.ID Where 车位说明表.管理处='{office}'  and "
    "Convert(char(8),WYZJ.ZJ_SKRQ,112) Between '{first}' and '{last}'  and WYZJ.ZJ_LX in ({item}) AND "
    "WYZJ.ZH_ID IS NULL  And WYZJ.收款方式 In ({modes})  And 审批日期 Is Not Null And 审批同意=1 And "
    "(收入凭证附件清单.金额>=0 Or (收入凭证附件清单.金额<0 And 收入凭证.收款方式='退款')) And "
    "(Left(zj_cny,4) < "
    "'{y}' Or Left(zj_cny,4) = '{y}' Or Left(zj_cny,4) = '{y1}' Or Left(zj_cny,4) >= '{y2}')Group By "
    "车位说明表.产权人,SetupSFXM.XM,wyzj.zj_skrq,wyzj.收款人, 票据入库单编号, 发票号码 Order By "
    "入库单编号,票据编号,付款人";

// The exchanged and the replacing invoices of the office; made and never sent.
constexpr const char* kExchangedSql =
    "{select} From 票据 Inner Join 设置管理处 On 票据.开票部门编号=设置管理处.对应部门代号  Where "
    "设置管理处.GYD_DH='{office}' And 内换日期 Is Not Null And 内换票据编号 Is Not Null";
constexpr const char* kReplacingSql = "{select} From 票据 Inner Join 设置管理处 On "
                                      "票据.开票部门编号=设置管理处.对应部门代号  Where "
                                      "设置管理处.GYD_DH='{office}' And 被换票票据编号 Is Not Null";

} // namespace

void frm预开票汇总表::BuildOwnerLedgerDetail() {
    BuildLedgerDetail(kOwnerLedgerSql, " Select 对应调换票据入库单 + 内换票据编号 ",
                      " Select 入库单编号 + 票据编号 ");
}

void frm预开票汇总表::BuildRegistrationLedgerDetail() {
    BuildLedgerDetail(kRegistrationLedgerSql, " Select 内换票据编号 ", " Select 票据编号 ");
}

void frm预开票汇总表::BuildSpaceLedgerDetail() {
    BuildLedgerDetail(kSpaceLedgerSql, " Select 内换票据编号 ", " Select 票据编号 ");
}

void frm预开票汇总表::BuildLedgerDetail(const char* statement, const char* exchangedSelect,
                                        const char* replacingSelect) {
    // The hidden last column is read as "office item"; the summary grid holds the office alone
    // there, and a cell without a blank fails the cut, as Left(cell, -1) does.
    const FlexGrid& s = MSFlexGrid1;
    const std::string key = s.TextMatrix(s.Row(), s.Cols() - 1);
    const std::size_t blank = key.find(' ');
    if (blank == std::string::npos) throw VbError(kErrInvalidProcCall, "无效的过程调用或参数");
    const std::string office = key.substr(0, blank);
    const std::string item = "'" + key.substr(blank + 1) + "'";

    std::string modes;
    if (Combo2.ListIndex() == 0) {
        for (int i = 1; i < Combo2.ListCount(); ++i)
            modes += (modes.empty() ? "'" : ",'") + Combo2.List(i) + "'";
    } else {
        modes = "'" + Combo2.List(Combo2.ListIndex()) + "'";
    }
    const int year = DTPicker1.Value().year;

    ExchangedStatement = FillStatement(kExchangedSql, {{"select", exchangedSelect}, {"office", office}});
    ReplacingStatement = FillStatement(kReplacingSql, {{"select", replacingSelect}, {"office", office}});
    FillDetailGrid(FillStatement(statement, {{"office", office},
                                             {"first", Format(DTPicker1.Value(), "YYYYMMDD")},
                                             {"last", Format(DTPicker2.Value(), "YYYYMMDD")},
                                             {"item", item},
                                             {"modes", modes},
                                             {"y", std::to_string(year)},
                                             {"y1", std::to_string(year + 1)},
                                             {"y2", std::to_string(year + 2)}}));
}

} // namespace quillon
