// Golden texts of the statements a run sends, written out in full: the month statement of each
// form with a category of rate 0 (维修基金, slot 1) and one of 6 % (物业管理费住宅, slot 2), and
// the extraction and both adjustments of frm票据核对表. A DBA comparing a trace with the program
// finds these texts, blanks included.
#include "reconciliation/recon_fixture.h"

namespace quillon {
namespace {

void AddTwoCategoryMarch(TestBillingDb& db) {
    AddReconBooks(db);
    db.Invoice(OneLine(kSpecialLot, "S001", "2024-03-05", "2024-03-05", "WY", 1060, 60))
        .Invoice(OneLine(kOrdinaryLot, "O002", "2024-03-20", "2024-03-20", "WX", 300, 0));
}

// Types of frm票据核对表New: all '01','02','03','04', special '01', ordinary '02', receipts '04'.
constexpr const char* kMonthStatementNew =
    "Select Distinct CASE WHEN A.税率 IS NULL THEN 100 else A.税率 END AS S税率 , A1.专用发票, A1.专发税额, "
    "A2.普通发票, A2.普发税额, CASE WHEN A.税率 IS not NULL THEN NULL ELSE A3.收据 End As S收据 "
    " , CASE WHEN (A.税率 IS not NULL And A.税率>0) THEN 0 ELSE B1.维修基金 END AS 维修基金"
    " ,B2.物业管理费住宅"
    " From 税控盘收费项目设置 A"
    " LEFT Join (Select SUM(票据开票数据.金额) as 专用发票, SUM(Case When 票据开票数据.税额 Is Null Then 0 "
    "Else 票据开票数据.税额 End) as 专发税额, 税控盘收费项目设置.税率"
    " From 票据开票数据"
    " Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号"
    " Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号"
    " Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " Inner Join 税控盘收费项目设置 on 收费项目代号=dh"
    " Where CONVERT(char(6),开票日期,112) ='202403'"
    " And 收费项目代号 in ('WX','WY') And 作废日期 is null"
    " And 开票部门编号 ='0101' And 税控盘收费项目设置.管理处 ='G01' And 票据类型代号 IN ('01')"
    " group by 税控盘收费项目设置.税率) A1 On A.税率=A1.税率"
    " LEFT Join (Select SUM(票据开票数据.金额) as 普通发票,  SUM(Case When 票据开票数据.税额 Is Null Then 0 "
    "Else 票据开票数据.税额 End) as 普发税额, 税控盘收费项目设置.税率"
    " From 票据开票数据"
    " Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号"
    " Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号"
    " Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " Inner Join 税控盘收费项目设置 on 收费项目代号=dh"
    " Where CONVERT(char(6),开票日期,112) ='202403'"
    " And 收费项目代号 in ('WX','WY') And 作废日期 is null"
    " And 开票部门编号 ='0101' And 税控盘收费项目设置.管理处 ='G01' And 票据类型代号 IN ('02')"
    " group by 税控盘收费项目设置.税率) A2 On A.税率=A2.税率"
    " LEFT Join (Select SUM(票据开票数据.金额) as 收据, 税控盘收费项目设置.税率 "
    " From 票据开票数据"
    " Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号"
    " Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号"
    " Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " Inner Join 税控盘收费项目设置 on 收费项目代号=dh"
    " Where CONVERT(char(6),开票日期,112) ='202403'"
    " And 收费项目代号 in ('WX','WY') And 作废日期 is null "
    " And 开票部门编号 ='0101' And 税控盘收费项目设置.管理处 ='G01' And 票据类型代号 IN ('04')"
    " group by 税控盘收费项目设置.税率) A3 On (A.税率=A3.税率 Or A3.税率 Is Null)"
    " LEFT Join (Select SUM(票据开票数据.金额) as 维修基金, 税控盘收费项目设置.税率"
    " From 票据开票数据"
    " Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号"
    " Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号"
    " Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " Inner Join 税控盘收费项目设置 on 收费项目代号=dh"
    " Where ((CONVERT(char(6),开票日期,112) ='202403'"
    " And CONVERT(char(6),收款日期,112) ='202403') Or (CONVERT(char(6),收款日期 ,112) ='202403'"
    " And CONVERT(char(6),开票日期,112) < CONVERT(char(6),收款日期,112)))"
    " And 收费项目代号 in ('WX') And 作废日期 is null and 收款日期 is not null"
    " And 开票部门编号 ='0101' And 税控盘收费项目设置.管理处 ='G01' And 票据类型代号 IN ('01','02','03','04')"
    " group by 税控盘收费项目设置.税率) B1 On (A.税率= B1.税率 Or B1.税率 Is Null)"
    " LEFT Join (Select SUM(票据开票数据.金额) as 物业管理费住宅, 税控盘收费项目设置.税率"
    " From 票据开票数据"
    " Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号"
    " Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号"
    " Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " Inner Join 税控盘收费项目设置 on 收费项目代号=dh"
    " Where ((CONVERT(char(6),开票日期,112) ='202403'"
    " And CONVERT(char(6),收款日期,112) ='202403') Or (CONVERT(char(6),收款日期 ,112) ='202403'"
    " And CONVERT(char(6),开票日期,112) < CONVERT(char(6),收款日期,112)))"
    " And 收费项目代号 in ('WY') And 作废日期 is null and 收款日期 is not null"
    " And 开票部门编号 ='0101' And 税控盘收费项目设置.管理处 ='G01' And 票据类型代号 IN ('01','02','03','04')"
    " group by 税控盘收费项目设置.税率) B2 On A.税率= B2.税率"
    " Where (专用发票 Is Not Null Or 普通发票 Is Not Null Or A3.收据 Is Not Null)"
    " order by  S税率";

// Types of frm票据核对表 (类别 发票 only): all '01','02','03', special '01', ordinary '02', 全电 '03'.
constexpr const char* kMonthStatementFirst =
    "Select Distinct CASE WHEN A.税率 IS NULL THEN 100 else A.税率 END AS S税率 , A1.专用发票, A1.专发税额, "
    "A2.普通发票, A2.普发税额, A3.全电发票, A3.全电税额"
    " , CASE WHEN (A.税率 IS not NULL And A.税率>0) THEN 0 ELSE B1.维修基金 END AS 维修基金"
    " ,B2.物业管理费住宅"
    " From 税控盘收费项目设置 A"
    " LEFT Join (Select SUM(票据开票数据.金额) as 专用发票, SUM(Case When 票据开票数据.税额 Is Null Then 0 "
    "Else 票据开票数据.税额 End) as 专发税额, 税控盘收费项目设置.税率"
    " From 票据开票数据"
    " Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号"
    " Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号"
    " Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " Inner Join 税控盘收费项目设置 on 收费项目代号=dh"
    " Where CONVERT(char(6),开票日期,112) ='202403'"
    " And 收费项目代号 in ('WX','WY') And 作废日期 is null"
    " And 开票部门编号 ='0101' And 税控盘收费项目设置.管理处 ='G01' And 票据类型代号 IN ('01')"
    " group by 税控盘收费项目设置.税率) A1 On A.税率 = A1.税率"
    " LEFT Join (Select SUM(票据开票数据.金额) as 普通发票,  SUM(Case When 票据开票数据.税额 Is Null Then 0 "
    "Else 票据开票数据.税额 End) as 普发税额, 税控盘收费项目设置.税率"
    " From 票据开票数据"
    " Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号"
    " Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号"
    " Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " Inner Join 税控盘收费项目设置 on 收费项目代号=dh"
    " Where CONVERT(char(6),开票日期,112) ='202403'"
    " And 收费项目代号 in ('WX','WY') And 作废日期 is null"
    " And 开票部门编号 ='0101' And 税控盘收费项目设置.管理处 ='G01' And 票据类型代号 IN ('02')"
    " group by 税控盘收费项目设置.税率) A2 On A.税率 = A2.税率"
    " LEFT Join (Select SUM(票据开票数据.金额) as 全电发票,  SUM(Case When 票据开票数据.税额 Is Null Then 0 "
    "Else 票据开票数据.税额 End) as 全电税额, 税控盘收费项目设置.税率"
    " From 票据开票数据"
    " Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号"
    " Inner Join 票据入库单 on 票据开票数据.入库单编号 = 票据入库单.入库单编号"
    " Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " Inner Join 税控盘收费项目设置 on 收费项目代号=dh"
    " Where CONVERT(char(6),开票日期,112) ='202403'"
    " And 收费项目代号 in ('WX','WY') And 作废日期 is null"
    " And 开票部门编号 ='0101' And 税控盘收费项目设置.管理处 ='G01' And 票据类型代号 In ('03')"
    " group by 税控盘收费项目设置.税率) A3 On A.税率 = A3.税率"
    " LEFT Join (Select SUM(票据开票数据.金额) as 维修基金, 税控盘收费项目设置.税率"
    " From 票据开票数据"
    " Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号"
    " Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号"
    " Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " Inner Join 税控盘收费项目设置 on 收费项目代号=dh"
    " Where ((CONVERT(char(6),开票日期,112) ='202403'"
    " And CONVERT(char(6),收款日期,112) ='202403') Or (CONVERT(char(6),收款日期 ,112) ='202403'"
    " And CONVERT(char(6),开票日期,112) < CONVERT(char(6),收款日期,112)))"
    " And 收费项目代号 in ('WX') And 作废日期 is null and 收款日期 is not null"
    " And 开票部门编号 ='0101' And 税控盘收费项目设置.管理处 ='G01' And 票据类型代号 IN ('01','02','03')"
    " group by 税控盘收费项目设置.税率) B1 On (A.税率= B1.税率 Or B1.税率 Is Null)"
    " LEFT Join (Select SUM(票据开票数据.金额) as 物业管理费住宅, 税控盘收费项目设置.税率"
    " From 票据开票数据"
    " Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号"
    " Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号"
    " Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " Inner Join 税控盘收费项目设置 on 收费项目代号=dh"
    " Where ((CONVERT(char(6),开票日期,112) ='202403'"
    " And CONVERT(char(6),收款日期,112) ='202403') Or (CONVERT(char(6),收款日期 ,112) ='202403'"
    " And CONVERT(char(6),开票日期,112) < CONVERT(char(6),收款日期,112)))"
    " And 收费项目代号 in ('WY') And 作废日期 is null and 收款日期 is not null"
    " And 开票部门编号 ='0101' And 税控盘收费项目设置.管理处 ='G01' And 票据类型代号 IN ('01','02','03')"
    " group by 税控盘收费项目设置.税率) B2 On A.税率= B2.税率"
    " Where (专用发票 Is Not Null Or 普通发票 Is Not Null Or A3.全电发票 Is Not Null)"
    " order by  S税率";

constexpr const char* kExtractionFirst =
    "Select distinct 收费项目代号, 税控盘收费项目设置.税率,XM , 收费类别,显示名称"
    " From 票据"
    " inner join 票据开票数据 on 票据.票据编号  =票据开票数据.票据编号"
    " And 票据.入库单编号 = 票据开票数据.入库单编号"
    " inner join 票据入库单 on 票据.入库单编号 =票据入库单.入库单编号"
    " inner join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " inner join setupsfxm on 收费项目代号=dh"
    " Inner Join 税控盘收费项目设置 ON setupsfxm.dh = 税控盘收费项目设置.DH "
    " where CONVERT(char(6),开票日期,112) between '202403' and '202403' and 作废日期 is null "
    " And 开票部门编号 ='0101' And 票据类型代号 In ('01','02','03') And 税控盘收费项目设置.管理处 ='G01'"
    " group by  税控盘收费项目设置.税率,收费项目代号,xm,收费类别,显示名称"
    " order by 收费项目代号";

constexpr const char* kCollectedFirst =
    "Select SUM(票据开票数据.金额) 当月收预开"
    " From 票据开票数据"
    " Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号  =票据.票据编号"
    " Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号"
    " Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " Where CONVERT(char(6),收款日期 ,112) ='202403'"
    " And CONVERT(char(6),开票日期,112) < CONVERT(char(6),收款日期,112)"
    " And 作废日期 is null and 收款日期 is not null And 收费项目代号 in ('WX','WY')"
    " And 开票部门编号 ='0101' And 票据类型代号 IN ('01','02','03') And 内换日期 Is Null";

constexpr const char* kUncollectedFirst =
    "Select SUM(票据开票数据.金额) 当月未收预开票"
    " From 票据开票数据"
    " Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号  =票据.票据编号"
    " Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号"
    " Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号"
    " Where CONVERT(char(6),开票日期 ,112) ='202403'"
    " And (收款日期 Is Null Or CONVERT(char(6),收款日期,112) > CONVERT(char(6),开票日期,112))"
    " And 作废日期 is null And 收费项目代号 in ('WX','WY')"
    " And 开票部门编号 ='0101' And 票据类型代号 IN ('01','02','03') And 内换日期 Is Null";

TEST_F(ReconTest, StatementsOfAMarchRunAreTheGoldenTexts) {
    AddTwoCategoryMarch(db);
    struct Case {
        const char* why;
        bool newForm;
        std::size_t index; // load: department list and types; run: extraction, month, two adjustments
        const char* golden;
    };
    const Case cases[] = {
        {"month statement of frm票据核对表New", true, 3, kMonthStatementNew},
        {"month statement of frm票据核对表", false, 3, kMonthStatementFirst},
        {"extraction of frm票据核对表", false, 2, kExtractionFirst},
        {"collected pre-invoices of frm票据核对表", false, 4, kCollectedFirst},
        {"uncollected pre-invoices of frm票据核对表", false, 5, kUncollectedFirst},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        sent.clear();
        auto w = OpenForm(c.newForm);
        Run(*w, "2024", "03", "03");
        ASSERT_EQ(sent.size(), 6u);
        EXPECT_EQ(sent[c.index], c.golden);
    }
}

} // namespace
} // namespace quillon
