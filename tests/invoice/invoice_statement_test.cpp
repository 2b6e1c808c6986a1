// The invoice detail's statements, written out in full: a typo in a generated statement would
// otherwise only show as wrong figures on a real server.
#include <gtest/gtest.h>

#include "invoice/invoice_window.h"
#include "support/split_fixture.h"

namespace quillon {
namespace {

TEST(InvoiceStatements, ChargeItemAndExchangedNumberQueries) {
    EXPECT_EQ(
        InvoiceChargeItemQuery("20240301", "20240331", "0101"),
        "Select distinct 收费项目代号, setupsfxm.税率,XM , 收费类别,显示名称 "
        "From 票据 Inner Join 票据开票数据 on 票据.票据编号  =票据开票数据.票据编号 And "
        "票据.入库单编号 = 票据开票数据.入库单编号 Inner Join 票据入库单 on 票据.入库单编号 "
        "=票据入库单.入库单编号 Inner Join setupsfxm on 收费项目代号=dh Where "
        " 开票部门编号 ='0101' And (Convert(Char(8),开票日期,112) Between "
        "'20240301' And '20240331' Or (Convert(Char(8),收款日期,112) "
        "Between '20240301' And '20240331' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112))) "
        "And (作废日期 Is Null Or 作废日期 Is Not Null) group by  "
        "setupsfxm.税率,收费项目代号,xm,收费类别,显示名称 "
        "order by 收费项目代号");
    EXPECT_EQ(ExchangedNumberQuery("20240301", "20240331"),
              "Select 内换票据编号 From 票据 Where 内换日期 is Not Null And 内换票据编号 "
              "is Not Null And (Convert(Char(8),开票日期,112) Between '20240301' "
              "And '20240331' Or (Convert(Char(8),收款日期,112) Between "
              "'20240301' And '20240331' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112)))");
}

TEST(InvoiceStatements, InvoiceDetailQueryWithTwoItems) {
    SplitFixture f({kMonthlyParking, kManagementFee});
    EXPECT_EQ(
        InvoiceDetailQuery(f.items, f.split, "20240301", "20240331", "0101", "'01','02'"),
        "Select 票据.票据编号 ,票据.入库单编号 , 票据类型.票据类型 ,开票日期, 收款日期, 作废日期, "
        "票据.金额, 收款方式, 付款人, 地址, 票据.被换票票据编号  , 票据.内换日期, 票据.内换票据编号 "
        " ,B1.停车费月租KFS ,B1.停车费月租WY , B1.停车费月租税额 ,B2.物业管理费住宅 , "
        "B2.物业管理费住宅税额 From 票据 inner join 票据入库单 on 票据.入库单编号 =票据入库单.入库单编号 "
        "inner join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号 LEFT Join "
        "(Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then "
        "0 Else 票据开票数据.税额 End)) * 0.3 as 停车费月租WY, SUM(票据开票数据.金额 "
        "- (Case When 票据开票数据.税额 Is Null Then 0 Else 票据开票数据.税额 "
        "End))  As 停车费月租KFS, SUM(票据开票数据.税额) as 停车费月租税额, 票据开票数据.票据编号 "
        "From 票据开票数据 Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 "
        "and 票据开票数据.票据编号 = 票据.票据编号 Inner Join 票据入库单 on 票据开票数据.入库单编号 "
        "=票据入库单.入库单编号 Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号 "
        "Where  (作废日期 Is Null Or 作废日期 Is Not Null) And (Convert(Char(8),开票日期,112) "
        "Between '20240301' And '20240331' Or (Convert(Char(8),收款日期,112) "
        "Between '20240301' And '20240331' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112))) "
        "And 收费项目代号 in ('P1') And 开票部门编号 ='0101' And 票据类型代号 In "
        "('01','02') Group by 票据开票数据.票据编号) B1 On 票据.票据编号 = B1.票据编号 "
        "LEFT Join (Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 "
        "Is Null Then 0 Else 票据开票数据.税额 End)) as 物业管理费住宅 ,SUM(票据开票数据.税额) "
        "as 物业管理费住宅税额, 票据开票数据.票据编号 From 票据开票数据 Inner Join 票据 "
        " on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号 "
        "Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 Inner "
        "Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号 Where  (作废日期 "
        "Is Null Or 作废日期 Is Not Null) And (Convert(Char(8),开票日期,112) "
        "Between '20240301' And '20240331' Or (Convert(Char(8),收款日期,112) "
        "Between '20240301' And '20240331' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112))) "
        "And 收费项目代号 in ('WY') And 开票部门编号 ='0101' And 票据类型代号 In "
        "('01','02') Group by 票据开票数据.票据编号) B2 On 票据.票据编号 = B2.票据编号 "
        "Where 票据.开票部门编号 ='0101' And 票据类型代号 In ('01','02') And "
        "(停车费月租KFS Is Not Null Or 物业管理费住宅 Is Not Null) And (Convert(Char(8),开票日期,112) "
        "Between '20240301' And '20240331' Or (Convert(Char(8),收款日期,112) "
        "Between '20240301' And '20240331' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112))) "
        "And 被换票票据编号 is null Union All Select 票据.票据编号 ,票据.入库单编号 "
        ", 票据类型.票据类型 ,开票日期, 收款日期, 作废日期, 票据.金额, 收款方式, 付款人, 地址, "
        "票据.被换票票据编号 , 票据.内换日期, 票据.内换票据编号  ,B1.停车费月租KFS ,B1.停车费月租WY "
        ", B1.停车费月租税额 ,B2.物业管理费住宅 , B2.物业管理费住宅税额 From 票据 inner "
        "join 票据入库单 on 票据.入库单编号 =票据入库单.入库单编号 inner join 票据类型 "
        "on 票据入库单.票据类型编号 =票据类型.票据类型代号 LEFT Join (Select SUM(票据开票数据.金额-(Case "
        "When 票据开票数据.税额 Is Null Then 票据开票数据.金额 Else 票据开票数据.金额 "
        "End)) * 0.3 as 停车费月租WY, SUM(票据开票数据.金额 - (Case When 票据开票数据.税额 "
        "Is Null Then 票据开票数据.金额 Else 票据开票数据.金额 End))  As 停车费月租KFS, "
        "SUM(票据开票数据.税额) as 停车费月租税额, 票据开票数据.票据编号 From 票据开票数据 Inner "
        "Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 "
        "= 票据.票据编号 Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 "
        "Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号 Where  "
        "(作废日期 Is Null Or 作废日期 Is Not Null) And (Convert(Char(8),开票日期,112) "
        "Between '20240301' And '20240331' Or (Convert(Char(8),收款日期,112) "
        "Between '20240301' And '20240331' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112))) "
        "And 收费项目代号 in ('P1') And 开票部门编号 ='0101' And 票据类型代号 In "
        "('01','02') Group by 票据开票数据.票据编号) B1 On 票据.票据编号 = B1.票据编号 "
        "LEFT Join (Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 "
        "Is Null Then 票据开票数据.金额 Else 票据开票数据.金额 End)) as 物业管理费住宅 "
        ",SUM(0) as 物业管理费住宅税额, 票据开票数据.票据编号 From 票据开票数据 Inner "
        "Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 "
        "= 票据.票据编号 Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 "
        "Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号 Where  "
        "(作废日期 Is Null Or 作废日期 Is Not Null) And (Convert(Char(8),开票日期,112) "
        "Between '20240301' And '20240331' Or (Convert(Char(8),收款日期,112) "
        "Between '20240301' And '20240331' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112))) "
        "And 收费项目代号 in ('WY') And 开票部门编号 ='0101' And 票据类型代号 In "
        "('01','02') Group by 票据开票数据.票据编号) B2 On 票据.票据编号 = B2.票据编号 "
        "Where 票据.开票部门编号 ='0101' And 票据类型代号 In ('01','02') And "
        "(停车费月租KFS Is Not Null Or 物业管理费住宅 Is Not Null) And (Convert(Char(8),开票日期,112) "
        "Between '20240301' And '20240331' Or (Convert(Char(8),收款日期,112) "
        "Between '20240301' And '20240331' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112))) "
        "And 被换票票据编号 is not null Order by 票据.开票日期,票据编号");
}

TEST(InvoiceStatements, FundInvoiceQueryGivesTheFundItemItsOwnHead) {
    SplitFixture f({kMonthlyParking, kFundItem, kManagementFee});
    EXPECT_EQ(
        FundInvoiceQuery(f.items, f.split, "20240301", "20240331", "0101", "'01','02'"),
        "Select 票据.票据编号 ,票据.入库单编号 , 票据类型.票据类型 ,开票日期, 收款日期, 作废日期, "
        "票据.金额, 收款方式, 付款人, 地址, 票据.被换票票据编号  ,B1.停车费月租KFS ,B1.停车费月租WY "
        ", B1.停车费月租税额 ,B2.维修基金 , B2.维修基金税额 ,B3.物业管理费住宅 , B3.物业管理费住宅税额 "
        "From 票据 inner join 票据入库单 on 票据.入库单编号 =票据入库单.入库单编号 inner "
        "join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号 LEFT Join (Select "
        "SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else "
        "票据开票数据.税额 End)) * 0.3 as 停车费月租WY, SUM(票据开票数据.金额 - (Case "
        "When 票据开票数据.税额 Is Null Then 0 Else 票据开票数据.税额 End))  "
        "As 停车费月租KFS, SUM(票据开票数据.税额) as 停车费月租税额, 票据开票数据.票据编号 "
        " , 票据开票数据.入库单编号 From 票据开票数据 Inner Join 票据  on 票据开票数据.入库单编号 "
        " =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号 Inner Join 票据入库单 "
        "on 票据开票数据.入库单编号 =票据入库单.入库单编号 Inner Join 票据类型 on 票据入库单.票据类型编号 "
        "=票据类型.票据类型代号 Where  (作废日期 Is Null Or 作废日期 Is Not Null) "
        "And (Convert(Char(8),开票日期,112) Between '20240301' And "
        "'20240331' Or (Convert(Char(8),收款日期,112) Between '20240301' "
        "And '20240331' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112))) "
        "And 收费项目代号 in ('P1') And 开票部门编号 ='0101' And 票据类型代号 In "
        "('01','02') Group by 票据开票数据.票据编号, 票据开票数据.入库单编号) B1 On "
        "票据.票据编号 = B1.票据编号 And 票据.入库单编号 = B1.入库单编号 LEFT Join "
        "(Select  Sum(票据开票数据.金额 - (Case When 票据开票数据.税额 Is Null "
        "Then 0 Else 票据开票数据.税额 End)) as 维修基金 , Sum(票据开票数据.税额) "
        "as 维修基金税额, 票据开票数据.票据编号 , 票据开票数据.入库单编号 From 票据开票数据 Inner "
        "Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 "
        "= 票据.票据编号 Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 "
        "Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号 Where  "
        "(作废日期 Is Null Or 作废日期 Is Not Null) And (Convert(Char(8),开票日期,112) "
        "Between '20240301' And '20240331' Or (Convert(Char(8),收款日期,112) "
        "Between '20240301' And '20240331' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112))) "
        "And 收费项目代号 in ('WX') And 开票部门编号 ='0101' And 票据类型代号 In "
        "('01','02') Group by 票据开票数据.票据编号, 票据开票数据.入库单编号) B2 On "
        "票据.票据编号 = B2.票据编号 And 票据.入库单编号 = B2.入库单编号 LEFT Join "
        "(Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then "
        "0 Else 票据开票数据.税额 End)) as 物业管理费住宅 ,SUM(票据开票数据.税额) as "
        "物业管理费住宅税额, 票据开票数据.票据编号, 票据开票数据.入库单编号 From 票据开票数据 Inner "
        "Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 "
        "= 票据.票据编号 Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 "
        "Inner Join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号 Where  "
        "(作废日期 Is Null Or 作废日期 Is Not Null) And (Convert(Char(8),开票日期,112) "
        "Between '20240301' And '20240331' Or (Convert(Char(8),收款日期,112) "
        "Between '20240301' And '20240331' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112))) "
        "And 收费项目代号 in ('WY') And 开票部门编号 ='0101' And 票据类型代号 In "
        "('01','02') Group by 票据开票数据.票据编号, 票据开票数据.入库单编号) B3 On "
        "票据.票据编号 = B3.票据编号 And 票据.入库单编号 = B3.入库单编号 Where 票据.开票部门编号 "
        "='0101' And 票据类型代号 In ('01','02') And (停车费月租KFS Is Not "
        "Null Or 维修基金 Is Not Null Or 物业管理费住宅 Is Not Null) And "
        "(Convert(Char(8),开票日期,112) Between '20240301' And '20240331' "
        "Or (Convert(Char(8),收款日期,112) Between '20240301' And "
        "'20240331' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112))) "
        "Order by 票据.开票日期,票据编号");
}

} // namespace
} // namespace quillon
