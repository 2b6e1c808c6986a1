// The three ledger views of the panel: the voucher match, the month span of a ledger group, the
// modes from Combo2, the dates each one tests, and the statements they make.
#include <gtest/gtest.h>

#include "base/vb_error.h"
#include "summary_rig.h"

namespace quillon {
namespace {

// Office 10's ledger: an owner of 北区栋3单元101室 paying three months of 物业费 on one invoice
// found on an approved voucher; a parking registration paid by 微信 without an invoice; a parking
// space paid in January on a voucher approved in February; and rows that do not match.
class LedgerDetail : public ::testing::Test {
protected:
    void SetUp() override {
        rig.Offices();
        rig.db.Exec(
            "INSERT INTO 楼表 (L_id, 管理处, 地址1, 字1, 地址2, 字2) VALUES (1, '10', '北区', '栋', '3', "
            "'单元');"
            "INSERT INTO 室表 VALUES (1, 1, '101');"
            "INSERT INTO 业主表 VALUES (5, 1, '王五');"
            "INSERT INTO 车位申请登记表 VALUES (7, '赵六', '10');"
            "INSERT INTO 车位说明表 VALUES (4, '钱七', '10');"
            "INSERT INTO 收入凭证 VALUES (1, '2024-02-20', 1, '现金'), (2, '2024-02-21', 0, '现金'),"
            " (3, '2024-03-01', 1, '微信'), (4, '2024-02-22', 1, '现金');"
            "INSERT INTO 收入凭证附件清单 VALUES (1, 'L9', '000777(1)', 300), (2, 'L9', '000888', 100),"
            " (3, '', '', 200), (1, 'L9', '000999', 150), (4, 'L9', '000555', -50);"
            // owner: three months on 000777; 000888 only on an unapproved voucher; 000555 a
            // negative attachment of a voucher that is no refund; a cheque outside the modes
            "INSERT INTO WYZJ (ZH_ID, ZJ_LX, zj_cny, zj_je, 收入, zj_skrq, 收款人, 收款方式, 票据入库单编号, "
            "发票号码)"
            " VALUES (5, 'WYF', '202401', 100, 94.34, '2024-02-10', '收款员', '现金', 'L9', '000777'),"
            " (5, 'WYF', '202403', 100, 94.34, '2024-02-10', '收款员', '现金', 'L9', '000777'),"
            " (5, 'WYF', '202402', 100, 94.34, '2024-02-10', '收款员', '现金', 'L9', '000777'),"
            " (5, 'WYF', '202404', 100, 94.34, '2024-02-10', '收款员', '现金', 'L9', '000888'),"
            " (5, 'WYF', '202405', 50, 47.17, '2024-02-10', '收款员', '现金', 'L9', '000555'),"
            " (5, 'WYF', '202406', 80, 75.47, '2024-02-10', '收款员', '支票', 'L9', '000777');"
            "INSERT INTO WYZJ (DJ_ID, ZJ_LX, zj_cny, zj_je, 收入, zj_skrq, 收款人, 收款方式, 票据入库单编号, "
            "发票号码)"
            " VALUES (7, 'TCF', '202402', 200, 188.68, '2024-02-12', '收款员', '微信', '', '');"
            "INSERT INTO WYZJ (CW_ID, ZJ_LX, zj_cny, zj_je, 收入, zj_skrq, 收款人, 收款方式, 票据入库单编号, "
            "发票号码)"
            " VALUES (4, 'TCF', '202401', 150, 141.51, '2024-01-15', '收款员', '微信', 'L9', '000999');");
        frm预开票汇总表& w = rig.Open();
        w.Combo2.AddItem("全部");
        w.Combo2.AddItem("现金");
        w.Combo2.AddItem("微信");
        rig.statements.clear();
    }

    // The hidden last column as the builders read it: office, a blank, item.
    frm预开票汇总表& Row(const std::string& key, DateTime first, DateTime last, int mode) {
        frm预开票汇总表& w = *rig.window;
        w.MSFlexGrid1.SetRows(2);
        w.MSFlexGrid1.SetTextMatrix(1, 8, key);
        w.MSFlexGrid1.SetRow(1);
        w.DTPicker1.SetValue(first);
        w.DTPicker2.SetValue(last);
        w.Combo2.SetListIndex(mode);
        return w;
    }

    SummaryRig rig;
};

constexpr DateTime kJan1{2024, 1, 1};
constexpr DateTime kJan31{2024, 1, 31};
constexpr DateTime kMar31{2024, 3, 31};

TEST_F(LedgerDetail, OwnerGroupSpansItsMonthsOnTheMatchedVoucher) {
    frm预开票汇总表& w = Row("10 WYF", kJan1, kMar31, 0);
    w.Label8.SetCaption("untouched");
    w.BuildOwnerLedgerDetail();
    EXPECT_EQ(GridLines(w.MSFlexGrid2, 1),
              (Lines{"1|L9|000777|北区栋3单元101室 "
                     "王五|物业费|[202401-202403]|300.00|16.98|283.02|2024-02-10|收款员|||",
                     "|合计|||||300.00|16.98|283.02|||||"}));
    EXPECT_EQ(w.Label8.Caption(), "untouched");
    EXPECT_EQ(
        rig.statements,
        (Lines{
            " Select wyzj.票据入库单编号 as 入库单编号, wyzj.发票号码 as 票据编号,  (Case When [地址1] Is "
            "Not Null Then [地址1] Else"
            " '' End) + (Case When [字1] Is Not Null Then [字1] Else '' End) + (Case When [地址2] Is Not "
            "Null Th"
            "en [地址2] Else '' End) + (Case When [字2] Is Not Null Then [字2] Else '' End) + (Case When "
            "[地址3] I"
            "s Not Null Then [地址3] Else '' End) + (Case When [字3] Is Not Null Then [字3] Else '' End) + "
            "(Case"
            " When [地址4] Is Not Null Then [地址4] Else '' End) + (Case When [字4] Is Not Null Then [字4] "
            "Else ''"
            " End) +室表.室 + '室'+' '+业主表.姓名 as 付款人,  SetupSFXM.XM as 项目,  "
            "min(wyzj.zj_cny)+'-'+max(wyzj.zj_cny"
            ") as 摘要,  sum(wyzj.zj_je) as 金额, sum(wyzj.收入) as SR,  wyzj.zj_skrq as "
            "收款日期,wyzj.收款人 as 收款人, '' "
            "as 开票人,'' as 开票日期  From 楼表  Inner Join 室表 On 楼表.L_id=室表.L_id  Inner Join 业主表  "
            "on 室表.S_ID=业主表.S_"
            "ID  Inner Join WYZJ On 业主表.ZH_ID=WYZJ.ZH_ID  Inner Join SETUPSFXM On WYZJ.ZJ_LX=SETUPSFXM.DH "
            " I"
            "nner Join 收入凭证附件清单 On  WYZJ.票据入库单编号=收入凭证附件清单.票据本编号  And "
            "WYZJ.发票号码 = LEFT(收入凭证附件清单.票据编号, case wh"
            "en CHARINDEX('(',收入凭证附件清单.票据编号,1)>1 then "
            "CHARINDEX('(',收入凭证附件清单.票据编号,1)-1 else len(收入凭证附件清单.票据编"
            "号) end )  Inner Join 收入凭证 On 收入凭证附件清单.凭证ID = 收入凭证.ID Where 楼表.管理处='10'  "
            "and Convert(char(8),收入凭"
            "证.审批日期,112) Between '20240101' and '20240331' and WYZJ.ZJ_LX in ('WYF')  And WYZJ.收款方式 "
            "In ('现金'"
            ",'微信')  And 审批日期 Is Not Null And 审批同意=1 And (收入凭证附件清单.金额>=0 Or "
            "(收入凭证附件清单.金额<0 And 收入凭证.收款方式='退款"
            "')) And (Left(zj_cny,4) < '2024' Or Left(zj_cny,4) = '2024' Or Left(zj_cny,4) = '2025' Or Left("
            "zj_cny,4) >= '2026') Group By (Case When [地址1] Is Not Null Then [地址1] Else '' End) + (Case "
            "When"
            " [字1] Is Not Null Then [字1] Else '' End) + (Case When [地址2] Is Not Null Then [地址2] Else "
            "'' End)"
            " + (Case When [字2] Is Not Null Then [字2] Else '' End) + (Case When [地址3] Is Not Null Then "
            "[地址3]"
            " Else '' End) + (Case When [字3] Is Not Null Then [字3] Else '' End) + (Case When [地址4] Is "
            "Not Nu"
            "ll Then [地址4] Else '' End) + (Case When [字4] Is Not Null Then [字4] Else '' End), 室表.室 "
            ",业主表.姓名,S"
            "etupSFXM.XM,wyzj.zj_skrq,wyzj.收款人, 票据入库单编号, 发票号码 Order By "
            "入库单编号,票据编号,付款人"}));
    EXPECT_EQ(w.ExchangedStatement,
              " Select 对应调换票据入库单 + 内换票据编号  From 票据 Inner Join 设置管理处 On "
              "票据.开票部门编号=设置管理处.对应部门代号  Where 设置管理处.GYD_DH='10' And 内换日期 Is Not "
              "Null And "
              "内换票据编号 Is Not Null");
    EXPECT_EQ(w.ReplacingStatement, " Select 入库单编号 + 票据编号  From 票据 Inner Join 设置管理处 On "
                                    "票据.开票部门编号=设置管理处.对应部门代号  Where 设置管理处.GYD_DH='10' "
                                    "And 被换票票据编号 Is Not Null");
}

TEST_F(LedgerDetail, OwnerRangeTestsTheApprovalDate) {
    frm预开票汇总表& w = Row("10 WYF", kJan1, kJan31, 0);
    w.BuildOwnerLedgerDetail();
    EXPECT_EQ(w.MSFlexGrid2.Rows(), 1) << "paid in February, approved in February";
}

TEST_F(LedgerDetail, RegistrationFindsOnlyRowsWithoutLotOrNumberAndTheChosenMode) {
    struct Case {
        const char* why;
        int mode;
        Lines rows;
    };
    const Case cases[] = {
        {"微信 chosen",
         2,
         {"1|||赵六|停车费|[202402-202402]|200.00|11.32|188.68|2024-02-12|收款员|||",
          "|合计|||||200.00|11.32|188.68|||||"}},
        {"现金 chosen: nothing", 1, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        frm预开票汇总表& w = Row("10 TCF", kJan1, kMar31, c.mode);
        w.BuildRegistrationLedgerDetail();
        EXPECT_EQ(GridLines(w.MSFlexGrid2, 1), c.rows);
        EXPECT_EQ(w.ExchangedStatement,
                  " Select 内换票据编号  From 票据 Inner Join 设置管理处 On "
                  "票据.开票部门编号=设置管理处.对应部门代号  "
                  "Where 设置管理处.GYD_DH='10' And 内换日期 Is Not Null And 内换票据编号 Is Not Null");
    }
}

TEST_F(LedgerDetail, SpaceRangeTestsTheDateOfReceipt) {
    frm预开票汇总表& w = Row("10 TCF", kJan1, kJan31, 2);
    w.BuildSpaceLedgerDetail();
    EXPECT_EQ(GridLines(w.MSFlexGrid2, 1),
              (Lines{"1|L9|000999|钱七|停车费|[202401-202401]|150.00|8.49|141.51|2024-01-15|收款员|||",
                     "|合计|||||150.00|8.49|141.51|||||"}));
    EXPECT_EQ(
        rig.statements,
        (Lines{
            " Select WYZJ.票据入库单编号 as 入库单编号, WYZJ.发票号码 as 票据编号,  车位说明表.产权人 as "
            "付款人,  SetupSFXM.XM as 项目, min(w"
            "yzj.zj_cny)+'-'+max(wyzj.zj_cny) as 摘要, sum(wyzj.zj_je) as 金额, sum(wyzj.收入) as SR,  "
            "wyzj.zj_skr"
            "q as 收款日期,wyzj.收款人 as 收款人,'' as 开票人,'' as 开票日期  From WYZJ  Inner Join "
            "车位说明表 On WYZJ.CW_ID=车位说明表"
            ".ID Inner Join SETUPSFXM On WYZJ.ZJ_LX=SETUPSFXM.DH Inner Join 收入凭证附件清单 On  "
            "WYZJ.票据入库单编号=收入凭证附件"
            "清单.票据本编号  And WYZJ.发票号码 = LEFT(收入凭证附件清单.票据编号, case when "
            "CHARINDEX('(',收入凭证附件清单.票据编号,1)>1 then C"
            "HARINDEX('(',收入凭证附件清单.票据编号,1)-1 else len(收入凭证附件清单.票据编号) end ) Inner "
            "Join 收入凭证 On 收入凭证附件清单.凭证ID "
            "= 收入凭证.ID Where 车位说明表.管理处='10'  and Convert(char(8),WYZJ.ZJ_SKRQ,112) Between "
            "'20240101' and '2"
            "0240131'  and WYZJ.ZJ_LX in ('TCF') AND WYZJ.ZH_ID IS NULL  And WYZJ.收款方式 In ('微信')  And "
            "审批日期 I"
            "s Not Null And 审批同意=1 And (收入凭证附件清单.金额>=0 Or (收入凭证附件清单.金额<0 And "
            "收入凭证.收款方式='退款')) And (Left(zj_c"
            "ny,4) < '2024' Or Left(zj_cny,4) = '2024' Or Left(zj_cny,4) = '2025' Or Left(zj_cny,4) >= '2026"
            "')Group By 车位说明表.产权人,SetupSFXM.XM,wyzj.zj_skrq,wyzj.收款人, 票据入库单编号, 发票号码 "
            "Order By 入库单编号,票据编号,付款人"}));
    EXPECT_EQ(w.ReplacingStatement,
              " Select 票据编号  From 票据 Inner Join 设置管理处 On "
              "票据.开票部门编号=设置管理处.对应部门代号  Where 设置管理处.GYD_DH='10' And "
              "被换票票据编号 Is Not Null");
}

TEST_F(LedgerDetail, SummaryCellWithoutABlankFailsTheCut) {
    frm预开票汇总表& w = Row("10", kJan1, kMar31, 0);
    try {
        w.BuildSpaceLedgerDetail();
        ADD_FAILURE() << "no failure";
    } catch (const VbError& e) {
        EXPECT_EQ(e.Number, 5);
    }
    EXPECT_TRUE(rig.statements.empty());
}

} // namespace
} // namespace quillon
