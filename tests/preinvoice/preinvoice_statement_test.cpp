// The pre-invoice detail's statements, written out in full: a typo in a generated statement
// would otherwise only show as wrong figures on a real server.
#include <gtest/gtest.h>

#include "preinvoice/preinvoice_window.h"
#include "support/split_fixture.h"

namespace quillon {
namespace {

TEST(PreInvoiceStatements, ChargeItemQuery) {
    EXPECT_EQ(
        PreInvoiceChargeItemQuery("20240101", "20240331", "0101", "'01','02'"),
        "Select distinct 收费项目代号, setupsfxm.税率,XM , 收费类别,显示名称 From 票据 inner join "
        "票据开票数据 on "
        "票据.票据编号  = 票据开票数据.票据编号 And 票据.入库单编号 = 票据开票数据.入库单编号  inner join "
        "票据入库单 "
        "on 票据.入库单编号 = 票据入库单.入库单编号 inner join 票据类型 on 票据入库单.票据类型编号 "
        "=票据类型.票据类型代号 inner join setupsfxm on 收费项目代号=dh where CONVERT(char(8),开票日期,112) "
        "between '20240101' and '20240331' And (convert(char(8),收款日期,112) > '20240331' Or (收款日期 is "
        "null "
        "and 预开=1) Or 收款日期 Is Null) and 作废日期 is null  And 开票部门编号 ='0101' And 票据类型代号 In "
        "('01','02') group by  setupsfxm.税率,收费项目代号,xm,收费类别,显示名称 order by 收费项目代号");
}

TEST(PreInvoiceStatements, BillDetailQueryWithAParkingAndAnOrdinaryItem) {
    SplitFixture f({kMonthlyParking, kManagementFee});
    f.grid.SetTextMatrix(1, kSplitPropertyCol, "33.5");

    EXPECT_EQ(
        PreInvoiceBillDetailQuery(f.items, f.split, "20240101", "20240331", "0101", "'01','02'"),
        "Select 票据.票据编号 ,票据.入库单编号 , 票据类型.票据类型 ,开票日期, 收款日期, 作废日期, 票据.金额, "
        "收款方式, 付款人, 地址,  内换日期 ,被换票票据编号 ,B1.停车费月租KFS ,B1.停车费月租WY , "
        "B1.停车费月租税额 "
        ",B2.物业管理费住宅 , B2.物业管理费住宅税额 From 票据 inner join 票据入库单 on 票据.入库单编号 "
        "=票据入库单.入库单编号 inner join 票据类型 on 票据入库单.票据类型编号 =票据类型.票据类型代号 LEFT "
        "Join "
        "(Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else 票据开票数据.税额 "
        "End)) * "
        "0.335 as 停车费月租WY, SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else "
        "票据开票数据.税额 End)) As 停车费月租KFS, SUM(票据开票数据.税额) as 停车费月租税额, "
        "票据开票数据.票据编号 "
        "From 票据开票数据 Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and "
        "票据开票数据.票据编号 = "
        "票据.票据编号 Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 Inner Join "
        "票据类型 "
        "on 票据入库单.票据类型编号 =票据类型.票据类型代号 Where 作废日期 Is Null And "
        "Convert(Char(8),开票日期,112) "
        "Between '20240101' And '20240331' And (convert(char(8),收款日期,112) > '20240331' Or (收款日期 is "
        "null and "
        "预开=1) Or 收款日期 is null) And 收费项目代号 in ('P1') And 开票部门编号 ='0101' And 票据类型代号 "
        "In "
        "('01','02') Group by 票据开票数据.票据编号) B1 On 票据.票据编号 = B1.票据编号 LEFT Join (Select "
        "SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else 票据开票数据.税额 End)) as "
        "物业管理费住宅 ,SUM(票据开票数据.税额) as 物业管理费住宅税额, 票据开票数据.票据编号 From "
        "票据开票数据 Inner "
        "Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号 "
        "Inner Join "
        "票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 Inner Join 票据类型 on "
        "票据入库单.票据类型编号 "
        "=票据类型.票据类型代号 Where 作废日期 Is Null And Convert(Char(8),开票日期,112) Between '20240101' "
        "And "
        "'20240331' And (convert(char(8),收款日期,112) > '20240331' Or (收款日期 is null and 预开=1) Or "
        "收款日期 is "
        "null) And 收费项目代号 in ('WY') And 开票部门编号 ='0101' And 票据类型代号 In ('01','02') Group by "
        "票据开票数据.票据编号) B2 On 票据.票据编号 = B2.票据编号 Where 票据.开票部门编号 ='0101' And "
        "内换日期 Is Null "
        "And (停车费月租KFS Is Not Null Or 物业管理费住宅 Is Not Null) And Convert(Char(8),开票日期,112) "
        "Between "
        "'20240101' And '20240331' And (convert(char(8),收款日期,112) > '20240331' Or 收款日期 is null) "
        "Order by "
        "票据.开票日期,票据编号");
}

} // namespace
} // namespace quillon
